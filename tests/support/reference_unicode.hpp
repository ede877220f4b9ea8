/// A slow second implementation of the six transforms, by arithmetic on whole numbers instead of bits,
/// without tables or fast paths: RFC 3629 and RFC 2781 with the library's own rules for bad text.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orva/strings/ustring.hpp"

namespace reference {

using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;
using ORVA_NAMESPACE::strings::ustring16;
using ORVA_NAMESPACE::strings::ustring32;
using ORVA_NAMESPACE::strings::ustring8;

template <typename Unit>
ORVA_NAMESPACE::strings::basic_ustring<Unit> minus_one() {
  return {static_cast<Unit>(0x2D), static_cast<Unit>(0x31)};
}

inline int byte_at(const ustring8& text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

inline bool continues(int byte) { return byte / 64 == 2; }

/// The number of bytes of the sequence at `index`, 0 if there is no whole one.
inline std::size_t sequence_length(const ustring8& text, std::size_t index) {
  const int lead = byte_at(text, index);
  if (lead / 128 == 0) return 1;
  const std::size_t length = lead / 32 == 6 ? 2 : lead / 16 == 14 ? 3 : lead / 8 == 30 ? 4 : 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!continues(byte_at(text, index + i))) return 0;
  }
  return length;
}

inline long sequence_value(const ustring8& text, std::size_t index, std::size_t length) {
  const long lead_values[] = {0, 128, 32, 16, 8};
  long value = byte_at(text, index) % lead_values[length];
  for (std::size_t i = 1; i < length; ++i) value = value * 64 + byte_at(text, index + i) % 64;
  return value;
}

/// A number as a unit of 16 bits, negative ones by wrapping.
inline code_unit16 wrapped(long value) {
  return static_cast<code_unit16>(static_cast<std::uint16_t>(((value % 65536) + 65536) % 65536));
}

inline ustring16 utf8_to_utf16(const ustring8& text) {
  ustring16 result;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = sequence_length(text, i);
    if (length == 0) return minus_one<code_unit16>();
    if (length < 4) {
      result.push_back(wrapped(sequence_value(text, i, length)));
    } else {
      const long c1 = byte_at(text, i + 1) % 64;
      const long c2 = byte_at(text, i + 2) % 64;
      const long c3 = byte_at(text, i + 3) % 64;
      const long t = byte_at(text, i) % 8 * 4 + c1 / 16 - 1;
      result.push_back(wrapped(t * 64 + c1 % 16 * 4 + c2 / 16 + 0xD800));
      result.push_back(wrapped(c2 % 16 * 64 + c3 + 0xDC00));
    }
    i += length;
  }
  return result;
}

inline ustring32 utf8_to_utf32(const ustring8& text) {
  ustring32 result;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = sequence_length(text, i);
    result.push_back(static_cast<code_unit32>(length == 0 ? 0x3F : sequence_value(text, i, length)));
    i += length == 0 ? 1 : length;
  }
  return result;
}

inline void append_utf8(ustring8& to, long value) {
  const auto append = [&](long byte) { to.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (value < 128) {
    append(value);
  } else if (value < 2048) {
    append(192 + value / 64);
    append(128 + value % 64);
  } else if (value < 65536) {
    append(224 + value / 4096);
    append(128 + value / 64 % 64);
    append(128 + value % 64);
  } else {
    append(240 + value / 262144);
    append(128 + value / 4096 % 64);
    append(128 + value / 64 % 64);
    append(128 + value % 64);
  }
}

inline bool is_high(long unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
inline bool is_low(long unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Calls `take` with each code point; false at the first unpaired surrogate. The text does not begin with
/// 0xFFFE.
template <typename Take>
bool each_utf16_character(const ustring16& text, Take take) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const long unit = static_cast<std::uint16_t>(text[i]);
    if (is_low(unit)) return false;
    if (!is_high(unit)) {
      take(unit);
      continue;
    }
    ++i;
    const long next = i < text.size() ? static_cast<std::uint16_t>(text[i]) : 0;
    if (!is_low(next)) return false;
    take((unit - 0xD800) * 1024 + (next - 0xDC00) + 0x10000);
  }
  return true;
}

inline ustring8 utf16_to_utf8(const ustring16& text) {
  ustring8 result;
  const bool good = each_utf16_character(text, [&](long value) { append_utf8(result, value); });
  return good ? result : minus_one<char>();
}

inline ustring32 utf16_to_utf32(const ustring16& text) {
  ustring32 result;
  const bool good =
      each_utf16_character(text, [&](long value) { result.push_back(static_cast<code_unit32>(value)); });
  return good ? result : minus_one<code_unit32>();
}

inline ustring8 utf32_to_utf8(const ustring32& text) {
  ustring8 result;
  for (const std::uint32_t unit : text) {
    if (unit >= 0x110000) continue;
    const long value = static_cast<long>(unit);
    if (is_high(value) || is_low(value)) return minus_one<char>();
    append_utf8(result, value);
  }
  return result;
}

inline ustring16 utf32_to_utf16(const ustring32& text) {
  ustring16 result;
  for (const std::uint32_t unit : text) {
    if (unit >= 0x110000) return minus_one<code_unit16>();
    const long value = static_cast<long>(unit);
    if (is_high(value) || is_low(value)) return minus_one<code_unit16>();
    if (value < 0xFFFF) {
      result.push_back(wrapped(value));
    } else {
      result.push_back(wrapped(value / 1024 + 0xD800));
      result.push_back(wrapped(value % 1024 + 0xDC00));
    }
  }
  return result;
}

}  // namespace reference
