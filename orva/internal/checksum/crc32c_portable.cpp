#include "orva/internal/checksum/crc32c.hpp"

namespace ORVA_NAMESPACE::internal {

std::uint32_t crc32c(std::uint32_t before, std::string_view bytes) noexcept {
  return crc32c_by_tables(before, bytes);
}

}  // namespace ORVA_NAMESPACE::internal
