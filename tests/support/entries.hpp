/// Directory entries that not every system supports. A test that needs them is skipped elsewhere, with one of
/// these reasons.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "tests/support/native_path.hpp"

namespace orva_test {

inline constexpr const char* no_links = "this system or user cannot create symbolic links";

/// Creates a symbolic link, and returns whether it exists.
inline bool make_link(std::string_view target, std::string_view link) {
  std::error_code failure;
  std::filesystem::create_symlink(path_of(target), path_of(link), failure);
  return !failure && std::filesystem::is_symlink(path_of(link), failure);
}

inline constexpr const char* always_readable = "on this system every file has the owner's read bit";

/// Sets the mode bits of an entry, and returns whether it has them now.
inline bool set_mode(std::string_view path, unsigned mode) {
  const auto wanted = static_cast<std::filesystem::perms>(mode);
  std::error_code failure;
  std::filesystem::permissions(path_of(path), wanted, failure);
  return !failure && std::filesystem::status(path_of(path), failure).permissions() == wanted;
}

}  // namespace orva_test
