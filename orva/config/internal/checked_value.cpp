#include "orva/config/internal/checked_value.hpp"

#include <algorithm>
#include <utility>

#include "orva/config/internal/hidden_character.hpp"
#include "orva/config/internal/save_rules.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;

namespace {

// The bytes at which the reader below looks. All others are copied in runs.
constexpr byte_set scalar_stops("#*/\r\n\t \"");
constexpr byte_set element_stops(",#*/\r\n\t \"");

class value_reader {
 public:
  value_reader(checked_text& text, value_kind kind) : text_(text), kind_(kind) {}

  checked_value read() {
    while (!text_.at_line_end() && value_.comma == nowhere) read_piece();
    return value_;
  }

 private:
  void read_piece() {
    const std::size_t begin = text_.position();
    if (text_.next_is(" ") || text_.next_is("\t")) return read_blanks(begin);
    if (text_.next_is("\"")) return read_quoted(begin);
    if (text_.at_comment()) return read_comment(begin);
    if (text_.next_is("/*") && read_block_comment(begin)) return;
    if (text_.next_is(";") && looks_like_comment(begin + 1)) return read_semicolon();
    if (kind_ == value_kind::element && text_.next_is(",")) {
      value_.comma = begin;
      return text_.go_to(begin + 1);
    }
    read_plain(begin);
  }

  void read_blanks(std::size_t begin) {
    text_.skip_blanks();
    if (!value_.empty()) blank_ = std::min(blank_, begin);
  }

  void read_quoted(std::size_t begin) {
    std::string_view content;
    if (text_.read_quoted(true, content)) return add(begin, content, true);
    value_.broken = true;
    add(begin, {}, true);
    // The line ends as the person sees it: with a comma, if the last thing in it is one.
    const std::string_view line = text_.text().substr(begin, text_.position() - begin);
    const std::size_t last = line.find_last_not_of(" \t");
    if (kind_ == value_kind::element && line[last] == ',') value_.comma = begin + last;
  }

  /// A comment begins after a blank or a quoted text. Elsewhere its mark was meant as text: `http://x`.
  void read_comment(std::size_t begin) {
    const std::size_t length = text_.next_is("#") ? 1 : 2;
    if (looks_like_comment(begin + length)) return text_.read_comment();
    if (!value_.cut) {
      text_.found().add(severity::warning, "config.value_cut", begin,
                        generic::argument("mark", strings::ustring8(text_.text().substr(begin, length))));
    }
    value_.cut = true;
    text_.go_to(begin + length);
    add(begin, text_.text().substr(begin, length), false);
  }

  /// `after` is the position after the mark. Instead of a value, a comment has a blank after its mark.
  bool looks_like_comment(std::size_t after) const {
    if (!value_.empty()) return blank_ != nowhere || value_.quoted;
    const std::size_t word = std::min(text_.text().find_first_not_of("#/;", after), text_.text().size());
    return word == text_.text().size() || is_blank(text_.text()[word]) || is_line_end(text_.text()[word]);
  }

  /// There are no comments between marks. In `src/*` nobody sees one.
  bool read_block_comment(std::size_t begin) {
    if (!value_.empty() && blank_ == nowhere) return false;
    const std::size_t end = text_.ahead().block_comment_end(begin + 2);
    if (end > text_.ahead().line_end(begin) || end == text_.text().size()) return false;
    text_.found().add(severity::warning, "config.block_comment", begin);
    text_.go_to(end + 2);
    value_.cut = true;
    return true;
  }

  void read_semicolon() {
    text_.read_semicolon(severity::warning);
    value_.cut = true;
  }

  void read_plain(std::size_t begin) {
    text_.plain_text(kind_ == value_kind::scalar ? scalar_stops : element_stops);
    if (text_.position() == begin) text_.next_token();
    const std::string_view piece = text_.text().substr(begin, text_.position() - begin);
    if (const std::size_t hidden = first_hidden(piece); hidden != piece.npos) {
      value_.hidden = std::min(value_.hidden, begin + hidden);
    }
    // A run that goes on after `*` or `/` is one piece.
    if (!value_.empty() && !value_.quoted && blank_ == nowhere) {
      value_.end = text_.position();
      value_.content = text_.text().substr(piece_begin_, value_.end - piece_begin_);
      return;
    }
    add(begin, piece, false);
  }

  void add(std::size_t begin, std::string_view content, bool quoted) {
    if (value_.empty()) {
      value_.begin = begin;
    } else {
      value_.blank = std::min(value_.blank, blank_);
      if (quoted || value_.quoted) value_.quote = std::min(value_.quote, begin);
    }
    value_.after_blank = blank_ != nowhere;
    blank_ = nowhere;
    piece_begin_ = begin;
    ++value_.pieces;
    value_.content = content;
    value_.quoted = quoted;
    value_.stored |= !content.empty();
    value_.end = text_.position();
  }

  checked_text& text_;
  value_kind kind_;
  checked_value value_;
  std::size_t blank_ = nowhere;  // before the next piece
  std::size_t piece_begin_ = 0;
};

struct quote_pair {
  std::string_view open, close;
};

/// Quotes that other formats and word processors have.
constexpr quote_pair other_quotes[] = {
    {"'", "'"},
    {"`", "`"},
    {"\xE2\x80\x98", "\xE2\x80\x99"},  // U+2018, U+2019
    {"\xE2\x80\x9A", "\xE2\x80\x98"},  // U+201A, U+2018
    {"\xE2\x80\x9C", "\xE2\x80\x9D"},  // U+201C, U+201D
    {"\xE2\x80\x9D", "\xE2\x80\x9D"},  // U+201D, U+201D
    {"\xE2\x80\x9E", "\xE2\x80\x9C"},  // U+201E, U+201C
    {"\xE2\x80\x9E", "\xE2\x80\x9D"},  // U+201E, U+201D
    {"\xC2\xAB", "\xC2\xBB"},          // U+00AB, U+00BB
};

/// An element with a comma in it was cut in two: the first part has only the opening quote.
bool has_other_quotes(std::string_view raw, value_kind kind) {
  return std::ranges::any_of(other_quotes, [&](const quote_pair& quotes) {
    if (!raw.starts_with(quotes.open) || raw.size() < quotes.open.size() + quotes.close.size()) return false;
    return raw.ends_with(quotes.close) || kind == value_kind::element;
  });
}

/// What `file_item` reads, or the beginning of it if it is long.
strings::ustring8 text_read_from(std::string_view raw) {
  constexpr std::size_t enough = 200;
  strings::ustring8 text;
  bool quoted = false;
  for (std::size_t i = 0; i < raw.size() && text.size() < enough; ++i) {
    if (raw[i] == '"') {
      quoted = !quoted;
    } else if (quoted || !is_blank(raw[i])) {
      text += raw[i];
      if (quoted && raw[i] == '\\' && i + 1 < raw.size()) text += raw[++i];
    }
  }
  return shortened(text);
}

/// The offset of the first backslash that a person takes for an escape: before a quote, or before a backslash
/// that ends the text.
std::size_t escape_in(std::string_view quoted) {
  for (std::size_t i = 0; i + 1 < quoted.size(); ++i) {
    if (quoted[i] != '\\') continue;
    if (quoted[i + 1] == '"' || (quoted[i + 1] == '\\' && i + 2 == quoted.size())) return i;
    ++i;
  }
  return quoted.npos;
}

void check_pieces(const checked_value& value, value_kind kind, std::string_view raw, checked_text& text) {
  finding_list& found = text.found();
  const bool continues = value.content == "\\" && (value.after_blank || value.pieces == 1) && !value.quoted;
  if (continues && value.comma == nowhere && !text.at_end()) {
    found.add(severity::warning, "config.backslash_at_line_end", value.end - 1);
  } else if (has_other_quotes(raw, kind)) {
    found.add(severity::warning, "config.other_quotes", value.begin);
  } else if (value.blank != nowhere) {
    found.add(severity::warning, "config.blank_in_value", value.blank,
              generic::argument("value", text_read_from(raw)));
  } else if (value.quote != nowhere) {
    found.add(severity::warning, "config.quotes_inside", value.quote,
              generic::argument("text", text_read_from(raw)));
  } else if (!survives_save(value.content, kind)) {
    found.add(severity::note, "config.save_changes_value", value.begin,
              generic::argument("value", shortened(value.content)));
  }
}

}  // namespace

checked_value read_value(checked_text& text, value_kind kind) { return value_reader(text, kind).read(); }

void check_spelling(const checked_value& value, value_kind kind, checked_text& text) {
  if (value.empty() || value.cut || value.broken) return;
  const std::string_view raw = text.text().substr(value.begin, value.end - value.begin);
  if (value.hidden != nowhere) {
    text.found().add(severity::warning, "config.hidden_character", value.hidden,
                     generic::argument("character", code_point_name(text.text().substr(value.hidden))));
  }
  if (value.quoted && value.pieces == 1) {
    if (const std::size_t escape = escape_in(value.content); escape != value.content.npos) {
      text.found().add(severity::warning, "config.backslash_kept", value.begin + 1 + escape);
    }
  }
  check_pieces(value, kind, raw, text);
}

}  // namespace ORVA_NAMESPACE::config::_private
