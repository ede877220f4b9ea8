/// Decoding and encoding one code point in each of the three encodings, for the transforms, `unichar` and
/// `gh2`.
///
///     decode("\xE2\x82\xAC", 3)     =>  {0x20AC, 3}
///     encode(0x20AC, to)           =>  to + 3
///
/// Decoding accepts whatever the bit layout allows, and encoding writes any value. No function reads more
/// than `remaining` units.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::text {

using strings::code_unit16;
using strings::code_unit32;

/// A code point and its number of code units. 0 units: there is no character at this position.
struct character {
  std::uint32_t code_point = 0;
  std::size_t units = 0;
};

constexpr bool is_high_surrogate(std::uint32_t unit) { return (unit & 0xFFFFFC00) == 0xD800; }
constexpr bool is_low_surrogate(std::uint32_t unit) { return (unit & 0xFFFFFC00) == 0xDC00; }
constexpr bool is_surrogate(std::uint32_t unit) { return (unit & 0xFFFFF800) == 0xD800; }
constexpr bool is_continuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// The length of the sequence that a byte leads, by its bits; 0 for a byte that leads none.
constexpr std::size_t sequence_length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF8 ? 4 : 0;
}

/// REQUIRES: remaining > 0.
constexpr character decode(const char* at, std::size_t remaining) {
  const auto lead = static_cast<unsigned char>(*at);
  const std::size_t length = sequence_length(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || length > remaining) return {};
  std::uint32_t code_point = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!is_continuation(at[i])) return {};
    code_point = code_point << 6 | (static_cast<unsigned char>(at[i]) & 0x3Fu);
  }
  return {code_point, length};
}

/// REQUIRES: remaining > 0.
constexpr character decode(const code_unit16* at, std::size_t remaining) {
  const std::uint32_t first = static_cast<std::uint16_t>(*at);
  if (!is_surrogate(first)) return {first, 1};
  if (!is_high_surrogate(first) || remaining < 2) return {};
  const std::uint32_t second = static_cast<std::uint16_t>(at[1]);
  if (!is_low_surrogate(second)) return {};
  return {(first << 10) + second - 0x35FDC00, 2};
}

/// Any value is a character. REQUIRES: remaining > 0.
constexpr character decode(const code_unit32* at, std::size_t) {
  return {static_cast<std::uint32_t>(*at), 1};
}

/// Writes `code_point` in one to four bytes and returns the end.
///
/// REQUIRES: code_point < 0x110000.
constexpr char* encode(std::uint32_t code_point, char* to) {
  const auto byte = [](std::uint32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  const auto continuation = [&](int shift) { return byte(0x80 | (code_point >> shift & 0x3F)); };
  if (code_point < 0x80) {
    *to++ = byte(code_point);
    return to;
  }
  if (code_point < 0x800) {
    *to++ = byte(0xC0 | code_point >> 6);
    *to++ = continuation(0);
    return to;
  }
  if (code_point < 0x10000) {
    *to++ = byte(0xE0 | code_point >> 12);
    *to++ = continuation(6);
    *to++ = continuation(0);
    return to;
  }
  *to++ = byte(0xF0 | code_point >> 18);
  *to++ = continuation(12);
  *to++ = continuation(6);
  *to++ = continuation(0);
  return to;
}

/// Writes a surrogate pair and returns the end. A value above 0x10FFFF gives whatever the arithmetic gives in
/// 16 bits.
constexpr code_unit16* encode_pair(std::uint32_t code_point, code_unit16* to) {
  *to++ = static_cast<code_unit16>(static_cast<std::uint16_t>((code_point >> 10) + 0xD7C0));
  *to++ = static_cast<code_unit16>(static_cast<std::uint16_t>((code_point & 0x3FF) + 0xDC00));
  return to;
}

/// Writes `code_point` in one unit or a surrogate pair and returns the end.
///
/// REQUIRES: code_point < 0x110000.
constexpr code_unit16* encode(std::uint32_t code_point, code_unit16* to) {
  if (code_point >= 0x10000) return encode_pair(code_point, to);
  *to++ = static_cast<code_unit16>(code_point);
  return to;
}

constexpr code_unit32* encode(std::uint32_t code_point, code_unit32* to) {
  *to++ = static_cast<code_unit32>(code_point);
  return to;
}

}  // namespace ORVA_NAMESPACE::internal::text
