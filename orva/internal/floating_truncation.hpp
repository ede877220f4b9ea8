/// Floating values into integers, defined for every value.
///
/// The language leaves a value beyond the range of the integer undefined; what stands here gives what the
/// conversion instructions of x86 give, on every processor. Installed because values that compute in constant
/// expressions need it; it promises nothing to callers.
#pragma once

#include <concepts>
#include <limits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// Toward zero; beyond the range, and for NaN, the most negative number.
///
/// Where the floating type has no value between the most negative number and the next one below, the
/// comparison leaves that number itself out, and the result is the same.
template <std::signed_integral Integer, std::floating_point Floating>
constexpr Integer truncate_signed(Floating value) {
  constexpr auto lowest = std::numeric_limits<Integer>::min();
  constexpr auto bound = static_cast<Floating>(lowest);
  static_assert(static_cast<Integer>(bound) == lowest,
                "a power of two, which every floating type holds exactly");
  return value > bound - 1 && value < -bound ? static_cast<Integer>(value) : lowest;
}

/// There is no instruction for 64 unsigned bits: what a signed one cannot hold is brought into its range and
/// back.
template <std::floating_point Floating>
constexpr unsigned long long truncate_uint64(Floating value) {
  constexpr auto top_bit = 1ULL << 63;
  constexpr auto bound = static_cast<Floating>(top_bit);
  if (!(value >= bound)) return static_cast<unsigned long long>(truncate_signed<long long>(value));
  return static_cast<unsigned long long>(truncate_signed<long long>(value - bound)) | top_bit;
}

/// Small integers are cut out of a truncation to 32 bits, an unsigned one of 32 bits out of one to 64.
template <std::integral Integer, std::floating_point Floating>
constexpr Integer truncate(Floating value) {
  if constexpr (sizeof(Integer) < sizeof(int)) return static_cast<Integer>(truncate_signed<int>(value));
  if constexpr (std::signed_integral<Integer>) return truncate_signed<Integer>(value);
  if constexpr (sizeof(Integer) == sizeof(int))
    return static_cast<Integer>(truncate_signed<long long>(value));
  return static_cast<Integer>(truncate_uint64(value));
}

/// The value without its fraction. From 2^53 on there is none, and NaN stays what it is.
constexpr double whole_part(double value) {
  constexpr double bound = 1LL << 53;
  return value > -bound && value < bound ? static_cast<double>(static_cast<long long>(value)) : value;
}

/// The greatest whole number that is not above the value.
constexpr double floor(double value) {
  const double whole = whole_part(value);
  return whole > value ? whole - 1 : whole;
}

}  // namespace ORVA_NAMESPACE::internal
