/// `text_lookahead`: what follows in the text of a configuration file.
///
///     text_lookahead ahead("a = \"x\nb = 1\n\"\n");
///     ahead.closing_quote(5)     =>  13
///     ahead.line_end(5)          =>  6
///     ahead.marked_line(7)       =>  7    "b = 1" looks like a key
///
/// Each search remembers where it began and ended: a check that goes back to a line end and searches again
/// reads the text once, not once for each line.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

constexpr bool is_blank(char c) { return c == ' ' || c == '\t'; }
/// A carriage return alone ends a line in an editor, but not for `file_item`.
constexpr bool is_line_end(char c) { return c == '\n' || c == '\r'; }

/// What a line looks like to a person.
enum class line_look { plain, key, section, comment };

/// Of the line that begins at `begin`.
line_look look_of_line(std::string_view text, std::size_t begin);

class text_lookahead {
 public:
  explicit text_lookahead(std::string_view text) : text_(text) {}

  /// The first line end at or after a position. This and the others return the size of the text if there is
  /// none.
  std::size_t line_end(std::size_t position);
  /// The quote that ends the quoted text which begins at `position`, after its opening quote.
  std::size_t closing_quote(std::size_t position);
  /// Whether the last result of `closing_quote` is in a later line than its position, which looks like a key,
  /// a section or a comment.
  bool closes_in_marked_line() const { return closes_in_marked_line_; }
  /// The first line that looks like a key, a section or a comment. `position` is the beginning of a line.
  std::size_t marked_line(std::size_t position);
  /// The first line that looks neither blank nor like a comment. `position` is a line end.
  std::size_t uncommented_line(std::size_t position);
  /// The first `*/`.
  std::size_t block_comment_end(std::size_t position);

 private:
  /// The last search: it found nothing between the two positions.
  struct last_search {
    std::size_t begin = 1;
    std::size_t result = 0;
  };

  template <typename Search>
  std::size_t repeat(last_search& last, std::size_t position, Search search);
  std::size_t find_closing_quote(std::size_t position);

  std::string_view text_;
  last_search line_end_, closing_quote_, marked_line_, uncommented_line_, block_comment_end_;
  bool closes_in_marked_line_ = false;
};

}  // namespace ORVA_NAMESPACE::config::_private
