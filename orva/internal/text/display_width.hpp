/// How many columns of a terminal text takes.
///
///     display_width(U'a')         =>  1
///     display_width(0x65E5)       =>  2        a Japanese character
///     display_width(0x0301)       =>  0        a combining accent
///     display_width("日本")       =>  4
///
/// Unicode's East Asian Width gives two columns to W and F. Marks, format characters and the vowels and ends
/// of Hangul syllables take none. All others take one, malformed parts included.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

std::size_t display_width(std::uint32_t code_point) noexcept;
std::size_t display_width(std::string_view text) noexcept;

}  // namespace ORVA_NAMESPACE::internal::text
