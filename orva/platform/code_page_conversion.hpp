/// The system's conversion between UTF-16 and the byte strings of its code pages.
///
/// A page goes by the system's number for it. Conversions are those that the system makes without flags: what
/// a page lacks becomes the nearest character that it has, or else its default one, and no text is refused
/// for its content. Text ends at its first zero, as the system's own.
///
/// Internal: not installed. A port owes: the pages named below and those of `strings::code_page`; the answer
/// false for any other, and for a text or a result too long to be counted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::platform {

/// What bytes mean where nobody says: of files and windows, and of terminals.
inline constexpr int ansi_code_page = 0;
inline constexpr int oem_code_page = 1;
inline constexpr int utf8_code_page = 65001;

/// So many units or bytes are too long: with a terminator the system's numbers, of 32 bits with a sign,
/// cannot count them.
inline constexpr std::size_t uncountable = 0x7FFFFFFF;

/// Tells whether the conversion was made. What the result is where it was not is not told.
bool to_code_page(int page, std::basic_string_view<strings::code_unit16> text, std::string& bytes);
bool from_code_page(int page, std::string_view bytes, std::basic_string<strings::code_unit16>& text);

}  // namespace ORVA_NAMESPACE::platform
