/// The 32-bit integers of the library's interfaces.
///
/// The library was designed where `long` has 32 bits, and its results, ids and failure values keep that width
/// everywhere: a program that stores 0xFFFFFFFF as "not found" must find the same value on every platform.
/// Where `long` has 32 bits these are `long` itself, so that existing declarations go on matching.
#pragma once

#include <climits>
#include <cstdint>
#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::types {

using int32 = std::conditional_t<LONG_MAX == 0x7FFFFFFF, long, std::int32_t>;
using uint32 = std::conditional_t<LONG_MAX == 0x7FFFFFFF, unsigned long, std::uint32_t>;

static_assert(sizeof(int32) == 4 && sizeof(uint32) == 4);

}  // namespace ORVA_NAMESPACE::types
