#include "orva/config/internal/text_lookahead.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::config::_private {

namespace {

std::size_t skip_blanks(std::string_view text, std::size_t at) {
  while (at < text.size() && is_blank(text[at])) ++at;
  return at;
}

bool is_comment_mark(std::string_view text, std::size_t at) {
  return text.substr(at).starts_with('#') || text.substr(at).starts_with("//");
}

/// Whether `[` at `begin` begins a section header that fills its line.
bool is_section(std::string_view text, std::size_t begin) {
  const std::size_t close = text.find_first_of("]\r\n", begin);
  if (close == text.npos || text[close] != ']') return false;
  const std::size_t after = skip_blanks(text, close + 1);
  return after == text.size() || is_line_end(text[after]) || is_comment_mark(text, after);
}

/// Whether a name without blanks and quotes begins there, and `=` follows.
bool is_key(std::string_view text, std::size_t begin) {
  const std::size_t end = std::min(text.find_first_of(" \t\r\n\",#=", begin), text.size());
  const std::size_t after = skip_blanks(text, end);
  return end > begin && after < text.size() && text[after] == '=';
}

std::size_t find_marked_line(std::string_view text, std::size_t at) {
  while (at < text.size() && look_of_line(text, at) == line_look::plain) {
    at = std::min(text.find_first_of("\r\n", at), text.size());
    if (at < text.size()) ++at;
  }
  return at;
}

std::size_t find_uncommented_line(std::string_view text, std::size_t at) {
  for (;;) {
    at = std::min(text.find_first_not_of(" \t\r\n", at), text.size());
    if (at == text.size() || !is_comment_mark(text, at)) return at;
    at = std::min(text.find_first_of("\r\n", at), text.size());
  }
}

}  // namespace

line_look look_of_line(std::string_view text, std::size_t begin) {
  const std::size_t at = skip_blanks(text, begin);
  if (at == text.size()) return line_look::plain;
  if (is_comment_mark(text, at)) return line_look::comment;
  if (text[at] == '[') return is_section(text, at) ? line_look::section : line_look::plain;
  return is_key(text, at) ? line_look::key : line_look::plain;
}

template <typename Search>
std::size_t text_lookahead::repeat(last_search& last, std::size_t position, Search search) {
  if (position < last.begin || position > last.result) last = {position, search(text_, position)};
  return last.result;
}

std::size_t text_lookahead::line_end(std::size_t position) {
  return repeat(line_end_, position, [](std::string_view text, std::size_t at) {
    return std::min(text.find_first_of("\r\n", at), text.size());
  });
}

// The quoted text begins after a quote: no backslash before it protects a character in it. So a search that
// began earlier, and went on past this position, found the same quote.
std::size_t text_lookahead::closing_quote(std::size_t position) {
  return repeat(closing_quote_, position,
                [this](std::string_view, std::size_t at) { return find_closing_quote(at); });
}

std::size_t text_lookahead::find_closing_quote(std::size_t position) {
  std::size_t at = position;
  while (at < text_.size() && text_[at] != '"') at += text_[at] == '\\' ? 2 : 1;
  at = std::min(at, text_.size());
  const std::size_t last = text_.substr(position, at - position).find_last_of("\r\n");
  closes_in_marked_line_ = last != text_.npos && look_of_line(text_, position + last + 1) != line_look::plain;
  return at;
}

std::size_t text_lookahead::uncommented_line(std::size_t position) {
  return repeat(uncommented_line_, position, find_uncommented_line);
}

std::size_t text_lookahead::marked_line(std::size_t position) {
  return repeat(marked_line_, position, find_marked_line);
}

std::size_t text_lookahead::block_comment_end(std::size_t position) {
  return repeat(block_comment_end_, position, [](std::string_view text, std::size_t at) {
    return std::min(text.find("*/", at), text.size());
  });
}

}  // namespace ORVA_NAMESPACE::config::_private
