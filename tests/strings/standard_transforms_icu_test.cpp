/// The transforms by the standard beside ICU, which replaces by maximal subparts too.
#include <gtest/gtest.h>
#include <unicode/ustring.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace orva::strings;

static_assert(sizeof(code_unit16) == sizeof(UChar) && sizeof(code_unit32) == sizeof(UChar32));

/// What ICU makes of a text, and how many parts it replaced.
template <typename Unit>
struct answer {
  basic_ustring<Unit> text;
  std::size_t replaced = 0;
};

/// Calls a function of ICU that writes into memory of given size.
template <typename Unit, typename Convert>
answer<Unit> ask(std::size_t capacity, Convert convert) {
  answer<Unit> result;
  result.text.resize(capacity + 1);
  std::int32_t length = 0;
  std::int32_t replaced = 0;
  UErrorCode error = U_ZERO_ERROR;
  convert(result.text.data(), static_cast<std::int32_t>(result.text.size()), &length, &replaced, &error);
  EXPECT_TRUE(U_SUCCESS(error)) << u_errorName(error);
  result.text.resize(static_cast<std::size_t>(length));
  result.replaced = static_cast<std::size_t>(replaced);
  return result;
}

std::int32_t length_of(const auto& text) { return static_cast<std::int32_t>(text.size()); }

answer<code_unit16> icu_to_utf16(const ustring8& text) {
  return ask<code_unit16>(
      text.size(), [&](code_unit16* to, auto size, auto* length, auto* replaced, auto* error) {
        u_strFromUTF8WithSub(to, size, length, text.data(), length_of(text), 0xFFFD, replaced, error);
      });
}

answer<code_unit16> icu_to_utf16(const ustring32& text) {
  return ask<code_unit16>(
      2 * text.size(), [&](code_unit16* to, auto size, auto* length, auto* replaced, auto* error) {
        u_strFromUTF32WithSub(to, size, length, reinterpret_cast<const UChar32*>(text.data()),
                              length_of(text), 0xFFFD, replaced, error);
      });
}

answer<char> icu_to_utf8(const ustring16& text) {
  return ask<char>(3 * text.size(), [&](char* to, auto size, auto* length, auto* replaced, auto* error) {
    u_strToUTF8WithSub(to, size, length, text.data(), length_of(text), 0xFFFD, replaced, error);
  });
}

answer<code_unit32> icu_to_utf32(const ustring16& text) {
  return ask<code_unit32>(text.size(),
                          [&](code_unit32* to, auto size, auto* length, auto* replaced, auto* error) {
                            u_strToUTF32WithSub(reinterpret_cast<UChar32*>(to), size, length, text.data(),
                                                length_of(text), 0xFFFD, replaced, error);
                          });
}

template <typename Unit>
bool same(const transformed<Unit>& ours, const answer<Unit>& theirs) {
  return ours.text == theirs.text && ours.replaced == theirs.replaced;
}

bool agrees(const ustring8& text) { return same(to_utf16(text), icu_to_utf16(text)); }
bool agrees(const ustring32& text) { return same(to_utf16(text), icu_to_utf16(text)); }
bool agrees(const ustring16& text) {
  return same(to_utf8(text), icu_to_utf8(text)) && same(to_utf32(text), icu_to_utf32(text));
}

TEST(standard_transforms_icu, every_code_point_and_every_surrogate) {
  for (std::uint32_t value = 0; value < 0x110100; ++value) {
    const ustring32 text{'a', static_cast<code_unit32>(value), 'b'};
    ASSERT_TRUE(agrees(text)) << value;
  }
}

TEST(standard_transforms_icu, every_unit_of_utf16_beside_each_class) {
  for (int unit = 0; unit < 0x10000; ++unit) {
    for (const int beside : {0x41, 0xD800, 0xDC00}) {
      ASSERT_TRUE(agrees(ustring16{static_cast<code_unit16>(unit), static_cast<code_unit16>(beside)}))
          << unit;
      ASSERT_TRUE(agrees(ustring16{static_cast<code_unit16>(beside), static_cast<code_unit16>(unit)}))
          << unit;
    }
  }
}

TEST(standard_transforms_icu, every_two_bytes_and_a_third_of_each_class) {
  const auto byte = [](int value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      ustring8 text;
      for (const int third : {0x00, 0x80, 0x90, 0xA0, 0xBF, 0xC2, 0xE0, 0xF0, 0xFF}) {
        text += {byte(first), byte(second), byte(third), 'z'};
      }
      ASSERT_TRUE(agrees(text)) << first << ' ' << second;
    }
  }
}

TEST(standard_transforms_icu, random_bytes_and_units) {
  orva_test::random_engine random;
  for (int round = 0; round < 10000; ++round) {
    ustring8 text8(random() % 80, '\0');
    for (char& byte : text8)
      byte = static_cast<char>(
          static_cast<unsigned char>(random() % 4 == 0 ? random() & 0x7F : 0x80 + random() % 0x80));
    ustring16 text16(random() % 80, code_unit16{});
    for (code_unit16& unit : text16) unit = static_cast<code_unit16>(0xD000 + random() % 0x1800);
    ustring32 text32(random() % 40, code_unit32{});
    for (code_unit32& unit : text32) unit = static_cast<code_unit32>(random() % 0x180000);
    ASSERT_TRUE(agrees(text8));
    ASSERT_TRUE(agrees(text16));
    ASSERT_TRUE(agrees(text32));
  }
}

}  // namespace
