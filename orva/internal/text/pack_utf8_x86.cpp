// Each unit becomes a sequence in a lane of its own, and a shuffle closes the gaps between the lanes. A mask
// of the lengths of the sequences is the index of the shuffle in a table.
#include <tmmintrin.h>

#include <array>
#include <cstddef>

#include "orva/internal/text/pack_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

namespace {

/// The bytes to take, in order, and how many they are.
struct shuffle {
  alignas(16) std::array<char, 16> from{};
  std::size_t size = 0;

  constexpr void take(std::size_t first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) from[size++] = static_cast<char>(first + i);
  }
};

/// Eight lanes of two bytes. Bit i of the mask: lane i holds one byte.
constexpr std::array<shuffle, 256> shuffles_of_two_byte_lanes = [] {
  std::array<shuffle, 256> all{};
  for (std::size_t mask = 0; mask < 256; ++mask) {
    for (std::size_t lane = 0; lane < 8; ++lane) all[mask].take(2 * lane, (mask >> lane & 1) != 0 ? 1 : 2);
  }
  return all;
}();

/// Four lanes of four bytes. Bit i of the mask: lane i holds more than one byte; bit 4 + i: it holds more
/// than two.
constexpr std::array<shuffle, 256> shuffles_of_four_byte_lanes = [] {
  std::array<shuffle, 256> all{};
  for (std::size_t mask = 0; mask < 256; ++mask) {
    for (std::size_t lane = 0; lane < 4; ++lane) {
      all[mask].take(4 * lane, 1 + (mask >> lane & 1) + (mask >> (4 + lane) & 1));
    }
  }
  return all;
}();

[[gnu::target("ssse3")]] char* store(__m128i lanes, const shuffle& by, char* to) {
  const __m128i order = _mm_load_si128(reinterpret_cast<const __m128i*>(by.from.data()));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_shuffle_epi8(lanes, order));
  return to + by.size;
}

/// `first` where the mask is set, `second` elsewhere.
__m128i choose(__m128i mask, __m128i first, __m128i second) {
  return _mm_or_si128(_mm_and_si128(mask, first), _mm_andnot_si128(mask, second));
}

/// Eight units below 0x800, of 16 bits each.
[[gnu::target("ssse3")]] char* pack_two_bytes(__m128i units, char* to) {
  const __m128i one_byte = _mm_cmplt_epi16(units, _mm_set1_epi16(0x80));
  const __m128i last = _mm_slli_epi16(_mm_and_si128(units, _mm_set1_epi16(0x3F)), 8);
  const __m128i marks = _mm_set1_epi16(static_cast<short>(0x80C0));
  const __m128i two_bytes = _mm_or_si128(_mm_or_si128(_mm_srli_epi16(units, 6), last), marks);
  const int mask = _mm_movemask_epi8(_mm_packs_epi16(one_byte, _mm_setzero_si128()));
  return store(choose(one_byte, units, two_bytes), shuffles_of_two_byte_lanes[static_cast<std::size_t>(mask)],
               to);
}

/// Four units of the basic plane, of 32 bits each.
[[gnu::target("ssse3")]] char* pack_three_bytes(__m128i units, char* to) {
  const __m128i above_one = _mm_cmpgt_epi32(units, _mm_set1_epi32(0x7F));
  const __m128i above_two = _mm_cmpgt_epi32(units, _mm_set1_epi32(0x7FF));
  const __m128i last = _mm_or_si128(_mm_and_si128(units, _mm_set1_epi32(0x3F)), _mm_set1_epi32(0x80));
  const __m128i middle = _mm_and_si128(_mm_slli_epi32(units, 2), _mm_set1_epi32(0x3F00));
  const __m128i two_bytes =
      _mm_or_si128(_mm_or_si128(_mm_srli_epi32(units, 6), _mm_slli_epi32(last, 8)), _mm_set1_epi32(0xC0));
  const __m128i ends = _mm_or_si128(_mm_srli_epi32(units, 12), _mm_slli_epi32(last, 16));
  const __m128i three_bytes = _mm_or_si128(_mm_or_si128(ends, middle), _mm_set1_epi32(0x80E0));
  const __m128i lanes = choose(above_two, three_bytes, choose(above_one, two_bytes, units));
  const int mask = _mm_movemask_ps(_mm_castsi128_ps(above_one)) | _mm_movemask_ps(_mm_castsi128_ps(above_two))
                                                                      << 4;
  return store(lanes, shuffles_of_four_byte_lanes[static_cast<std::size_t>(mask)], to);
}

template <typename Unit>
__m128i load(const Unit* from) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

bool all_set(__m128i mask) { return _mm_movemask_epi8(mask) == 0xFFFF; }
bool none_set(__m128i mask) { return _mm_movemask_epi8(mask) == 0; }

/// Packs eight units, or returns null if one of them is not for it.
[[gnu::target("ssse3")]] char* pack_eight(const code_unit16* from, char* to) {
  const __m128i units = load(from);
  const __m128i high_bits = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
  const __m128i zero = _mm_setzero_si128();
  if (all_set(_mm_cmpeq_epi16(high_bits, zero))) return pack_two_bytes(units, to);
  const bool basic = none_set(_mm_cmpeq_epi16(high_bits, _mm_set1_epi16(static_cast<short>(0xD800))));
  if (!basic) return nullptr;
  to = pack_three_bytes(_mm_unpacklo_epi16(units, zero), to);
  return pack_three_bytes(_mm_unpackhi_epi16(units, zero), to);
}

[[gnu::target("ssse3")]] char* pack_eight(const code_unit32* from, char* to) {
  const __m128i first = load(from);
  const __m128i second = load(from + 4);
  const __m128i high_bits = _mm_set1_epi32(static_cast<int>(0xFFFFF800));
  const __m128i first_high = _mm_and_si128(first, high_bits);
  const __m128i second_high = _mm_and_si128(second, high_bits);
  const __m128i zero = _mm_setzero_si128();
  const __m128i any_high = _mm_or_si128(first_high, second_high);
  if (all_set(_mm_cmpeq_epi32(any_high, zero))) return pack_two_bytes(_mm_packs_epi32(first, second), to);
  const __m128i surrogates = _mm_set1_epi32(0xD800);
  const bool basic = all_set(_mm_cmpeq_epi32(_mm_srli_epi32(any_high, 16), zero)) &&
                     none_set(_mm_or_si128(_mm_cmpeq_epi32(first_high, surrogates),
                                           _mm_cmpeq_epi32(second_high, surrogates)));
  if (!basic) return nullptr;
  return pack_three_bytes(second, pack_three_bytes(first, to));
}

template <typename Unit>
[[gnu::target("ssse3")]] cursor<Unit, char> pack(cursor<Unit, char> at, const Unit* end) {
  for (; end - at.from >= 8; at.from += 8) {
    char* const packed = pack_eight(at.from, at.to);
    if (packed == nullptr) break;
    at.to = packed;
  }
  return at;
}

bool can_shuffle() {
  static const bool answer = __builtin_cpu_supports("ssse3") != 0;
  return answer;
}

}  // namespace

cursor<code_unit16, char> pack_utf8(cursor<code_unit16, char> at, const code_unit16* end) {
  return can_shuffle() ? pack(at, end) : at;
}

cursor<code_unit32, char> pack_utf8(cursor<code_unit32, char> at, const code_unit32* end) {
  return can_shuffle() ? pack(at, end) : at;
}

}  // namespace ORVA_NAMESPACE::internal::text
