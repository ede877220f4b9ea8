/// Powers of ten with 128 bits, to convert decimal numbers into floating values.
///
///     power_of_ten(-1)    =>  0xCCCC...CCCC * 2^-131, with an error of less than 1 in the last bit
///
/// Internal: not installed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "orva/internal/number_text/scaled_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// The powers that a `double` of up to 19 digits needs.
inline constexpr int least_table_power = -342;
inline constexpr int greatest_table_power = 308;
inline constexpr int greatest_exact_power = 55;

/// The highest bits of 10^`least_table_power` and of the powers after it, rounded down.
extern const std::array<wide_number, greatest_table_power - least_table_power + 1> table_of_powers;

/// The exponent of the highest bit of a power of the table: its logarithm to the base of two, rounded down.
constexpr int highest_bit(int exponent) { return exponent * 217706 >> 16; }

constexpr bool is_in_table(std::int64_t exponent) {
  return exponent >= least_table_power && exponent <= greatest_table_power;
}

/// REQUIRES: the power is in the table.
inline scaled_number power_of_table(int exponent) {
  const bool is_exact = exponent >= 0 && exponent <= greatest_exact_power;
  return {table_of_powers[static_cast<std::size_t>(exponent - least_table_power)],
          highest_bit(exponent) - 127, is_exact ? 0U : 1U};
}

/// Any power as a product of those in the table.
///
/// REQUIRES: `exponent` is from -5000 to 5000.
scaled_number power_as_product(int exponent);

/// Exact from 0 to `greatest_exact_power`.
///
/// REQUIRES: `exponent` is from -5000 to 5000.
inline scaled_number power_of_ten(int exponent) {
  if (is_in_table(exponent)) return power_of_table(exponent);
  return power_as_product(exponent);
}

}  // namespace ORVA_NAMESPACE::internal
