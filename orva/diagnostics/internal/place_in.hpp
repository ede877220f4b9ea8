/// `place_of` for text of any width.
///
/// Internal: not installed.
#pragma once

#include <cstddef>

#include "orva/diagnostics/place.hpp"
#include "orva/strings/text_view.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

/// The offset is in code units of the text. Wide text is converted up to there.
///
/// REQUIRES: the offset is not within a surrogate pair.
place place_in(const strings::text_view& text, std::size_t offset);

}  // namespace ORVA_NAMESPACE::diagnostics::_private
