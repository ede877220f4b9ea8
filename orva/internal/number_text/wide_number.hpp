/// A whole number of 128 bits, as far as the readers and writers of floating values need one.
///
///     wide_product(a, b)      all bits of the product of two numbers of 64 bits
///
/// Internal: not installed.
#pragma once

#include <cstdint>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

struct wide_number {
  std::uint64_t high;
  std::uint64_t low;

  constexpr bool is_zero() const { return (high | low) == 0; }
};

/// The product by the schoolbook method, for compilers without a type of 128 bits.
constexpr wide_number portable_wide_product(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t half = 0xFFFFFFFF;
  const std::uint64_t low = (a & half) * (b & half);
  const std::uint64_t first = (a >> 32) * (b & half) + (low >> 32);
  const std::uint64_t second = (a & half) * (b >> 32) + (first & half);
  return {(a >> 32) * (b >> 32) + (first >> 32) + (second >> 32), second << 32 | (low & half)};
}

constexpr wide_number wide_product(std::uint64_t a, std::uint64_t b) {
#if defined(__SIZEOF_INT128__)
  __extension__ using unsigned128 = unsigned __int128;
  const unsigned128 product = static_cast<unsigned128>(a) * b;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
  return portable_wide_product(a, b);
#endif
}

/// REQUIRES: the sum fits.
constexpr wide_number wide_sum(const wide_number& number, const wide_number& addend) {
  const std::uint64_t low = number.low + addend.low;
  return {number.high + addend.high + (low < addend.low ? 1 : 0), low};
}

/// Without a branch, and without a shift by 64, which is none.
///
/// REQUIRES: `bits` is below 64.
constexpr wide_number shifted_left(const wide_number& number, int bits) {
  return {number.high << bits | number.low >> 1 >> (63 - bits), number.low << bits};
}

}  // namespace ORVA_NAMESPACE::internal
