/// Paths with the system's separators, and between the library's text and the standard library's paths.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

#include "orva/strings/ustring_for.hpp"

namespace orva_test {

inline constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// Whether the system is Windows, or behaves like it.
inline constexpr bool on_windows = separator == '\\';

/// `path` with the system's separators in place of slashes.
template <typename Path>
ORVA_NAMESPACE::strings::ustring_for<Path> native(const Path& path) {
  ORVA_NAMESPACE::strings::ustring_for<Path> result(path);
  using unit = typename ORVA_NAMESPACE::strings::ustring_for<Path>::value_type;
  std::replace(result.begin(), result.end(), unit{'/'}, unit{separator});
  return result;
}

/// The standard library's path for UTF-8 text, whatever encoding it assumes for bytes.
inline std::filesystem::path path_of(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

/// The UTF-8 text of a path, with the system's separators.
inline std::string text_of(std::filesystem::path path) {
  const std::u8string utf8 = path.make_preferred().u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace orva_test
