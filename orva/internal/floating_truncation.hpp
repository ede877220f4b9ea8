/// Conversions of floating values to integers, defined for every value.
///
///     truncate_signed<int32>(-1.9)     =>  -1
///     truncate_signed<int32>(1e10)     =>  -2147483648
///
/// In the language a value out of the integer's range is undefined. These functions return what the
/// conversion instructions of x86 return, on every processor. Installed because values that compute in
/// constant expressions need it; not part of the interface.
#pragma once

#include <concepts>
#include <limits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// Toward zero; beyond the range, and for NaN, the most negative number.
///
/// In a wide integer `bound - 1` rounds to `bound`, so that the comparison excludes the most negative number
/// itself. The result is the same.
template <std::signed_integral Integer, std::floating_point Floating>
constexpr Integer truncate_signed(Floating value) {
  constexpr auto lowest = std::numeric_limits<Integer>::min();
  constexpr auto bound = static_cast<Floating>(lowest);
  static_assert(static_cast<Integer>(bound) == lowest,
                "a power of two, which every floating type represents exactly");
  return value > bound - 1 && value < -bound ? static_cast<Integer>(value) : lowest;
}

/// There is no instruction for 64 unsigned bits: a value that a signed integer cannot represent is moved into
/// its range and back.
template <std::floating_point Floating>
constexpr unsigned long long truncate_uint64(Floating value) {
  constexpr auto top_bit = 1ULL << 63;
  constexpr auto bound = static_cast<Floating>(top_bit);
  if (!(value >= bound)) return static_cast<unsigned long long>(truncate_signed<long long>(value));
  return static_cast<unsigned long long>(truncate_signed<long long>(value - bound)) | top_bit;
}

/// Integers below 32 bits are the low bits of a truncation to 32 bits; an unsigned one of 32 bits is that of
/// a truncation to 64 bits.
template <std::integral Integer, std::floating_point Floating>
constexpr Integer truncate(Floating value) {
  if constexpr (sizeof(Integer) < sizeof(int)) return static_cast<Integer>(truncate_signed<int>(value));
  if constexpr (std::signed_integral<Integer>) return truncate_signed<Integer>(value);
  if constexpr (sizeof(Integer) == sizeof(int))
    return static_cast<Integer>(truncate_signed<long long>(value));
  return static_cast<Integer>(truncate_uint64(value));
}

/// The value without its fraction. Values from 2^53 on have none, and NaN is returned unchanged.
constexpr double whole_part(double value) {
  constexpr double bound = 1LL << 53;
  return value > -bound && value < bound ? static_cast<double>(static_cast<long long>(value)) : value;
}

/// The greatest whole number not above the value.
constexpr double floor(double value) {
  const double whole = whole_part(value);
  return whole > value ? whole - 1 : whole;
}

}  // namespace ORVA_NAMESPACE::internal
