/// CRC-32C bit by bit, as polynomial division defines it.
#pragma once

#include <cstdint>
#include <string_view>

namespace orva_test {

inline std::uint32_t reference_crc32c(std::uint32_t before, std::string_view bytes) {
  std::uint32_t remainder = ~before;
  for (const char byte : bytes) {
    remainder ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      const bool divides = (remainder & 1) != 0;
      remainder >>= 1;
      if (divides) remainder ^= 0x82F63B78;
    }
  }
  return ~remainder;
}

}  // namespace orva_test
