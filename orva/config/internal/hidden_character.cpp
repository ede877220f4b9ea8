#include "orva/config/internal/hidden_character.hpp"

#include <algorithm>
#include <cstdint>

#include "orva/internal/text/hexadecimal.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

struct range {
  std::uint32_t first, last;
};

/// Controls, spaces of all widths, separators of lines, marks of direction and of width zero. Tab, line feed,
/// carriage return and zero are not in it, and neither are the joiners U+200C and U+200D, which texts need.
constexpr range hidden[] = {
    {0x01, 0x08},     {0x0B, 0x0C},     {0x0E, 0x1F},     {0x7F, 0xA0},     {0xAD, 0xAD},
    {0x1680, 0x1680}, {0x180E, 0x180E}, {0x2000, 0x200B}, {0x200E, 0x200F}, {0x2028, 0x202F},
    {0x205F, 0x2064}, {0x2066, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
};

bool is_hidden(std::uint32_t code_point) {
  return std::ranges::any_of(
      hidden, [=](const range& each) { return code_point >= each.first && code_point <= each.last; });
}

constexpr bool is_visible_ascii(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= ' ' && byte < 0x7F;
}

}  // namespace

std::size_t first_hidden(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (is_visible_ascii(text[at])) {
      ++at;
      continue;
    }
    const auto character = internal::text::decode_well_formed(text.substr(at));
    if (character.well_formed && is_hidden(character.code_point)) return at;
    at += character.units;
  }
  return text.npos;
}

bool all_hidden(std::string_view text) {
  while (!text.empty() && first_hidden(text) == 0) {
    text.remove_prefix(internal::text::decode_well_formed(text).units);
  }
  return text.empty();
}

strings::ustring8 code_point_name(std::string_view text) {
  const std::uint32_t code_point = internal::text::decode_well_formed(text).code_point;
  return strings::ustring8(internal::text::hexadecimal("U+", code_point, 4));
}

}  // namespace ORVA_NAMESPACE::config::_private
