/// Conversion between UTF-16 and the byte strings of code pages, by tables that every system can use.
///
/// The results are those of the platform that defined the code pages. A character that is not in the page
/// becomes the nearest one that is, or the page's default character; no text is refused for its content. A
/// text ends at its first zero unit.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

inline constexpr int utf8_number = 65001;

/// Texts and results of this many units or bytes are refused: the original platform counts them, with a
/// terminator, in 32 bits with a sign.
inline constexpr std::size_t length_limit = 0x7FFFFFFF;

/// Converts `text` into the code page of that number. False for an unknown page and for a text or a result
/// that reaches `length_limit`; `bytes` is then unspecified.
bool encode_into(int page, std::basic_string_view<strings::code_unit16> text, std::string& bytes);

/// The inverse, where there is one.
bool decode_into(int page, std::string_view bytes, std::basic_string<strings::code_unit16>& text);

}  // namespace ORVA_NAMESPACE::internal::code_pages
