/// The 32-bit integers of the library's interfaces.
///
///     types::uint32 position = buffer.position();      0xFFFFFFFF means "past the end" on every platform
///
/// The library was designed for platforms where `long` has 32 bits. Its results, ids and failure values have
/// that width everywhere, so that stored values mean the same on every platform. Where `long` has 32 bits,
/// these types are `long` itself, so that functions declared with `long` keep matching.
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
