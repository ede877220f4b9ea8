#include <nmmintrin.h>

#include <cstring>

#include "orva/internal/checksum/crc32c.hpp"

namespace ORVA_NAMESPACE::internal {

namespace {

[[gnu::target("sse4.2")]] std::uint32_t crc32c_by_instruction(std::uint32_t before,
                                                              std::string_view bytes) noexcept {
  std::uint64_t remainder = static_cast<std::uint32_t>(~before);
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    std::uint64_t eight_bytes;
    std::memcpy(&eight_bytes, bytes.data(), sizeof eight_bytes);
    remainder = _mm_crc32_u64(remainder, eight_bytes);
  }
  auto last = static_cast<std::uint32_t>(remainder);
  for (const char byte : bytes) last = _mm_crc32_u8(last, static_cast<unsigned char>(byte));
  return ~last;
}

bool has_instruction() {
  static const bool answer = __builtin_cpu_supports("sse4.2") != 0;
  return answer;
}

}  // namespace

std::uint32_t crc32c(std::uint32_t before, std::string_view bytes) noexcept {
  return has_instruction() ? crc32c_by_instruction(before, bytes) : crc32c_by_tables(before, bytes);
}

}  // namespace ORVA_NAMESPACE::internal
