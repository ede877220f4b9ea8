/// Plain number readers and writers, to compare the library's with.
///
/// A number of any length is a list of its digits in base 65536. It is compared with the limits of the type
/// after it was read as a whole, so that nothing can overflow. Slow.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orva_test {

/// A whole number of any size, least significant digit first, without leading zeros.
class long_number {
 public:
  long_number() = default;
  explicit long_number(std::uint64_t value) {
    for (; value != 0; value /= base) digits_.push_back(static_cast<std::uint32_t>(value % base));
  }

  void multiply_and_add(std::uint32_t factor, std::uint32_t addend) {
    std::uint32_t carry = addend;
    for (auto& digit : digits_) {
      const std::uint32_t product = digit * factor + carry;
      digit = product % base;
      carry = product / base;
    }
    if (carry != 0) digits_.push_back(carry);
  }

  bool operator>(const long_number& other) const {
    if (digits_.size() != other.digits_.size()) return digits_.size() > other.digits_.size();
    return std::lexicographical_compare(other.digits_.rbegin(), other.digits_.rend(), digits_.rbegin(),
                                        digits_.rend());
  }

  bool is_zero() const { return digits_.empty(); }

  /// REQUIRES: it fits.
  std::uint64_t value() const {
    std::uint64_t result = 0;
    for (auto digit = digits_.rbegin(); digit != digits_.rend(); ++digit) result = result * base + *digit;
    return result;
  }

 private:
  static constexpr std::uint32_t base = 65536;

  std::vector<std::uint32_t> digits_;
};

enum class reading { number, invalid_radix, overflow, underflow };

/// The result of reading a text. For a number out of range, `value` is that of a reader that does not throw.
template <typename Integer>
struct read_result {
  reading outcome = reading::number;
  Integer value = 0;
};

/// The value of a unit as a digit of radix 36, or 99.
inline std::uint32_t reference_digit(std::uint32_t unit) {
  constexpr std::string_view lower = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr std::string_view upper = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  if (unit > 127) return 99;
  const auto in_lower = lower.find(static_cast<char>(unit));
  const auto in_upper = upper.find(static_cast<char>(unit));
  return in_lower != lower.npos   ? static_cast<std::uint32_t>(in_lower)
         : in_upper != upper.npos ? static_cast<std::uint32_t>(in_upper)
                                  : 99;
}

/// Reads in the C locale. `units` is not empty; for a length of 0 it contains the unit at the pointer.
template <typename Integer>
read_result<Integer> reference_read(const std::vector<std::uint32_t>& units, std::uint32_t radix) {
  const auto is_one_of = [&](std::size_t i, std::string_view set) {
    return units[i] < 128 && set.find(static_cast<char>(units[i])) != set.npos;
  };
  std::size_t i = 0;
  while (i < units.size() && is_one_of(i, " \t\n\v\f\r")) ++i;
  if (i == units.size()) return {};
  const bool minus = units[i] == '-';
  if (is_one_of(i, "+-") && ++i == units.size()) return {};
  if (radix == 0) {
    radix = 10;
    if (is_one_of(i, "0\\")) {
      if (++i == units.size()) return {};
      radix = is_one_of(i, "xX") ? 16 : is_one_of(i, "bB") ? 2 : 8;
      if (radix != 8 && ++i == units.size()) return {};
    }
  } else if (radix == 1 || radix > 36) {
    return {reading::invalid_radix, 0};
  }
  long_number number;
  for (; i < units.size() && reference_digit(units[i]) < radix; ++i) {
    number.multiply_and_add(radix, reference_digit(units[i]));
  }

  using limits = std::numeric_limits<Integer>;
  if (!std::is_signed_v<Integer> && minus) {
    return {number.is_zero() ? reading::number : reading::underflow, 0};
  }
  const auto bound = static_cast<std::uint64_t>(limits::max()) + (minus ? 1 : 0);
  if (number > long_number(bound)) {
    return minus ? read_result<Integer>{reading::underflow, limits::min()}
                 : read_result<Integer>{reading::overflow, limits::max()};
  }
  return {reading::number, static_cast<Integer>(minus ? 0 - number.value() : number.value())};
}

/// The text of a number, which grows by one unit at its front.
inline std::vector<std::uint32_t> reference_write(bool negative, std::uint64_t magnitude,
                                                  std::uint32_t radix) {
  std::vector<std::uint32_t> units;
  do {
    const auto digit = static_cast<std::uint32_t>(magnitude % radix);
    units.insert(units.begin(), digit < 10 ? '0' + digit : 'a' + digit - 10);
    magnitude = magnitude / radix;
  } while (magnitude != 0);
  if (negative) units.insert(units.begin(), '-');
  return units;
}

}  // namespace orva_test
