/// The digits of a floating value with a given number of decimals.
///
///     scaled_digits(3.14159, 2)    =>  314
///
/// Internal: not installed. The value is a whole number times a power of two.
/// Multiplied by the power of ten that moves the decimals in front of the
/// point, it fits into 128 bits and is rounded once, exactly.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "orva/internal/number_text/wide_number.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

inline constexpr auto powers_of_ten = [] {
  std::array<std::uint64_t, std::numeric_limits<std::uint64_t>::digits10 + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// The number over a power of two, rounded to the nearest, halves to even.
///
/// REQUIRES: the power is from 1 to 63, and the result fits.
constexpr std::uint64_t divide_by_power_of_two(const wide_number& number, unsigned int power) {
  const std::uint64_t quotient = number.high << (64 - power) | number.low >> power;
  const std::uint64_t rest = number.low & ((std::uint64_t{1} << power) - 1);
  const std::uint64_t half = std::uint64_t{1} << (power - 1);
  const bool is_up = rest > half || (rest == half && quotient % 2 != 0);
  return quotient + (is_up ? 1 : 0);
}

/// The value times a power of ten, as a whole number.
///
/// REQUIRES: the value is from 2^-11 up to 2^52, and the result fits.
constexpr std::uint64_t scaled_digits(double magnitude, std::size_t decimals) {
  constexpr std::uint64_t hidden_bit = std::uint64_t{1} << 52;
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const std::uint64_t mantissa = (bits & (hidden_bit - 1)) | hidden_bit;
  const auto power_of_two = static_cast<unsigned int>(1023 + 52 - (bits >> 52));
  return divide_by_power_of_two(wide_product(mantissa, powers_of_ten[decimals]), power_of_two);
}

}  // namespace ORVA_NAMESPACE::internal
