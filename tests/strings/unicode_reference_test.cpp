/// The transforms compared with a slow second implementation: all code points, all short sequences by class,
/// texts with one odd character at each offset, and random ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_unicode.hpp"

namespace {

using namespace orva::strings;

template <typename Unit>
testing::AssertionResult same(const char* transform, const auto& source, const basic_ustring<Unit>& expected,
                              const basic_ustring<Unit>& actual) {
  if (actual == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << transform << " of " << testing::PrintToString(source) << "\n  gives "
                                     << testing::PrintToString(actual) << "\n  not   "
                                     << testing::PrintToString(expected);
}

// Each takes a copy without spare capacity, so that AddressSanitizer finds a read after the text.

testing::AssertionResult agrees(const ustring8& given) {
  const ustring8 text(given);
  const auto first = same("utf8_to_utf16", text, reference::utf8_to_utf16(text), utf8_to_utf16(text));
  if (!first) return first;
  return same("utf8_to_utf32", text, reference::utf8_to_utf32(text), utf8_to_utf32(text));
}

testing::AssertionResult agrees(const ustring16& given) {
  const ustring16 text(given);
  // Text in the other byte order has its own test, since the transform does not return from it.
  if (text.starts_with(swapped_byte_order_mark)) return testing::AssertionSuccess();
  const auto first = same("utf16_to_utf8", text, reference::utf16_to_utf8(text), utf16_to_utf8(text));
  if (!first) return first;
  return same("utf16_to_utf32", text, reference::utf16_to_utf32(text), utf16_to_utf32(text));
}

testing::AssertionResult agrees(const ustring32& given) {
  const ustring32 text(given);
  const auto first = same("utf32_to_utf8", text, reference::utf32_to_utf8(text), utf32_to_utf8(text));
  if (!first) return first;
  return same("utf32_to_utf16", text, reference::utf32_to_utf16(text), utf32_to_utf16(text));
}

ustring8 bytes_of(std::uint32_t code_point) {
  ustring8 text;
  reference::append_utf8(text, static_cast<long>(code_point));
  return text;
}

ustring16 pair_of(std::uint32_t code_point) {
  return {static_cast<code_unit16>((code_point >> 10) + 0xD7C0),
          static_cast<code_unit16>((code_point & 0x3FF) + 0xDC00)};
}

TEST(unicode_reference, every_code_point_of_utf8) {
  for (std::uint32_t code_point = 0; code_point < 0x110000; ++code_point) {
    ASSERT_TRUE(agrees(bytes_of(code_point)));
  }
}

TEST(unicode_reference, every_code_point_of_utf16) {
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit)
    ASSERT_TRUE(agrees(ustring16(1, static_cast<code_unit16>(unit))));
  for (std::uint32_t code_point = 0x10000; code_point < 0x110000; ++code_point) {
    ASSERT_TRUE(agrees(pair_of(code_point)));
  }
}

TEST(unicode_reference, every_code_point_of_utf32) {
  for (std::uint32_t code_point = 0; code_point < 0x110000 + 0x100; ++code_point) {
    ASSERT_TRUE(agrees(ustring32(1, static_cast<code_unit32>(code_point))));
  }
  for (std::uint32_t value = 1; value != 0; value <<= 1) {
    for (const std::uint32_t near : {value - 1, value, value + 1, ~value}) {
      ASSERT_TRUE(agrees(ustring32(1, static_cast<code_unit32>(near))));
    }
  }
}

TEST(unicode_reference, every_code_point_in_long_texts) {
  constexpr std::uint32_t together = 97;
  for (std::uint32_t first = 0; first < 0x110000; first += together) {
    ustring8 text8;
    ustring16 text16;
    ustring32 text32;
    for (std::uint32_t i = first; i < std::min<std::uint32_t>(first + together, 0x110000); ++i) {
      if (i >= 0xD800 && i < 0xE000) continue;
      text8 += bytes_of(i);
      if (i < 0x10000) {
        text16.push_back(static_cast<code_unit16>(i));
      } else {
        text16 += pair_of(i);
      }
      text32.push_back(static_cast<code_unit32>(i));
    }
    ASSERT_TRUE(agrees(text8));
    ASSERT_TRUE(agrees(text16));
    ASSERT_TRUE(agrees(text32));
  }
}

constexpr std::array byte_classes = {0x00, 0x41, 0x7F, 0x80, 0x81, 0x8F, 0x90, 0x9F, 0xA0,
                                     0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xED, 0xEF, 0xF0,
                                     0xF4, 0xF5, 0xF7, 0xF8, 0xFB, 0xFC, 0xFE, 0xFF};

ustring8 bytes(std::initializer_list<int> values) {
  ustring8 text;
  for (const int value : values) text.push_back(static_cast<char>(static_cast<unsigned char>(value)));
  return text;
}

TEST(unicode_reference, every_one_and_two_bytes) {
  for (int first = 0; first < 256; ++first) {
    ASSERT_TRUE(agrees(bytes({first})));
    for (int second = 0; second < 256; ++second) ASSERT_TRUE(agrees(bytes({first, second})));
  }
}

TEST(unicode_reference, every_two_bytes_and_a_third_of_each_class) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      for (const int third : {0x00, 0x7F, 0x80, 0xBF, 0xC0, 0xE0, 0xF0, 0xFF}) {
        ASSERT_TRUE(agrees(bytes({first, second, third})));
      }
    }
  }
}

TEST(unicode_reference, every_lead_of_three_with_all_continuations) {
  for (int first = 0xE0; first < 0xF0; ++first) {
    for (int second = 0x80; second < 0xC0; ++second) {
      for (int third = 0x80; third < 0xC0; ++third) ASSERT_TRUE(agrees(bytes({first, second, third})));
    }
  }
}

TEST(unicode_reference, four_bytes_of_each_class) {
  for (const int first : byte_classes) {
    for (const int second : byte_classes) {
      for (const int third : byte_classes) {
        for (const int fourth : byte_classes) ASSERT_TRUE(agrees(bytes({first, second, third, fourth})));
      }
    }
  }
}

TEST(unicode_reference, every_unit_beside_each_class_of_utf16) {
  constexpr std::array classes = {0x0000, 0x0041, 0x007F, 0x0080, 0x07FF, 0x0800, 0xD7FF, 0xD800,
                                  0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF};
  for (int unit = 0; unit < 0x10000; ++unit) {
    for (const int beside : {0x41, 0xD800, 0xDC00, 0xE000}) {
      ASSERT_TRUE(agrees(ustring16{static_cast<code_unit16>(unit), static_cast<code_unit16>(beside)}));
      ASSERT_TRUE(agrees(ustring16{static_cast<code_unit16>(beside), static_cast<code_unit16>(unit)}));
    }
  }
  for (const int first : classes) {
    for (const int second : classes) {
      for (const int third : classes) {
        ASSERT_TRUE(agrees(ustring16{static_cast<code_unit16>(first), static_cast<code_unit16>(second),
                                     static_cast<code_unit16>(third)}));
      }
    }
  }
}

/// Texts of `size` units of one kind with `odd` inserted at each offset.
template <typename Text>
void expect_agreement_around(const std::vector<Text>& fillers, const std::vector<Text>& odd_ones) {
  for (const Text& filler : fillers) {
    Text text;
    while (text.size() < 160) text += filler;
    for (const Text& odd : odd_ones) {
      for (std::size_t offset = 0; offset <= 80; ++offset) {
        for (const std::size_t after : {0u, 1u, 2u, 3u, 5u, 8u, 15u, 16u, 17u, 33u, 70u}) {
          ASSERT_TRUE(agrees(Text(text.substr(0, offset) + odd + text.substr(0, after))));
        }
      }
    }
  }
}

TEST(unicode_reference, odd_bytes_at_every_offset) {
  expect_agreement_around<ustring8>(
      {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xD0\xB0\xD0\xB1 ",
       "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
      {"", "z", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98",
       "\xFF", "\xC0\x80", "\xED\xA0\x80", "\xF7\xBF\xBF\xBF", ustring8(1, '\0')});
}

TEST(unicode_reference, odd_units_of_utf16_at_every_offset) {
  const auto one = [](int unit) { return ustring16(1, static_cast<code_unit16>(unit)); };
  expect_agreement_around<ustring16>(
      {one('a'), one(0xE4), one(0x20AC), pair_of(0x1F600), one(0x430) + one(0x431) + one(' '),
       one('a') + one(0x20AC) + pair_of(0x10000)},
      {one('z'), one(0x7F), one(0x80), one(0x7FF), one(0x800), one(0xD7FF), one(0xD800), one(0xDBFF),
       one(0xDC00), one(0xDFFF), one(0xE000), one(0xFFFE), one(0xFFFF), one(0), pair_of(0x10FFFF),
       one(0xDC00) + one(0xD800)});
}

TEST(unicode_reference, odd_units_of_utf32_at_every_offset) {
  const auto one = [](std::uint32_t unit) { return ustring32(1, static_cast<code_unit32>(unit)); };
  expect_agreement_around<ustring32>(
      {one('a'), one(0xE4), one(0x20AC), one(0x1F600), one(0x430) + one(' '),
       one('a') + one(0x20AC) + one(0x10000)},
      {one('z'), one(0x7F), one(0x80), one(0x7FF), one(0x800), one(0xD7FF), one(0xD800), one(0xDFFF),
       one(0xE000), one(0xFFFE), one(0xFFFF), one(0x10000), one(0x10FFFF), one(0x110000), one(0x1D800),
       one(0x7FFFFFFF), one(0x80000041), one(0xFFFFFFFF), one(0)});
}

TEST(unicode_reference, text_cut_at_every_length) {
  ustring8 text;
  for (int i = 0; i < 40; ++i) text += "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80 plain \xD0\xB0\xD0\xB1";
  const ustring16 text16 = utf8_to_utf16(text);
  const ustring32 text32 = utf8_to_utf32(text);
  for (std::size_t size = 0; size <= text.size(); ++size) ASSERT_TRUE(agrees(text.substr(0, size)));
  for (std::size_t size = 0; size <= text16.size(); ++size) ASSERT_TRUE(agrees(text16.substr(0, size)));
  for (std::size_t size = 0; size <= text32.size(); ++size) ASSERT_TRUE(agrees(text32.substr(0, size)));
}

/// Runs of characters of one kind, of random lengths. Never begins with the swapped mark, since the
/// transforms do not return from such a text in UTF-16.
ustring32 random_characters(orva_test::random_engine& random) {
  constexpr std::array<std::array<std::uint32_t, 2>, 6> kinds = {
      {{0, 0x7F}, {0x80, 0x7FF}, {0x800, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}, {' ', ' '}}};
  const auto below = [&](std::uint32_t limit) {
    return std::uniform_int_distribution<std::uint32_t>(0, limit - 1)(random);
  };
  ustring32 text;
  const std::size_t size = below(1500);
  while (text.size() < size) {
    const auto [low, high] = kinds[below(kinds.size())];
    for (auto left = below(below(2) == 0 ? 4 : 90); left > 0; --left) {
      text.push_back(static_cast<code_unit32>(low + below(high - low + 1)));
    }
  }
  if (text.starts_with(code_unit32{0xFFFE})) text.front() = 0xFEFF;
  return text;
}

TEST(unicode_reference, random_texts_good_and_spoiled) {
  orva_test::random_engine random;
  for (int round = 0; round < 1000; ++round) {
    ustring32 text32 = random_characters(random);
    ustring8 text8 = reference::utf32_to_utf8(text32);
    ustring16 text16 = reference::utf8_to_utf16(text8);
    ASSERT_TRUE(agrees(text8));
    ASSERT_TRUE(agrees(text16));
    ASSERT_TRUE(agrees(text32));
    ASSERT_EQ(utf16_to_utf8(text16), text8);
    ASSERT_EQ(utf16_to_utf32(text16), text32);
    if (text32.empty()) continue;
    text8[random() % text8.size()] =
        static_cast<char>(random() & 0x7F ? 0x80 + random() % 0x80 : random() % 0x80);
    text16[random() % text16.size()] = static_cast<code_unit16>(0xD800 + random() % 0x800);
    text32[random() % text32.size()] = static_cast<code_unit32>(random());
    ASSERT_TRUE(agrees(text8));
    ASSERT_TRUE(agrees(text16));
    ASSERT_TRUE(agrees(text32));
  }
}

}  // namespace
