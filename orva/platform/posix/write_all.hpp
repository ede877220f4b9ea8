/// A write that goes on until everything is written or the system refuses.
#pragma once

#include <cerrno>
#include <string_view>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::posix {

/// False if something of `text` was not taken. A call that a signal interrupted is made again.
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
