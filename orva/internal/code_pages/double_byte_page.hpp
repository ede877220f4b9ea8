/// A code page of single bytes and pairs of bytes, with the conversion in both directions.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/internal/code_pages/faults.hpp"
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

  /// The bytes of a unit as a number, the first one low.
  std::uint32_t bytes_of(strings::code_unit16 unit) const {
    const std::uint32_t value = text::value_of(unit);
    return blocks[block_of[value >> 6] + (value & 0x3F)];
  }

  /// The unit of bytes as `bytes_of` gives them.
  strings::code_unit16 unit_of_bytes(std::uint32_t bytes) const {
    if (bytes < 0x100) return single[bytes];
    return unit_of(static_cast<unsigned char>(bytes & 0xFF), static_cast<unsigned char>(bytes >> 8));
  }

  bool is_undefined(unsigned char byte) const {
    return row_of[byte] != 0 || is_placeholder(single[byte], has_upper_controls(single));
  }

  /// Whether a pair, which reads as `unit`, is no character. That of an undefined pair may be one of the
  /// page, which then has a pair of its own.
  bool is_undefined(unsigned char lead, unsigned char second, strings::code_unit16 unit) const {
    return unit == single[lead] && bytes_of(unit) != (lead | static_cast<std::uint32_t>(second) << 8);
  }
};

/// Writes `text` in `page` and returns the end. Needs room for two bytes for each unit; the byte after the
/// end may be overwritten. Reports each unit that its bytes do not read back as.
template <typename OnFault = ignore_faults>
char* encode(const double_byte_page& page, std::basic_string_view<strings::code_unit16> text, char* to,
             OnFault on_fault = {}) {
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
      const std::size_t size = bytes < 0x100 ? 1 : 2;
      if constexpr (finds_faults<OnFault>) {
        if (page.unit_of_bytes(bytes) != *at.from) on_fault(at.from, at.to, size);
      }
      at.to += size;
    }
    if (at.from == end) return at.to;
    at = text::fast_path_ascii(at, end);
  }
}

/// The inverse, where there is one. A lead byte takes the next byte, whether the pair is defined or not.
/// Where faults are reported, a zero byte stays a character of its own, as it does after the end of a text.
template <typename OnFault = ignore_faults>
strings::code_unit16* decode(const double_byte_page& page, std::string_view bytes, strings::code_unit16* to,
                             OnFault on_fault = {}) {
  text::cursor<char, strings::code_unit16> at{bytes.data(), to};
  const char* const end = bytes.data() + bytes.size();
  while (at.from != end) {
    const auto lead = static_cast<unsigned char>(*at.from);
    if (page.row_of[lead] == 0 || end - at.from == 1) {
      if constexpr (finds_faults<OnFault>) {
        if (page.is_undefined(lead)) on_fault(at.from, std::size_t{1}, at.to, page.single[lead]);
      }
      *at.to++ = page.single[lead];
      ++at.from;
      if (lead < 0x80) at = text::fast_path_ascii(at, end);
      continue;
    }
    const auto second = static_cast<unsigned char>(at.from[1]);
    const auto unit = page.unit_of(lead, second);
    std::size_t size = 2;
    if constexpr (finds_faults<OnFault>) {
      if (page.is_undefined(lead, second, unit)) {
        if (second == 0) size = 1;
        on_fault(at.from, size, at.to, unit);
      }
    }
    *at.to++ = unit;
    at.from += size;
  }
  return at.to;
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
