/// The characters of a text of any width, for case mapping.
///
///     next_character(std::string_view("\xC3\x9F!"))        =>  {0xDF, 2}
///     previous_character(std::string_view("!\xC3\x9F"))    =>  {0xDF, 2}
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/internal/text/block.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/well_formed.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// A character, or one malformed unit. The value of a malformed unit is that of no character, and different
/// for each unit. Small enough to be returned in a register.
struct text_character {
  std::uint32_t code_point;
  std::uint16_t units;
  bool is_malformed = false;
};
static_assert(sizeof(text_character) == sizeof(std::uint64_t));

/// REQUIRES: text is not empty.
template <code_unit Unit>
text_character next_character(std::basic_string_view<Unit> text) {
  using namespace internal::text;
  const auto units = static_cast<std::uint16_t>(well_formed_units(text.data(), text.size()));
  if (units != 0) return {decode(text.data(), text.size()).code_point, units};
  constexpr std::uint32_t first_that_is_no_character = sizeof(Unit) == 1 ? 0x110000 : 0;
  return {first_that_is_no_character + value_of(text.front()), 1, true};
}

// Letters below U+10000 that need no closer look: outside ASCII, and none near malformed forms. 0 units for
// all other characters. REQUIRES: text is not empty.

inline text_character next_letter(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
  };
  const std::uint32_t lead = byte(0);
  if (lead - 0xC2 < 0x1E && text.size() > 1 && internal::text::is_continuation(text[1])) {
    return {(lead & 0x1F) << 6 | (byte(1) & 0x3F), 2};
  }
  if (lead - 0xE0 >= 0x0D || text.size() < 3 || (lead == 0xE0 && byte(1) < 0xA0)) return {0, 0};
  if (!internal::text::is_continuation(text[1]) || !internal::text::is_continuation(text[2])) return {0, 0};
  return {(lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F), 3};
}

template <code_unit Unit>
text_character next_letter(std::basic_string_view<Unit> text) {
  const std::uint32_t value = internal::text::value_of(text.front());
  const bool is_letter = value >= 0x80 && value < 0xD800;
  return {value, static_cast<std::uint16_t>(is_letter ? 1 : 0)};
}

/// The same as `next_character`, faster where most characters are letters.
template <code_unit Unit>
[[gnu::always_inline]] inline text_character next_likely_letter(std::basic_string_view<Unit> text) {
  const text_character letter = next_letter(text);
  return letter.units != 0 ? letter : next_character(text);
}

/// The character at the end of the text. REQUIRES: text is not empty.
template <code_unit Unit>
text_character previous_character(std::basic_string_view<Unit> text) {
  constexpr std::size_t most_units = sizeof(std::uint32_t) / sizeof(Unit);
  for (std::size_t units = std::min(most_units, text.size()); units > 0; --units) {
    const text_character found = next_character(text.substr(text.size() - units));
    if (found.units == units && !found.is_malformed) return found;
  }
  return next_character(text.substr(text.size() - 1));
}

/// The last place at or before the end of `text` at which a character begins or ends whatever follows; 0 if
/// that is not seen from the last units.
inline std::size_t last_boundary(std::string_view text) {
  for (std::size_t at = text.size(); at > 0 && at + 4 > text.size(); --at) {
    const auto byte = static_cast<unsigned char>(text[at - 1]);
    if (byte < 0x80) return at;
    if (byte >= 0xC0) return at - 1;
  }
  return 0;
}

template <code_unit Unit>
std::size_t last_boundary(std::basic_string_view<Unit> text) {
  return internal::text::is_high_surrogate(internal::text::value_of(text.back())) ? text.size() - 1
                                                                                  : text.size();
}

}  // namespace ORVA_NAMESPACE::strings::_private
