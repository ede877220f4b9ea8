/// Text wrapped to a width in columns of a terminal.
///
///     std::string output = "  --help  ";
///     append_wrapped(output, "Shows this help.", {10, 10, 20})
///         =>    --help  Shows this
///                       help.
///
/// Lines break at blanks, and also before and after characters that are two columns wide, as Japanese text
/// has no blanks. A line does not begin with a closing bracket or a full stop, and none ends with an opening
/// bracket. Blanks in a row count as one. A piece that is wider than a line is broken anywhere.
///
/// Internal: not installed. Text is well-formed UTF-8 without control characters, line feeds excepted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A piece of a text in which no line breaks.
struct text_piece {
  std::string_view text;
  std::size_t width = 0;
  bool follows_blank = false;
};

/// The piece at the front of a line, which it takes away. Empty at the end.
text_piece take_piece(std::string_view& line);

/// Takes characters from the front of a text, as many as fit in the columns, and one at least.
std::string_view take_columns(std::string_view& text, std::size_t columns);

struct wrapped_lines {
  /// Where the output ends now.
  std::size_t column = 0;
  /// Where each further line begins.
  std::size_t indentation = 0;
  /// Greater than the other two by two at least.
  std::size_t width = 80;
};

/// Appends the text and a line feed. A line feed in the text begins a line, too.
void append_wrapped(std::string& output, std::string_view text, wrapped_lines lines);

}  // namespace ORVA_NAMESPACE::config::_private
