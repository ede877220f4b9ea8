#include "orva/config/internal/checked_name.hpp"

#include <algorithm>

#include "orva/config/internal/hidden_character.hpp"
#include "orva/config/internal/lower_case_key.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;
using tok_types = config_token::tok_types;

namespace {

// The bytes at which the readers below look. All others are copied in runs.
constexpr byte_set section_stops("]\r\n\t \"");
constexpr byte_set key_stops("=<>:+-*/#\r\n\t \"");

/// Puts a name together from its pieces.
class name_builder {
 public:
  explicit name_builder(checked_text& text) : text_(text) {}

  checked_name& name() { return name_; }

  /// Reads blanks and quoted text. False if there is something else.
  bool read_blank_or_quoted() {
    if (text_.next_is("\"")) {
      std::string_view content;
      const std::size_t begin = text_.position();
      name_.broken |= !text_.read_quoted(false, content);
      if (!name_.broken) add(begin, content, true);
      return true;
    }
    if (!text_.next_is(" ") && !text_.next_is("\t")) return false;
    if (name_.begin != nowhere) blank_ = std::min(blank_, text_.position());
    text_.skip_blanks();
    return true;
  }

  void add_plain(std::size_t begin) {
    const std::string_view piece = text_.text().substr(begin, text_.position() - begin);
    if (piece.empty()) return;
    if (const std::size_t hidden = first_hidden(piece); hidden != piece.npos) {
      name_.hidden = std::min(name_.hidden, begin + hidden);
      name_.only_hidden &= hidden == 0 && all_hidden(piece);
    } else {
      name_.only_hidden = false;
    }
    add(begin, piece, false);
  }

  checked_name finish(checked_name::end end) {
    name_.ended_by = end;
    if (name_.begin != nowhere) name_.raw = text_.text().substr(name_.begin, end_ - name_.begin);
    forget_before_array_mark();
    return std::move(name_);
  }

 private:
  void add(std::size_t begin, std::string_view content, bool quoted) {
    if (name_.begin == nowhere) {
      name_.begin = begin;
    } else {
      note(name_.blank, blank_, before_blank_);
      if (quoted || quoted_) note(name_.quote, begin, before_quote_);
      has_later_quotes_ |= quoted;
    }
    blank_ = nowhere;
    quoted_ = quoted;
    name_.only_hidden &= !quoted;
    name_.text += content;
    end_ = text_.position();
  }

  void note(std::size_t& first, std::size_t offset, std::size_t& before) {
    if (first != nowhere || offset == nowhere) return;
    first = offset;
    before = name_.text.size();
  }

  /// Blanks before and in the `[]` of an array change nothing: `a [ ]` is `a[]`, and `"a b"[]` is a quoted
  /// name.
  void forget_before_array_mark() {
    if (!name_.text.ends_with("[]") || name_.raw.ends_with('"')) return;
    if (before_blank_ >= name_.text.size() - 2) name_.blank = nowhere;
    if (before_quote_ >= name_.text.size() - 2 && !has_later_quotes_) name_.quote = nowhere;
  }

  checked_text& text_;
  checked_name name_;
  std::size_t end_ = 0;
  std::size_t blank_ = nowhere;    // before the next piece
  bool quoted_ = false;            // the last piece
  bool has_later_quotes_ = false;  // after the first piece
  std::size_t before_blank_ = 0;
  std::size_t before_quote_ = 0;
};

/// Whether the token is `=` with another character before it, or twice.
bool is_pair(tok_types type) {
  switch (type) {
    case tok_types::T_EQEQ:
    case tok_types::T_GTEQ:
    case tok_types::T_LTEQ:
    case tok_types::T_COLONEQ:
    case tok_types::T_PLUSEQ:
    case tok_types::T_MINUSEQ:
    case tok_types::T_TIMESEQ:
    case tok_types::T_DIVEQ:
      return true;
    default:
      return false;
  }
}

void add_plain_token(tok_types type, std::size_t begin, name_builder& builder) {
  checked_name& name = builder.name();
  if (is_pair(type)) name.pair = std::min(name.pair, begin);
  const bool after_word = name.begin != nowhere && name.blank == nowhere;
  if (type == tok_types::T_COLON && after_word) name.colon = std::min(name.colon, begin);
  builder.add_plain(begin);
}

/// The offset of the first separator in `raw` with an empty name at one of its sides, or npos.
std::size_t empty_part(std::string_view raw) {
  bool after_separator = true;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    const bool separator = is_separator(raw[i]);
    if (separator && (after_separator || i + 1 == raw.size())) return i;
    after_separator = separator;
  }
  return raw.npos;
}

/// The offset of the `[` of `[0]` at the end, or npos.
std::size_t index_at_end(std::string_view raw) {
  const std::size_t open = raw.rfind('[');
  if (open == raw.npos || !raw.ends_with(']') || raw.size() - open < 3) return raw.npos;
  const std::string_view digits = raw.substr(open + 1, raw.size() - open - 2);
  return digits.find_first_not_of("0123456789") == digits.npos ? open : raw.npos;
}

/// `a` of `a []`.
std::string_view without_array_mark(std::string_view raw) {
  if (raw.ends_with(']')) raw = raw.substr(0, raw.rfind('['));
  while (!raw.empty() && is_blank(raw.back())) raw.remove_suffix(1);
  return raw;
}

void warn(checked_text& text, std::string_view code, std::size_t offset, const generic::argument& argument) {
  text.found().add(severity::warning, code, offset, argument);
}

generic::argument named(const checked_name& name) { return {"name", shortened(name.text)}; }

void check_pieces(const checked_name& name, checked_text& text) {
  if (name.hidden != nowhere) {
    const auto character = code_point_name(text.text().substr(name.hidden));
    warn(text, "config.hidden_character", name.hidden, {"character", character});
  }
  if (name.blank != nowhere) {
    warn(text, "config.blank_in_name", name.blank, named(name));
  } else if (name.quote != nowhere) {
    warn(text, "config.quotes_inside", name.quote, {"text", shortened(name.text)});
  }
}

/// `raw` is the name without `[]`. In quotes the place of the separator is not looked for.
void check_parts(const checked_name& name, std::string_view raw, checked_text& text) {
  const bool has_quotes = raw.find('"') != raw.npos;
  std::string_view text_of_name = name.text;
  if (text_of_name.ends_with("[]")) text_of_name.remove_suffix(2);
  const std::size_t at = empty_part(has_quotes ? text_of_name : raw);
  if (at != raw.npos) warn(text, "config.empty_name", name.begin + (has_quotes ? 0 : at), named(name));
}

}  // namespace

checked_name read_section_name(checked_text& text) {
  name_builder builder(text);
  for (;;) {
    const std::size_t begin = text.position();
    text.plain_text(section_stops);
    builder.add_plain(begin);
    if (text.at_line_end()) return builder.finish(checked_name::end::line_end);
    if (builder.read_blank_or_quoted()) continue;
    const checked_name name = builder.finish(checked_name::end::bracket);
    text.go_to(text.position() + 1);
    return name;
  }
}

checked_name read_key_name(checked_text& text) {
  name_builder builder(text);
  for (;;) {
    std::size_t begin = text.position();
    text.plain_text(key_stops);
    builder.add_plain(begin);
    if (text.at_line_end()) return builder.finish(checked_name::end::line_end);
    if (text.at_comment()) return builder.finish(checked_name::end::comment);
    if (builder.read_blank_or_quoted()) continue;
    begin = text.position();
    const tok_types type = text.next_token().type;
    if (type == tok_types::T_EQ) return builder.finish(checked_name::end::equals);
    add_plain_token(type, begin, builder);
  }
}

void check_section_spelling(const checked_name& section, checked_text& text) {
  check_pieces(section, text);
  check_parts(section, section.raw, text);
}

void check_key_spelling(const checked_name& key, checked_text& text) {
  check_pieces(key, text);
  const bool is_array = key.text.ends_with("[]");
  if (is_array && key.raw.ends_with('"')) {
    warn(text, "config.quoted_brackets", key.begin, named(key));
  } else if (key.text == "[]") {
    warn(text, "config.empty_name", key.begin, named(key));
  }
  const std::string_view raw = is_array ? without_array_mark(key.raw) : key.raw;
  check_parts(key, raw, text);
  const std::size_t index = index_at_end(raw);
  if (index != raw.npos) warn(text, "config.index_in_key", key.begin + index, named(key));
}

}  // namespace ORVA_NAMESPACE::config::_private
