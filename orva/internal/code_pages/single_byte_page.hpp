/// A code page of single bytes, with the conversion in both directions.
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "orva/internal/code_pages/faults.hpp"
#include "orva/internal/text/block.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

/// The character of a byte in UTF-8.
struct byte_in_utf8 {
  static constexpr unsigned char undefined_flag = 0x80;

  char sequence[3] = {};
  unsigned char size_and_flag = 0;

  constexpr std::size_t size() const { return size_and_flag & 3; }
  constexpr bool is_undefined() const { return (size_and_flag & undefined_flag) != 0; }
};

/// The same for each byte of a page with these units.
///
/// REQUIRES: there is no surrogate among them.
constexpr std::array<byte_in_utf8, 256> utf8_of_bytes(const strings::code_unit16* units) {
  std::array<byte_in_utf8, 256> characters;
  for (std::size_t byte = 0; byte < characters.size(); ++byte) {
    byte_in_utf8& to = characters[byte];
    const char* const end = text::encode(text::value_of(units[byte]), to.sequence);
    const auto size = static_cast<unsigned char>(end - to.sequence);
    const bool is_undefined = is_placeholder(units[byte], has_upper_controls(units));
    to.size_and_flag = is_undefined ? size | byte_in_utf8::undefined_flag : size;
  }
  return characters;
}

struct single_byte_page {
  int number;
  /// Blocks of the bytes of 256 units, shared by all pages, since most of their blocks are the same.
  const unsigned char* blocks;
  /// Where in `blocks` the block of a unit begins, by the unit's high byte.
  std::uint16_t block_of[256];
  /// The unit of a byte.
  strings::code_unit16 units[256];
  /// Derived from `units`.
  std::array<byte_in_utf8, 256> utf8 = utf8_of_bytes(units);

  /// Whether a unit is always one byte, and a byte one unit.
  static constexpr bool one_to_one = true;
  static constexpr std::size_t max_bytes_of_unit = 1;
  /// In UTF-8.
  static constexpr std::size_t max_bytes_of_character = 3;
};

/// Converts eight units. Wide ones are stored four at a time, since machines load faster than they store; for
/// bytes the combining would take longer than it saves.
template <typename From, typename To, typename Convert>
void convert_eight(const From* from, To* to, Convert convert) {
  constexpr std::size_t together = sizeof(To) == 1 ? 1 : 4;
  for (std::size_t i = 0; i < 8; i += together) {
    To units[together];
    for (std::size_t k = 0; k < together; ++k) units[k] = convert(from[i + k]);
    std::memcpy(to + i, units, sizeof units);
  }
}

/// Converts unit by unit, except blocks of ASCII, which is the same in all pages.
template <typename From, typename To, typename Convert>
To* convert_each(std::basic_string_view<From> text, To* to, Convert convert) {
  using text::block;
  const From* from = text.data();
  const From* const end = from + text.size();
  for (; text::has_block(from, end); from += block, to += block) {
    if (text::are_ascii<block>(from)) {
      text::copy_units<block>(from, to);
      continue;
    }
    for (std::size_t i = 0; i < block; i += 8) convert_eight(from + i, to + i, convert);
  }
  for (; end - from >= 8; from += 8, to += 8) convert_eight(from, to, convert);
  while (from != end) *to++ = convert(*from++);
  return to;
}

/// Writes `text` in `page` and returns the end.
inline char* encode(const single_byte_page& page, std::basic_string_view<strings::code_unit16> text,
                    char* to) {
  // Copied out of the page: to the compiler, bytes written through a `char*` could change the page.
  return convert_each(text, to, [blocks = page.blocks, block_of = page.block_of](strings::code_unit16 unit) {
    const std::uint32_t value = text::value_of(unit);
    return static_cast<char>(blocks[block_of[value >> 8] + (value & 0xFF)]);
  });
}

/// The inverse, where there is one.
inline strings::code_unit16* decode(const single_byte_page& page, std::string_view bytes,
                                    strings::code_unit16* to) {
  return convert_each(bytes, to, [units = page.units](char byte) { return units[text::value_of(byte)]; });
}

/// Whether one of `size` units, at most a block, became a byte that does not read back as the unit.
inline bool any_lost(const single_byte_page& page, const strings::code_unit16* units, const char* bytes,
                     std::size_t size) {
  std::uint32_t differing = 0;
  for (std::size_t i = 0; i < size; ++i) {
    differing |= text::value_of(page.units[text::value_of(bytes[i])]) ^ text::value_of(units[i]);
  }
  return differing != 0;
}

/// Reports each unit that its byte does not read back as.
template <typename OnFault>
char* encode(const single_byte_page& page, std::basic_string_view<strings::code_unit16> text, char* to,
             OnFault on_fault) {
  char* const to_end = encode(page, text, to);
  const auto* const end = text.data() + text.size();
  for (const auto* from = text.data(); from != end;) {
    const auto* const stop = text::block_end(from, end);
    if (!any_lost(page, from, to, static_cast<std::size_t>(stop - from))) {
      to += stop - from;
      from = stop;
      continue;
    }
    for (; from != stop; ++from, ++to) {
      if (any_lost(page, from, to, 1)) on_fault(from, to, std::size_t{1});
    }
  }
  return to_end;
}

/// Reports each byte that is no character of the page.
template <typename OnFault>
strings::code_unit16* decode(const single_byte_page& page, std::string_view bytes, strings::code_unit16* to,
                             OnFault on_fault) {
  const bool with_upper_controls = has_upper_controls(page.units);
  auto* const to_end = decode(page, bytes, to);
  const char* from = bytes.data();
  while (to != to_end) {
    if (text::has_block(to, to_end) && !any_placeholder<text::block>(to, with_upper_controls)) {
      from += text::block;
      to += text::block;
      continue;
    }
    for (auto* const stop = text::block_end(to, to_end); to != stop; ++from, ++to) {
      if (is_placeholder(*to, with_upper_controls)) on_fault(from, std::size_t{1}, to, *to);
    }
  }
  return to_end;
}

// Into UTF-8. Each needs room for `max_bytes_of_character` for each byte, and for one byte more.

inline char* write_character(const byte_in_utf8& character, char* to) {
  std::memcpy(to, &character, sizeof character);
  return to + character.size();
}

/// Writes the text of `bytes` and returns the end. Reports each byte that is no character.
template <typename OnFault>
char* write_characters(const single_byte_page& page, std::string_view bytes, char* to, OnFault& on_fault) {
  for (const char& byte : bytes) {
    const std::uint32_t value = text::value_of(byte);
    const byte_in_utf8 character = page.utf8[value];
    if (character.is_undefined()) on_fault(&byte, std::size_t{1}, to, page.units[value]);
    to = write_character(character, to);
  }
  return to;
}

/// The bytes that are converted together.
inline constexpr std::size_t group = 8;

/// Writes the text of a group and returns the end; null if a byte is no character.
inline char* write_group(const single_byte_page& page, const char* from, char* to) {
  unsigned flags = 0;
  for (std::size_t i = 0; i < group; ++i) {
    const byte_in_utf8 character = page.utf8[text::value_of(from[i])];
    to = write_character(character, to);
    flags |= character.size_and_flag;
  }
  return (flags & byte_in_utf8::undefined_flag) == 0 ? to : nullptr;
}

/// The same as the decoding into UTF-16, with reports of each byte that is no character.
template <typename OnFault>
char* decode(const single_byte_page& page, std::string_view bytes, char* to, OnFault on_fault) {
  text::cursor<char, char> at{bytes.data(), to};
  const char* const end = at.from + bytes.size();
  while (true) {
    at = text::fast_path_ascii(at, end);
    const std::string_view rest(at.from, end);
    if (rest.size() < group) return write_characters(page, rest, at.to, on_fault);
    char* const group_end = write_group(page, at.from, at.to);
    at.to = group_end ? group_end : write_characters(page, rest.substr(0, group), at.to, on_fault);
    at.from += group;
  }
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
