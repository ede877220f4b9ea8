/// The floating value nearest to a decimal or hexadecimal number, halves to even.
///
///     nearest_floating<double>(find_decimal(text, end))
///
/// Internal: not installed. Exact for every text, of any length. Never allocates, and does not depend on a
/// locale, on the standard library or on its platform. Three ways, each for what the one before leaves:
///
/// 1. Digits and a power of ten that the type represents: one rounded operation.
/// 2. The first 38 digits times the first 128 bits of the power. The bounds of the product mostly round to
///    the same value, which then is the result.
/// 3. All digits, and a division of whole numbers of any length.
#pragma once

#include <array>
#include <bit>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

#include "orva/internal/number_text/big_number.hpp"
#include "orva/internal/number_text/decimal_number.hpp"
#include "orva/internal/number_text/power_of_ten.hpp"
#include "orva/internal/number_text/round_to_floating.hpp"
#include "orva/internal/number_text/scaled_number.hpp"
#include "orva/internal/number_text/wide_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// What the type says about decimal numbers.
template <typename Floating>
struct decimal_limits {
  using limits = std::numeric_limits<Floating>;

  /// The greatest power of ten that the type represents: its power of five fits into the mantissa.
  static constexpr int exact_power = limits::digits * 43067 / 100000;

  static constexpr auto exact_powers = [] {
    std::array<Floating, exact_power + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
  }();

  /// The exponent of two of one half of the least number, and its logarithm to the base of ten, rounded down.
  static constexpr int half_of_least = least_exponent<Floating> - 1;
  static constexpr int below_least = -(-half_of_least * 30103 / 100000) - 1;

  /// With an exponent below this, the first digits are less than half of the least number.
  static constexpr int least_power = below_least - max_first_digits + 1;
  static constexpr int greatest_power = limits::max_exponent10;

  /// No value, and no middle between two values, has more significant digits: it is a whole number times two
  /// to `half_of_least` at the least, which has as many decimals, and begins with zeros.
  static constexpr int max_digits = -half_of_least - (-half_of_least - limits::digits - 1) * 30103 / 100000;

  /// The longest number in a division: `max_digits` digits, or the power of five by which they are divided.
  static constexpr int max_divisor_power = max_digits - below_least + max_first_digits;
  static constexpr std::size_t max_bits =
      static_cast<std::size_t>(max_digits * 10 / 3 > max_divisor_power * 7 / 3 ? max_digits * 10 / 3
                                                                               : max_divisor_power * 7 / 3) +
      128;
};

static_assert(decimal_limits<float>::exact_power == 10 && decimal_limits<double>::exact_power == 22);
static_assert(decimal_limits<double>::max_digits == 768 && decimal_limits<double>::least_power == -361);

/// Whether the compiler rounds an operation to the type of its operands.
template <typename Floating>
inline constexpr bool rounds_to_type = FLT_EVAL_METHOD == 0 || std::is_same_v<Floating, long double>;

/// The first way.
template <typename Floating, typename Unit>
[[gnu::always_inline]] inline std::optional<Floating> nearest_by_one_operation(
    const decimal_number<Unit>& number) {
  using limits = decimal_limits<Floating>;
  if (!rounds_to_type<Floating>) return std::nullopt;
  if (number.exponent < -limits::exact_power || number.exponent > limits::exact_power) return std::nullopt;
  if (static_cast<int>(std::bit_width(number.digits)) > std::numeric_limits<Floating>::digits)
    return std::nullopt;
  const auto digits = static_cast<Floating>(number.digits);
  if (number.exponent < 0) return digits / limits::exact_powers[static_cast<std::size_t>(-number.exponent)];
  return digits * limits::exact_powers[static_cast<std::size_t>(number.exponent)];
}

/// The value to which all numbers between the bounds round, if there is one.
template <typename Floating>
[[gnu::always_inline]] inline std::optional<Floating> round_between_bounds(const scaled_number& number) {
  const auto value = round_to_floating<Floating>(number.bits, number.exponent);
  if (number.error == 0) return value;
  const wide_number bound = wide_sum(number.bits, {0, number.error});
  // A type with fewer bits than one word rounds by the first word, and by whether the second is 0.
  constexpr bool has_short_mantissa = std::numeric_limits<Floating>::digits < 64;
  if (has_short_mantissa && bound.high == number.bits.high && number.bits.low != 0) return value;
  // The bound has passed 128 bits.
  if (bound.high < number.bits.high) return std::nullopt;
  if (round_to_floating<Floating>(bound, number.exponent) != value) return std::nullopt;
  return value;
}

/// The second way for a number that has all its digits in one word, and a power in the table.
template <typename Floating>
[[gnu::always_inline]] inline std::optional<Floating> nearest_by_one_word(std::uint64_t digits,
                                                                          int exponent) {
  return round_between_bounds<Floating>(product(scaled(digits), power_of_table(exponent)));
}

/// The second way for any number.
///
/// REQUIRES: `digits` has more than one word, or there are no further digits.
template <typename Floating>
std::optional<Floating> nearest_by_two_words(const wide_number& digits, int exponent,
                                             bool has_further_digits) {
  const scaled_number power = power_of_ten(exponent);
  const auto value = round_between_bounds<Floating>(product(scaled(digits), power));
  if (!value || !has_further_digits) return value;
  const auto bound = round_between_bounds<Floating>(product(scaled(wide_sum(digits, {0, 1})), power));
  if (bound != value) return std::nullopt;
  return value;
}

/// The third way.
template <typename Floating, typename Unit>
Floating nearest_by_all_digits(const Unit* mantissa, const Unit* mantissa_end, std::int64_t exponent) {
  using limits = decimal_limits<Floating>;
  using whole_number = big_number<limits::max_bits>;
  constexpr std::uint32_t full_chunk = 1000000000;
  whole_number dividend(0);
  std::uint32_t chunk = 0;
  std::uint32_t chunk_power = 1;
  const auto take = [&](unsigned int digit) {
    chunk = chunk * 10 + digit;
    chunk_power *= 10;
    if (chunk_power != full_chunk) return;
    dividend.multiply_and_add(chunk_power, chunk);
    chunk = 0;
    chunk_power = 1;
  };
  const digit_tail tail =
      take_first_digits(decimal_digits{}, mantissa, mantissa_end, limits::max_digits, take);
  dividend.multiply_and_add(chunk_power, chunk);

  // The power of ten is one of five in the quotient, and one of two in the exponent.
  const std::int64_t power = tail.exponent + exponent;
  whole_number divisor(1);
  (power < 0 ? divisor : dividend).multiply_by_power_of_five(power < 0 ? -power : power);
  const int scale = dividend.bit_length() - divisor.bit_length();
  (scale < 0 ? dividend : divisor).shift_left(scale < 0 ? -scale : scale);

  const std::uint64_t high = take_quotient_bits(dividend, divisor, 64);
  const std::uint64_t next = take_quotient_bits(dividend, divisor, 4);
  const bool has_rest = !dividend.is_zero() || tail.has_further_digits;
  const wide_number quotient = {high, next << 60 | (has_rest ? 1 : 0)};
  const int leading = std::countl_zero(quotient.high);
  return round_to_floating<Floating>(shifted_left(quotient, leading), power + scale - 127 - leading);
}

/// Any number but 0, by its digits with their point, times ten to `exponent`. Apart from the short numbers,
/// which would be slower otherwise.
template <typename Floating, typename Unit>
[[gnu::noinline]] Floating nearest_of_any_length(const Unit* mantissa, const Unit* mantissa_end,
                                                 std::int64_t exponent) {
  using limits = decimal_limits<Floating>;
  const first_digits first = first_digits_of(mantissa, mantissa_end);
  const std::int64_t power = first.tail.exponent + exponent;
  if (power < limits::least_power) return 0;
  if (power > limits::greatest_power) return std::numeric_limits<Floating>::infinity();
  const auto value =
      nearest_by_two_words<Floating>(first.digits, static_cast<int>(power), first.tail.has_further_digits);
  return value ? *value : nearest_by_all_digits<Floating>(mantissa, mantissa_end, exponent);
}

/// 0 if the number is too small, infinity if it is too large.
template <typename Floating, typename Unit>
[[gnu::always_inline]] inline Floating nearest_floating(const decimal_number<Unit>& number) {
  if (!number.is_long) {
    if (number.digits == 0) return 0;
    if (const auto value = nearest_by_one_operation<Floating>(number)) return *value;
    if (is_in_table(number.exponent)) {
      const auto value = nearest_by_one_word<Floating>(number.digits, static_cast<int>(number.exponent));
      if (value) return *value;
    }
  }
  return nearest_of_any_length<Floating>(number.mantissa, number.mantissa_end, number.written_exponent);
}

}  // namespace ORVA_NAMESPACE::internal
