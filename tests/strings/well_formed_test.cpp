#include "orva/strings/well_formed.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/standard_transforms_agree.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace orva::strings;
using orva_test::agrees_on_malformed;
using orva_test::units16;
using orva_test::units32;

ustring8 bytes(std::initializer_list<int> values) {
  ustring8 text;
  for (const int value : values) text.push_back(static_cast<char>(static_cast<unsigned char>(value)));
  return text;
}

TEST(well_formed, documentation_example) {
  EXPECT_TRUE(is_well_formed("gr\xC3\xBC\xC3\x9F"));
  const auto bad = first_malformed("abc\xE2\x82!");
  ASSERT_TRUE(bad);
  EXPECT_EQ(bad->offset, 3u);
  EXPECT_EQ(bad->length, 2u);
  EXPECT_EQ(bad->kind, malformation::cut_short);
}

TEST(well_formed, takes_text_of_every_type_and_width) {
  EXPECT_TRUE(is_well_formed("a"));
  EXPECT_TRUE(is_well_formed(std::string("a")));
  EXPECT_TRUE(is_well_formed(std::string_view("a")));
  EXPECT_TRUE(is_well_formed(ustring8("a")));
  EXPECT_TRUE(is_well_formed(u8"\u20AC"));
  EXPECT_TRUE(is_well_formed(std::u8string_view(u8"\u20AC")));
  EXPECT_TRUE(is_well_formed(std::u8string(u8"\u20AC")));
  EXPECT_TRUE(is_well_formed(u"\U0001F600"));
  EXPECT_TRUE(is_well_formed(std::u16string_view(u"\U0001F600")));
  EXPECT_TRUE(is_well_formed(U"\U0001F600"));
  EXPECT_TRUE(is_well_formed(std::u32string(U"\U0001F600")));
  EXPECT_TRUE(is_well_formed(units16({0xD83D, 0xDE00})));
  EXPECT_TRUE(is_well_formed(wide_string(units16({0xD83D, 0xDE00}))));
  EXPECT_TRUE(is_well_formed(units32({0x1F600})));
  EXPECT_FALSE(is_well_formed(std::u8string(1, static_cast<char8_t>(0x80))));
  EXPECT_FALSE(is_well_formed(std::u16string(1, static_cast<char16_t>(0xD800))));
  EXPECT_FALSE(is_well_formed(std::u32string(1, static_cast<char32_t>(0x110000))));
  static_assert(std::is_convertible_v<std::wstring, text_view> == wchar_is_utf16);
  static_assert(!std::is_convertible_v<int, text_view> && !std::is_convertible_v<const void*, text_view>);
}

TEST(well_formed, empty_text_and_zero_units_are) {
  EXPECT_TRUE(is_well_formed(""));
  EXPECT_TRUE(is_well_formed(std::string_view()));
  EXPECT_TRUE(is_well_formed(ustring16()));
  EXPECT_TRUE(is_well_formed(ustring32()));
  EXPECT_TRUE(is_well_formed(std::string_view("a\0b", 3)));
  EXPECT_EQ(first_malformed(std::string_view("\0\x80", 2))->offset, 1u);
}

TEST(well_formed, marks_and_noncharacters_are) {
  for (const std::uint32_t value : {0xFEFFu, 0xFFFEu, 0xFFFFu, 0xFDD0u, 0x1FFFEu, 0x10FFFFu}) {
    const ustring32 text = units32({value, 'a', value});
    EXPECT_TRUE(is_well_formed(text)) << value;
    EXPECT_TRUE(is_well_formed(to_utf8(text).text)) << value;
    EXPECT_TRUE(is_well_formed(to_utf16(text).text)) << value;
  }
}

struct malformed_row {
  ustring8 text;
  malformed_part expected;
};

TEST(first_malformed, names_place_length_and_kind_in_utf8) {
  using enum malformation;
  const std::vector<malformed_row> rows = {
      {"ab\x80", {2, 1, stray_continuation}},
      {"\xC3\xA4\xA4", {2, 1, stray_continuation}},
      {"a\xF8\x80\x80\x80\x80", {1, 1, invalid_byte}},
      {"\xFE", {0, 1, invalid_byte}},
      {"\xFF", {0, 1, invalid_byte}},
      {"\xC0\x80", {0, 1, overlong}},
      {"\xC1", {0, 1, overlong}},
      {"\xE0\x9F\xBF", {0, 1, overlong}},
      {"\xF0\x8F\xBF\xBF", {0, 1, overlong}},
      {"\xED\xA0\x80", {0, 1, surrogate}},
      {"\xED\xBF\xBF", {0, 1, surrogate}},
      {"\xF4\x90\x80\x80", {0, 1, too_large}},
      {"\xF5\x80\x80\x80", {0, 1, too_large}},
      {"\xF7", {0, 1, too_large}},
      {"\xC3"
       "a",
       {0, 1, cut_short}},
      {"\xE2\x82"
       "a",
       {0, 2, cut_short}},
      {"\xE0\xA0\xE0", {0, 2, cut_short}},
      {"\xF0\x9F\x98\xC3\xA4", {0, 3, cut_short}},
      {"\xF1\x80\xE1\x80\xC2\x80", {0, 2, cut_short}},
      {"a\xC3", {1, 1, incomplete}},
      {"a\xE2\x82", {1, 2, incomplete}},
      {"\xE0", {0, 1, incomplete}},
      {"\xF0\x9F\x98", {0, 3, incomplete}},
      {"\xF4\x8F\xBF", {0, 3, incomplete}},
  };
  for (const auto& [text, expected] : rows) {
    const auto found = first_malformed(text);
    ASSERT_TRUE(found) << testing::PrintToString(text);
    EXPECT_TRUE(*found == expected) << testing::PrintToString(text) << " gives " << found->offset << ", "
                                    << found->length << ", " << static_cast<int>(found->kind);
  }
}

TEST(first_malformed, names_place_and_kind_in_utf16) {
  using enum malformation;
  EXPECT_EQ(first_malformed(units16({'a', 0xDC00})), (malformed_part{1, 1, surrogate}));
  EXPECT_EQ(first_malformed(units16({0xD800, 'a'})), (malformed_part{0, 1, surrogate}));
  EXPECT_EQ(first_malformed(units16({0xD800, 0xD800, 0xDC00})), (malformed_part{0, 1, surrogate}));
  EXPECT_EQ(first_malformed(units16({0xD800, 0xDC00, 0xDC00})), (malformed_part{2, 1, surrogate}));
  EXPECT_EQ(first_malformed(units16({0xD800, 0xDC00, 0xDBFF})), (malformed_part{2, 1, incomplete}));
}

TEST(first_malformed, names_place_and_kind_in_utf32) {
  using enum malformation;
  EXPECT_EQ(first_malformed(units32({'a', 0xD800})), (malformed_part{1, 1, surrogate}));
  EXPECT_EQ(first_malformed(units32({0xDFFF})), (malformed_part{0, 1, surrogate}));
  EXPECT_EQ(first_malformed(units32({'a', 'b', 0x110000})), (malformed_part{2, 1, too_large}));
  EXPECT_EQ(first_malformed(units32({0xFFFFFFFF})), (malformed_part{0, 1, too_large}));
  EXPECT_EQ(first_malformed(units32({0x80000041})), (malformed_part{0, 1, too_large}));
}

TEST(first_malformed, piece_with_an_incomplete_end_goes_on_in_the_next_one) {
  const ustring8 whole("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z");
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const auto found = first_malformed(whole.substr(0, size));
    if (!found) continue;
    EXPECT_EQ(found->kind, malformation::incomplete);
    EXPECT_EQ(found->offset + found->length, size);
    EXPECT_TRUE(is_well_formed(whole.substr(found->offset)));
  }
}

TEST(well_formed, every_code_point_alone) {
  for (std::uint32_t value = 0; value < 0x110000; ++value) {
    const bool expected = value < 0xD800 || value >= 0xE000;
    ustring8 text8;
    reference::append(text8, static_cast<long>(value));
    ustring16 text16;
    reference::append(text16, static_cast<long>(value));
    ASSERT_EQ(is_well_formed(text8), expected) << value;
    ASSERT_EQ(is_well_formed(text16), expected) << value;
    ASSERT_EQ(is_well_formed(units32({value})), expected) << value;
  }
}

TEST(well_formed, utf32_values_above_unicode_are_not) {
  for (std::uint32_t value = 0x110000; value < 0x120000; ++value) {
    ASSERT_FALSE(is_well_formed(units32({value})));
  }
  for (std::uint32_t bit = 0x200000; bit != 0; bit <<= 1) {
    for (const std::uint32_t value : {bit - 1, bit, bit | 0x41, bit | 0x10FFFF, ~std::uint32_t{0} - bit}) {
      ASSERT_EQ(is_well_formed(units32({value})), value < 0x110000) << value;
    }
  }
}

TEST(well_formed, every_unit_of_utf16_beside_each_class) {
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    for (const std::uint32_t beside : {0x41u, 0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0xE000u}) {
      ASSERT_TRUE(agrees_on_malformed<code_unit16>(units16({unit, beside}))) << unit;
      ASSERT_TRUE(agrees_on_malformed<code_unit16>(units16({beside, unit}))) << unit;
    }
  }
}

TEST(well_formed, every_pair_of_bytes) {
  for (int first = 0; first < 256; ++first) {
    ASSERT_TRUE(agrees_on_malformed<char>(bytes({first})));
    for (int second = 0; second < 256; ++second) {
      ASSERT_TRUE(agrees_on_malformed<char>(bytes({first, second}))) << first << ' ' << second;
    }
  }
}

TEST(well_formed, four_bytes_of_each_class) {
  constexpr std::array leads = {0x7F, 0x80, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED,
                                0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF8, 0xFF};
  constexpr std::array others = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xE1, 0xF1};
  for (const int first : leads) {
    for (const int second : others) {
      for (const int third : others) {
        for (const int fourth : others) {
          ASSERT_TRUE(agrees_on_malformed<char>(bytes({first, second, third, fourth})));
        }
      }
    }
  }
}

/// The bytes of every character and of every beginning of one, which is a definition of its own: well-formed
/// is what encodes a code point that is no surrogate. Keys are the bytes as a number, the first one highest.
class every_encoding {
 public:
  every_encoding() {
    for (std::size_t length = 1; length <= longest; ++length) {
      characters_[length].resize(std::size_t{1} << 8 * length);
      beginnings_[length].resize(std::size_t{1} << 8 * length);
    }
    for (long value = 0; value < 0x110000; ++value) {
      if (value >= 0xD800 && value < 0xE000) continue;
      ustring8 text;
      reference::append(text, value);
      add(text);
    }
  }

  /// The offset and length of the first malformed part; the end of the text and 0 if there is none.
  std::array<std::size_t, 2> first_malformed(std::string_view text) const {
    std::size_t offset = 0;
    while (offset < text.size()) {
      std::size_t matched = 1;
      std::size_t length = 0;
      for (std::size_t size = 1; size <= text.size() - offset; ++size) {
        const std::size_t key = key_of(text.substr(offset, size));
        if (characters_[size][key]) length = size;
        if (beginnings_[size][key]) matched = size;
      }
      if (length == 0) return {offset, matched};
      offset += length;
    }
    return {offset, 0};
  }

 private:
  static constexpr std::size_t longest = 3;

  static std::size_t key_of(std::string_view text) {
    std::size_t key = 0;
    for (const char byte : text) key = key << 8 | static_cast<unsigned char>(byte);
    return key;
  }

  void add(std::string_view text) {
    for (std::size_t length = 1; length <= std::min(longest, text.size()); ++length) {
      auto& set = length == text.size() ? characters_ : beginnings_;
      set[length][key_of(text.substr(0, length))] = true;
    }
  }

  std::array<std::vector<bool>, longest + 1> characters_;
  std::array<std::vector<bool>, longest + 1> beginnings_;
};

class three_bytes : public testing::TestWithParam<int> {};

TEST_P(three_bytes, are_well_formed_where_they_encode_code_points) {
  const every_encoding encodings;
  std::array<char, 3> text{};
  const std::string_view view(text.data(), text.size());
  const auto byte = [](int value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  for (int first = GetParam(); first < GetParam() + 16; ++first) {
    text[0] = byte(first);
    for (int rest = 0; rest < 0x10000; ++rest) {
      text[1] = byte(rest >> 8);
      text[2] = byte(rest & 0xFF);
      const auto [offset, length] = encodings.first_malformed(view);
      const auto found = first_malformed(view).value_or(malformed_part{view.size(), 0, {}});
      ASSERT_TRUE(found.offset == offset && found.length == length) << first << ' ' << rest;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(of_every_lead, three_bytes, testing::Range(0, 256, 16));

/// Texts of `size` units of one kind with `odd` inserted at each offset.
template <typename Text>
void expect_agreement_around(const std::vector<Text>& fillers, const std::vector<Text>& odd_ones) {
  for (const Text& filler : fillers) {
    Text text;
    while (text.size() < 300) text += filler;
    for (const Text& odd : odd_ones) {
      for (std::size_t offset = 0; offset <= 140; ++offset) {
        for (const std::size_t after : {0u, 1u, 3u, 33u, 70u}) {
          const Text spoiled(text.substr(0, offset) + odd + text.substr(0, after));
          const orva_test::exact_copy<typename Text::value_type> copy(spoiled);
          ASSERT_TRUE(agrees_on_malformed(copy.view())) << testing::PrintToString(spoiled);
        }
      }
    }
  }
}

TEST(first_malformed, finds_odd_bytes_at_every_offset) {
  expect_agreement_around<ustring8>(
      {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
      {"", "\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xFF", "\xC0\x80", "\xE0\x9F\x80", "\xED\xA0\x80",
       "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF7\xBF\xBF\xBF"});
}

TEST(first_malformed, finds_odd_units_of_utf16_at_every_offset) {
  expect_agreement_around<ustring16>(
      {units16({'a'}), units16({0x20AC}), units16({0xD83D, 0xDE00}), units16({'a', 0xD800, 0xDC00})},
      {{},
       units16({0xD800}),
       units16({0xDBFF}),
       units16({0xDC00}),
       units16({0xDFFF}),
       units16({0xD7FF}),
       units16({0xE000}),
       units16({0xDC00, 0xD800}),
       units16({0xD83D, 0xDE00})});
}

TEST(first_malformed, finds_odd_units_of_utf32_at_every_offset) {
  expect_agreement_around<ustring32>({units32({'a'}), units32({0x10FFFF}), units32({0xD7FF, 0xE000})},
                                     {{},
                                      units32({0xD800}),
                                      units32({0xDFFF}),
                                      units32({0x110000}),
                                      units32({0x80000041}),
                                      units32({0xFFFFFFFF}),
                                      units32({0x1D800})});
}

TEST(first_malformed, random_bytes_and_units_as_the_reference) {
  orva_test::random_engine random;
  for (int round = 0; round < 3000; ++round) {
    ustring8 text8;
    ustring16 text16;
    ustring32 text32;
    const auto size = random() % 200;
    const auto spread = random() % 8;
    for (std::size_t i = 0; i < size; ++i) {
      const long value = static_cast<long>(random() % (spread == 0 ? 0x110000u : 0x80u << spread));
      reference::append(text8, value);
      reference::append(text16, value);
      reference::append(text32, value);
    }
    if (size != 0)
      text8[random() % text8.size()] = static_cast<char>(static_cast<unsigned char>(random() & 0xFF));
    ASSERT_TRUE(agrees_on_malformed<char>(text8));
    ASSERT_TRUE(agrees_on_malformed<code_unit16>(text16));
    ASSERT_TRUE(agrees_on_malformed<code_unit32>(text32));
  }
}

}  // namespace
