/// The six transforms between UTF-8, UTF-16 and UTF-32 for any text.
///
/// They give what `strings/unicode.hpp` describes, with one difference: UTF-16 may begin with 0xFFFE, which
/// is a character like any other. The library converts with these; the recursion over such a text belongs to
/// the public functions alone. Names, paths and values come from people and files and must give a result.
///
///     utf16_to_utf8(u"\uFFFEa")       =>  "\xEF\xBF\xBE" "a"
///     convert<char>(view16(u"a"))     =>  "a"
///
/// Internal: not installed.
#pragma once

#include <concepts>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

using strings::code_unit;
using strings::code_unit16;
using strings::code_unit32;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

using view8 = ustring8::view;
using view16 = ustring16::view;
using view32 = ustring32::view;

ustring16 utf8_to_utf16(view8 input);
ustring32 utf8_to_utf32(view8 input);
ustring8 utf16_to_utf8(view16 input);
ustring32 utf16_to_utf32(view16 input);
ustring8 utf32_to_utf8(view32 input);
ustring16 utf32_to_utf16(view32 input);

/// Text in units of `To`: a copy where it has them already, and otherwise what the transform gives.
template <code_unit To, code_unit From>
strings::basic_ustring<To> convert(std::basic_string_view<From> input) {
  if constexpr (std::same_as<To, From>) {
    return strings::basic_ustring<To>(input);
  } else if constexpr (std::same_as<From, char>) {
    if constexpr (std::same_as<To, code_unit16>) return utf8_to_utf16(input);
    if constexpr (std::same_as<To, code_unit32>) return utf8_to_utf32(input);
  } else if constexpr (std::same_as<From, code_unit16>) {
    if constexpr (std::same_as<To, char>) return utf16_to_utf8(input);
    if constexpr (std::same_as<To, code_unit32>) return utf16_to_utf32(input);
  } else {
    if constexpr (std::same_as<To, char>) return utf32_to_utf8(input);
    if constexpr (std::same_as<To, code_unit16>) return utf32_to_utf16(input);
  }
}

}  // namespace ORVA_NAMESPACE::internal::transforms
