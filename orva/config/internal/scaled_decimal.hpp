/// Decimal numbers with a unit, computed exactly: "1.5" of 1024 is 1536, and "0.1" of 1024 is not whole.
///
///     scaled_decimal decimal;
///     decimal.read_digits("1.5 KiB")      // 3, the length of the number
///     decimal.times(1024)                 // 1536, whole, fits
///
/// Internal: not installed. Allocates nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

class scaled_decimal {
 public:
  struct product {
    /// The whole part, or the greatest number if that does not fit.
    std::uint64_t whole;
    bool fits;
    /// Whether the product has no fraction.
    bool is_whole;
  };

  /// Reads digits with at most one point between them, and returns their length: 0 if the text begins with
  /// none. A point counts only between digits.
  std::size_t read_digits(std::string_view text);

  bool is_zero() const noexcept { return fits_ && integer_ == 0 && fraction_length_ == 0; }

  /// The number times `unit`. REQUIRES: 0 < `unit` <= 2 to the 60.
  product times(std::uint64_t unit) const;

 private:
  void read_integer(std::string_view digits);
  void read_fraction(std::string_view digits);

  // A unit up to 2 to the 60 has at most 60 factors of 2: with more digits no product is whole.
  static constexpr std::size_t max_fraction_digits = 60;

  std::uint64_t integer_ = 0;
  bool fits_ = true;
  /// The digits after the point, without zeros at the end.
  std::array<unsigned char, max_fraction_digits> fraction_{};
  std::size_t fraction_length_ = 0;
  bool has_more_digits_ = false;
};

/// The length of the digits at the front of a text.
constexpr std::size_t digit_count(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
  return count;
}

/// The length of the blanks at the front of a text.
constexpr std::size_t blank_count(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && text[count] == ' ') ++count;
  return count;
}

}  // namespace ORVA_NAMESPACE::config::_private
