#include "orva/strings/characters.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/reference_unicode.hpp"

namespace {

using namespace orva::strings;
using orva::types::uint32;

constexpr uint32 none = 0xFFFFFFFF;

ustring16 units16(std::initializer_list<int> values) {
  ustring16 text;
  for (const int value : values) text.push_back(static_cast<code_unit16>(value));
  return text;
}

TEST(string_length, counts_code_units_not_characters) {
  EXPECT_EQ(string_length(ustring8("\xC3\xA4")), 2u);
  EXPECT_EQ(string_length(units16({0xD83D, 0xDE00})), 2u);
  EXPECT_EQ(string_length(ustring32{0x1F600}), 1u);
}

TEST(string_length, pointer_counts_up_to_the_terminator) {
  const code_unit16 text16[] = {'a', 0xFEFF, 0, 'x', 0};
  const code_unit32 text32[] = {'a', 0x1F600, 'c', 0, 'x', 0};
  EXPECT_EQ(string_length("a\xC3\xA4\0x"), 3u);
  EXPECT_EQ(string_length(""), 0u);
  EXPECT_EQ(string_length(text16), 2u);
  EXPECT_EQ(string_length(text32), 3u);
}

TEST(string_length, string_counts_past_a_zero_unit) {
  EXPECT_EQ(string_length(ustring8("a\0b", 3)), 3u);
  EXPECT_EQ(string_length(ustring16(4, code_unit16{})), 4u);
  EXPECT_EQ(string_length(ustring32(5, code_unit32{})), 5u);
}

TEST(string_length, takes_standard_strings_of_each_width) {
  EXPECT_EQ(string_length(std::string("abc")), 3u);
  EXPECT_EQ(string_length(wide_string(2, code_unit16{'a'})), 2u);
  EXPECT_EQ(string_length(std::basic_string<code_unit32>(1, code_unit32{'a'})), 1u);
}

TEST(character_index, zero_is_the_begin_of_any_text_but_an_empty_one) {
  EXPECT_EQ(character_index(ustring8(), 0), none);
  EXPECT_EQ(character_index(ustring16(), 0), none);
  EXPECT_EQ(character_index(ustring8("a"), 0), 0u);
  EXPECT_EQ(character_index(ustring8("\x80"), 0), 0u);
  EXPECT_EQ(character_index(units16({0xDC00}), 0), 0u);
}

struct index_row {
  const char* text;
  uint32 character;
  uint32 index;
};

class character_index_utf8 : public testing::TestWithParam<index_row> {};

TEST_P(character_index_utf8, is) {
  EXPECT_EQ(character_index(ustring8(GetParam().text), GetParam().character), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(mixed_widths, character_index_utf8,
                         testing::Values(index_row{"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 1, 1},
                                         index_row{"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 2, 3},
                                         index_row{"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 3, 6},
                                         index_row{"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 4, 10},
                                         index_row{"a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z", 5, 11}));
INSTANTIATE_TEST_SUITE_P(ascii, character_index_utf8,
                         testing::Values(index_row{"abc", 2, 2}, index_row{"abc", 3, none},
                                         index_row{"abc", 4, none}, index_row{"abc", none, none}));
INSTANTIATE_TEST_SUITE_P(malformed, character_index_utf8,
                         testing::Values(index_row{"a\x80z", 1, 1}, index_row{"a\x80z", 2, none},
                                         index_row{"\xE2\x82", 1, none}, index_row{"\xC3z", 1, none},
                                         index_row{"\xF8\x80\x80\x80\x80", 1, none},
                                         index_row{"\xF0\x9F\x98", 1, none}, index_row{"\xFFz", 1, none}));
INSTANTIATE_TEST_SUITE_P(overlong_and_too_large, character_index_utf8,
                         testing::Values(index_row{"\xC0\x80z", 1, 2}, index_row{"\xED\xA0\x80z", 1, 3},
                                         index_row{"\xF7\xBF\xBF\xBFz", 1, 4}));

TEST(character_index, number_of_characters_gives_the_end_where_it_is_less_than_the_units) {
  EXPECT_EQ(character_index(ustring8("a\xC3\xA4z"), 3), 4u);
  EXPECT_EQ(character_index(ustring8("abc"), 3), none);
}

TEST(character_index, steps_after_the_end_of_the_text_are_one_unit) {
  const ustring8 text("\xF0\x9F\x98\x80\xF0\x9F\x98\x80");
  EXPECT_EQ(character_index(text, 2), 8u);
  EXPECT_EQ(character_index(text, 3), 9u);
  EXPECT_EQ(character_index(text, 7), 13u);
  EXPECT_EQ(character_index(text, 8), none);
  const ustring16 pairs = units16({0xD83D, 0xDE00, 0xD83D, 0xDE00, 0xD83D, 0xDE00});
  EXPECT_EQ(character_index(pairs, 3), 6u);
  EXPECT_EQ(character_index(pairs, 5), 8u);
  EXPECT_EQ(character_index(pairs, 6), none);
}

TEST(character_index, far_after_the_text_nothing_is_read) {
  ustring8 text;
  ustring16 pairs;
  for (int i = 0; i < 1000; ++i) {
    text += "\xE2\x82\xAC";
    pairs += units16({0xD83D, 0xDE00});
  }
  EXPECT_EQ(character_index(text, 2999), 4999u);
  EXPECT_EQ(character_index(pairs, 1999), 2999u);
}

TEST(character_index, utf16_pair_counts_as_one) {
  const ustring16 text = units16({'a', 0xD83D, 0xDE00, 'z'});
  EXPECT_EQ(character_index(text, 1), 1u);
  EXPECT_EQ(character_index(text, 2), 3u);
  EXPECT_EQ(character_index(text, 3), 4u);
}

TEST(character_index, utf16_high_surrogate_without_its_low_one_is_none) {
  EXPECT_EQ(character_index(units16({0xD83D, 'a', 'b'}), 1), none);
  EXPECT_EQ(character_index(units16({'a', 0xD83D}), 1), 1u);
  EXPECT_EQ(character_index(units16({0xD83D, 0xD83D, 0xDE00}), 1), none);
  EXPECT_EQ(character_index(units16({0xD83D, 'b', 'c'}), 0), 0u);
}

TEST(character_index, utf16_low_surrogate_later_in_the_text_is_a_character) {
  EXPECT_EQ(character_index(units16({'a', 0xDC00, 'b', 'c'}), 3), 3u);
}

TEST(character_index, utf16_text_that_begins_with_a_low_surrogate_has_no_second_character) {
  EXPECT_EQ(character_index(units16({0xDC00, 'a', 'b'}), 1), none);
  EXPECT_EQ(character_index(units16({0xDC00, 'a', 'b'}), 2), none);
}

struct unichar_row {
  const char* text;
  uint32 length;
  uint32 position;
  uint32 character;
  uint32 step;
};

class unichar_utf8 : public testing::TestWithParam<unichar_row> {};

TEST_P(unichar_utf8, reads) {
  uint32 step = 77;
  EXPECT_EQ(unichar(GetParam().text, GetParam().length, GetParam().position, step), GetParam().character);
  EXPECT_EQ(step, GetParam().step);
}

INSTANTIATE_TEST_SUITE_P(each_length, unichar_utf8,
                         testing::Values(unichar_row{"a", 1, 0, 'a', 1}, unichar_row{"\x7F", 1, 0, 0x7F, 1},
                                         unichar_row{"\0", 1, 0, 0, 1},
                                         unichar_row{"\xC3\xA4", 2, 0, 0xE4, 2},
                                         unichar_row{"\xE2\x82\xAC", 3, 0, 0x20AC, 3},
                                         unichar_row{"\xF0\x9F\x98\x80", 4, 0, 0x1F600, 4},
                                         unichar_row{"ab\xC3\xA4", 4, 2, 0xE4, 2}));
INSTANTIATE_TEST_SUITE_P(nothing_rejected, unichar_utf8,
                         testing::Values(unichar_row{"\xC0\x80", 2, 0, 0, 2},
                                         unichar_row{"\xE0\x80\x80", 3, 0, 0, 3},
                                         unichar_row{"\xED\xA0\x80", 3, 0, 0xD800, 3},
                                         unichar_row{"\xF4\x90\x80\x80", 4, 0, 0x110000, 4},
                                         unichar_row{"\xF7\xBF\xBF\xBF", 4, 0, 0x1FFFFF, 4}));
INSTANTIATE_TEST_SUITE_P(
    failures, unichar_utf8,
    testing::Values(unichar_row{"a", 1, 1, 0x3F, none}, unichar_row{"a", 1, 2, 0x3F, none},
                    unichar_row{"a", 0, 0, 0x3F, none}, unichar_row{"a", 1, none, 0x3F, none},
                    unichar_row{"\xE2\x82", 2, 0, 0x3F, none}, unichar_row{"\xE2\x82\xAC", 2, 0, 0x3F, none},
                    unichar_row{"\xE2\x82z", 3, 0, 0x3F, none}, unichar_row{"\x80", 1, 0, 0x3F, none},
                    unichar_row{"\xBF", 1, 0, 0x3F, none},
                    unichar_row{"\xF8\x80\x80\x80\x80", 5, 0, 0x3F, none},
                    unichar_row{"\xFF", 1, 0, 0x3F, none}));

TEST(unichar_utf16, reads_units_and_pairs) {
  const ustring16 text = units16({'a', 0xD83D, 0xDE00, 0xFFFE, 0xE000});
  const auto length = string_length(text);
  uint32 step = 0;
  EXPECT_EQ(unichar(text.data(), length, 0, step), uint32{'a'});
  EXPECT_EQ(step, 1u);
  EXPECT_EQ(unichar(text.data(), length, 1, step), 0x1F600u);
  EXPECT_EQ(step, 2u);
  EXPECT_EQ(unichar(text.data(), length, 3, step), 0xFFFEu);
  EXPECT_EQ(step, 1u);
  EXPECT_EQ(unichar(text.data(), length, 4, step), 0xE000u);
  EXPECT_EQ(step, 1u);
}

TEST(unichar_utf16, unpaired_surrogate_fails) {
  const std::vector<ustring16> texts = {units16({0xD800}),         units16({0xD800, 'a'}),
                                        units16({0xD800, 0xD800}), units16({0xDBFF, 0xE000}),
                                        units16({0xDC00}),         units16({0xDFFF, 0xDC00})};
  for (const ustring16& text : texts) {
    uint32 step = 0;
    EXPECT_EQ(unichar(text.data(), string_length(text), 0, step), 0x3Fu);
    EXPECT_EQ(step, none);
  }
}

TEST(unichar_utf16, pair_cut_by_the_length_fails) {
  const ustring16 text = units16({0xD83D, 0xDE00});
  uint32 step = 0;
  EXPECT_EQ(unichar(text.data(), 1, 0, step), 0x3Fu);
  EXPECT_EQ(step, none);
}

TEST(unichar_utf16, position_at_the_length_fails) {
  uint32 step = 0;
  EXPECT_EQ(unichar(units16({'a'}).data(), 1, 1, step), 0x3Fu);
  EXPECT_EQ(step, none);
}

TEST(unichar_utf32, any_value_is_a_character) {
  const ustring32 text{'a', 0xD800, 0x110000, 0xFFFFFFFF};
  for (uint32 i = 0; i < text.size(); ++i) {
    uint32 step = 0;
    EXPECT_EQ(unichar(text.data(), 4, i, step), static_cast<uint32>(text[i]));
    EXPECT_EQ(step, 1u);
  }
}

TEST(unichar_utf32, position_at_the_length_fails) {
  uint32 step = 0;
  EXPECT_EQ(unichar(ustring32{'a'}.data(), 1, 1, step), 0x3Fu);
  EXPECT_EQ(step, none);
}

TEST(unichar, walks_a_text_to_its_end) {
  const ustring8 text("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
  std::vector<uint32> characters;
  uint32 step = 0;
  for (uint32 i = 0; i < text.size(); i += step) {
    characters.push_back(unichar(text.data(), string_length(text), i, step));
  }
  EXPECT_EQ(characters, (std::vector<uint32>{'a', 0xE4, 0x20AC, 0x1F600}));
}

}  // namespace
