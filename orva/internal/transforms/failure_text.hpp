/// What a transform gives back instead of a text that it cannot read.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// "-1" in the width asked for.
template <code_unit Unit>
basic_ustring<Unit> failure_text() {
  constexpr Unit units[] = {'-', '1'};
  return basic_ustring<Unit>(units, 2);
}

}  // namespace ORVA_NAMESPACE::strings::_private
