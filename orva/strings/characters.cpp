#include "orva/strings/characters.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/internal/text/code_point.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

types::uint32 clamped_to_32_bits(std::size_t length) {
  return static_cast<types::uint32>(std::min<std::size_t>(length, 0xFFFFFFFF));
}

template <typename Unit>
types::uint32 length_before_terminator(const Unit* text) {
  return clamped_to_32_bits(std::char_traits<Unit>::length(text));
}

/// `character_index` of both widths. `units_at(index)` returns the number of units of the character at that
/// index of the text, 0 where there is none.
template <typename Unit, typename UnitsAt>
types::uint32 walk(std::basic_string_view<Unit> text, types::uint32 count, UnitsAt units_at) {
  if (count >= text.size()) return no_character;
  std::size_t index = 0;
  for (; count > 0 && index < text.size(); --count) {
    const std::size_t units = units_at(index);
    if (units == 0) return no_character;
    index += units;
  }
  // After the last character, the terminator and whatever would follow it are characters of one unit each.
  return clamped_to_32_bits(index + count);
}

template <typename Unit>
types::uint32 read_character(const Unit* text, types::uint32 length, types::uint32 position,
                             types::uint32& step) {
  const auto found = position < length ? internal::text::decode(text + position, length - position)
                                       : internal::text::character{};
  if (found.units == 0) {
    step = no_character;
    return '?';
  }
  step = static_cast<types::uint32>(found.units);
  return found.code_point;
}

}  // namespace

types::uint32 string_length(const char* text) { return length_before_terminator(text); }
types::uint32 string_length(const code_unit16* text) { return length_before_terminator(text); }
types::uint32 string_length(const code_unit32* text) { return length_before_terminator(text); }
types::uint32 string_length(ustring8::view text) { return clamped_to_32_bits(text.size()); }
types::uint32 string_length(ustring16::view text) { return clamped_to_32_bits(text.size()); }
types::uint32 string_length(ustring32::view text) { return clamped_to_32_bits(text.size()); }

types::uint32 character_index(ustring8::view text, types::uint32 character) {
  return walk(text, character, [&](std::size_t index) {
    return internal::text::decode(text.data() + index, text.size() - index).units;
  });
}

types::uint32 character_index(ustring16::view text, types::uint32 character) {
  // Looks at the first unit of the text, not at the one reached: callers rely on a stray low surrogate inside
  // a text being a character of its own.
  const bool begins_with_low_surrogate = !text.empty() && internal::text::is_low_surrogate(text.front());
  return walk(text, character, [&](std::size_t index) -> std::size_t {
    if (internal::text::is_high_surrogate(text[index])) {
      return internal::text::decode(text.data() + index, text.size() - index).units;
    }
    return begins_with_low_surrogate ? 0 : 1;
  });
}

types::uint32 unichar(const char* text, types::uint32 length, types::uint32 position, types::uint32& step) {
  return read_character(text, length, position, step);
}

types::uint32 unichar(const code_unit16* text, types::uint32 length, types::uint32 position,
                      types::uint32& step) {
  return read_character(text, length, position, step);
}

types::uint32 unichar(const code_unit32* text, types::uint32 length, types::uint32 position,
                      types::uint32& step) {
  if (position >= length) {
    step = no_character;
    return '?';
  }
  step = 1;
  return static_cast<types::uint32>(text[position]);
}

}  // namespace ORVA_NAMESPACE::strings
