/// What `read_number` is to return, from the readers of the runtime: `std::from_chars` decides where a number
/// ends, and integers; `strtod` and its relatives decide floating values. In the C locale.
#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "orva/generic/convert/read_number.hpp"

namespace orva_test {

namespace convert = ORVA_NAMESPACE::generic::convert;
using convert::number_error;
using convert::read_number_result;

/// What is in front of the digits of a number, and the radix that it chooses.
struct number_front {
  std::size_t length;
  bool is_negative;
  unsigned int radix;
};

/// Whether a text has the prefix and a digit after it. A floating value may have a point in front of the
/// digit.
inline bool has_prefix(std::string_view text, char letter, unsigned int radix, bool may_have_point) {
  if (text.size() < 3 || text[0] != '0' || (text[1] != letter && text[1] != letter - 'a' + 'A')) return false;
  text.remove_prefix(may_have_point && text[2] == '.' ? 3 : 2);
  unsigned int digit = 0;
  return !text.empty() && text[0] != '-' &&
         std::from_chars(text.data(), text.data() + 1, digit, static_cast<int>(radix)).ec == std::errc{};
}

inline number_front front_of_number(std::string_view text, unsigned int radix, bool is_floating) {
  number_front front{0, false, radix};
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) front = {1, text[0] == '-', radix};
  if (radix != 0) return front;
  text.remove_prefix(front.length);
  if (has_prefix(text, 'x', 16, is_floating)) return {front.length + 2, front.is_negative, 16};
  if (is_floating) return {front.length, front.is_negative, 10};
  if (has_prefix(text, 'b', 2, false)) return {front.length + 2, front.is_negative, 2};
  return {front.length, front.is_negative, text.substr(0, 1) == "0" ? 8U : 10U};
}

template <typename Integer>
read_number_result<Integer> reference_read_integer(std::string_view text, unsigned int radix) {
  using limits = std::numeric_limits<Integer>;
  if (radix == 1 || radix > 36) return {0, 0, number_error::bad_radix};
  const number_front front = front_of_number(text, radix, false);
  const char* const begin = text.data() + front.length;
  unsigned long long magnitude = 0;
  const auto [end, error] =
      std::from_chars(begin, text.data() + text.size(), magnitude, static_cast<int>(front.radix));
  if (error == std::errc::invalid_argument) return {0, 0, number_error::no_number};
  const auto length = static_cast<std::size_t>(end - text.data());
  const bool is_too_long = error == std::errc::result_out_of_range;
  const auto max = static_cast<unsigned long long>(limits::max());
  const unsigned long long bound = front.is_negative ? (limits::is_signed ? max + 1 : 0) : max;
  if (!is_too_long && magnitude <= bound) {
    return {static_cast<Integer>(front.is_negative ? 0 - magnitude : magnitude), length, number_error::none};
  }
  if (front.is_negative) return {limits::min(), length, number_error::too_small};
  return {limits::max(), length, number_error::too_large};
}

template <typename Floating>
Floating runtime_value(const std::string& text) {
  if constexpr (std::is_same_v<Floating, float>) return std::strtof(text.c_str(), nullptr);
  if constexpr (std::is_same_v<Floating, double>) return std::strtod(text.c_str(), nullptr);
  if constexpr (std::is_same_v<Floating, long double>) return std::strtold(text.c_str(), nullptr);
}

/// Whether the digits of a number, up to its exponent, are all zeros.
inline bool is_zero_text(std::string_view digits, unsigned int radix) {
  return digits.substr(0, digits.find_first_of(radix == 16 ? "pP" : "eE")).find_first_not_of("0.") ==
         digits.npos;
}

template <typename Floating>
read_number_result<Floating> reference_read_floating(std::string_view text, unsigned int radix) {
  if (radix != 0 && radix != 10 && radix != 16) return {0, 0, number_error::bad_radix};
  const number_front front = front_of_number(text, radix, true);
  const bool is_hexadecimal = front.radix == 16;
  const char* const begin = text.data() + front.length;
  if (text.substr(front.length, 1) == "-") return {0, 0, number_error::no_number};
  // The library of GCC 12 takes "p+-1" for an exponent.
  if (is_hexadecimal) {
    for (const char* sign : {"p+-", "P+-"}) text = text.substr(0, text.find(sign, front.length));
  }
  const char* const text_end = text.data() + text.size();
  double unused = 0;
  const auto format = is_hexadecimal ? std::chars_format::hex : std::chars_format::general;
  const auto [end, error] = std::from_chars(begin, text_end, unused, format);
  if (error == std::errc::invalid_argument) return {0, 0, number_error::no_number};
  std::string number(begin, end);
  if (number.front() == 'n' || number.front() == 'N') number.resize(3);
  const std::size_t length = front.length + number.size();
  const bool is_word = number.find_first_of("iInN") == 0;
  const auto magnitude = runtime_value<Floating>((is_hexadecimal && !is_word ? "0x" : "") + number);
  const Floating value = front.is_negative ? -magnitude : magnitude;
  if (is_word) return {value, length, number_error::none};
  if (std::isinf(value)) return {value, length, number_error::too_large};
  if (value == 0 && !is_zero_text(number, front.radix)) return {value, length, number_error::too_small};
  return {value, length, number_error::none};
}

/// Whether both results are the same, the sign of a zero and of a NaN included.
template <typename Number>
bool same_result(const read_number_result<Number>& left, const read_number_result<Number>& right) {
  if (left.length != right.length || left.error != right.error) return false;
  if constexpr (std::is_floating_point_v<Number>) {
    if (std::signbit(left.value) != std::signbit(right.value)) return false;
    if (std::isnan(left.value) && std::isnan(right.value)) return true;
  }
  return left.value == right.value;
}

}  // namespace orva_test
