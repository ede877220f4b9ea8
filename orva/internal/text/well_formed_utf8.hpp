/// Decoding one character of UTF-8 as the Unicode Standard defines it (Table 3-7, well-formed byte
/// sequences).
///
///     decode_well_formed("\xE2\x82\xAC!")    =>  {0x20AC, 3, true}
///     decode_well_formed("\xE2\x82!")        =>  {0xFFFD, 2, false}: a sequence that was cut
///     decode_well_formed("\xFF!")            =>  {0xFFFD, 1, false}
///
/// Internal: not installed. `code_point.hpp` has the rules of the transforms, which accept more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

struct decoded_character {
  std::uint32_t code_point = 0xFFFD;
  /// The bytes of the character, or of the malformed part: the longest begin of a sequence that could have
  /// gone on, or one byte.
  std::size_t units = 1;
  bool well_formed = false;
};

/// REQUIRES: text is not empty.
constexpr decoded_character decode_well_formed(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {lead, 1, true};
  if (lead < 0xC2 || lead > 0xF4) return {};
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  // Some lead bytes leave no room for overlong forms, surrogates, or values above 0x10FFFF.
  unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  std::uint32_t code_point = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (i == text.size() || byte(i) < lowest || byte(i) > highest) return {0xFFFD, i, false};
    code_point = code_point << 6 | (byte(i) & 0x3Fu);
    lowest = 0x80;
    highest = 0xBF;
  }
  return {code_point, length, true};
}

}  // namespace ORVA_NAMESPACE::internal::text
