/// A code page of single bytes and pairs of bytes, with the conversion in both directions.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/internal/text/fast_path.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

struct double_byte_page {
  int number;
  /// Blocks of 64 units: the bytes of a unit as a number, the first one low. A second byte is never 0.
  const std::uint16_t* blocks;
  /// For each lead byte the units of its pairs, by second byte from `first_second_byte` on.
  const strings::code_unit16* rows;
  /// Where in `blocks` the block of a unit begins, by the unit's high bits.
  std::uint16_t block_of[1024];
  /// The unit of a single byte; for a lead byte, the unit of an undefined pair.
  strings::code_unit16 single[256];
  /// The row of a lead byte, counted from 1, and 0 for any other.
  unsigned char row_of[256];

  /// Whether a unit is always one byte, and a byte one unit.
  static constexpr bool one_to_one = false;
  static constexpr std::size_t max_bytes_of_unit = 2;
  static constexpr unsigned first_second_byte = 0x40;
  static constexpr std::size_t row_size = 0x100 - first_second_byte;

  strings::code_unit16 unit_of(unsigned char lead, unsigned char second) const {
    if (second < first_second_byte) return single[lead];
    return rows[(row_of[lead] - 1u) * row_size + (second - first_second_byte)];
  }
};

/// Writes `text` in `page` and returns the end. Needs room for two bytes for each unit; the byte after the
/// end may be overwritten.
inline char* encode(const double_byte_page& page, std::basic_string_view<strings::code_unit16> text,
                    char* to) {
  // Copied out of the page: to the compiler, bytes written through a `char*` could change the page.
  const std::uint16_t* const blocks = page.blocks;
  const std::uint16_t* const block_of = page.block_of;
  text::cursor<strings::code_unit16, char> at{text.data(), to};
  const auto* const end = text.data() + text.size();
  while (true) {
    for (const auto* const stop = text::block_end(at.from, end); at.from != stop; ++at.from) {
      const std::uint32_t unit = text::value_of(*at.from);
      const std::uint32_t bytes = blocks[block_of[unit >> 6] + (unit & 0x3F)];
      at.to[0] = static_cast<char>(bytes & 0xFF);
      at.to[1] = static_cast<char>(bytes >> 8);
      at.to += bytes < 0x100 ? 1 : 2;
    }
    if (at.from == end) return at.to;
    at = text::fast_path_ascii(at, end);
  }
}

/// The inverse, where there is one. A lead byte takes the next byte, whether the pair is defined or not.
inline strings::code_unit16* decode(const double_byte_page& page, std::string_view bytes,
                                    strings::code_unit16* to) {
  text::cursor<char, strings::code_unit16> at{bytes.data(), to};
  const char* const end = bytes.data() + bytes.size();
  while (at.from != end) {
    const auto lead = static_cast<unsigned char>(*at.from++);
    if (page.row_of[lead] == 0 || at.from == end) {
      *at.to++ = page.single[lead];
      if (lead < 0x80) at = text::fast_path_ascii(at, end);
      continue;
    }
    *at.to++ = page.unit_of(lead, static_cast<unsigned char>(*at.from++));
  }
  return at.to;
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
