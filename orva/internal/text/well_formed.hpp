/// Where well-formed text ends, by the Unicode Standard: UTF-8 by its Table 3-7, UTF-16 by the pairing of
/// surrogates, UTF-32 by the range of code points.
///
///     well_formed_end(from, end)  =>  the first malformed unit, or `end`
///
/// `skip_well_formed` runs ahead where the processor has an instruction for it; the plain loop alone decides
/// what is malformed.
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orva/internal/text/block.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/skip_well_formed.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// How much of a character is at a position: the number of its bytes, 0 where no character begins, and how
/// many of them are there in a row.
struct sequence_match {
  std::size_t length = 0;
  std::size_t matched = 0;
};

/// Whether `second` may follow `lead`, which begins a character of several bytes: the column "Second Byte" of
/// the table.
constexpr bool is_second_byte(std::uint32_t lead, char second) {
  if (!is_continuation(second)) return false;
  if (lead == 0xE0) return value_of(second) >= 0xA0;
  if (lead == 0xED) return value_of(second) < 0xA0;
  if (lead == 0xF0) return value_of(second) >= 0x90;
  return lead != 0xF4 || value_of(second) < 0x90;
}

/// REQUIRES: remaining > 0.
constexpr sequence_match match_sequence(const char* at, std::size_t remaining) {
  const std::uint32_t lead = value_of(*at);
  const auto continues = [=](std::size_t i) { return i < remaining && is_continuation(at[i]); };
  if (lead < 0x80) return {1, 1};
  if (lead < 0xC2 || lead > 0xF4) return {};
  if (lead < 0xE0) return {2, continues(1) ? 2u : 1u};
  const std::size_t length = lead < 0xF0 ? 3 : 4;
  if (remaining < 2 || !is_second_byte(lead, at[1])) return {length, 1};
  if (!continues(2)) return {length, 2};
  return {length, length == 4 && continues(3) ? 4u : 3u};
}

// The number of units of the well-formed character at a position; 0 where there is none.
// REQUIRES: remaining > 0.

constexpr std::size_t well_formed_units(const char* at, std::size_t remaining) {
  const sequence_match found = match_sequence(at, remaining);
  return found.matched == found.length ? found.length : 0;
}

constexpr std::size_t well_formed_units(const code_unit16* at, std::size_t remaining) {
  return decode(at, remaining).units;
}

constexpr std::size_t well_formed_units(const code_unit32* at, std::size_t) {
  const std::uint32_t value = value_of(*at);
  return value < 0x110000 && !is_surrogate(value) ? 1 : 0;
}

/// The units that the plain loop tests at once.
inline constexpr std::size_t group = 8;

// Whether each unit of a group is a character. False where one may need a closer look.

inline bool is_group_of_characters(const char* from) { return are_ascii<group>(from); }
inline bool is_group_of_characters(const code_unit16* from) {
  std::uint64_t surrogates = 0;
  for (std::size_t i = 0; i < group; i += 4) {
    std::uint64_t word;
    std::memcpy(&word, from + i, sizeof word);
    // A unit becomes zero if it is a surrogate, and taking one from zero sets the highest bit.
    const std::uint64_t units = (word & 0xF800F800F800F800) ^ 0xD800D800D800D800;
    surrogates |= (units - 0x0001000100010001) & ~units & 0x8000800080008000;
  }
  return surrogates == 0;
}
inline bool is_group_of_characters(const code_unit32* from) {
  std::uint32_t malformed = 0;
  for (std::size_t i = 0; i < group; ++i) malformed |= well_formed_units(from + i, 1) == 0 ? 1u : 0u;
  return malformed == 0;
}

template <typename Unit>
const Unit* plain_well_formed_end(const Unit* from, const Unit* end) {
  const auto remaining = [&] { return static_cast<std::size_t>(end - from); };
  while (from != end) {
    while (remaining() >= group && is_group_of_characters(from)) from += group;
    for (const Unit* const stop = from + std::min(group, remaining()); from < stop;) {
      const std::size_t units = well_formed_units(from, remaining());
      if (units == 0) return from;
      from += units;
    }
  }
  return from;
}

template <typename Unit>
const Unit* well_formed_end(const Unit* from, const Unit* end) {
  return plain_well_formed_end(skip_well_formed(from, end), end);
}

}  // namespace ORVA_NAMESPACE::internal::text
