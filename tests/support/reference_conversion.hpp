/// The conversion matrix of `variant` once more, slowly and in wide arithmetic: what its accessors are held
/// against.
#pragma once

#include <boost/multiprecision/cpp_int.hpp>
#include <cmath>
#include <string>

namespace orva_test {

/// Wider than anything that is converted, so that nothing here can overflow or wrap unnoticed.
using wide = boost::multiprecision::int128_t;

inline wide power_of_two(int exponent) { return wide(1) << exponent; }

/// The integer that an accessor reads: its width in bits, and whether it has a sign.
struct integer_form {
  int bits;
  bool is_signed;

  wide lowest() const { return is_signed ? -power_of_two(bits - 1) : 0; }
  wide highest() const { return power_of_two(is_signed ? bits - 1 : bits) - 1; }
};

/// The low bits of a number in two's complement.
inline wide cut(wide number, integer_form form) {
  const wide modulus = power_of_two(form.bits);
  const wide low = ((number % modulus) + modulus) % modulus;
  return low > form.highest() ? low - modulus : low;
}

/// A signed truncation as x86 has it.
inline wide truncate_signed(long double number, int bits) {
  const integer_form form{bits, true};
  const long double whole = std::trunc(number);
  const bool fits = whole >= static_cast<long double>(form.lowest()) &&
                    whole < static_cast<long double>(power_of_two(bits - 1));
  return fits ? static_cast<wide>(whole) : form.lowest();
}

inline wide truncate(long double number, integer_form form) {
  if (form.bits < 32) return cut(truncate_signed(number, 32), form);
  if (form.is_signed) return truncate_signed(number, form.bits);
  if (form.bits == 32) return cut(truncate_signed(number, 64), form);
  if (number >= 0x1p63L && number < 0x1p64L) return static_cast<wide>(number);
  return cut(truncate_signed(number, 64), form);
}

/// The number that a text of ASCII begins with, in the radix of its prefix. Ends far beyond 64 bits.
inline wide leading_number(const std::string& text) {
  std::size_t at = text.find_first_not_of(" \t\n\v\f\r");
  if (at == std::string::npos) return 0;
  const bool negative = text[at] == '-';
  if (text[at] == '-' || text[at] == '+') ++at;
  int radix = 10;
  if (at < text.size() && (text[at] == '0' || text[at] == '\\')) {
    radix = 8;
    ++at;
    if (at < text.size() && (text[at] == 'x' || text[at] == 'X')) radix = 16;
    if (at < text.size() && (text[at] == 'b' || text[at] == 'B')) radix = 2;
    if (radix != 8) ++at;
  }
  const std::string all_digits = "0123456789abcdef";
  wide number = 0;
  for (; at < text.size() && number < power_of_two(100); ++at) {
    const char lower =
        text[at] >= 'A' && text[at] <= 'F' ? static_cast<char>(text[at] + ('a' - 'A')) : text[at];
    const std::size_t digit = all_digits.find(lower);
    if (digit == std::string::npos || digit >= static_cast<std::size_t>(radix)) break;
    number = number * radix + static_cast<wide>(digit);
  }
  return negative ? -number : number;
}

inline wide saturate(wide number, integer_form form) {
  if (number < form.lowest()) return form.lowest();
  if (number > form.highest()) return form.highest();
  return number;
}

}  // namespace orva_test
