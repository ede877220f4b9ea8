/// CRC-32C, the checksum of iSCSI and ext4 (RFC 3720, polynomial 0x1EDC6F41 with reversed bits).
///
///     crc32c(0, "123456789")          =>  0xE3069283
///     crc32c(crc32c(0, a), b)         =>  crc32c(0, a + b)
///
/// It detects every change that lies within 32 adjacent bits, and so every change of one bit, in data of any
/// length.
///
/// Internal: not installed. The build chooses between crc32c_x86.cpp, which uses the instruction of SSE 4.2
/// if the processor has it, and crc32c_portable.cpp.
#pragma once

#include <cstdint>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// The checksum of the bytes that `before` is the checksum of, followed by `bytes`.
std::uint32_t crc32c(std::uint32_t before, std::string_view bytes) noexcept;

/// The same for any processor.
std::uint32_t crc32c_by_tables(std::uint32_t before, std::string_view bytes) noexcept;

}  // namespace ORVA_NAMESPACE::internal
