/// Slow, simple formatters, with which the tests compare those of the library.
///
/// They take the attributes as values: reading attribute strings has tests of its own.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "tests/support/sign_of_nan.hpp"

namespace orva_test::reference {

enum class int_style { decimal, spaced, hexadecimal, octal, binary };

inline unsigned int radix_of(int_style style) {
  switch (style) {
    case int_style::hexadecimal:
      return 16;
    case int_style::octal:
      return 8;
    case int_style::binary:
      return 2;
    case int_style::decimal:
    case int_style::spaced:
      break;
  }
  return 10;
}

inline std::string digits_of(std::uint64_t magnitude, unsigned int radix) {
  std::string digits;
  do {
    digits.insert(digits.begin(), "0123456789abcdef"[magnitude % radix]);
    magnitude /= radix;
  } while (magnitude != 0);
  return digits;
}

inline std::string signed_digits_of(std::int64_t value, unsigned int radix) {
  if (value >= 0) return digits_of(static_cast<std::uint64_t>(value), radix);
  return "-" + digits_of(0 - static_cast<std::uint64_t>(value), radix);
}

/// The radix to the power of `digits`, modulo 2^64.
inline std::uint64_t power_of(unsigned int radix, std::int64_t digits) {
  std::uint64_t power = 1;
  for (std::int64_t i = 0; i < digits && power != 0; ++i) power *= radix;
  return power;
}

/// The number of digits of a negative value's complement.
inline std::int64_t complement_digits(std::int64_t value, unsigned int radix, std::int64_t wanted) {
  auto digits = static_cast<std::int64_t>(signed_digits_of(value, radix).size()) - 1;
  if (wanted != 0) return wanted > digits ? wanted : digits;
  const std::uint64_t magnitude = 0 - static_cast<std::uint64_t>(value);
  // A power that is 2^64 or more is 0 modulo 2^64, and any value is below its half.
  if (magnitude > power_of(radix, digits) / 2) ++digits;
  while (radix == 16 && digits % 4 != 0) ++digits;
  return digits;
}

inline std::string format_int(std::int64_t value, int_style style, std::int64_t fieldsize) {
  const unsigned int radix = radix_of(style);
  std::string before = radix == 16 ? "0x" : radix == 8 ? "o" : "";
  const std::string behind = radix == 2 ? "b" : "";
  const auto marks = static_cast<std::int64_t>(before.size() + behind.size());
  if (value < 0 && radix != 10) {
    // A field without room for digits adds none.
    const std::int64_t room = fieldsize == 0 ? 0 : fieldsize > marks ? fieldsize - marks : 1;
    const std::int64_t digits = complement_digits(value, radix, room);
    value = static_cast<std::int64_t>(static_cast<std::uint64_t>(value) + power_of(radix, digits));
  }
  std::string digits = signed_digits_of(value, radix);
  if (style == int_style::spaced) {
    const std::size_t first = value < 0 ? 1 : 0;
    for (std::size_t i = digits.size(); i > first + 3;) digits.insert(i -= 3, " ");
  }
  const auto length = static_cast<std::int64_t>(digits.size()) + marks;
  if (fieldsize != 0 && fieldsize < length) return "-0";
  if (value >= 0 && radix != 10 && fieldsize != 0) {
    digits.insert(0, static_cast<std::size_t>(fieldsize - length), '0');
  }
  while (value >= 0 && radix == 16 && fieldsize == 0 && digits.size() % 4 != 0) digits.insert(0, "0");
  return before + digits + behind;
}

/// Uses `printf`, which is slow for large widths and precisions.
inline std::string format_double(double value, int precision, int fieldsize) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%*.*f", fieldsize == 0 ? -32 : fieldsize, precision, value);
  std::string text = with_sign_of_nan(value, buffer);
  if (fieldsize == 0) return text.substr(0, text.find_last_not_of(' ') + 1);
  if (static_cast<int>(text.size()) <= fieldsize) return text;

  char digits[2048];
  std::snprintf(digits, sizeof digits, "%.*e", precision, value);
  std::string number = with_sign_of_nan(value, digits);
  const std::size_t exponent = number.find('e');
  if (exponent != number.npos && number.size() - exponent == 4) number.insert(exponent + 2, "0");
  std::snprintf(buffer, sizeof buffer, "%*s", fieldsize, number.c_str());
  text = buffer;
  const std::size_t start = text.find('e');
  if (start != text.npos && text.size() - start >= 5) text.erase(start + 2, 1);
  return static_cast<int>(text.size()) < fieldsize ? " " + text : text;
}

}  // namespace orva_test::reference
