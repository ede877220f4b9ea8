/// The crossing between `std::wstring` and the library's 16-bit strings.
///
/// Where `wchar_t` has 16 bits both hold the same units, and a crossing is a copy. Where it has 32 bits a
/// `std::wstring` is UTF-32, and these convert exactly, outside the basic plane too, which `utf32_to_utf16`
/// does not. A crossing never fails. Results belong to the caller; threads need no care.
#pragma once

#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

/// A lone surrogate stays the unit that it is; a value above 0x10FFFF, which UTF-16 cannot hold, becomes
/// U+FFFD.
///
///     L"\U0001F600"  =>  0xD83D 0xDE00
///
/// Inverse: `to_wchar`.
ORVA_API ustring16 from_wchar(std::wstring_view text);

/// A lone surrogate stays a `wchar_t` of its value, so that `from_wchar` gives back any text.
ORVA_API std::wstring to_wchar(ustring16::view text);

}  // namespace ORVA_NAMESPACE::strings
