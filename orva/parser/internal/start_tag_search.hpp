/// `find_start_tag`: where `xml_stream_parser` goes on after an error.
///
/// Internal.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/parser/internal/stream_lexer.hpp"

namespace ORVA_NAMESPACE::parser::_private {

/// Moves to the next start tag that has one of these names, and returns true. Returns false if there is none
/// in the data; the position is then a < whose name may go on after the data, or the end of the data. Lines
/// that are passed over do not count.
///
/// A start tag that is cut off after `largest_token` bytes is passed over, since more of it will never be
/// there.
bool find_start_tag(stream_lexer& lexer, const std::vector<std::string_view>& names,
                    std::size_t largest_token);

}  // namespace ORVA_NAMESPACE::parser::_private
