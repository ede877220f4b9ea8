/// The fast way through good text. Each `run_ahead` converts as much as it likes, stops before the first character
/// that it does not take, and leaves it to the plain loop of its transform to say what that character gives. It may
/// stop anywhere; taking nothing is right, too.
///
/// `from` and `to` move along. Output needs room for the most units that the rest of the text can give, of which
/// those behind `to` may be overwritten.
///
/// Internal: not installed.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "orva/strings/unicode/block.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/pack_utf8.hpp"

namespace ORVA_2_18::strings::_private {

/// A UTF-8 sequence as a number, its first byte in the low bits.
inline std::uint32_t load_sequence(const char* from) {
  return value_of(from[0]) | value_of(from[1]) << 8 | value_of(from[2]) << 16 | value_of(from[3]) << 24;
}

inline bool is_two_bytes(std::uint32_t sequence) { return (sequence & 0xC0E0) == 0x80C0; }
inline bool is_three_bytes(std::uint32_t sequence) { return (sequence & 0xC0C0F0) == 0x8080E0; }
inline bool is_four_bytes(std::uint32_t sequence) { return (sequence & 0xC0C0C0F8) == 0x808080F0; }

inline std::uint32_t join_two_bytes(std::uint32_t sequence) {
  return (sequence & 0x1F) << 6 | (sequence >> 8 & 0x3F);
}

inline std::uint32_t join_three_bytes(std::uint32_t sequence) {
  return (sequence & 0xF) << 12 | (sequence >> 2 & 0xFC0) | (sequence >> 16 & 0x3F);
}

inline std::uint32_t join_four_bytes(std::uint32_t sequence) {
  return (sequence & 7) << 18 | (sequence << 4 & 0x3F000) | (sequence >> 10 & 0xFC0) |
         (sequence >> 24 & 0x3F);
}

inline code_unit16* put_beyond_basic(std::uint32_t code_point, code_unit16* to) {
  return encode_pair(code_point, to);
}

inline code_unit32* put_beyond_basic(std::uint32_t code_point, code_unit32* to) {
  *to = static_cast<code_unit32>(code_point);
  return to + 1;
}

/// Copies ASCII as far as words of it reach.
///
/// REQUIRES: room for as many units as are left.
template <typename From, typename To>
void run_ahead_in_ascii(const From*& from, const From* end, To*& to) {
  while (has_block(from, end) && are_ascii<block>(from)) copy_units<block>(from, to);
  while (end - from >= 8 && are_ascii<8>(from)) copy_units<8>(from, to);
}

/// UTF-8 into UTF-16 or UTF-32. Runs of sequences of one length are followed in a loop of their own, which is what
/// text of one script is made of.
template <typename To>
void run_ahead(const char*& from_, const char* const end, To*& to_) {
  const char* from = from_;
  To* to = to_;
  while (end - from >= 4) {
    std::uint32_t sequence = load_sequence(from);
    if ((sequence & 0x80808080) == 0) {
      run_ahead_in_ascii(from, end, to);
      while (from != end && value_of(*from) < 0x80) copy_units<1>(from, to);
    } else if ((sequence & 0x80) == 0) {
      copy_units<1>(from, to);
    } else if (is_two_bytes(sequence)) {
      do {
        *to++ = static_cast<To>(join_two_bytes(sequence));
        from += 2;
        if (end - from < 4) break;
        sequence = load_sequence(from);
      } while (is_two_bytes(sequence));
    } else if (is_three_bytes(sequence)) {
      do {
        *to++ = static_cast<To>(join_three_bytes(sequence));
        from += 3;
        if (end - from < 4) break;
        sequence = load_sequence(from);
      } while (is_three_bytes(sequence));
    } else if (is_four_bytes(sequence)) {
      to = put_beyond_basic(join_four_bytes(sequence), to);
      from += 4;
    } else {
      break;
    }
  }
  from_ = from;
  to_ = to;
}

/// The inverse of `load_sequence` for four bytes, in one store, which compilers do not always make of four.
inline void store_four_bytes(std::uint32_t code_point, char* to) {
  std::uint32_t sequence = 0x808080F0 | code_point >> 18 | (code_point >> 4 & 0x3F00) |
                           (code_point << 10 & 0x3F0000) | (code_point & 0x3F) << 24;
  if constexpr (std::endian::native == std::endian::big) {
    sequence = sequence << 24 | (sequence << 8 & 0xFF0000) | (sequence >> 8 & 0xFF00) | sequence >> 24;
  }
  std::memcpy(to, &sequence, sizeof sequence);
}

/// UTF-16 or UTF-32 into UTF-8.
///
/// REQUIRES: room for four bytes for each unit that is left.
template <typename From>
void run_ahead(const From*& from, const From* const end, char*& to) {
  run_ahead_in_ascii(from, end, to);
  const auto reached = pack_utf8(from, end, to);
  from = reached.from;
  to = reached.to;
  while (from != end) {
    const auto found = decode(from, static_cast<std::size_t>(end - from));
    if (found.code_point < 0x10000 || found.code_point >= 0x110000) break;
    store_four_bytes(found.code_point, to);
    from += found.units;
    to += 4;
  }
}

/// UTF-16 into UTF-32 and back, as far as both are alike.
template <typename From, typename To>
void run_ahead(const From*& from, const From* const end, To*& to) {
  while (has_block(from, end) && (are_ascii<block>(from) || are_basic<block>(from)))
    copy_units<block>(from, to);
}

}  // namespace ORVA_2_18::strings::_private
