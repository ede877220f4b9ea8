/// The rules of paths of both systems as values, so that each system's are tested on the other.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::paths {

enum class style { posix, windows };

/// The separator that the library itself writes.
template <strings::code_unit Unit>
constexpr Unit separator(style of) {
  return static_cast<Unit>(of == style::windows ? '\\' : '/');
}

/// Whether `path` names a root, the one directory whose name may end in a separator.
///
///     posix      "/"
///     windows    "\", "/", "C:\", "C:/"
template <strings::code_unit Unit>
constexpr bool is_root(style of, std::basic_string_view<Unit> path) {
  if (of == style::posix) return path.size() == 1 && path[0] == '/';
  const bool has_drive = path.size() == 3 && path[1] == ':';
  return (has_drive || path.size() == 1) && (path.back() == '\\' || path.back() == '/');
}

/// Whether `name` is the UTF-8 form of some 16-bit path: UTF-8 in its shortest form, up to U+10FFFF, with
/// surrogates only where they are unpaired.
bool is_nameable(std::string_view name);

}  // namespace ORVA_NAMESPACE::internal::paths
