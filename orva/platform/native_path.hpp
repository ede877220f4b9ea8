/// Paths as the operating system takes them.
///
/// Where the system takes 16-bit paths, native text is the same units; where it takes bytes, native text is
/// UTF-8 by the rules of `internal/paths/path_text.hpp`. Conversions never fail, and are inverse to each
/// other for every name that a `directory_listing` reports.
///
/// Internal: not installed.
#pragma once

#include <string>
#include <string_view>

#include "orva/internal/paths/path_rules.hpp"
#include "orva/internal/paths/path_text.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::platform {

#ifdef _WIN32
using native_char = wchar_t;
inline constexpr auto native_style = internal::paths::style::windows;
#else
using native_char = char;
inline constexpr auto native_style = internal::paths::style::posix;
#endif

using native_string = std::basic_string<native_char>;
using native_view = std::basic_string_view<native_char>;

inline constexpr auto separator = internal::paths::separator<native_char>(native_style);

inline native_string to_native(std::basic_string_view<strings::code_unit16> path) {
  native_string native;
  native.reserve(path.size());
  internal::paths::append_text(native, path);
  return native;
}

/// Appends `native` in the width of `to`. An unpaired surrogate stays what it is in each width.
template <strings::code_unit Unit>
void append_native(std::basic_string<Unit>& to, native_view native) {
  internal::paths::append_text(to, native);
}

inline bool is_root(native_view path) { return internal::paths::is_root(native_style, path); }

}  // namespace ORVA_NAMESPACE::platform
