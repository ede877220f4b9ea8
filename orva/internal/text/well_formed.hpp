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
constexpr bool is_second_byte(std::uint32_t lead, std::uint32_t second) {
  const std::uint32_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint32_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  return second >= lowest && second <= highest;
}

/// REQUIRES: remaining > 0.
constexpr sequence_match match_sequence(const char* at, std::size_t remaining) {
  const std::uint32_t lead = value_of(*at);
  if (lead < 0x80) return {1, 1};
  if (lead < 0xC2 || lead > 0xF4) return {};
  const std::size_t length = sequence_length(static_cast<unsigned char>(lead));
  if (remaining < 2 || !is_second_byte(lead, value_of(at[1]))) return {length, 1};
  const std::size_t present = std::min(length, remaining);
  std::size_t matched = 2;
  while (matched < present && is_continuation(at[matched])) ++matched;
  return {length, matched};
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
inline bool is_group_of_characters(const code_unit16* from) { return are_basic<group>(from); }
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
