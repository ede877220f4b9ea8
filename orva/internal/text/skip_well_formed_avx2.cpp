// UTF-8 is tested by the faults of two neighbouring bytes, which three table look-ups find together for each
// byte of a vector: John Keiser and Daniel Lemire, "Validating UTF-8 In Less Than One Instruction Per Byte",
// Software: Practice and Experience 51(5), 2021.
#include <immintrin.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "orva/internal/text/well_formed.hpp"

namespace ORVA_NAMESPACE::internal::text {

namespace {

using byte = std::uint8_t;

struct byte_range {
  unsigned int first;
  unsigned int last;
};

/// Neighbouring bytes that are a fault, and a bit for it.
struct pair_fault {
  byte bit;
  byte_range before;
  byte_range after;
};

/// A continuation after a continuation: right for the last byte of three and the last two of four, and a
/// fault elsewhere.
constexpr byte second_continuation = 0x80;

constexpr byte_range ascii{0x00, 0x7F};
constexpr byte_range continuations{0x80, 0xBF};
constexpr byte_range leads{0xC0, 0xFF};

constexpr pair_fault pair_faults[] = {
    {0x01, leads, ascii},
    {0x01, leads, leads},
    {0x02, ascii, continuations},
    {0x04, {0xE0, 0xE0}, {0x80, 0x9F}},
    {0x08, {0xED, 0xED}, {0xA0, 0xBF}},
    {0x10, {0xC0, 0xC1}, continuations},
    {0x20, {0xF4, 0xFF}, {0x90, 0xBF}},
    {0x40, {0xF5, 0xFF}, {0x80, 0x8F}},
    {0x40, {0xF0, 0xF0}, {0x80, 0x8F}},
    {second_continuation, continuations, continuations},
};

constexpr bool is_rows(byte_range range) { return range.first % 16 == 0 && range.last % 16 == 15; }

/// Whether three look-ups by four bits each find exactly the pairs of this fault.
constexpr bool is_found_by_look_ups(const pair_fault& fault) {
  const bool in_one_row = fault.before.first / 16 == fault.before.last / 16;
  return (in_one_row || is_rows(fault.before)) && is_rows(fault.after);
}

/// The bits of the faults that a byte may have part in, by half of the byte. A pair has the faults whose bits
/// are in all three.
struct fault_tables {
  alignas(16) std::array<byte, 16> high_before{};
  alignas(16) std::array<byte, 16> low_before{};
  alignas(16) std::array<byte, 16> high_after{};
};

constexpr fault_tables faults = [] {
  fault_tables tables;
  for (const pair_fault& fault : pair_faults) {
    for (unsigned int value = fault.before.first; value <= fault.before.last; ++value) {
      tables.high_before[value / 16] |= fault.bit;
      tables.low_before[value % 16] |= fault.bit;
    }
    for (unsigned int value = fault.after.first; value <= fault.after.last; value += 16) {
      tables.high_after[value / 16] |= fault.bit;
    }
  }
  return tables;
}();

static_assert([] {
  for (const pair_fault& fault : pair_faults) {
    if (!is_found_by_look_ups(fault)) return false;
  }
  return true;
}());

constexpr std::ptrdiff_t vector_bytes = 32;

template <typename Unit>
[[gnu::target("avx2")]] inline __m256i load(const Unit* from) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

[[gnu::target("avx2")]] inline __m256i bytes_of(int value) {
  return _mm256_set1_epi8(static_cast<char>(static_cast<byte>(value)));
}

[[gnu::target("avx2")]] inline __m256i look_up(const std::array<byte, 16>& table, __m256i indexes) {
  const __m128i values = _mm_load_si128(reinterpret_cast<const __m128i*>(table.data()));
  return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(values), indexes);
}

[[gnu::target("avx2")]] inline __m256i high_halves(__m256i bytes) {
  return _mm256_and_si256(_mm256_srli_epi16(bytes, 4), bytes_of(0x0F));
}

/// Nonzero where one of 32 bytes does not fit the three before it, each of which is given as a vector.
[[gnu::target("avx2")]] inline __m256i faults_of(__m256i bytes, __m256i first_before, __m256i second_before,
                                                 __m256i third_before) {
  const __m256i low_half = _mm256_and_si256(first_before, bytes_of(0x0F));
  const __m256i found =
      _mm256_and_si256(_mm256_and_si256(look_up(faults.high_before, high_halves(first_before)),
                                        look_up(faults.low_before, low_half)),
                       look_up(faults.high_after, high_halves(bytes)));
  // The highest bit is set two bytes after a lead of three or four, and three bytes after a lead of four.
  const __m256i third = _mm256_subs_epu8(second_before, bytes_of(0xE0 - 0x80));
  const __m256i fourth = _mm256_subs_epu8(third_before, bytes_of(0xF0 - 0x80));
  const __m256i expected = _mm256_and_si256(_mm256_or_si256(third, fourth), bytes_of(second_continuation));
  return _mm256_xor_si256(found, expected);
}

/// REQUIRES: three bytes before `at`.
[[gnu::target("avx2")]] inline __m256i faults_at(const char* at) {
  return faults_of(load(at), load(at - 1), load(at - 2), load(at - 3));
}

/// The bytes of a vector `Count` places later, after zeros.
template <int Count>
[[gnu::target("avx2")]] inline __m256i later(__m256i bytes) {
  const __m256i lower_half_later = _mm256_permute2x128_si256(bytes, bytes, 0x08);
  return _mm256_alignr_epi8(bytes, lower_half_later, 16 - Count);
}

[[gnu::target("avx2")]] inline __m256i faults_of_first(__m256i bytes) {
  return faults_of(bytes, later<1>(bytes), later<2>(bytes), later<3>(bytes));
}

[[gnu::target("avx2")]] inline bool any(__m256i bits) { return _mm256_testz_si256(bits, bits) == 0; }

/// Whether the last character before `at` needs more bytes than it has there.
inline bool ends_within_character(const char* at) {
  return value_of(at[-1]) >= 0xC0 || value_of(at[-2]) >= 0xE0 || value_of(at[-3]) >= 0xF0;
}

/// The beginning of the character that `at` may be within. REQUIRES: the text before `at` is well-formed but
/// for the end of this character, and is three bytes or more.
inline const char* beginning_of_character(const char* at) {
  if (!ends_within_character(at)) return at;
  do --at;
  while (is_continuation(*at));
  return at;
}

/// REQUIRES: a text of 32 bytes or more.
[[gnu::target("avx2")]] const char* skip(const char* from, const char* end) {
  if (any(faults_of_first(load(from)))) return from;
  const char* at = from + vector_bytes;
  // ASCII needs no tables; only what is before it may be cut short.
  bool after_ascii = false;
  for (; end - at >= 2 * vector_bytes; at += 2 * vector_bytes) {
    if (_mm256_movemask_epi8(_mm256_or_si256(load(at), load(at + vector_bytes))) == 0) {
      if (!after_ascii && ends_within_character(at)) return beginning_of_character(at);
      after_ascii = true;
      continue;
    }
    if (any(_mm256_or_si256(faults_at(at), faults_at(at + vector_bytes)))) return beginning_of_character(at);
    after_ascii = false;
  }
  for (; end - at >= vector_bytes; at += vector_bytes) {
    if (any(faults_at(at))) return beginning_of_character(at);
  }
  // The last block begins before `at`, and needs three bytes before it.
  const char* const last = end - vector_bytes;
  if (at != end && (last - from < 3 || any(faults_at(last)))) return beginning_of_character(at);
  return beginning_of_character(end);
}

/// Shuffles that move the bytes of a vector `count` places to its beginning, and fill it up with zeros.
class shifts_to_beginning {
 public:
  constexpr shifts_to_beginning() {
    for (std::size_t i = 0; i < indexes_.size(); ++i) indexes_[i] = static_cast<byte>(i < 16 ? i : zero);
  }

  [[gnu::target("avx2")]] __m128i shift(__m128i bytes, std::ptrdiff_t count) const {
    const auto* const indexes = reinterpret_cast<const __m128i*>(indexes_.data() + count);
    return _mm_shuffle_epi8(bytes, _mm_loadu_si128(indexes));
  }

 private:
  static constexpr byte zero = 0x80;
  std::array<byte, 32> indexes_{};
};

constexpr shifts_to_beginning shifts;

constexpr std::ptrdiff_t shortest_vector_text = 8;

/// A text of 8 to 31 bytes, and zeros after it. What is after the text in memory is not read.
[[gnu::target("avx2")]] inline __m256i load_short(const char* from, const char* end) {
  const std::ptrdiff_t size = end - from;
  if (size < 16) {
    const __m128i first = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
    const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(end - 8));
    return _mm256_zextsi128_si256(_mm_unpacklo_epi64(first, shifts.shift(last, 16 - size)));
  }
  const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
  const __m128i last = _mm_loadu_si128(reinterpret_cast<const __m128i*>(end - 16));
  return _mm256_set_m128i(shifts.shift(last, 32 - size), first);
}

/// REQUIRES: a text of 8 to 31 bytes.
[[gnu::target("avx2")]] const char* skip_short(const char* from, const char* end) {
  // A character that the text cuts short is followed by a zero, which is a fault.
  return any(faults_of_first(load_short(from, end))) ? from : end;
}

constexpr std::ptrdiff_t vector_units = 32;

[[gnu::target("avx2")]] inline __m256i equal_high_bits(__m256i units, int mask, int bits) {
  const __m256i high_bits = _mm256_and_si256(units, _mm256_set1_epi16(static_cast<short>(mask)));
  return _mm256_cmpeq_epi16(high_bits, _mm256_set1_epi16(static_cast<short>(bits)));
}

/// Whether there is a surrogate among 32 units of UTF-16.
[[gnu::target("avx2")]] inline bool has_surrogates(const code_unit16* at) {
  return any(_mm256_or_si256(equal_high_bits(load(at), 0xF800, 0xD800),
                             equal_high_bits(load(at + 16), 0xF800, 0xD800)));
}

/// The surrogates among 32 units of UTF-16, the first in the lowest bit.
struct surrogate_masks {
  std::uint32_t high;
  std::uint32_t low;
};

[[gnu::target("avx2")]] inline std::uint32_t mask_of(__m256i first, __m256i second) {
  const __m256i in_order = _mm256_permute4x64_epi64(_mm256_packs_epi16(first, second), 0b11'01'10'00);
  return static_cast<std::uint32_t>(_mm256_movemask_epi8(in_order));
}

[[gnu::target("avx2")]] inline surrogate_masks surrogates_at(const code_unit16* at) {
  const __m256i first = load(at);
  const __m256i second = load(at + 16);
  return {mask_of(equal_high_bits(first, 0xFC00, 0xD800), equal_high_bits(second, 0xFC00, 0xD800)),
          mask_of(equal_high_bits(first, 0xFC00, 0xDC00), equal_high_bits(second, 0xFC00, 0xDC00))};
}

/// REQUIRES: a text of 32 units or more.
[[gnu::target("avx2")]] const code_unit16* skip(const code_unit16* from, const code_unit16* end) {
  const code_unit16* at = from;
  while (end - at >= vector_units) {
    // Text of the basic plane does not wait for the masks.
    if (!has_surrogates(at)) {
      at += vector_units;
      continue;
    }
    const auto [high, low] = surrogates_at(at);
    if (low != high << 1) return at;
    // A pair that the block cuts is left to the next one.
    at += vector_units - static_cast<std::ptrdiff_t>(high >> 31);
  }
  if (at == end) return at;
  // The last block begins before `at`, perhaps with the second half of a pair.
  const auto [high, low] = surrogates_at(end - vector_units);
  return (low & ~std::uint32_t{1}) == high << 1 && high >> 31 == 0 ? end : at;
}

/// Whether 32 units of UTF-32 are code points and no surrogates.
[[gnu::target("avx2")]] inline bool are_characters(const code_unit32* at) {
  const __m256i last = _mm256_set1_epi32(0x10FFFF);
  __m256i largest = last;
  __m256i surrogates = _mm256_setzero_si256();
  for (std::ptrdiff_t i = 0; i < vector_units; i += 8) {
    const __m256i units = load(at + i);
    largest = _mm256_max_epu32(largest, units);
    const __m256i marks = _mm256_and_si256(units, _mm256_set1_epi32(static_cast<int>(0xFFFFF800)));
    surrogates = _mm256_or_si256(surrogates, _mm256_cmpeq_epi32(marks, _mm256_set1_epi32(0xD800)));
  }
  return !any(_mm256_or_si256(surrogates, _mm256_xor_si256(largest, last)));
}

/// REQUIRES: a text of 32 units or more.
[[gnu::target("avx2")]] const code_unit32* skip(const code_unit32* from, const code_unit32* end) {
  const code_unit32* at = from;
  for (; end - at >= vector_units; at += vector_units) {
    if (!are_characters(at)) return at;
  }
  return are_characters(end - vector_units) ? end : at;
}

bool has_avx2() {
  static const bool answer = __builtin_cpu_supports("avx2") != 0;
  return answer;
}

template <typename Unit>
const Unit* skip_if_long(const Unit* from, const Unit* end) {
  return end - from >= vector_units && has_avx2() ? skip(from, end) : from;
}

}  // namespace

const char* skip_well_formed(const char* from, const char* end) {
  const std::ptrdiff_t size = end - from;
  if (size < shortest_vector_text || !has_avx2()) return from;
  return size < vector_bytes ? skip_short(from, end) : skip(from, end);
}

const code_unit16* skip_well_formed(const code_unit16* from, const code_unit16* end) {
  return skip_if_long(from, end);
}

const code_unit32* skip_well_formed(const code_unit32* from, const code_unit32* end) {
  return skip_if_long(from, end);
}

}  // namespace ORVA_NAMESPACE::internal::text
