/// The values of a finding's arguments, as text.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

enum class argument_kind {
  nothing,
  truth,
  number,  ///< an integer, or a floating value that is a number
  text,    ///< also infinity and NaN, which JSON does not have
};

struct argument_text {
  argument_kind kind;
  /// Numbers in the shortest form that reads back to the same value; "true", "false"; nothing is empty. Wide
  /// text has U+FFFD for each malformed part; text of bytes is as it is.
  strings::ustring8 text;
};

argument_text text_of(const types::variant& value);

}  // namespace ORVA_NAMESPACE::diagnostics::_private
