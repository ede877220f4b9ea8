/// `fast_path` from UTF-8 into UTF-16 and UTF-32. It takes every whole sequence of four bytes.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// Four bytes as a number, the first in the low bits.
inline std::uint32_t load_four_bytes(const char* from) {
  return value_of(from[0]) | value_of(from[1]) << 8 | value_of(from[2]) << 16 | value_of(from[3]) << 24;
}

/// Whether four bytes begin with a sequence of `Length`.
template <std::size_t Length>
bool is_sequence(std::uint32_t bytes) {
  if constexpr (Length == 2) return (bytes & 0xC0E0) == 0x80C0;
  if constexpr (Length == 3) return (bytes & 0xC0C0F0) == 0x8080E0;
  if constexpr (Length == 4) return (bytes & 0xC0C0C0F8) == 0x808080F0;
}

template <std::size_t Length>
std::uint32_t joined(std::uint32_t bytes) {
  if constexpr (Length == 2) return (bytes & 0x1F) << 6 | (bytes >> 8 & 0x3F);
  if constexpr (Length == 3) return (bytes & 0xF) << 12 | (bytes >> 2 & 0xFC0) | (bytes >> 16 & 0x3F);
  if constexpr (Length == 4) {
    return (bytes & 7) << 18 | (bytes << 4 & 0x3F000) | (bytes >> 10 & 0xFC0) | (bytes >> 24 & 0x3F);
  }
}

/// Converts sequences of one length, of which text in one script mostly consists.
template <std::size_t Length, typename To>
cursor<char, To> fast_path_sequences(cursor<char, To> at, const char* end) {
  for (; end - at.from >= 4; at.from += Length) {
    const std::uint32_t bytes = load_four_bytes(at.from);
    if (!is_sequence<Length>(bytes)) break;
    if constexpr (Length == 4 && sizeof(To) == 2) {
      at.to = encode_pair(joined<Length>(bytes), at.to);
    } else {
      *at.to++ = static_cast<To>(joined<Length>(bytes));
    }
  }
  return at;
}

template <typename To>
cursor<char, To> fast_path(cursor<char, To> at, const char* end) {
  while (end - at.from >= 4) {
    const std::uint32_t bytes = load_four_bytes(at.from);
    if ((bytes & 0x80808080) == 0) {
      const auto advanced = fast_path_ascii(at, end);
      at = advanced.from == at.from ? copied<4>(at) : advanced;
    } else if ((bytes & 0x80) == 0) {
      at = copied<1>(at);
    } else if (is_sequence<2>(bytes)) {
      at = fast_path_sequences<2>(at, end);
    } else if (is_sequence<3>(bytes)) {
      at = fast_path_sequences<3>(at, end);
    } else if (is_sequence<4>(bytes)) {
      at = fast_path_sequences<4>(at, end);
    } else {
      break;
    }
  }
  return at;
}

}  // namespace ORVA_NAMESPACE::internal::text
