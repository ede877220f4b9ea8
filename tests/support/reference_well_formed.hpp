/// A slow second implementation of what is well-formed and of the transforms by the standard. It has the rows
/// of Table 3-7 of the Unicode Standard as they are printed there, and searches all of them at each position.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "orva/strings/standard_transforms.hpp"
#include "tests/support/reference_unicode.hpp"

namespace reference {

namespace strings = ORVA_NAMESPACE::strings;
using strings::malformation;

/// The code point at the beginning of a text, or what is wrong there, and the units of either.
struct front_part {
  std::size_t length;
  std::optional<long> code_point;
  malformation kind = malformation::stray_continuation;
};

struct byte_range {
  int first;
  int last;
};

inline const std::vector<std::vector<byte_range>>& table_3_7() {
  static const std::vector<std::vector<byte_range>> rows = {
      {{0x00, 0x7F}},
      {{0xC2, 0xDF}, {0x80, 0xBF}},
      {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
      {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
      {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
      {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
      {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
      {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
      {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
  };
  return rows;
}

/// The byte at `index`; -1 after the end.
inline int byte_or_end(std::string_view text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : -1;
}

inline std::size_t matched_bytes(const std::vector<byte_range>& row, std::string_view text) {
  std::size_t matched = 0;
  for (const byte_range range : row) {
    const int byte = byte_or_end(text, matched);
    if (byte < range.first || byte > range.last) break;
    ++matched;
  }
  return matched;
}

inline long value_of_bytes(std::string_view text, std::size_t length) {
  constexpr std::array<int, 5> lead_values = {0, 128, 32, 16, 8};
  long value = byte_or_end(text, 0) % lead_values[length];
  for (std::size_t i = 1; i < length; ++i) value = value * 64 + byte_or_end(text, i) % 64;
  return value;
}

/// What is wrong with a text whose first bytes are in no row of the table, by the values that they would
/// have.
inline malformation kind_of_bytes(std::string_view text, std::size_t matched) {
  const int lead = byte_or_end(text, 0);
  if (continues(lead)) return malformation::stray_continuation;
  if (lead >= 0xF8) return malformation::invalid_byte;
  if (matched == text.size()) return malformation::incomplete;
  if (matched > 0 && !continues(byte_or_end(text, matched))) return malformation::cut_short;
  const long lead_values = lead < 0xE0   ? lead % 32 * 64L
                           : lead < 0xF0 ? lead % 16 * 4096L
                                         : lead % 8 * 262144L;
  const long shift = lead < 0xE0 ? 1 : lead < 0xF0 ? 64 : 4096;
  const long value = lead_values + (matched > 0 ? byte_or_end(text, 1) % 64 * shift : 0);
  if (value >= 0x110000) return malformation::too_large;
  return value >= 0xD800 && value < 0xE000 ? malformation::surrogate : malformation::overlong;
}

/// REQUIRES: text is not empty, here and below.
inline front_part front_of(std::string_view text) {
  std::size_t longest = 0;
  for (const auto& row : table_3_7()) {
    const std::size_t matched = matched_bytes(row, text);
    if (matched == row.size()) return {matched, value_of_bytes(text, matched)};
    longest = std::max(longest, matched);
  }
  return {std::max<std::size_t>(longest, 1), std::nullopt, kind_of_bytes(text, longest)};
}

inline front_part front_of(std::basic_string_view<code_unit16> text) {
  const long first = static_cast<std::uint16_t>(text[0]);
  if (!is_high(first) && !is_low(first)) return {1, first};
  const long second = text.size() > 1 ? static_cast<std::uint16_t>(text[1]) : -1;
  if (is_high(first) && is_low(second)) return {2, (first - 0xD800) * 1024 + (second - 0xDC00) + 0x10000};
  const bool cut_off = is_high(first) && text.size() == 1;
  return {1, std::nullopt, cut_off ? malformation::incomplete : malformation::surrogate};
}

inline front_part front_of(std::basic_string_view<code_unit32> text) {
  const auto unit = static_cast<std::uint32_t>(text[0]);
  if (unit >= 0x110000) return {1, std::nullopt, malformation::too_large};
  const long value = static_cast<long>(unit);
  if (is_high(value) || is_low(value)) return {1, std::nullopt, malformation::surrogate};
  return {1, value};
}

/// The code points and malformed parts of a text, in order.
template <typename Unit>
std::vector<front_part> parts_of(std::basic_string_view<Unit> text) {
  std::vector<front_part> parts;
  for (std::size_t i = 0; i < text.size(); i += parts.back().length)
    parts.push_back(front_of(text.substr(i)));
  return parts;
}

inline std::optional<strings::malformed_part> first_malformed(const std::vector<front_part>& parts) {
  std::size_t offset = 0;
  for (const front_part& part : parts) {
    if (!part.code_point) return strings::malformed_part{offset, part.length, part.kind};
    offset += part.length;
  }
  return std::nullopt;
}

inline void append(ustring8& to, long value) { append_utf8(to, value); }

inline void append(ustring16& to, long value) {
  if (value >= 0x10000) {
    to.push_back(wrapped((value - 0x10000) / 1024 + 0xD800));
    to.push_back(wrapped((value - 0x10000) % 1024 + 0xDC00));
  } else {
    to.push_back(wrapped(value));
  }
}

inline void append(ustring32& to, long value) { to.push_back(static_cast<code_unit32>(value)); }

template <typename To>
strings::transformed<To> transform(const std::vector<front_part>& parts, strings::on_malformed policy) {
  strings::transformed<To> result;
  result.first_malformed = first_malformed(parts);
  for (const front_part& part : parts) {
    if (!part.code_point) {
      if (policy == strings::on_malformed::stop) break;
      ++result.replaced;
    }
    append(result.text, part.code_point.value_or(0xFFFD));
  }
  return result;
}

}  // namespace reference
