/// A number between two bounds of 128 bits, times a power of two.
///
///     product(scaled(25), power_of_ten(-1))      =>  2.5, with an error in the last bits
///
/// Internal: not installed.
#pragma once

#include <bit>
#include <cstdint>

#include "orva/internal/number_text/wide_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// At least `bits` and at most `bits + error`, times two to `exponent`. The highest bit of `bits` is set.
struct scaled_number {
  wide_number bits;
  int exponent;
  std::uint64_t error;
};

/// REQUIRES: the number is not 0.
constexpr scaled_number scaled(std::uint64_t number) {
  const int shift = std::countl_zero(number);
  return {{number << shift, 0}, -64 - shift, 0};
}

/// REQUIRES: the number is not 0.
constexpr scaled_number scaled(const wide_number& number) {
  if (number.high == 0) return scaled(number.low);
  const int shift = std::countl_zero(number.high);
  return {shifted_left(number, shift), -shift, 0};
}

/// The product is exact if its factors are and it has no more than 128 bits.
[[gnu::always_inline]] constexpr scaled_number product(const scaled_number& left,
                                                       const scaled_number& right) {
  const wide_number high = wide_product(left.bits.high, right.bits.high);
  const wide_number first = wide_product(left.bits.high, right.bits.low);
  const wide_number second = wide_product(left.bits.low, right.bits.high);
  const wide_number low = wide_product(left.bits.low, right.bits.low);
  // What follows the first 128 bits, and what it carries into them.
  const wide_number middle = wide_sum(wide_sum({0, first.low}, {0, second.low}), {0, low.high});
  const wide_number sum =
      wide_sum(wide_sum(high, {0, first.high}), wide_sum({0, second.high}, {0, middle.high}));
  const bool is_cut = (middle.low | low.low) != 0;
  const bool is_exact = (left.error | right.error) == 0;
  const std::uint64_t error = is_exact ? (is_cut ? 1 : 0) : left.error + right.error + 2;
  const int shift = std::countl_zero(sum.high);
  return {shifted_left(sum, shift), left.exponent + right.exponent + 128 - shift, error << shift};
}

}  // namespace ORVA_NAMESPACE::internal
