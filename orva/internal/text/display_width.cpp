#include "orva/internal/text/display_width.hpp"

#include "orva/internal/text/character_range.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

namespace {

#include "orva/internal/text/display_width.inc"

}  // namespace

std::size_t display_width(std::uint32_t code_point) noexcept {
  constexpr std::uint32_t first_that_is_not_one = 0x300;
  static_assert(no_columns[0].first == first_that_is_not_one && two_columns[0].first > first_that_is_not_one);
  if (code_point < first_that_is_not_one) return 1;
  if (is_in(no_columns, code_point)) return 0;
  return is_in(two_columns, code_point) ? 2 : 1;
}

std::size_t display_width(std::string_view text) noexcept {
  std::size_t width = 0;
  while (!text.empty()) {
    const decoded_character character = decode_well_formed(text);
    width += display_width(character.code_point);
    text.remove_prefix(character.units);
  }
  return width;
}

}  // namespace ORVA_NAMESPACE::internal::text
