/// The text of integers, in units of any width. Every function returns the end of what it has written.
///
///     char digits[integer_text_size];
///     text.append(digits, write_integer(-42, digits));
///
/// Internal: not installed. Nothing allocates or writes a terminator. Decimal numbers are written from the
/// front, two digits at a time: the divisions are independent of each other, and the length need not be
/// known.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// The longest decimal integer: 20 digits, or a sign and 19 digits.
inline constexpr std::size_t integer_text_size = std::numeric_limits<std::uint64_t>::digits10 + 1;

/// A digit of any radix: those above 36 continue with the units after z.
template <typename Unit>
constexpr Unit digit_unit(std::uint64_t digit) {
  return static_cast<Unit>(digit < 10 ? '0' + digit : 'a' + (digit - 10));
}

/// Members of a class, since GCC exports templates of variables from a library that hides its symbols.
template <typename Unit>
struct digit_tables {
  /// The digits up to radix 36, which saves the branch between figures and letters.
  static constexpr auto single = [] {
    std::array<Unit, 36> digits{};
    for (std::size_t i = 0; i < digits.size(); ++i) digits[i] = digit_unit<Unit>(i);
    return digits;
  }();

  /// The numbers 00 to 99.
  static constexpr auto pairs = [] {
    std::array<std::array<Unit, 2>, 100> result{};
    for (std::size_t i = 0; i < result.size(); ++i)
      result[i] = {digit_unit<Unit>(i / 10), digit_unit<Unit>(i % 10)};
    return result;
  }();
};

template <typename Unit>
Unit* write_two_digits(std::uint32_t value, Unit* output) {
  return std::copy_n(digit_tables<Unit>::pairs[value].data(), 2, output);
}

template <typename Unit>
Unit* write_four_digits(std::uint32_t value, Unit* output) {
  return write_two_digits(value % 100, write_two_digits(value / 100, output));
}

template <typename Unit>
Unit* write_eight_digits(std::uint32_t value, Unit* output) {
  return write_four_digits(value % 10000, write_four_digits(value / 10000, output));
}

/// One or two digits, without a branch: the lengths of numbers are hard to predict.
template <typename Unit>
Unit* write_leading_digits(std::uint32_t value, Unit* output) {
  const auto& pair = digit_tables<Unit>::pairs[value];
  *output = pair[0];
  output += value >= 10 ? 1 : 0;
  *output = pair[1];
  return output + 1;
}

/// The number of pairs of digits, without a branch.
inline unsigned int count_digit_pairs(std::uint32_t value) {
  return 1u + (value >= 100) + (value >= 10000) + (value >= 1000000) + (value >= 100000000);
}

/// A number without leading zeros.
template <typename Unit>
[[gnu::always_inline]] inline Unit* write_decimal(std::uint32_t value, Unit* output) {
  switch (count_digit_pairs(value)) {
    case 1:
      return write_leading_digits(value, output);
    case 2:
      return write_two_digits(value % 100, write_leading_digits(value / 100, output));
    case 3:
      return write_four_digits(value % 10000, write_leading_digits(value / 10000, output));
    case 4:
      output = write_two_digits(value / 10000 % 100, write_leading_digits(value / 1000000, output));
      return write_four_digits(value % 10000, output);
    default:
      return write_eight_digits(value % 100000000, write_leading_digits(value / 100000000, output));
  }
}

template <typename Unit>
[[gnu::always_inline]] inline Unit* write_decimal(std::uint64_t value, Unit* output) {
  if (value <= std::numeric_limits<std::uint32_t>::max()) {
    return write_decimal(static_cast<std::uint32_t>(value), output);
  }
  constexpr std::uint64_t eight_digits = 100000000;
  const auto low = static_cast<std::uint32_t>(value % eight_digits);
  const std::uint64_t high = value / eight_digits;
  if (high < eight_digits) {
    return write_eight_digits(low, write_decimal(static_cast<std::uint32_t>(high), output));
  }
  output = write_decimal(static_cast<std::uint32_t>(high / eight_digits), output);
  output = write_eight_digits(static_cast<std::uint32_t>(high % eight_digits), output);
  return write_eight_digits(low, output);
}

/// Every value is also the first unit of a buffer of `integer_text_size`: without a sign, the first digit
/// replaces the minus.
template <typename Unit>
[[gnu::always_inline]] inline Unit* write_signed_decimal(bool negative, std::uint64_t magnitude,
                                                         Unit* output) {
  *output = '-';
  return write_decimal(magnitude, output + (negative ? 1 : 0));
}

/// One copy for all callers that do not need it inlined.
template <typename Unit>
[[gnu::noinline]] Unit* write_shared_decimal(bool negative, std::uint64_t magnitude, Unit* output) {
  return write_signed_decimal(negative, magnitude, output);
}

/// Any integer in decimal digits, with a minus if it is negative.
template <std::integral Integer, typename Unit>
Unit* write_integer(Integer value, Unit* output) {
  const bool negative = std::signed_integral<Integer> && value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  return write_shared_decimal(negative, negative ? 0 - bits : bits, output);
}

/// Digits of `bits` bits each. As a template argument, the width of the shift costs nothing.
template <unsigned int bits, typename Unit>
Unit* write_binary_digits(std::uint64_t value, Unit* output) {
  constexpr unsigned int mask = (1u << bits) - 1;
  Unit* const end = output + (static_cast<unsigned int>(std::bit_width(value | 1)) + bits - 1) / bits;
  for (Unit* digit = end; digit != output; value >>= bits)
    *--digit = digit_tables<Unit>::single[value & mask];
  return end;
}

/// Any radix from 2, least significant digit first.
template <typename Unit>
Unit* write_by_division(std::uint64_t value, unsigned int radix, Unit* output) {
  std::array<Unit, 64> digits;
  auto first = digits.end();
  for (; value >= radix; value /= radix) *--first = digit_unit<Unit>(value % radix);
  *--first = digit_unit<Unit>(value);
  return std::copy(first, digits.end(), output);
}

/// The digits of a magnitude in any radix, at most 64.
///
/// REQUIRES: `radix` is 2 or greater.
template <typename Unit>
Unit* write_digits(std::uint64_t magnitude, unsigned int radix, Unit* output) {
  switch (radix) {
    case 2:
      return write_binary_digits<1>(magnitude, output);
    case 8:
      return write_binary_digits<3>(magnitude, output);
    case 10:
      return write_shared_decimal(false, magnitude, output);
    case 16:
      return write_binary_digits<4>(magnitude, output);
    default:
      return write_by_division(magnitude, radix, output);
  }
}

}  // namespace ORVA_NAMESPACE::internal
