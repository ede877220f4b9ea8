#include "orva/config/internal/roff_text.hpp"

#include <cstddef>
#include <cstdint>

#include "orva/config/internal/wrapped_text.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// A longer word may be broken. It fits on a narrow page, in the text of an option.
constexpr std::size_t longest_word = 24;

constexpr std::string_view line_may_break = "\\:";

/// Without these roff would take the character for a part of its language, or show another one.
std::string_view escape_of(std::uint32_t code_point) {
  switch (code_point) {
    case '\\':
      return "\\(rs";
    case '-':
      return "\\-";
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    case '"':
      return "\\(dq";
    case 0xA0:
      return "\\ ";
    case 0xAD:
      return "\\%";
    default:
      return {};
  }
}

void append_number(std::string& output, std::uint32_t code_point) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  output += "\\[u";
  for (int shift = code_point > 0xFFFFF ? 20 : code_point > 0xFFFF ? 16 : 12; shift >= 0; shift -= 4) {
    output += digits[code_point >> shift & 15];
  }
  output += ']';
}

void append_escaped(std::string& output, std::string_view text) {
  while (!text.empty()) {
    const auto character = internal::text::decode_well_formed(text);
    const std::string_view escape = escape_of(character.code_point);
    if (!escape.empty()) {
      output += escape;
    } else if (character.code_point > 0x7E) {
      append_number(output, character.code_point);
    } else {
      output += text.front();
    }
    text.remove_prefix(character.units);
  }
}

void append_piece(std::string& output, std::string_view piece) {
  for (bool is_first = true; !piece.empty(); is_first = false) {
    if (!is_first) output += line_may_break;
    append_escaped(output, take_columns(piece, longest_word));
  }
}

}  // namespace

std::string roff_line(std::string_view text) {
  // A point at the front of a line begins a request. A quote does, too, and is escaped.
  std::string line = text.find_first_not_of(' ') == text.find('.') ? "\\&" : "";
  bool is_first = true;
  for (text_piece piece = take_piece(text); !piece.text.empty(); piece = take_piece(text)) {
    if (!is_first) line += piece.follows_blank ? std::string_view(" ") : line_may_break;
    append_piece(line, piece.text);
    is_first = false;
  }
  return line;
}

std::string roff_argument(std::string_view text) {
  std::string argument = "\"";
  append_escaped(argument, text);
  return argument += '"';
}

}  // namespace ORVA_NAMESPACE::config::_private
