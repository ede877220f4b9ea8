/// Lines and columns of a text, for messages to people.
///
///     place_of("one\ntwo\n", 5)      =>  line 2, column 2
///
///     const line_index lines(text);       // for many lookups in one text
///     lines.place_of(5)                   =>  line 2, column 2
///     lines.line(2)                       =>  "two"
///
///     place_in_whole({2, 5}, {1, 3})      =>  line 2, column 7: column 3 of a part that begins at 2:5
///
/// Text is UTF-8, offsets count its bytes. Lines and columns count from 1. A line ends at a line feed, which
/// is the last column of its line. A column is a code point: a byte that continues a character has the
/// column of the character. In malformed text, each part that one U+FFFD would replace is a column. A
/// byte order mark at the beginning of the text has no column, as no editor shows it.
///
/// An offset at or after the end of the text gives the place after its last character.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::diagnostics {

/// A place in a text. 0 means that there is none: a failure of a whole file has no line.
struct place {
  std::size_t line = 0;
  std::size_t column = 0;

  bool operator==(const place&) const = default;
};

/// Reads the text up to `offset` once.
[[nodiscard]] ORVA_API place place_of(std::string_view text, std::size_t offset);

/// A place in a part of a text as a place in the whole text, in which the part begins at `begin`. A part
/// without a place is where it begins.
[[nodiscard]] constexpr place place_in_whole(place begin, place in_part) noexcept {
  if (in_part.line == 0) return begin;
  if (in_part.line > 1) return {begin.line + in_part.line - 1, in_part.column};
  return {begin.line, begin.column + in_part.column - 1};
}

/// The lines of a text. It refers to the text, which must live as long, and takes one `std::size_t` for each
/// line. Any number of threads may use one.
class ORVA_API line_index {
 public:
  /// Reads the text once.
  explicit line_index(std::string_view text);

  /// The same as the function, but reads only the line of the offset.
  [[nodiscard]] place place_of(std::size_t offset) const;

  /// The number of lines. A text that ends in a line feed has an empty line after it; an empty text has one
  /// line.
  [[nodiscard]] std::size_t size() const noexcept { return begins_.size(); }

  /// A line, without its line feed, and without a carriage return in front of that. A number that no line has
  /// gives an empty line.
  [[nodiscard]] std::string_view line(std::size_t number) const;

 private:
  std::string_view text_;
  std::vector<std::size_t> begins_;
};

}  // namespace ORVA_NAMESPACE::diagnostics
