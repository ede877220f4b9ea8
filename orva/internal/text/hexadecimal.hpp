/// Numbers of code units and characters, as messages show them.
///
///     hexadecimal("U+", 0x416, 4)    =>  "U+0416"
///     hexadecimal("0x", 0xE2, 2)     =>  "0xE2"
///     hexadecimal("U+", 0x1F600, 4)  =>  "U+1F600": as many digits more as it needs
///
/// Internal: not installed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// With `min_digits` or more digits. REQUIRES: `min_digits` is 1 to 8.
inline std::string hexadecimal(std::string_view prefix, std::uint32_t value, int min_digits) {
  int digits = min_digits;
  while (digits < 8 && value >> (4 * digits) != 0) ++digits;
  std::string text(prefix);
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += "0123456789ABCDEF"[value >> shift & 0xF];
  return text;
}

}  // namespace ORVA_NAMESPACE::internal::text
