/// Numbers of any type as a parameter of the type `long` takes them, with 32 bits on every platform.
///
///     to_int32(0x100000005)    =>  5              an integer is cut to 32 bits
///     to_int32(-1.9)           =>  -1             a floating value loses its fraction
///     to_int32(1e10)           =>  -2147483648    as for every floating value out of range
///
/// Installed because values that compute in constant expressions need it; not part of the interface.
#pragma once

#include <concepts>
#include <type_traits>

#include "orva/internal/floating_truncation.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::internal {

/// An integer, or an unscoped enumeration, which converts to an integer implicitly.
template <typename T>
concept integer_like = std::integral<T> ||(std::is_enum_v<T>&& std::is_convertible_v<T, long long>);

template <typename T>
concept number_like = integer_like<T> || std::floating_point<T>;

template <number_like Number>
constexpr types::int32 to_int32(Number value) {
  if constexpr (std::floating_point<Number>) {
    return truncate_signed<types::int32>(value);
  } else {
    return static_cast<types::int32>(value);
  }
}

}  // namespace ORVA_NAMESPACE::internal
