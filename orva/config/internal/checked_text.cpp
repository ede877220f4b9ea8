#include "orva/config/internal/checked_text.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;

namespace {

constexpr byte_set comment_stops("\r\n\"");

}  // namespace

void repeated_finding::write(finding_list& to, severity level, std::string_view code) const {
  if (count == 0) return;
  to.add(level, code, first, generic::argument("count", static_cast<unsigned long long>(count)));
}

void checked_text::skip_blanks() {
  while (!at_end() && is_blank(text_[position_])) ++position_;
}

void checked_text::skip_line_end() {
  if (!at_end()) position_ += next_is("\r\n") ? 2 : 1;
}

const scanned_token& checked_text::next_token() {
  scan_token(text_, position_, token_);
  return token_;
}

/// A quote in a comment begins quoted text, which may run over line ends. That is harmless only if there are
/// nothing but comments up to the end of the line where it ends.
void checked_text::read_comment() {
  comments_.add(position_);
  std::size_t first_open = nowhere;
  for (;;) {
    plain_text(comment_stops);
    if (at_line_end()) return;
    const std::size_t open = position_;
    const std::size_t close = ahead_.closing_quote(open + 1);
    const std::size_t end = ahead_.line_end(open);
    const std::size_t swallowed = close > end ? ahead_.uncommented_line(end) : text_.size();
    // Where a text ends and another one begins before the line end, the mistake is the first quote.
    if (close > end) first_open = std::min(first_open, open);
    if (swallowed < text_.size() && swallowed <= close) {
      found_.add(severity::error, "config.quote_in_comment", first_open, {}, close);
      go_to(end);
      return;
    }
    go_to(std::min(close + 1, text_.size()));
  }
}

bool checked_text::read_quoted(bool may_have_lines, std::string_view& content) {
  const std::size_t open = position_;
  const std::size_t close = ahead_.closing_quote(open + 1);
  content = text_.substr(open + 1, close - open - 1);
  const std::size_t end = ahead_.line_end(open);
  if (close > end || close == text_.size()) {
    const std::size_t marked = end < text_.size() ? ahead_.marked_line(end + 1) : text_.size();
    if (close == text_.size() || !may_have_lines || marked < close) {
      report_open_quote(open, close, end, marked);
      go_to(end);
      return false;
    }
  }
  go_to(close + 1);
  return true;
}

/// The mistake is a backslash that keeps the quote after it from ending the text, or a missing quote.
void checked_text::report_open_quote(std::size_t open, std::size_t close, std::size_t line_end,
                                     std::size_t marked) {
  const std::size_t backslash = text_.substr(open, line_end - open).rfind("\\\"");
  if (backslash != text_.npos) {
    found_.add(severity::error, "config.backslash_before_quote", open + backslash);
  } else if (close == text_.size()) {
    found_.add(severity::error, "config.unclosed_quote", open);
  } else {
    // Where the text ends in a line that looks like a key, its last quote was to begin another text.
    const auto level = ahead_.closes_in_marked_line() ? severity::error : severity::warning;
    found_.add(level, "config.quote_takes_lines", open, {}, std::min(marked, close));
  }
}

void checked_text::read_semicolon(severity level) {
  semicolons_.add(position_);
  semicolon_level_ = std::max(semicolon_level_, level);
  skip_line();
}

void checked_text::finish() {
  semicolons_.write(found_, semicolon_level_, "config.semicolon");
  comments_.write(found_, severity::note, "config.save_drops_comments");
}

}  // namespace ORVA_NAMESPACE::config::_private
