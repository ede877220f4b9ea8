/// Loops over blocks of units, by which the transforms are faster than one character at a time.
///
/// The compiler knows the number of iterations, and makes each loop a few vector instructions.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::text {

using strings::code_unit16;
using strings::code_unit32;

/// The units of a block.
inline constexpr std::size_t block = 32;

/// The value of a code unit, without the sign that `char` may have.
constexpr std::uint32_t value_of(char unit) { return static_cast<unsigned char>(unit); }
constexpr std::uint32_t value_of(code_unit16 unit) { return static_cast<std::uint16_t>(unit); }
constexpr std::uint32_t value_of(code_unit32 unit) { return static_cast<std::uint32_t>(unit); }

template <typename Unit>
bool has_block(const Unit* from, const Unit* end) {
  return static_cast<std::size_t>(end - from) >= block;
}

/// The end of the block that begins at `from`, or of the text.
template <typename Unit>
const Unit* block_end(const Unit* from, const Unit* end) {
  return has_block(from, end) ? from + block : end;
}

/// Whether all of `Count` units are below `Limit`, a power of two.
template <std::uint32_t Limit, std::size_t Count, typename Unit>
bool are_below(const Unit* from) {
  constexpr std::size_t units_in_word = sizeof(std::uint64_t) / sizeof(Unit);
  static_assert(Count % units_in_word == 0 && (Limit & (Limit - 1)) == 0);
  constexpr std::uint64_t largest_unit = ~std::uint64_t{0} >> (64 - 8 * sizeof(Unit));
  constexpr std::uint64_t not_below = ~std::uint64_t{0} / largest_unit * (largest_unit - (Limit - 1));
  std::uint64_t all = 0;
  for (std::size_t i = 0; i < Count; i += units_in_word) {
    std::uint64_t word;
    std::memcpy(&word, from + i, sizeof word);
    all |= word;
  }
  return (all & not_below) == 0;
}

template <std::size_t Count, typename Unit>
bool are_ascii(const Unit* from) {
  return are_below<0x80, Count>(from);
}

/// Whether each of `Count` units is a character that has the same value in UTF-16 and UTF-32.
template <std::size_t Count>
bool are_basic(const code_unit16* from) {
  std::uint16_t surrogates = 0;
  for (std::size_t i = 0; i < Count; ++i) {
    surrogates |= static_cast<std::uint16_t>((value_of(from[i]) & 0xF800) == 0xD800 ? 0xFFFF : 0);
  }
  return surrogates == 0;
}

/// The same the other way, where `utf32_to_utf16` writes 0xFFFF as a pair.
template <std::size_t Count>
bool are_basic(const code_unit32* from) {
  std::uint32_t surrogates = 0;
  std::uint32_t all = 0;
  for (std::size_t i = 0; i < Count; ++i) {
    const std::uint32_t value = value_of(from[i]);
    all |= value | (value + 1);
    surrogates |= (value & 0xF800) == 0xD800 ? 0xFFFFFFFF : 0;
  }
  return surrogates == 0 && all < 0x10000;
}

/// Copies `Count` units into units of another width.
template <std::size_t Count, typename From, typename To>
void copy_units(const From* from, To* to) {
  for (std::size_t i = 0; i < Count; ++i) to[i] = static_cast<To>(value_of(from[i]));
}

}  // namespace ORVA_NAMESPACE::internal::text
