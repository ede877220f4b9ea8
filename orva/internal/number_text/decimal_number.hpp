/// A decimal number with point and exponent as a text has it: where it ends, and its digits.
///
///     find_decimal("12.5e3;")    =>  digits 125, exponent 2, six units
///
/// Internal: not installed. One pass over the text, and a second one over a number of more than 19 digits.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "orva/internal/number_text/digit_run.hpp"
#include "orva/internal/number_text/wide_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// The number of digits that fit into 64 and 128 bits whatever they are.
inline constexpr int max_short_digits = std::numeric_limits<std::uint64_t>::digits10;
inline constexpr int max_first_digits = 38;

/// What follows the first digits of a number.
struct digit_tail {
  /// The power of the radix of the last of the first digits.
  std::int64_t exponent = 0;

  /// A digit that is not 0 follows them.
  bool has_further_digits = false;
};

/// Passes the first `count` significant digits to `take`. The text from `at` to `end` is digits of `Digits`
/// with at most one point.
template <typename Digits, typename Unit, typename Take>
digit_tail take_first_digits(Digits digits, const Unit* at, const Unit* end, int count, Take take) {
  digit_tail tail;
  int taken = 0;
  std::int64_t after_point = 0;
  for (; at != end; ++at) {
    if (as_unsigned(*at) == '.') {
      after_point = 1;
      continue;
    }
    const unsigned int digit = digits.value(as_unsigned(*at));
    if (taken == count) {
      tail.has_further_digits = tail.has_further_digits || digit != 0;
      tail.exponent += 1 - after_point;
      continue;
    }
    tail.exponent -= after_point;
    if (digit == 0 && taken == 0) continue;
    take(digit);
    ++taken;
  }
  return tail;
}

/// Reads the exponent at `at`: a letter, perhaps a sign, and digits. Without a digit there is none, and the
/// result is `at`.
///
/// The exponent is bounded so that sums with it cannot overflow. Beyond the bound the digits of a text would
/// have to be as many to make a difference.
template <typename Unit>
const Unit* read_exponent(const Unit* at, const Unit* end, char letter, std::int64_t& exponent) {
  constexpr std::int64_t bound = std::int64_t{1} << 56;
  if (at == end || (as_unsigned(*at) | 0x20) != as_unsigned(letter)) return at;
  const Unit* digits = at + 1;
  const bool is_negative = digits != end && as_unsigned(*digits) == '-';
  if (digits != end && (is_negative || as_unsigned(*digits) == '+')) ++digits;
  const Unit* const begin = digits;
  std::int64_t value = 0;
  for (; digits != end; ++digits) {
    const unsigned int digit = decimal_digits::value(as_unsigned(*digits));
    if (digit >= 10) break;
    if (value < bound) value = value * 10 + digit;
  }
  if (digits == begin) return at;
  exponent = is_negative ? -value : value;
  return digits;
}

/// Eight digits at a time. The bytes of a text are its digits from the least significant byte on.
inline constexpr bool has_eight_digit_steps = std::endian::native == std::endian::little;

constexpr bool are_eight_digits(std::uint64_t bytes) {
  constexpr std::uint64_t high_bits = 0x8080808080808080;
  return (((bytes + 0x4646464646464646) | (bytes - 0x3030303030303030)) & high_bits) == 0;
}

/// Each step joins neighbours: digits to pairs, pairs to fours, fours to the eight.
constexpr std::uint64_t value_of_eight_digits(std::uint64_t bytes) {
  bytes = (bytes & 0x0F0F0F0F0F0F0F0F) * (1 + (10 << 8)) >> 8;
  bytes = (bytes & 0x00FF00FF00FF00FF) * (1 + (100 << 16)) >> 16;
  return (bytes & 0x0000FFFF0000FFFF) * (1 + (std::uint64_t{10000} << 32)) >> 32;
}
static_assert(value_of_eight_digits(0x3837363534333231) == 12345678);

/// Appends the decimal digits at `at` to a number, which wraps if they are too many.
template <typename Unit>
const Unit* append_digits(const Unit* at, const Unit* end, std::uint64_t& number) {
  for (; at != end; ++at) {
    const unsigned int digit = decimal_digits::value(as_unsigned(*at));
    if (digit >= 10) break;
    number = number * 10 + digit;
  }
  return at;
}

/// As `append_digits`, and faster where many digits can be expected, as after the point.
template <typename Unit>
const Unit* append_many_digits(const Unit* at, const Unit* end, std::uint64_t& number) {
  if constexpr (sizeof(Unit) == 1 && has_eight_digit_steps) {
    std::uint64_t bytes;
    while (end - at >= static_cast<std::ptrdiff_t>(sizeof bytes)) {
      std::memcpy(&bytes, at, sizeof bytes);
      if (!are_eight_digits(bytes)) break;
      number = number * 100000000 + value_of_eight_digits(bytes);
      at += sizeof bytes;
    }
  }
  return append_digits(at, end, number);
}

template <typename Unit>
struct decimal_number {
  /// The digits times ten to `exponent`, unless the number is long.
  std::uint64_t digits = 0;
  std::int64_t exponent = 0;

  /// The number has more digits than one word.
  bool is_long = false;

  /// All digits with their point, and the exponent after them.
  const Unit* mantissa = nullptr;
  const Unit* mantissa_end = nullptr;
  std::int64_t written_exponent = 0;

  /// The end of the number, null if the text does not begin with one.
  const Unit* end = nullptr;
};

/// Whether so many digits are more than one word has, zeros in front not counted.
template <typename Unit>
bool exceeds_short_digits(const Unit* at, const Unit* end, std::ptrdiff_t digit_count) {
  if (digit_count <= max_short_digits) return false;
  for (; at != end && (as_unsigned(*at) == '0' || as_unsigned(*at) == '.'); ++at) {
    if (as_unsigned(*at) == '0') --digit_count;
  }
  return digit_count > max_short_digits;
}

/// The number at the front of a text, without a sign. Digits may be missing on one side of the point.
///
/// Inlined into a caller that uses the members alone, the result is never in memory. That is most of the time
/// of a short number.
template <typename Unit>
[[gnu::always_inline]] inline decimal_number<Unit> find_decimal(const Unit* at, const Unit* end) {
  decimal_number<Unit> number;
  number.mantissa = at;
  at = append_digits(at, end, number.digits);
  std::ptrdiff_t digit_count = at - number.mantissa;
  if (at != end && as_unsigned(*at) == '.') {
    const Unit* const fraction = at + 1;
    at = append_many_digits(fraction, end, number.digits);
    number.exponent = fraction - at;
    digit_count += at - fraction;
  }
  if (digit_count == 0) return number;
  number.mantissa_end = at;
  number.end = read_exponent(at, end, 'e', number.written_exponent);
  number.exponent += number.written_exponent;
  number.is_long = exceeds_short_digits(number.mantissa, number.mantissa_end, digit_count);
  return number;
}

/// As many digits of a number as two words have.
struct first_digits {
  wide_number digits = {0, 0};
  digit_tail tail;
};

template <typename Unit>
first_digits first_digits_of(const Unit* mantissa, const Unit* mantissa_end) {
  first_digits result;
  const auto append = [&digits = result.digits](unsigned int digit) {
    const wide_number low = wide_product(digits.low, 10);
    digits = wide_sum({digits.high * 10 + low.high, low.low}, {0, digit});
  };
  result.tail = take_first_digits(decimal_digits{}, mantissa, mantissa_end, max_first_digits, append);
  return result;
}

}  // namespace ORVA_NAMESPACE::internal
