/// `fast_path` from UTF-16 and UTF-32 into UTF-8.
///
/// Internal: not installed.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"
#include "orva/internal/text/pack_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// Writes a character beyond the basic plane with one store; compilers do not always combine four.
inline void store_four_bytes(std::uint32_t code_point, char* to) {
  std::uint32_t bytes = 0x808080F0 | code_point >> 18 | (code_point >> 4 & 0x3F00) |
                        (code_point << 10 & 0x3F0000) | (code_point & 0x3F) << 24;
  if constexpr (std::endian::native == std::endian::big) {
    bytes = bytes << 24 | (bytes << 8 & 0xFF0000) | (bytes >> 8 & 0xFF00) | bytes >> 24;
  }
  std::memcpy(to, &bytes, sizeof bytes);
}

/// REQUIRES: room for four bytes for each unit that is left.
template <typename From>
cursor<From, char> fast_path(cursor<From, char> at, const From* end) {
  at = pack_utf8(fast_path_ascii(at, end), end);
  while (at.from != end) {
    const auto found = decode(at.from, static_cast<std::size_t>(end - at.from));
    if (found.code_point < 0x10000 || found.code_point >= 0x110000) break;
    store_four_bytes(found.code_point, at.to);
    at = {at.from + found.units, at.to + 4};
  }
  return at;
}

}  // namespace ORVA_NAMESPACE::internal::text
