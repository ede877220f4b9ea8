/// A whole number of up to `max_bits` bits, kept where it is defined, for the exact reading of floating
/// values.
///
/// Internal: not installed. Never allocates. Nothing checks whether a result fits: the caller chooses a size
/// for the greatest.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

template <std::size_t max_bits>
class big_number {
 public:
  explicit big_number(std::uint32_t value) {
    if (value != 0) push(value);
  }

  bool is_zero() const { return size_ == 0; }

  int bit_length() const {
    if (size_ == 0) return 0;
    return static_cast<int>(size_) * part_bits - std::countl_zero(parts_[size_ - 1]);
  }

  void multiply_and_add(std::uint32_t factor, std::uint32_t addend) {
    std::uint64_t carry = addend;
    for (std::size_t i = 0; i < size_; ++i) {
      carry += std::uint64_t{parts_[i]} * factor;
      parts_[i] = static_cast<std::uint32_t>(carry);
      carry >>= part_bits;
    }
    if (carry != 0) push(static_cast<std::uint32_t>(carry));
  }

  void multiply_by_power_of_five(std::int64_t exponent) {
    constexpr int step = 13;
    constexpr std::uint32_t power = 1220703125;
    for (; exponent >= step; exponent -= step) multiply_and_add(power, 0);
    for (; exponent > 0; --exponent) multiply_and_add(5, 0);
  }

  void shift_left(int bits) {
    if (size_ == 0) return;
    multiply_and_add(std::uint32_t{1} << bits % part_bits, 0);
    const auto whole = static_cast<std::size_t>(bits / part_bits);
    if (whole == 0) return;
    for (std::size_t i = size_; i-- > 0;) parts_[i + whole] = parts_[i];
    for (std::size_t i = 0; i < whole; ++i) parts_[i] = 0;
    size_ += whole;
  }

  bool operator>=(const big_number& other) const {
    if (size_ != other.size_) return size_ > other.size_;
    for (std::size_t i = size_; i-- > 0;) {
      if (parts_[i] != other.parts_[i]) return parts_[i] > other.parts_[i];
    }
    return true;
  }

  /// REQUIRES: `other` is not greater.
  void operator-=(const big_number& other) {
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i < size_; ++i) {
      const std::uint64_t difference =
          std::uint64_t{parts_[i]} - (i < other.size_ ? other.parts_[i] : 0) - borrow;
      parts_[i] = static_cast<std::uint32_t>(difference);
      borrow = difference >> 63;
    }
    while (size_ != 0 && parts_[size_ - 1] == 0) --size_;
  }

 private:
  static constexpr int part_bits = 32;

  void push(std::uint32_t part) { parts_[size_++] = part; }

  /// Least significant first. Only the first `size_` have values.
  std::array<std::uint32_t, max_bits / part_bits + 1> parts_;
  std::size_t size_ = 0;
};

/// The first `count` bits of a quotient, from that of two to the power of 0 on. What remains of the quotient
/// stays in `dividend`.
///
/// REQUIRES: the quotient is below 2, and `count` at most 64.
template <std::size_t max_bits>
std::uint64_t take_quotient_bits(big_number<max_bits>& dividend, const big_number<max_bits>& divisor,
                                 int count) {
  std::uint64_t bits = 0;
  for (int i = 0; i < count; ++i) {
    const bool bit = dividend >= divisor;
    if (bit) dividend -= divisor;
    dividend.shift_left(1);
    bits = bits << 1 | (bit ? 1 : 0);
  }
  return bits;
}

}  // namespace ORVA_NAMESPACE::internal
