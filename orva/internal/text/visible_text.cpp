#include "orva/internal/text/visible_text.hpp"

#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

bool is_hidden(std::uint32_t code_point) noexcept {
  const auto is_in = [code_point](std::uint32_t first, std::uint32_t last) {
    return first <= code_point && code_point <= last;
  };
  const bool is_line_end = is_in(0x2028, 0x2029);
  // Embeddings, overrides, isolates and marks: a source line could read differently from what it is.
  const bool directs =
      is_in(0x202A, 0x202E) || is_in(0x2066, 0x2069) || is_in(0x200E, 0x200F) || code_point == 0x61C;
  return is_control(code_point) || is_line_end || directs;
}

void append_visible(std::string& output, std::string_view text) {
  while (!text.empty()) {
    const decoded_character character = decode_well_formed(text);
    if (character.code_point == '\t') {
      output += ' ';
    } else if (!character.well_formed || is_hidden(character.code_point)) {
      output += "\xEF\xBF\xBD";
    } else {
      output.append(text, 0, character.units);
    }
    text.remove_prefix(character.units);
  }
}

}  // namespace ORVA_NAMESPACE::internal::text
