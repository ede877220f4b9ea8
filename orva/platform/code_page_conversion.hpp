/// The system's conversion between UTF-16 and the byte strings of its code pages.
///
/// A page is named by the system's number for it. A character that a page lacks becomes the nearest one that
/// it has, or its default character; no text is refused for its content. A text ends at its first zero unit.
///
/// Internal: not installed. A port provides the pages named below and those of `strings::code_page`.
#pragma once

#include <string>
#include <string_view>

#include "orva/internal/code_pages/conversion.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::platform {

/// The encodings that the system assumes when none is given: for files and windows, and for terminals.
inline constexpr int ansi_code_page = 0;
inline constexpr int oem_code_page = 1;
inline constexpr int utf8_code_page = internal::code_pages::utf8_number;

/// The number of the page that the system assumes, for the two names of such a page; any other number is its
/// own.
int page_number(int page);

/// Converts `text`. False for an unknown page, and for a text or a result that reaches
/// `internal::code_pages::length_limit`; the result is then unspecified.
bool to_code_page(int page, std::basic_string_view<strings::code_unit16> text, std::string& bytes);
bool from_code_page(int page, std::string_view bytes, std::basic_string<strings::code_unit16>& text);

}  // namespace ORVA_NAMESPACE::platform
