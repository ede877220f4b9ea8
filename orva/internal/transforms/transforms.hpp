/// UTF-16 from outside, whatever it begins with.
///
/// Internal: not installed. `utf16_to_utf8` and `utf16_to_utf32` do not return from a text that begins with
/// 0xFFFE, and leave it to their callers to look first. Names, paths and values come from people and files,
/// and must give a result: here 0xFFFE is one character like any other, U+FFFE. Everything else is what the
/// transform gives.
#pragma once

#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// Behind a character in front the mark is no mark; the failure text comes without that character.
template <typename Ustring>
Ustring any_utf16(const ustring16& text, Ustring (*transform)(const ustring16&)) {
  if (!text.starts_with(swapped_byte_order_mark)) return transform(text);
  constexpr char in_front = '+';
  Ustring result = transform(static_cast<code_unit16>(in_front) + text);
  if (result.front() == in_front) result.erase(0, 1);
  return result;
}

inline ustring8 any_utf16_to_utf8(const ustring16& text) { return any_utf16(text, &utf16_to_utf8); }
inline ustring32 any_utf16_to_utf32(const ustring16& text) { return any_utf16(text, &utf16_to_utf32); }

}  // namespace ORVA_NAMESPACE::strings::_private
