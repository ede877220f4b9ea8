/// `checked_text`: the text of a configuration file, and the position of a check in it.
///
/// The check looks at each line as a person does, and at the same time as `file_item` does; where the two
/// differ it makes a finding and goes on at the next line that the person sees. So a mistake hides no other,
/// and a text without a finding reads as it looks.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/config/internal/finding_list.hpp"
#include "orva/config/internal/text_lookahead.hpp"
#include "orva/config/internal/token_scanner.hpp"

namespace ORVA_NAMESPACE::config::_private {

inline constexpr std::size_t nowhere = finding_list::no_offset;

/// The same finding in many places: one finding, at the first place, with their number.
struct repeated_finding {
  std::size_t first = nowhere;
  std::size_t count = 0;

  void add(std::size_t offset) {
    if (count++ == 0) first = offset;
  }
  /// Makes the finding, if there is one, with the argument "count".
  void write(finding_list& to, diagnostics::severity level, std::string_view code) const;
};

class checked_text {
 public:
  checked_text(std::string_view text, std::size_t position, finding_list& found)
      : text_(text), position_(static_cast<unsigned int>(position)), ahead_(text), found_(found) {}

  std::string_view text() const { return text_; }
  std::size_t position() const { return position_; }
  finding_list& found() { return found_; }
  text_lookahead& ahead() { return ahead_; }

  bool at_end() const { return position_ >= text_.size(); }
  bool at_line_end() const { return at_end() || is_line_end(text_[position_]); }
  bool at_comment() const { return next_is("#") || next_is("//"); }
  bool next_is(std::string_view prefix) const { return text_.substr(position_).starts_with(prefix); }

  void go_to(std::size_t position) { position_ = static_cast<unsigned int>(position); }
  void skip_blanks();
  void skip_line() { go_to(ahead_.line_end(position_)); }
  /// Skips CRLF, LF or CR.
  void skip_line_end();

  std::string_view plain_text(const byte_set& stops) { return scan_plain(text_, position_, stops); }
  const scanned_token& next_token();

  /// Reads the rest of a comment, up to its line end.
  void read_comment();
  /// Reads quoted text with its quotes, and sets `content`. Where it does not end on its line, and is not
  /// meant to go on, there is a finding, the position is that of the line end, and the result is false.
  bool read_quoted(bool may_have_lines, std::string_view& content);

  /// `;` does not begin a comment. Goes to the line end.
  void read_semicolon(diagnostics::severity level);

  /// Makes the findings about the whole text.
  void finish();

 private:
  void report_open_quote(std::size_t open, std::size_t close, std::size_t line_end, std::size_t marked);

  std::string_view text_;
  unsigned int position_;
  scanned_token token_;
  text_lookahead ahead_;
  finding_list& found_;
  repeated_finding comments_;
  repeated_finding semicolons_;
  diagnostics::severity semicolon_level_ = diagnostics::severity::warning;
};

}  // namespace ORVA_NAMESPACE::config::_private
