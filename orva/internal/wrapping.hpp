/// Signed arithmetic that wraps at the width of its type, on every platform and at compile time.
///
///     wrapping_add<int32>(2147483647, 1)    =>  -2147483648
///
/// Installed because values that compute in constant expressions need it; not part of the interface.
#pragma once

#include <concepts>
#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

template <std::signed_integral Integer>
constexpr Integer wrapping_add(Integer left, Integer right) {
  using bits = std::make_unsigned_t<Integer>;
  return static_cast<Integer>(static_cast<bits>(left) + static_cast<bits>(right));
}

template <std::signed_integral Integer>
constexpr Integer wrapping_subtract(Integer left, Integer right) {
  using bits = std::make_unsigned_t<Integer>;
  return static_cast<Integer>(static_cast<bits>(left) - static_cast<bits>(right));
}

template <std::signed_integral Integer>
constexpr Integer wrapping_multiply(Integer left, Integer right) {
  using bits = std::make_unsigned_t<Integer>;
  static_assert(sizeof(bits) >= sizeof(int), "a smaller type would be promoted to a signed one");
  return static_cast<Integer>(static_cast<bits>(left) * static_cast<bits>(right));
}

}  // namespace ORVA_NAMESPACE::internal
