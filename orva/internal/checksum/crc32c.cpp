#include "orva/internal/checksum/crc32c.hpp"

#include <array>
#include <cstddef>

namespace ORVA_NAMESPACE::internal {

namespace {

using table = std::array<std::uint32_t, 256>;

/// Entry `b` of table `n` is the remainder of the byte `b` followed by `n` zero bytes. A block of eight bytes
/// is then eight independent lookups ("slicing by 8").
constexpr std::array<table, 8> tables = [] {
  constexpr std::uint32_t reversed_polynomial = 0x82F63B78;
  std::array<table, 8> all{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t remainder = byte;
    for (int bit = 0; bit < 8; ++bit) {
      remainder = remainder >> 1 ^ ((remainder & 1) != 0 ? reversed_polynomial : 0);
    }
    all[0][byte] = remainder;
  }
  for (std::size_t zeros = 1; zeros < 8; ++zeros) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t before = all[zeros - 1][byte];
      all[zeros][byte] = before >> 8 ^ all[0][before & 0xFF];
    }
  }
  return all;
}();

constexpr std::uint32_t value_of(char byte) { return static_cast<unsigned char>(byte); }

std::uint32_t add_byte(std::uint32_t remainder, char byte) {
  return remainder >> 8 ^ tables[0][(remainder ^ value_of(byte)) & 0xFF];
}

std::uint32_t add_eight_bytes(std::uint32_t remainder, const char* bytes) {
  const std::uint32_t first = remainder ^ (value_of(bytes[0]) | value_of(bytes[1]) << 8 |
                                           value_of(bytes[2]) << 16 | value_of(bytes[3]) << 24);
  return tables[7][first & 0xFF] ^ tables[6][first >> 8 & 0xFF] ^ tables[5][first >> 16 & 0xFF] ^
         tables[4][first >> 24] ^ tables[3][value_of(bytes[4])] ^ tables[2][value_of(bytes[5])] ^
         tables[1][value_of(bytes[6])] ^ tables[0][value_of(bytes[7])];
}

}  // namespace

std::uint32_t crc32c_by_tables(std::uint32_t before, std::string_view bytes) noexcept {
  std::uint32_t remainder = ~before;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) remainder = add_eight_bytes(remainder, bytes.data());
  for (const char byte : bytes) remainder = add_byte(remainder, byte);
  return ~remainder;
}

}  // namespace ORVA_NAMESPACE::internal
