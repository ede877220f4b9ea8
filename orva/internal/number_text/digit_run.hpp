/// The digits of a number in a text: the value of each, and of a run of them.
///
///     decimal_digits::value('7')                        =>  7
///     digits_of{16}.value('g')                          =>  a number not below 16
///     read_digits(decimal_digits{}, "255;", 4, 255)     =>  value 255, length 3, in range
///
/// Internal: not installed. Units are passed unsigned, by `as_unsigned`.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

template <typename Unit>
constexpr std::uint32_t as_unsigned(Unit unit) {
  return static_cast<std::make_unsigned_t<Unit>>(unit);
}

/// The number of digits of a radix that fit into 64 bits whatever they are.
constexpr std::uint8_t safe_digits(unsigned int radix) {
  constexpr std::uint64_t max_magnitude = std::numeric_limits<std::uint64_t>::max();
  const unsigned int highest = radix - 1;
  std::uint8_t count = 0;
  for (std::uint64_t largest = 0; largest <= (max_magnitude - highest) / radix; ++count) {
    largest = largest * radix + highest;
  }
  return count;
}

inline constexpr auto safe_digits_by_radix = [] {
  std::array<std::uint8_t, 37> table{};
  for (unsigned int radix = 2; radix <= 36; ++radix) table[radix] = safe_digits(radix);
  return table;
}();

static_assert(safe_digits_by_radix[2] == 64 && safe_digits_by_radix[10] == 19 &&
              safe_digits_by_radix[16] == 16);

/// The digits of the most frequent radix, a constant, so that the compiler multiplies by shifts and sums.
struct decimal_digits {
  static constexpr unsigned int radix = 10;

  /// The value of a digit, or a number not below the radix.
  static constexpr unsigned int value(std::uint32_t unit) { return unit - '0'; }
};

/// The values of the units below 128 as digits of radix 36; 36 for those that are none.
inline constexpr auto digit_values = [] {
  std::array<std::uint8_t, 128> values{};
  for (auto& value : values) value = 36;
  for (std::size_t i = 0; i < 10; ++i) values['0' + i] = static_cast<std::uint8_t>(i);
  for (std::size_t i = 10; i < 36; ++i) {
    values['a' + i - 10] = static_cast<std::uint8_t>(i);
    values['A' + i - 10] = static_cast<std::uint8_t>(i);
  }
  return values;
}();

struct digits_of {
  unsigned int radix;

  /// A table, since which digits are letters cannot be predicted.
  static constexpr unsigned int value(std::uint32_t unit) {
    return unit < digit_values.size() ? digit_values[unit] : 36U;
  }
};

/// The number that the digits at the front of a text form. Out of range, `value` is that of digits that
/// fitted, and `length` ends at a digit that did not fit or after the last digit.
struct digit_run {
  std::uint64_t value = 0;
  std::size_t length = 0;
  bool in_range = true;
};

/// Reads the digits after those that always fit, and tests each before it is added.
template <typename Digits, typename Unit>
digit_run read_further_digits(Digits digits, const Unit* text, std::size_t length, std::uint64_t bound,
                              digit_run run) {
  const std::uint64_t limit = bound / digits.radix;
  const auto rest = static_cast<unsigned int>(bound % digits.radix);
  for (; run.length < length; ++run.length) {
    const unsigned int digit = digits.value(as_unsigned(text[run.length]));
    if (digit >= digits.radix) break;
    if (run.value > limit || (run.value == limit && digit > rest)) {
      run.in_range = false;
      return run;
    }
    run.value = run.value * digits.radix + digit;
  }
  run.in_range = run.value <= bound;
  return run;
}

/// Reads digits as long as they keep the value within `bound`. No unit after the one that ends the run is
/// read.
template <typename Digits, typename Unit>
digit_run read_digits(Digits digits, const Unit* text, std::size_t length, std::uint64_t bound) {
  const auto safe = std::min<std::size_t>(length, safe_digits_by_radix[digits.radix]);
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < safe; ++i) {
    const unsigned int digit = digits.value(as_unsigned(text[i]));
    if (digit >= digits.radix) return {value, i, value <= bound};
    value = value * digits.radix + digit;
  }
  if (safe == length) return {value, safe, value <= bound};
  return read_further_digits(digits, text, length, bound, {value, safe, true});
}

}  // namespace ORVA_NAMESPACE::internal
