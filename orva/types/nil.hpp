/// `nil`: the value that means "nothing".
///
///     variant value = nil;
///     value == nil                  =>  true
///     varg_list() == nil            =>  true: an empty list
///     debug::set_assert_hook(nil)   =>  removes the hook
///
/// It has no data; its type selects overloads. Each class that compares with nil documents what is equal to
/// it.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::types {

class nil_t {};

/// Not const: `variant` and `message_t` take it by non-const reference.
extern ORVA_API nil_t nil;

}  // namespace ORVA_NAMESPACE::types
