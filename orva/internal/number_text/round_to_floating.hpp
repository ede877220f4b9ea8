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
Floating compose(std::uint64_t mantissa, std::int64_t exponent) {
  using limits = std::numeric_limits<Floating>;
  static_assert(limits::is_iec559 && limits::digits <= 64, "a mantissa is computed in 64 bits");
  if (exponent + static_cast<int>(std::bit_width(mantissa)) > limits::max_exponent) return limits::infinity();
  if constexpr (limits::digits == 64) {
    return std::ldexp(static_cast<Floating>(mantissa), static_cast<int>(exponent));
  } else {
    // The highest bit is not stored. It counts the exponent up by one, and a subnormal number does not have
    // it.
    using bits = std::conditional_t<sizeof(Floating) == 4, std::uint32_t, std::uint64_t>;
    const auto biased = static_cast<bits>(exponent - least_exponent<Floating>);
    const auto stored = static_cast<bits>((biased << (limits::digits - 1)) + mantissa);
    return std::bit_cast<Floating>(stored);
  }
}

/// The nearest value, halves to even, of a number times two to `exponent`: infinity if it is too large, and 0
/// if it is too small. The lowest bit may stand for any bits after it.
///
/// REQUIRES: `number.high` is not 0.
template <typename Floating>
Floating round_to_floating(wide_number number, std::int64_t exponent) {
  const int leading = std::countl_zero(number.high);
  number = shifted_left(number, leading);
  exponent -= leading;
  constexpr int excess = 128 - std::numeric_limits<Floating>::digits;
  const std::int64_t dropped = std::max<std::int64_t>(excess, least_exponent<Floating> - exponent);
  if (dropped > 128) return 0;
  const auto dropped_above = static_cast<int>(dropped - 64);
  const std::uint64_t kept = dropped_above == 64 ? 0 : number.high >> dropped_above;
  const std::uint64_t tail =
      dropped_above == 0 ? number.low : number.high << (64 - dropped_above) | (number.low != 0 ? 1 : 0);
  constexpr std::uint64_t half = std::uint64_t{1} << 63;
  const bool is_up = tail > half || (tail == half && kept % 2 != 0);
  const std::uint64_t mantissa = kept + (is_up ? 1 : 0);
  // A mantissa of 64 bits that was all ones.
  if (mantissa < kept) return compose<Floating>(half, exponent + dropped + 1);
  return compose<Floating>(mantissa, exponent + dropped);
}

}  // namespace ORVA_NAMESPACE::internal
