/// Directory entries that not every system can make. A test that needs one is skipped there, with one of
/// these reasons.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "tests/support/native_path.hpp"

namespace orva_test {

inline constexpr const char* no_links = "no symbolic links can be made here";

/// Makes a symbolic link, and returns whether it exists. Some systems have no links, or not for every user.
inline bool make_link(std::string_view target, std::string_view link) {
  std::error_code failure;
  std::filesystem::create_symlink(path_of(target), path_of(link), failure);
  return !failure && std::filesystem::is_symlink(path_of(link), failure);
}

inline constexpr const char* always_readable = "every file and directory has the owner's read bit here";

/// Sets the mode bits of an entry, and returns whether it has them now.
inline bool set_mode(std::string_view path, unsigned mode) {
  const auto wanted = static_cast<std::filesystem::perms>(mode);
  std::error_code failure;
  std::filesystem::permissions(path_of(path), wanted, failure);
  return !failure && std::filesystem::status(path_of(path), failure).permissions() == wanted;
}

}  // namespace orva_test
