/// The text in a `variant`, looked at without a copy.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::types::_private {

/// What `as_string` copies if the value is a `ustring8` or a byte string; null if it is anything else. Lives
/// as long as the value.
const strings::ustring8* stored_text(const variant& value) noexcept;

}  // namespace ORVA_NAMESPACE::types::_private
