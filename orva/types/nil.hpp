/// `nil`, the one value by which the library says "nothing".
///
/// It carries no data; its type selects overloads. What "equal to nil" means is told by each class that
/// compares with it: an empty list, a value without content, a name that is not there.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::types {

class nil_t {};

/// Not const: `variant` and `message_t` take their nil by non-const reference.
extern ORVA_API nil_t nil;

}  // namespace ORVA_NAMESPACE::types
