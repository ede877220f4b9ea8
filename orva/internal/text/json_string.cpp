#include "orva/internal/text/json_string.hpp"

#include <cstdint>

#include "orva/internal/text/visible_text.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

namespace {

void append_control(std::string& output, std::uint32_t code_point) {
  constexpr std::string_view figures = "0123456789abcdef";
  output += "\\u00";
  output += figures[code_point >> 4];
  output += figures[code_point & 15];
}

}  // namespace

void append_json_string(std::string& output, std::string_view text) {
  constexpr std::string_view replacement = "\xEF\xBF\xBD";
  output += '"';
  while (!text.empty()) {
    const auto character = decode_well_formed(text);
    if (character.code_point == '"' || character.code_point == '\\') output += '\\';
    if (is_control(character.code_point)) {
      append_control(output, character.code_point);
    } else {
      output += character.well_formed ? text.substr(0, character.units) : replacement;
    }
    text.remove_prefix(character.units);
  }
  output += '"';
}

}  // namespace ORVA_NAMESPACE::internal::text
