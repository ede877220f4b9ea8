/// Characters in UTF-16.
#pragma once

#include <string_view>

#include "orva/orva.hpp"

namespace transcode {

inline constexpr char32_t replacement_character = 0xFFFD;

constexpr bool is_surrogate(char32_t value) { return value >= 0xD800 && value < 0xE000; }
constexpr bool is_low_surrogate(char32_t value) { return value >= 0xDC00 && value < 0xE000; }
constexpr char32_t joined(char32_t high, char32_t low) {
  return 0x10000 + (high - 0xD800) * 0x400 + (low - 0xDC00);
}

inline void append_character(orva::strings::wide_string& text, char32_t character) {
  using orva::strings::code_unit16;
  if (character < 0x10000) {
    text.push_back(static_cast<code_unit16>(character));
    return;
  }
  text.push_back(static_cast<code_unit16>(0xD800 + (character - 0x10000) / 0x400));
  text.push_back(static_cast<code_unit16>(0xDC00 + (character - 0x10000) % 0x400));
}

/// Takes the first character from a text without unpaired surrogates.
inline char32_t take_character(orva::strings::ustring16::view& text) {
  const char32_t first = text.front();
  text.remove_prefix(1);
  if (!is_surrogate(first)) return first;
  const char32_t second = text.front();
  text.remove_prefix(1);
  return joined(first, second);
}

}  // namespace transcode
