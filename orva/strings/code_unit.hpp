/// The code units of the library's strings, on each platform.
///
///     code_unit16 unit = u'x';                 wchar_t where that has 16 bits, else char16_t
///     wide_string text = {unit, unit};         std::wstring there, else std::u16string
///
/// The widths of `wchar_t` and `long` decide, not the name of the system. Where `wchar_t` has 16 bits, as on
/// Windows, wide characters are UTF-16 code units and `ustring16` is interchangeable with `std::wstring`.
/// Where it has 32 bits, text of `wchar_t` is UTF-32 and is converted by `from_wchar` and `to_wchar` alone;
/// no other function takes it.
///
/// Edge cases: docs/edges.md#platforms
#pragma once

#include <climits>
#include <string>
#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::strings {

inline constexpr bool wchar_is_utf16 = sizeof(wchar_t) == 2;

using code_unit16 = std::conditional_t<wchar_is_utf16, wchar_t, char16_t>;
using code_unit32 = std::conditional_t<LONG_MAX == 0x7FFFFFFF, unsigned long, char32_t>;

/// The standard string of 16-bit units.
using wide_string = std::basic_string<code_unit16>;

static_assert(sizeof(code_unit16) == 2 && sizeof(code_unit32) == 4);

/// The three widths of text.
template <typename Unit>
concept code_unit =
    std::is_same_v<Unit, char> || std::is_same_v<Unit, code_unit16> || std::is_same_v<Unit, code_unit32>;

}  // namespace ORVA_NAMESPACE::strings
