/// A write that continues until everything is written or the system refuses.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::windows {

/// One call of the system moves no more than 32 bits can count.
inline constexpr std::size_t largest_transfer = 0x40000000;

/// False if part of `bytes` was not written.
inline bool write_all(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_transfer));
    DWORD written = 0;
    if (calls::write_file(file, bytes.data(), wanted, &written) == 0 || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

}  // namespace ORVA_NAMESPACE::platform::windows
