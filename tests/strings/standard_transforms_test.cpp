#include "orva/strings/standard_transforms.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/standard_transforms_agree.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace orva::strings;
using orva_test::agrees;
using orva_test::units16;
using orva_test::units32;

template <typename Unit>
void expect_good(const transformed<Unit>& found, const basic_ustring<Unit>& expected) {
  EXPECT_EQ(found.text, expected);
  EXPECT_EQ(found.replaced, 0u);
  EXPECT_FALSE(found.first_malformed);
}

template <typename Unit>
void expect_replaced(const transformed<Unit>& found, const basic_ustring<Unit>& expected,
                     std::size_t replaced, std::size_t offset) {
  EXPECT_EQ(found.text, expected);
  EXPECT_EQ(found.replaced, replaced);
  ASSERT_TRUE(found.first_malformed);
  EXPECT_EQ(found.first_malformed->offset, offset);
}

TEST(standard_transforms, documentation_example) {
  const auto wide = to_utf16("gr\xC3\xBC\xC3\x9F");
  expect_good(wide, units16({'g', 'r', 0xFC, 0xDF}));
  const auto damaged = to_utf16("abc\x80");
  expect_replaced(damaged, units16({'a', 'b', 'c', 0xFFFD}), 1, 3);
}

TEST(standard_transforms, each_width_of_character_crosses_every_way) {
  const ustring8 text8("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
  const ustring16 text16 = units16({'a', 0xE4, 0x20AC, 0xD83D, 0xDE00});
  const ustring32 text32 = units32({'a', 0xE4, 0x20AC, 0x1F600});
  expect_good(to_utf8(text8), text8);
  expect_good(to_utf8(text16), text8);
  expect_good(to_utf8(text32), text8);
  expect_good(to_utf16(text8), text16);
  expect_good(to_utf16(text16), text16);
  expect_good(to_utf16(text32), text16);
  expect_good(to_utf32(text8), text32);
  expect_good(to_utf32(text16), text32);
  expect_good(to_utf32(text32), text32);
}

TEST(standard_transforms, text_of_standard_types_is_taken) {
  const ustring16 expected = units16({0x20AC});
  expect_good(to_utf16(u8"\u20AC"), expected);
  expect_good(to_utf16(u"\u20AC"), expected);
  expect_good(to_utf16(U"\u20AC"), expected);
  expect_good(to_utf16(std::u8string_view(u8"\u20AC")), expected);
  expect_good(to_utf16(std::u16string(u"\u20AC")), expected);
  expect_good(to_utf16(std::u32string_view(U"\u20AC")), expected);
  expect_good(to_utf8(std::string("\xE2\x82\xAC")), ustring8("\xE2\x82\xAC"));
}

TEST(standard_transforms, empty_text_gives_empty_text) {
  expect_good(to_utf8(""), ustring8());
  expect_good(to_utf16(std::string_view()), ustring16());
  expect_good(to_utf32(ustring16()), ustring32());
}

TEST(standard_transforms, zero_unit_is_a_character) {
  expect_good(to_utf16(std::string_view("a\0b", 3)), units16({'a', 0, 'b'}));
  expect_good(to_utf8(units32({0})), ustring8(1, '\0'));
}

TEST(standard_transforms, pairs_of_utf16_are_made_by_the_standard) {
  expect_good(to_utf16(units32({0xFFFE, 0xFFFF, 0x10000, 0x10FFFF})),
              units16({0xFFFE, 0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF}));
}

TEST(standard_transforms, text_that_begins_with_the_swapped_mark_is_converted) {
  expect_good(to_utf8(units16({0xFFFE, 'a'})), ustring8("\xEF\xBF\xBE"
                                                        "a"));
  expect_good(to_utf32(units16({0xFFFE, 'a'})), units32({0xFFFE, 'a'}));
}

TEST(standard_transforms, byte_order_mark_stays) {
  expect_good(to_utf16("\xEF\xBB\xBF"
                       "a"),
              units16({0xFEFF, 'a'}));
  expect_good(to_utf8(units32({0xFEFF, 'a'})), ustring8("\xEF\xBB\xBF"
                                                        "a"));
}

TEST(standard_transforms, genuine_failure_text_is_told_from_a_failure) {
  expect_good(to_utf16("-1"), units16({'-', '1'}));
  EXPECT_TRUE(to_utf16("\xFF").first_malformed);
}

/// The examples of the Unicode Standard for U+FFFD, tables 3-8 to 3-11.
TEST(replace, utf8_by_maximal_subparts) {
  expect_replaced(to_utf32("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"),
                  units32({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 'A'}), 8, 0);
  expect_replaced(to_utf32("\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"),
                  units32({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 'A'}), 8, 0);
  expect_replaced(to_utf32("\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42"),
                  units32({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 'A', 0xFFFD, 0xFFFD, 'B'}), 7, 0);
  expect_replaced(to_utf32("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"),
                  units32({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 'A'}), 4, 0);
}

TEST(replace, every_lone_surrogate_of_utf16_by_itself) {
  expect_replaced(to_utf8(units16({'a', 0xD800, 'b', 0xDC00, 0xDBFF})),
                  ustring8("a\xEF\xBF\xBD"
                           "b\xEF\xBF\xBD\xEF\xBF\xBD"),
                  3, 1);
  expect_replaced(to_utf32(units16({0xDC00, 0xD800})), units32({0xFFFD, 0xFFFD}), 2, 0);
}

TEST(replace, utf32_that_is_no_code_point) {
  expect_replaced(to_utf8(units32({'a', 0x110000, 0xDFFF, 'b'})),
                  ustring8("a\xEF\xBF\xBD\xEF\xBF\xBD"
                           "b"),
                  2, 1);
  expect_replaced(to_utf16(units32({0xFFFFFFFF})), units16({0xFFFD}), 1, 0);
}

TEST(replace, text_of_the_same_width_too) {
  expect_replaced(to_utf8("a\x80"
                          "b\xFF"),
                  ustring8("a\xEF\xBF\xBD"
                           "b\xEF\xBF\xBD"),
                  2, 1);
  expect_replaced(to_utf16(units16({'a', 0xD800, 'b'})), units16({'a', 0xFFFD, 'b'}), 1, 1);
  expect_replaced(to_utf32(units32({0xD800, 'b'})), units32({0xFFFD, 'b'}), 1, 0);
}

TEST(replace, genuine_replacement_character_is_not_counted) {
  expect_good(to_utf16("\xEF\xBF\xBD"), units16({0xFFFD}));
}

TEST(stop, gives_what_is_before_and_says_where) {
  const auto found = to_utf16(
      "a\xE2\x82"
      "b",
      on_malformed::stop);
  EXPECT_EQ(found.text, units16({'a'}));
  EXPECT_EQ(found.replaced, 0u);
  EXPECT_EQ(found.first_malformed, (malformed_part{1, 2, malformation::cut_short}));
}

TEST(stop, well_formed_text_is_converted_whole) {
  const auto found = to_utf8(units16({0xD83D, 0xDE00}), on_malformed::stop);
  expect_good(found, ustring8("\xF0\x9F\x98\x80"));
}

/// Reads a text in pieces as a program that reads a file does: what is incomplete at the end of a piece goes
/// in front of the next one.
TEST(stop, text_is_converted_in_pieces_of_any_size) {
  const ustring8 whole("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80 and so on \xF0\x9F\x98\x80");
  for (std::size_t size = 1; size <= whole.size(); ++size) {
    ustring16 result;
    ustring8 pending;
    for (std::size_t i = 0; i < whole.size(); i += size) {
      pending += whole.substr(i, size);
      const auto found = to_utf16(pending, on_malformed::stop);
      result += found.text;
      const auto rest =
          found.first_malformed.value_or(malformed_part{pending.size(), 0, malformation::incomplete});
      ASSERT_EQ(rest.kind, malformation::incomplete);
      pending.erase(0, rest.offset);
    }
    EXPECT_EQ(result, to_utf16(whole).text) << size;
    EXPECT_TRUE(pending.empty());
  }
}

/// One text in the three encodings, by the second implementation.
struct text_in_three {
  ustring8 text8;
  ustring16 text16;
  ustring32 text32;

  void add(std::uint32_t code_point) {
    reference::append(text8, static_cast<long>(code_point));
    reference::append(text16, static_cast<long>(code_point));
    reference::append(text32, static_cast<long>(code_point));
  }
};

template <typename Unit>
bool gives_each_encoding(const basic_ustring<Unit>& source, const text_in_three& expected) {
  const auto as8 = to_utf8(source);
  const auto as16 = to_utf16(source);
  const auto as32 = to_utf32(source);
  return !as8.first_malformed && !as16.first_malformed && !as32.first_malformed &&
         as8.text == expected.text8 && as16.text == expected.text16 && as32.text == expected.text32;
}

bool crosses_every_way(const text_in_three& text) {
  return gives_each_encoding(text.text8, text) && gives_each_encoding(text.text16, text) &&
         gives_each_encoding(text.text32, text);
}

bool is_surrogate(std::uint32_t value) { return value >= 0xD800 && value < 0xE000; }

TEST(standard_transforms, every_code_point_in_long_texts_crosses_every_way) {
  constexpr std::uint32_t together = 97;
  for (std::uint32_t first = 0; first < 0x110000; first += together) {
    text_in_three text;
    for (std::uint32_t i = first; i < std::min<std::uint32_t>(first + together, 0x110000); ++i) {
      if (!is_surrogate(i)) text.add(i);
    }
    ASSERT_TRUE(crosses_every_way(text)) << first;
  }
}

TEST(standard_transforms, every_code_point_of_the_basic_plane_alone_crosses_every_way) {
  for (std::uint32_t i = 0; i < 0x10000; ++i) {
    if (is_surrogate(i)) continue;
    text_in_three text;
    text.add(i);
    ASSERT_TRUE(crosses_every_way(text)) << i;
  }
}

TEST(standard_transforms, every_surrogate_is_replaced_whatever_the_encoding) {
  for (std::uint32_t i = 0xD800; i < 0xE000; ++i) {
    text_in_three text;
    text.add(i);
    ASSERT_TRUE(agrees<char>(text.text8)) << i;
    ASSERT_TRUE(agrees<code_unit16>(text.text16)) << i;
    ASSERT_TRUE(agrees<code_unit32>(text.text32)) << i;
  }
}

TEST(standard_transforms, text_cut_at_every_length_as_the_reference) {
  text_in_three text;
  for (int i = 0; i < 30; ++i) {
    for (const std::uint32_t code_point : {0x61u, 0xE4u, 0x20ACu, 0x1F600u, 0x20u, 0x430u, 0xFFFFu}) {
      text.add(code_point);
    }
  }
  for (std::size_t size = 0; size <= text.text8.size(); ++size) {
    ASSERT_TRUE(agrees<char>(text.text8.substr(0, size)));
    ASSERT_TRUE(agrees<code_unit16>(text.text16.substr(0, size)));
    ASSERT_TRUE(agrees<code_unit32>(text.text32.substr(0, size)));
  }
}

ustring8 bytes(std::initializer_list<int> values) {
  ustring8 text;
  for (const int value : values) text.push_back(static_cast<char>(static_cast<unsigned char>(value)));
  return text;
}

TEST(standard_transforms, four_bytes_of_each_class_as_the_reference) {
  constexpr std::array leads = {0x41, 0x80, 0xC0, 0xC2, 0xE0, 0xE1, 0xED, 0xF0, 0xF1, 0xF4, 0xF5, 0xFF};
  constexpr std::array others = {0x41, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC2, 0xE0};
  for (const int first : leads) {
    for (const int second : others) {
      for (const int third : others) {
        for (const int fourth : others) {
          ASSERT_TRUE(agrees<char>(bytes({first, second, third, fourth})));
        }
      }
    }
  }
}

/// A text of one kind of character with a fault at each offset.
template <typename Text>
void expect_agreement_around(const std::vector<Text>& fillers, const std::vector<Text>& faults) {
  for (const Text& filler : fillers) {
    Text text;
    while (text.size() < 200) text += filler;
    for (const Text& fault : faults) {
      for (std::size_t offset = 0; offset <= 80; ++offset) {
        for (const std::size_t after : {0u, 2u, 35u}) {
          ASSERT_TRUE(
              agrees<typename Text::value_type>(text.substr(0, offset) + fault + text.substr(0, after)));
        }
      }
    }
  }
}

TEST(standard_transforms, odd_bytes_at_every_offset_as_the_reference) {
  expect_agreement_around<ustring8>({"a", "\xC3\xA4", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
                                    {"\x80", "\xE2\x82", "\xFF\xFF", "\xED\xA0\x80", "\xF4\x90\x80\x80"});
}

TEST(standard_transforms, odd_units_of_utf16_at_every_offset_as_the_reference) {
  expect_agreement_around<ustring16>(
      {units16({'a'}), units16({0xD83D, 0xDE00}), units16({'a', 0x20AC, 0xD800, 0xDC00})},
      {units16({0xD800}), units16({0xDC00}), units16({0xDC00, 0xD800}), units16({0xFFFF})});
}

TEST(standard_transforms, odd_units_of_utf32_at_every_offset_as_the_reference) {
  expect_agreement_around<ustring32>(
      {units32({'a'}), units32({0x1F600}), units32({'a', 0x20AC, 0x10000})},
      {units32({0xD800}), units32({0x110000}), units32({0xFFFFFFFF, 0x80000041}), units32({0xFFFF})});
}

TEST(standard_transforms, text_of_nothing_but_faults_is_replaced_whole) {
  for (const std::size_t size : {1u, 31u, 32u, 100u, 600u, 5000u}) {
    EXPECT_EQ(to_utf16(ustring8(size, '\xFF')).text, ustring16(size, static_cast<code_unit16>(0xFFFD)));
    EXPECT_EQ(to_utf32(ustring8(size, '\x80')).replaced, size);
    EXPECT_EQ(to_utf8(ustring8(size, '\xC0')).text.size(), 3 * size);
    EXPECT_EQ(to_utf8(ustring16(size, static_cast<code_unit16>(0xDC00))).text.size(), 3 * size);
    EXPECT_EQ(to_utf16(ustring32(size, static_cast<code_unit32>(0x110000))).replaced, size);
  }
}

std::uint32_t random_code_point(orva_test::random_engine& random, std::size_t kind) {
  constexpr std::array<std::array<std::uint32_t, 2>, 5> kinds = {
      {{0, 0x7F}, {0x80, 0x7FF}, {0x800, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}}};
  const auto [low, high] = kinds[kind];
  return low + static_cast<std::uint32_t>(random() % (high - low + 1));
}

/// Runs of characters of one kind, of random lengths.
text_in_three random_text(orva_test::random_engine& random) {
  text_in_three text;
  const std::size_t size = random() % 1500;
  while (text.text32.size() < size) {
    const std::size_t kind = random() % 5;
    for (auto left = random() % 60; left > 0; --left) text.add(random_code_point(random, kind));
  }
  return text;
}

TEST(standard_transforms, random_text_crosses_every_way) {
  orva_test::random_engine random;
  for (int round = 0; round < 300; ++round) ASSERT_TRUE(crosses_every_way(random_text(random)));
}

TEST(standard_transforms, random_text_with_faults_as_the_reference) {
  orva_test::random_engine random;
  for (int round = 0; round < 100; ++round) {
    text_in_three text = random_text(random);
    if (text.text32.empty()) continue;
    for (auto faults = 1 + random() % 4; faults > 0; --faults) {
      text.text8[random() % text.text8.size()] =
          static_cast<char>(static_cast<unsigned char>(random() & 0xFF));
      text.text16[random() % text.text16.size()] = static_cast<code_unit16>(0xD800 + random() % 0x800);
      text.text32[random() % text.text32.size()] = static_cast<code_unit32>(random() & 0xFFFFFFFF);
    }
    ASSERT_TRUE(agrees<char>(text.text8));
    ASSERT_TRUE(agrees<code_unit16>(text.text16));
    ASSERT_TRUE(agrees<code_unit32>(text.text32));
  }
}

TEST(standard_transforms, what_is_replaced_is_well_formed_and_converts_back) {
  orva_test::random_engine random;
  for (int round = 0; round < 2000; ++round) {
    ustring8 noise(random() % 100, '\0');
    for (char& byte : noise) byte = static_cast<char>(static_cast<unsigned char>(random() & 0xFF));
    const auto repaired = to_utf8(noise);
    ASSERT_TRUE(is_well_formed(repaired.text));
    ASSERT_EQ(repaired.replaced == 0, is_well_formed(noise));
    ASSERT_EQ(to_utf8(to_utf16(noise).text).text, repaired.text);
    ASSERT_EQ(to_utf8(to_utf32(noise).text).text, repaired.text);
  }
}

}  // namespace
