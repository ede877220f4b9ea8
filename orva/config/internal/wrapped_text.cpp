#include "orva/config/internal/wrapped_text.hpp"

#include <algorithm>
#include <cstdint>

#include "orva/internal/text/display_width.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using internal::text::decode_well_formed;
using internal::text::display_width;

/// Characters that stay with the one before them.
constexpr std::u32string_view closing =
    U"、。，．・：；？！）］｝」』】〕〉》ー々ぁぃぅぇぉっゃゅょァィゥェォッャュョ…’”)]},.:;?!";
/// Characters that stay with the one after them.
constexpr std::u32string_view opening = U"（［｛「『【〔〈《‘“([{";

bool is_one_of(std::u32string_view characters, std::uint32_t code_point) {
  return characters.find(static_cast<char32_t>(code_point)) != characters.npos;
}

bool may_break_between(std::uint32_t before, std::uint32_t after) {
  if (display_width(before) != 2 && display_width(after) != 2) return false;
  return display_width(after) != 0 && !is_one_of(closing, after) && !is_one_of(opening, before);
}

class wrapper {
 public:
  wrapper(std::string& output, const wrapped_lines& lines) : output_(output), lines_(lines) {}

  void add(text_piece piece) {
    const std::size_t blank = piece.follows_blank && !is_empty_ ? 1 : 0;
    if (lines_.column + blank + piece.width <= lines_.width) return put(piece, blank);
    if (!is_empty_) begin_line();
    while (lines_.column + piece.width > lines_.width) {
      const std::string_view part = take_columns(piece.text, lines_.width - lines_.column);
      const std::size_t width = display_width(part);
      put({part, width}, 0);
      piece.width -= width;
      begin_line();
    }
    if (!piece.text.empty()) put(piece, 0);
  }

  void begin_line() {
    output_ += '\n';
    lines_.column = lines_.indentation;
    is_empty_ = true;
    is_indented_ = false;
  }

 private:
  void put(const text_piece& piece, std::size_t blank) {
    if (!is_indented_) output_.append(lines_.indentation, ' ');
    is_indented_ = true;
    output_.append(blank, ' ');
    output_ += piece.text;
    lines_.column += blank + piece.width;
    is_empty_ = false;
  }

  std::string& output_;
  wrapped_lines lines_;
  bool is_empty_ = true;
  bool is_indented_ = true;
};

}  // namespace

text_piece take_piece(std::string_view& line) {
  text_piece piece;
  const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
  piece.follows_blank = blanks != 0;
  line.remove_prefix(blanks);
  std::size_t length = 0;
  std::uint32_t before = 0;
  while (length < line.size() && line[length] != ' ') {
    const auto character = decode_well_formed(line.substr(length));
    if (length != 0 && may_break_between(before, character.code_point)) break;
    piece.width += display_width(character.code_point);
    length += character.units;
    if (display_width(character.code_point) != 0) before = character.code_point;
  }
  piece.text = line.substr(0, length);
  line.remove_prefix(length);
  return piece;
}

std::string_view take_columns(std::string_view& text, std::size_t columns) {
  std::size_t length = 0;
  std::size_t width = 0;
  while (length < text.size()) {
    const auto character = decode_well_formed(text.substr(length));
    width += display_width(character.code_point);
    if (width > columns && length != 0) break;
    length += character.units;
  }
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(length);
  return taken;
}

void append_wrapped(std::string& output, std::string_view text, wrapped_lines lines) {
  wrapper wrapped(output, lines);
  for (;;) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    for (text_piece piece = take_piece(line); !piece.text.empty(); piece = take_piece(line)) {
      wrapped.add(piece);
    }
    wrapped.begin_line();
    if (text.empty()) return;
  }
}

}  // namespace ORVA_NAMESPACE::config::_private
