/// Floating values into integers, defined for every value.
///
/// Internal: not installed. The language leaves a value beyond the range of the integer undefined; what stands here
/// gives what the conversion instructions of x86 give, on every processor.
#pragma once

#include <concepts>
#include <limits>

namespace ORVA_2_18::types::_private {

/// Toward zero; beyond the range, and for NaN, the most negative number.
///
/// Where the floating type has no value between the most negative number and the next one below, the comparison
/// leaves that number itself out, and the result is the same.
template <std::signed_integral Integer, std::floating_point Floating>
Integer truncate_signed(Floating value) {
  constexpr auto lowest = std::numeric_limits<Integer>::min();
  constexpr auto bound = static_cast<Floating>(lowest);
  static_assert(static_cast<Integer>(bound) == lowest,
                "a power of two, which every floating type holds exactly");
  return value > bound - 1 && value < -bound ? static_cast<Integer>(value) : lowest;
}

/// There is no instruction for 64 unsigned bits: what a signed one cannot hold is brought into its range and back.
template <std::floating_point Floating>
unsigned long long truncate_uint64(Floating value) {
  constexpr auto top_bit = 1ULL << 63;
  constexpr auto bound = static_cast<Floating>(top_bit);
  if (!(value >= bound)) return static_cast<unsigned long long>(truncate_signed<long long>(value));
  return static_cast<unsigned long long>(truncate_signed<long long>(value - bound)) | top_bit;
}

/// Small integers are cut out of a truncation to 32 bits, an unsigned one of 32 bits out of one to 64.
template <std::integral Integer, std::floating_point Floating>
Integer truncate(Floating value) {
  if constexpr (sizeof(Integer) < sizeof(int)) return static_cast<Integer>(truncate_signed<int>(value));
  if constexpr (std::signed_integral<Integer>) return truncate_signed<Integer>(value);
  if constexpr (sizeof(Integer) == sizeof(int))
    return static_cast<Integer>(truncate_signed<long long>(value));
  return static_cast<Integer>(truncate_uint64(value));
}

}  // namespace ORVA_2_18::types::_private
