/// The text of everyday floating values in general notation, in a third of the time that `std::to_chars`
/// takes.
///
/// Internal: not installed. Values from 0.001 up to 1e15, with at most 17 digits, are a whole number times a
/// power of two that is not too small: times the power of ten that brings all digits in front of the point,
/// they fit into 128 bits, and are rounded once, exactly.
#pragma once

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

inline constexpr auto powers_of_ten = [] {
  std::array<std::uint64_t, std::numeric_limits<std::uint64_t>::digits10 + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

struct wide_number {
  std::uint64_t high;
  std::uint64_t low;
};

constexpr wide_number multiply(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t half = 0xFFFFFFFF;
  const std::uint64_t low = (a & half) * (b & half);
  const std::uint64_t first = (a >> 32) * (b & half) + (low >> 32);
  const std::uint64_t second = (a & half) * (b >> 32) + (first & half);
  return {(a >> 32) * (b >> 32) + (first >> 32) + (second >> 32), second << 32 | (low & half)};
}

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

/// How many places the first digit stands in front of the point's first, from -3 to 14. The small powers of
/// ten are the least doubles that are not below them, so that the comparison is exact.
inline int decimal_exponent(double magnitude) {
  if (magnitude < 1) return magnitude >= 0.1 ? -1 : magnitude >= 0.01 ? -2 : -3;
  const auto whole = static_cast<std::uint64_t>(magnitude);
  std::size_t exponent = 0;
  while (powers_of_ten[exponent + 1] <= whole) ++exponent;
  return static_cast<int>(exponent);
}

/// Writes the value at `begin`, which has room for 24 units, and returns the end; null for a value that is
/// not an everyday one, with what was written to be overwritten.
inline char* write_everyday_value(double value, std::uint32_t precision, char* begin) {
  const double magnitude = std::abs(value);
  if (!(magnitude >= 0.001 && magnitude < 1e15) || precision == 0 || precision > 17) return nullptr;
  const int scale = static_cast<int>(precision) - 1 - decimal_exponent(magnitude);
  // More digits in front of the point than there may be: that is another notation.
  if (scale < 0) return nullptr;

  constexpr std::uint64_t hidden_bit = std::uint64_t{1} << 52;
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const std::uint64_t mantissa = (bits & (hidden_bit - 1)) | hidden_bit;
  const auto power_of_two = static_cast<unsigned int>(1023 + 52 - (bits >> 52));
  auto places = static_cast<std::size_t>(scale);
  std::uint64_t digits = divide_by_power_of_two(multiply(mantissa, powers_of_ten[places]), power_of_two);
  // Rounding has made it one digit longer.
  if (digits == powers_of_ten[precision]) return nullptr;

  for (; places > 0 && digits % 10 == 0; --places) digits /= 10;
  const std::uint64_t unit = powers_of_ten[places];
  *begin = '-';
  char* at = std::to_chars(begin + (value < 0 ? 1 : 0), begin + 24, digits / unit).ptr;
  if (places == 0) return at;
  // A one in front keeps the zeros behind the point, and makes room for it.
  char* const point = at;
  at = std::to_chars(point, begin + 24, unit + digits % unit).ptr;
  *point = '.';
  return at;
}

}  // namespace ORVA_NAMESPACE::serialization::_private
