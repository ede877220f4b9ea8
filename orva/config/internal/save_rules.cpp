#include "orva/config/internal/save_rules.hpp"

#include "orva/config/internal/token_scanner.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using tok_types = config_token::tok_types;

/// `save` puts such a text into quotes.
bool is_quoted_by_save(std::string_view text) { return text.find_first_of(" \r\t\n") != text.npos; }

/// Whether there is `#` or `//`. In `*//` there is `*/` and a `/`, which begins no comment.
bool has_comment_mark(std::string_view text) {
  constexpr byte_set stops("#*/\r\n\t \"");
  unsigned int position = 0;
  scanned_token token;
  for (;;) {
    scan_plain(text, position, stops);
    if (scan_token(text, position, token) == tok_types::T_END) return false;
    if (token.type == tok_types::T_POUND || token.type == tok_types::T_FSFS) return true;
  }
}

}  // namespace

// A quoted text reads back if it was one in the file: the quotes in it have backslashes. A plain one may not
// have what ends it, and with the `=` before it, a `=` at its begin would be `==`.
bool survives_save(std::string_view value, value_kind kind) {
  if (is_quoted_by_save(value)) return true;
  if (value.starts_with('=') || value.find('"') != value.npos) return false;
  if (kind == value_kind::element && value.find(',') != value.npos) return false;
  return !has_comment_mark(value);
}

bool key_survives_save(std::string_view name, bool is_array) {
  if (name.find('"') != name.npos) return false;
  if (is_quoted_by_save(name)) return true;
  if (name.starts_with('#') || name.starts_with('[') || name.find('=') != name.npos) return false;
  constexpr std::string_view begins_of_pairs = "<>:+-*";
  return is_array || name.empty() || begins_of_pairs.find(name.back()) == begins_of_pairs.npos;
}

bool section_survives_save(std::string_view name) {
  if (name.find('"') != name.npos) return false;
  return is_quoted_by_save(name) || name.find(']') == name.npos;
}

}  // namespace ORVA_NAMESPACE::config::_private
