/// Conversion between `std::wstring` and the library's 16-bit strings.
///
///     const ustring16 text = from_wchar(L"\U0001F600");
///     std::wcout << to_wchar(text);
///
/// Where `wchar_t` has 16 bits, both hold the same units and a conversion is a copy. Where it has 32 bits, a
/// `std::wstring` is UTF-32, and these convert exactly outside the basic plane too, which `utf32_to_utf16`
/// does not. A conversion never fails. Any thread may call these.
///
/// Edge cases: docs/edges.md#platforms
#pragma once

#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

/// A lone surrogate is kept. A value above 0x10FFFF, which UTF-16 cannot represent, becomes U+FFFD.
///
///     L"\U0001F600"  =>  0xD83D 0xDE00
///
/// Inverse: `to_wchar`.
ORVA_API ustring16 from_wchar(std::wstring_view text);

/// A lone surrogate becomes a `wchar_t` of its value, so that `from_wchar` restores any text.
///
/// Inverse: `from_wchar`.
ORVA_API std::wstring to_wchar(ustring16::view text);

}  // namespace ORVA_NAMESPACE::strings
