/// Access to the text in a `variant` without a copy.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::types::_private {

/// The stored text, if the value is a `ustring8` or a byte string; otherwise null. Valid as long as the
/// value.
const strings::ustring8* stored_text(const variant& value) noexcept;

}  // namespace ORVA_NAMESPACE::types::_private
