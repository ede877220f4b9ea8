/// The text of floating values that loses nothing, in every locale.
///
///     exact_number_text(0.1)               =>  0.1    the shortest text that reads back as the same value
///     read_exact_number<double>("0.1")     =>  0.1
///
/// Internal: not installed.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

template <std::floating_point Floating>
std::string exact_number_text(Floating value) {
  // A sign, a point, an exponent, and the digits: 36 for a `long double` of 128 bits, fewer otherwise.
  std::array<char, 64> units;
  char* const end = std::to_chars(units.data(), units.data() + units.size(), value).ptr;
  return std::string(units.data(), end);
}

/// A value that is read, or why it is not.
template <typename Floating>
struct exact_number {
  Floating value = 0;
  /// `invalid_argument`: the text is not a number. `result_out_of_range`: the number is too large, or so
  /// small that it would be 0.
  std::errc error = std::errc{};
  /// The first unit that does not belong to the number.
  std::size_t position = 0;
};

/// Reads a text that is wholly a number: decimal, `inf` or `nan`.
template <std::floating_point Floating>
exact_number<Floating> read_exact_number(std::string_view text) {
  const char* const end = text.data() + text.size();
  exact_number<Floating> number;
  const auto [read_to, error] = std::from_chars(text.data(), end, number.value);
  number.error = read_to != end ? std::errc::invalid_argument : error;
  number.position = static_cast<std::size_t>(read_to - text.data());
  return number;
}

}  // namespace ORVA_NAMESPACE::serialization::_private
