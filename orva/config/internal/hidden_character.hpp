/// Characters that do not show, or look like a blank, and are text to `file_item`.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// The offset of the first one, or npos. Blanks, tabs, line ends and zero bytes do not count: others look for
/// them.
std::size_t first_hidden(std::string_view text);

/// Whether there is nothing else.
bool all_hidden(std::string_view text);

/// The character at the beginning of a text, as "U+00A0".
strings::ustring8 code_point_name(std::string_view text);

}  // namespace ORVA_NAMESPACE::config::_private
