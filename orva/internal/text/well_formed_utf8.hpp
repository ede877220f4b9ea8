/// Decoding one character of UTF-8 as the Unicode Standard defines it (Table 3-7, well-formed byte
/// sequences).
///
///     decode_well_formed("\xE2\x82\xAC!")    =>  {0x20AC, 3, true}
///     decode_well_formed("\xE2\x82!")        =>  {0xFFFD, 2, false}: a sequence that was cut
///     decode_well_formed("\xFF!")            =>  {0xFFFD, 1, false}
///
/// Internal: not installed. `code_point.hpp` has the rules of the transforms, which accept more.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/well_formed.hpp"

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
  const sequence_match found = match_sequence(text.data(), text.size());
  if (found.length == 0 || found.matched < found.length)
    return {0xFFFD, std::max(found.matched, std::size_t{1})};
  return {decode(text.data(), text.size()).code_point, found.length, true};
}

}  // namespace ORVA_NAMESPACE::internal::text
