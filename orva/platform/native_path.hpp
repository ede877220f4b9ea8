/// Paths as the operating system takes them, and the way there and back.
///
/// The library works on 16-bit paths. Where the system takes such paths, native text is the same units; where it takes
/// bytes, native text is UTF-8 in which an unpaired surrogate is the three bytes of its value. The conversions here never fail
/// and give every 16-bit path a native text of its own, other than the transforms of `strings/unicode.hpp`.
///
/// Internal: not installed. A port owes: `to_native` and `append_native` as told below, inverse to each other for
/// every name that a `directory_listing` reports; the separator; what a root is.
#pragma once

#include <string>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace ORVA_2_18::platform {

#ifdef _WIN32
using native_char = wchar_t;
inline constexpr native_char separator = L'\\';
#else
using native_char = char;
inline constexpr native_char separator = '/';
#endif

using native_string = std::basic_string<native_char>;
using native_view = std::basic_string_view<native_char>;

native_string to_native(std::basic_string_view<strings::code_unit16> path);

/// Appends what `native` says in the width of `to`. An unpaired surrogate stays what it is in each width.
void append_native(strings::ustring8& to, native_view native);
void append_native(strings::ustring16& to, native_view native);
void append_native(strings::ustring32& to, native_view native);

/// Whether `path` names a root, the one directory whose name may end in a separator: `/`, or `C:\` on Windows.
bool is_root(native_view path);

}  // namespace ORVA_2_18::platform
