/// A write that continues until everything is written or the system refuses.
#pragma once

#include <cerrno>
#include <string_view>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::posix {

/// False if part of `text` was not written. A call that a signal interrupts is repeated.
inline bool write_all(int file, std::string_view text) noexcept {
  while (!text.empty()) {
    const ssize_t written = calls::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace ORVA_NAMESPACE::platform::posix
