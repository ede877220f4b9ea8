/// UTF-8 as a code page. Unlike `strings/unicode.hpp`, which reads bytes by their layout and refuses a whole
/// text, it replaces each sequence that the standard does not allow by U+FFFD and continues.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/internal/code_pages/faults.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/text/well_formed.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

struct utf8_page {
  /// Whether a unit is always one byte, and a byte one unit.
  static constexpr bool one_to_one = false;
  static constexpr std::size_t max_bytes_of_unit = 4;
  static constexpr std::uint32_t replacement = 0xFFFD;
};

/// The character at `at`. A bad sequence becomes one replacement, which takes the lead byte and the
/// continuation bytes before the fault; a continuation byte that the lead byte does not allow belongs to it
/// too.
///
/// REQUIRES: remaining > 0.
constexpr text::character decode_or_replace(const char* at, std::size_t remaining) {
  const auto lead = static_cast<unsigned char>(*at);
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xC2 || lead > 0xF4) return {utf8_page::replacement, 1};
  const std::size_t length = text::sequence_length(lead);
  std::uint32_t code_point = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (i == remaining || !text::is_continuation(at[i])) return {utf8_page::replacement, i};
    if (i == 1 && !text::is_second_byte(lead, at[i])) return {utf8_page::replacement, 2};
    code_point = code_point << 6 | (text::value_of(at[i]) & 0x3Fu);
  }
  return {code_point, length};
}

/// Whether `found`, which `decode_or_replace` returned for `at`, replaces a bad sequence. U+FFFD itself is a
/// sequence of three bytes, and the only one with this lead byte and this result.
constexpr bool is_replaced(const text::character& found, const char* at) {
  return found.code_point == utf8_page::replacement &&
         !(found.units == 3 && static_cast<unsigned char>(*at) == 0xEF);
}

/// Whether the bytes are the beginning of a sequence that more bytes could complete.
///
/// REQUIRES: the first byte is no continuation byte, and all others are.
constexpr bool is_cut_sequence(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() >= text::sequence_length(lead)) return false;
  return bytes.size() < 2 || text::is_second_byte(lead, bytes[1]);
}

/// Whether the standard encodes `code_point` in a sequence of `Length`.
template <std::size_t Length>
constexpr bool is_standard(std::uint32_t code_point) {
  if constexpr (Length == 2) return code_point >= 0x80;
  if constexpr (Length == 3) return code_point >= 0x800 && (code_point & 0xF800) != 0xD800;
}

/// Converts sequences of one length within the basic plane.
template <std::size_t Length>
text::cursor<char, strings::code_unit16> fast_path_standard(text::cursor<char, strings::code_unit16> at,
                                                            const char* end) {
  for (; end - at.from >= 4; at.from += Length) {
    const std::uint32_t bytes = text::load_four_bytes(at.from);
    const std::uint32_t code_point = text::joined<Length>(bytes);
    if (!text::is_sequence<Length>(bytes) || !is_standard<Length>(code_point)) break;
    *at.to++ = static_cast<strings::code_unit16>(code_point);
  }
  return at;
}

/// Writes `text` and returns the end. An unpaired surrogate becomes the replacement, and is reported. Needs
/// room for four bytes for each unit; bytes after the end may be overwritten.
template <typename OnFault = ignore_faults>
char* encode(const utf8_page&, std::basic_string_view<strings::code_unit16> text, char* to,
             OnFault on_fault = {}) {
  text::cursor<strings::code_unit16, char> at{text.data(), to};
  const auto* const end = text.data() + text.size();
  while (at.from != end) {
    at = text::fast_path(at, end);
    for (const auto* const stop = text::block_end(at.from, end); at.from < stop;) {
      auto found = text::decode(at.from, static_cast<std::size_t>(end - at.from));
      const bool is_unpaired = found.units == 0;
      if (is_unpaired) found = {utf8_page::replacement, 1};
      char* const next = text::encode(found.code_point, at.to);
      if (is_unpaired) on_fault(at.from, at.to, static_cast<std::size_t>(next - at.to));
      at.to = next;
      at.from += found.units;
    }
  }
  return at.to;
}

/// Never fails, and reports each replaced sequence. Writes at most one unit for each byte.
template <typename OnFault = ignore_faults>
strings::code_unit16* decode(const utf8_page&, std::string_view bytes, strings::code_unit16* to,
                             OnFault on_fault = {}) {
  text::cursor<char, strings::code_unit16> at{bytes.data(), to};
  const char* const end = bytes.data() + bytes.size();
  while (at.from != end) {
    at = text::fast_path_ascii(at, end);
    at = fast_path_standard<2>(at, end);
    at = fast_path_standard<3>(at, end);
    if (at.from == end) break;
    const auto found = decode_or_replace(at.from, static_cast<std::size_t>(end - at.from));
    if (is_replaced(found, at.from)) {
      on_fault(at.from, found.units, at.to, static_cast<strings::code_unit16>(utf8_page::replacement));
    }
    if (found.units == 4) {
      at.to = text::encode_pair(found.code_point, at.to);
    } else {
      *at.to++ = static_cast<strings::code_unit16>(found.code_point);
    }
    at.from += found.units;
  }
  return at.to;
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
