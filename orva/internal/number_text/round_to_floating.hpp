/// The rounding that every floating reader ends with.
///
///     round_to_floating<double>({1ULL << 63, 1}, -127)    =>  1.0
///
/// Internal: not installed. Computed with integers, so that neither the rounding mode of the processor nor
/// the width of its registers changes a result.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "orva/internal/number_text/wide_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// The exponent of the least number that is not 0.
template <typename Floating>
inline constexpr int least_exponent =
    std::numeric_limits<Floating>::min_exponent - std::numeric_limits<Floating>::digits;

/// The value of a mantissa that is already rounded, times two to `exponent`; infinity if it is too large.
///
/// REQUIRES: `exponent` is not below `least_exponent`, and is that if the mantissa has fewer bits than the
/// type. The mantissa has at most one bit more.
template <typename Floating>
[[gnu::always_inline]] inline Floating compose(std::uint64_t mantissa, std::int64_t exponent) {
  using limits = std::numeric_limits<Floating>;
  static_assert(limits::is_iec559 && limits::digits <= 64, "a mantissa is computed in 64 bits");
  if (exponent > limits::max_exponent - limits::digits) return limits::infinity();
  if constexpr (limits::digits == 64) {
    return std::ldexp(static_cast<Floating>(mantissa), static_cast<int>(exponent));
  } else {
    // The highest bit is not stored. It counts the exponent up by one, and a subnormal number does not have
    // it. One bit more counts it up again, as far as to infinity.
    using bits = std::conditional_t<sizeof(Floating) == 4, std::uint32_t, std::uint64_t>;
    const auto biased = static_cast<bits>(exponent - least_exponent<Floating>);
    return std::bit_cast<Floating>(static_cast<bits>((biased << (limits::digits - 1)) + mantissa));
  }
}

/// The nearest value, halves to even, of a number times two to `exponent`: infinity if it is too large, and 0
/// if it is too small. The lowest bit may represent any bits after it.
///
/// REQUIRES: the highest bit is set.
template <typename Floating>
[[gnu::always_inline]] inline Floating round_to_floating(const wide_number& number, std::int64_t exponent) {
  constexpr int excess = 128 - std::numeric_limits<Floating>::digits;
  const std::int64_t dropped = std::max<std::int64_t>(excess, least_exponent<Floating> - exponent);
  if (dropped > 128) return 0;
  const auto dropped_above = static_cast<int>(dropped - 64);
  const std::uint64_t kept = dropped_above == 64 ? 0 : number.high >> dropped_above;
  const std::uint64_t tail =
      dropped_above == 0 ? number.low : number.high << (64 - dropped_above) | (number.low != 0 ? 1 : 0);
  constexpr std::uint64_t half = std::uint64_t{1} << 63;
  // Without a branch: whether a number is rounded up cannot be predicted.
  const auto is_above_half = static_cast<std::uint64_t>(tail > half);
  const auto is_half = static_cast<std::uint64_t>(tail == half);
  const std::uint64_t mantissa = kept + (is_above_half | (is_half & kept & 1));
  // A mantissa of 64 bits that was all ones.
  if (mantissa < kept) return compose<Floating>(half, exponent + dropped + 1);
  return compose<Floating>(mantissa, exponent + dropped);
}

}  // namespace ORVA_NAMESPACE::internal
