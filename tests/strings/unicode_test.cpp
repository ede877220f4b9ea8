#include "orva/strings/unicode.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <type_traits>

#include "orva/orva.hpp"

namespace {

using namespace orva::strings;

template <typename Unit>
basic_ustring<Unit> units(std::initializer_list<unsigned long> values) {
  basic_ustring<Unit> text;
  for (const auto value : values) text.push_back(static_cast<Unit>(value));
  return text;
}

ustring16 units16(std::initializer_list<unsigned long> values) { return units<code_unit16>(values); }
ustring32 units32(std::initializer_list<unsigned long> values) { return units<code_unit32>(values); }

const ustring16 failed16 = units16({'-', '1'});
const ustring32 failed32 = units32({'-', '1'});

TEST(unicode, empty_text_gives_empty_text) {
  EXPECT_EQ(utf8_to_utf16(ustring8()), ustring16());
  EXPECT_EQ(utf8_to_utf32(ustring8()), ustring32());
  EXPECT_EQ(utf16_to_utf8(ustring16()), ustring8());
  EXPECT_EQ(utf16_to_utf32(ustring16()), ustring32());
  EXPECT_EQ(utf32_to_utf8(ustring32()), ustring8());
  EXPECT_EQ(utf32_to_utf16(ustring32()), ustring16());
}

TEST(unicode, takes_the_standard_string_and_the_literal_of_its_width) {
  EXPECT_EQ(utf8_to_utf16("a"), units16({'a'}));
  EXPECT_EQ(utf8_to_utf16(std::string("a")), units16({'a'}));
  EXPECT_EQ(utf16_to_utf8(wide_string(1, code_unit16{'a'})), "a");
  EXPECT_EQ(utf32_to_utf8(std::basic_string<code_unit32>(1, code_unit32{'a'})), "a");
}

TEST(unicode, each_width_of_character_crosses_every_way) {
  const ustring8 text8("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
  const ustring16 text16 = units16({'a', 0xE4, 0x20AC, 0xD83D, 0xDE00});
  const ustring32 text32 = units32({'a', 0xE4, 0x20AC, 0x1F600});
  EXPECT_EQ(utf8_to_utf16(text8), text16);
  EXPECT_EQ(utf8_to_utf32(text8), text32);
  EXPECT_EQ(utf16_to_utf8(text16), text8);
  EXPECT_EQ(utf16_to_utf32(text16), text32);
  EXPECT_EQ(utf32_to_utf8(text32), text8);
}

TEST(unicode, zero_unit_is_a_character) {
  const ustring8 text("a\0b", 3);
  EXPECT_EQ(utf8_to_utf16(text), units16({'a', 0, 'b'}));
  EXPECT_EQ(utf8_to_utf32(text), units32({'a', 0, 'b'}));
  EXPECT_EQ(utf16_to_utf8(units16({'a', 0, 'b'})), text);
  EXPECT_EQ(utf32_to_utf8(units32({'a', 0, 'b'})), text);
  EXPECT_EQ(utf32_to_utf16(units32({'a', 0, 'b'})), units16({'a', 0, 'b'}));
  EXPECT_EQ(utf16_to_utf32(units16({'a', 0, 'b'})), units32({'a', 0, 'b'}));
}

struct utf8_row {
  const char* name;
  ustring8 text;
  ustring16 as_utf16;
  ustring32 as_utf32;
};

class malformed_utf8 : public testing::TestWithParam<utf8_row> {};

TEST_P(malformed_utf8, gives) {
  EXPECT_EQ(utf8_to_utf16(GetParam().text), GetParam().as_utf16);
  EXPECT_EQ(utf8_to_utf32(GetParam().text), GetParam().as_utf32);
}

std::string row_name(const testing::TestParamInfo<utf8_row>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(
    invalid, malformed_utf8,
    testing::Values(utf8_row{"stray_continuation", "a\x80z", failed16, units32({'a', '?', 'z'})},
                    utf8_row{"two_strays", "\x80\xBF", failed16, units32({'?', '?'})},
                    utf8_row{"lead_of_two_then_letter", "\xC3z", failed16, units32({'?', 'z'})},
                    utf8_row{"lead_of_three_then_letter", "\xE2z", failed16, units32({'?', 'z'})},
                    utf8_row{"three_cut_by_letter", "\xE2\x82z", failed16, units32({'?', '?', 'z'})},
                    utf8_row{"four_cut_by_letter", "\xF0\x9F\x98z", failed16, units32({'?', '?', '?', 'z'})},
                    utf8_row{"two_cut_by_end", "a\xC3", failed16, units32({'a', '?'})},
                    utf8_row{"three_cut_by_end", "a\xE2\x82", failed16, units32({'a', '?', '?'})},
                    utf8_row{"four_cut_by_end", "a\xF0\x9F\x98", failed16, units32({'a', '?', '?', '?'})},
                    utf8_row{"lead_then_lead", "\xE2\xC3\xA4", failed16, units32({'?', 0xE4})},
                    utf8_row{"lead_of_five", "\xF8\x80\x80\x80\x80", failed16,
                             units32({'?', '?', '?', '?', '?'})},
                    utf8_row{"byte_ff", "\xFF", failed16, units32({'?'})},
                    utf8_row{"byte_fe", "\xFE", failed16, units32({'?'})},
                    utf8_row{"cut_by_zero", ustring8("\xC3\0z", 3), failed16, units32({'?', 0, 'z'})}),
    row_name);

INSTANTIATE_TEST_SUITE_P(
    taken_by_arithmetic, malformed_utf8,
    testing::Values(
        utf8_row{"overlong_two", "\xC0\x80", units16({0}), units32({0})},
        utf8_row{"overlong_three", "\xE0\x80\xAF", units16({0x2F}), units32({0x2F})},
        utf8_row{"encoded_high_surrogate", "\xED\xA0\x80", units16({0xD800}), units32({0xD800})},
        utf8_row{"encoded_low_surrogate", "\xED\xBF\xBF", units16({0xDFFF}), units32({0xDFFF})},
        utf8_row{"overlong_four", "\xF0\x80\x80\x80", units16({0xD7C0, 0xDC00}), units32({0})},
        utf8_row{"above_unicode", "\xF4\x90\x80\x80", units16({0xDC00, 0xDC00}), units32({0x110000})},
        utf8_row{"largest_four", "\xF7\xBF\xBF\xBF", units16({0xDFBF, 0xDFFF}), units32({0x1FFFFF})},
        utf8_row{"last_of_unicode", "\xF4\x8F\xBF\xBF", units16({0xDBFF, 0xDFFF}), units32({0x10FFFF})}),
    row_name);

TEST(utf8_to_utf16, one_bad_byte_fails_a_text_of_any_length) {
  for (const std::size_t size : {1u, 100u, 1000u, 100000u}) {
    ustring8 text(size, 'x');
    text.back() = '\x80';
    EXPECT_EQ(utf8_to_utf16(text), failed16);
    EXPECT_EQ(utf8_to_utf32(text).back(), static_cast<code_unit32>('?'));
    EXPECT_EQ(utf8_to_utf32(text).size(), size);
  }
}

TEST(utf16_to_utf8, leading_mark_stays_as_its_three_bytes) {
  EXPECT_EQ(utf16_to_utf8(units16({0xFEFF, 'a'})),
            "\xEF\xBB\xBF"
            "a");
  EXPECT_EQ(utf16_to_utf32(units16({0xFEFF, 'a'})), units32({0xFEFF, 'a'}));
}

TEST(utf16_to_utf8, unpaired_surrogate_at_any_position_gives_minus_one) {
  for (const auto unit : {0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
    for (std::size_t position = 0; position < 5; ++position) {
      ustring16 text = units16({'a', 'b', 'c', 'd', 'e'});
      text[position] = static_cast<code_unit16>(unit);
      EXPECT_EQ(utf16_to_utf8(text), "-1");
      EXPECT_EQ(utf16_to_utf32(text), failed32);
    }
  }
}

TEST(utf16_to_utf8, swapped_pair_gives_minus_one) {
  EXPECT_EQ(utf16_to_utf8(units16({0xDE00, 0xD83D})), "-1");
  EXPECT_EQ(utf16_to_utf32(units16({0xDE00, 0xD83D})), failed32);
}

TEST(utf16_to_utf8, noncharacter_ffff_is_a_character) {
  EXPECT_EQ(utf16_to_utf8(units16({0xFFFF})), "\xEF\xBF\xBF");
}

TEST(utf32_to_utf8, surrogate_gives_minus_one) {
  EXPECT_EQ(utf32_to_utf8(units32({'a', 0xD800})), "-1");
  EXPECT_EQ(utf32_to_utf8(units32({0xDFFF, 'a'})), "-1");
  EXPECT_EQ(utf32_to_utf8(units32({0x110000, 0xDC00})), "-1");
}

TEST(utf32_to_utf8, unit_above_unicode_is_dropped) {
  EXPECT_EQ(utf32_to_utf8(units32({0x110000})), "");
  EXPECT_EQ(utf32_to_utf8(units32({'a', 0x110000, 'b', 0xFFFFFFFF, 'c'})), "abc");
}

TEST(utf32_to_utf16, surrogate_or_value_above_unicode_gives_minus_one) {
  EXPECT_EQ(utf32_to_utf16(units32({'a', 0xD800})), failed16);
  EXPECT_EQ(utf32_to_utf16(units32({0xDFFF})), failed16);
  EXPECT_EQ(utf32_to_utf16(units32({0x110000})), failed16);
  EXPECT_EQ(utf32_to_utf16(units32({'a', 0xFFFFFFFF})), failed16);
}

TEST(utf32_to_utf16, pair_is_made_without_subtracting_0x10000) {
  EXPECT_EQ(utf32_to_utf16(units32({0x10000})), units16({0xD840, 0xDC00}));
  EXPECT_EQ(utf32_to_utf16(units32({0x1F600})), units16({0xD87D, 0xDE00}));
  EXPECT_EQ(utf32_to_utf16(units32({0x10FFFF})), units16({0xDC3F, 0xDFFF}));
}

TEST(utf32_to_utf16, ffff_becomes_a_pair) {
  EXPECT_EQ(utf32_to_utf16(units32({0xFFFF})), units16({0xD83F, 0xDFFF}));
  EXPECT_EQ(utf32_to_utf16(units32({0xFFFE})), units16({0xFFFE}));
}

TEST(byte_order_mark, is_one_character_in_each_width) {
  EXPECT_EQ(byte_order_mark<char>, "\xEF\xBB\xBF");
  EXPECT_EQ(byte_order_mark<code_unit16>, utf8_to_utf16(ustring8(byte_order_mark<char>)));
  EXPECT_EQ(byte_order_mark<code_unit32>, utf8_to_utf32(ustring8(byte_order_mark<char>)));
  EXPECT_EQ(byte_order_mark<code_unit16>, units16({0xFEFF}));
  EXPECT_EQ(swapped_byte_order_mark, 0xFFFE);
}

template <typename Text>
class remove_mark : public testing::Test {};
using every_class = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(remove_mark, every_class);

TYPED_TEST(remove_mark, takes_one_leading_mark_away) {
  using unit = typename TypeParam::value_type;
  const TypeParam mark(byte_order_mark<unit>);
  const TypeParam word = units<unit>({'a', 'b', 'c', 'd'});
  EXPECT_EQ(remove_BOM(mark), TypeParam());
  EXPECT_EQ(remove_BOM(mark + word), word);
  EXPECT_EQ(remove_BOM(mark + mark + word), mark + word);
  EXPECT_EQ(remove_BOM(word + mark), word + mark);
  EXPECT_EQ(remove_BOM(word), word);
  EXPECT_EQ(remove_BOM(TypeParam()), TypeParam());
}

TEST(remove_BOM, text_shorter_than_the_mark_stays) {
  EXPECT_EQ(remove_BOM(ustring8("\xEF\xBB")), "\xEF\xBB");
  EXPECT_EQ(remove_BOM(ustring8("\xEF\xBB"
                                "a")),
            "\xEF\xBB"
            "a");
}

TEST(remove_BOM, swapped_mark_stays) {
  EXPECT_EQ(remove_BOM(units16({0xFFFE, 'a'})), units16({0xFFFE, 'a'}));
}

TEST(modify_swap_string_bytes_order, swaps_every_unit_and_twice_restores) {
  ustring16 text = units16({0xFEFF, 0x0061, 0x20AC, 0, 0xD83D});
  const ustring16 original = text;
  modify_swap_string_bytes_order(text);
  EXPECT_EQ(text, units16({0xFFFE, 0x6100, 0xAC20, 0, 0x3DD8}));
  modify_swap_string_bytes_order(text);
  EXPECT_EQ(text, original);
}

TEST(modify_swap_string_bytes_order, text_without_a_mark_is_swapped_too) {
  ustring16 text = units16({0x1234});
  modify_swap_string_bytes_order(text);
  EXPECT_EQ(text, units16({0x3412}));
  ustring16 empty;
  modify_swap_string_bytes_order(empty);
  EXPECT_EQ(empty, ustring16());
}

TEST(swap_string_bytes_order, gives_its_argument_back_unswapped) {
  for (const ustring16& text :
       {units16({0xFFFE, 0x6100}), units16({0xFEFF, 'a'}), units16({0x1234}), ustring16()}) {
    EXPECT_EQ(swap_string_bytes_order(text), text);
  }
}

TEST(check_BOM_and_modify_swap, swaps_text_that_begins_with_the_swapped_mark) {
  ustring16 text = units16({0xFFFE, 0x6100, 0xFFFE});
  check_BOM_and_modify_swap(text);
  EXPECT_EQ(text, units16({0xFEFF, 'a', 0xFEFF}));
  wide_string wide = units16({0xFFFE, 0x6100});
  check_BOM_and_modify_swap(wide);
  EXPECT_EQ(wide, units16({0xFEFF, 'a'}));
}

TEST(check_BOM_and_modify_swap, leaves_any_other_text_alone) {
  for (const ustring16& original : {units16({0xFEFF, 'a'}), units16({'a', 0xFFFE}), ustring16()}) {
    ustring16 text = original;
    check_BOM_and_modify_swap(text);
    EXPECT_EQ(text, original);
    wide_string wide = original;
    check_BOM_and_modify_swap(wide);
    EXPECT_EQ(wide, original);
  }
}

TEST(check_BOM_and_swap, gives_its_argument_back_unswapped) {
  for (const ustring16& text : {units16({0xFFFE, 0x6100}), units16({0xFEFF, 'a'}), ustring16()}) {
    EXPECT_EQ(check_BOM_and_swap(text), text);
    EXPECT_EQ(check_BOM_and_swap(static_cast<const wide_string&>(text)), text);
  }
  static_assert(std::is_same_v<decltype(check_BOM_and_swap(ustring16())), ustring16>);
  static_assert(std::is_same_v<decltype(check_BOM_and_swap(wide_string())), wide_string>);
}

TEST(unicode, result_wastes_little_memory) {
  const ustring8 three_bytes = [] {
    ustring8 text;
    for (int i = 0; i < 100000; ++i) text += "\xE2\x82\xAC";
    return text;
  }();
  const ustring16 text16 = utf8_to_utf16(three_bytes);
  EXPECT_LE(text16.capacity(), text16.size() * 4 / 3);
  EXPECT_LE(utf8_to_utf32(three_bytes).capacity(), text16.size() * 4 / 3);
  const ustring8 ascii(100000, 'a');
  EXPECT_LE(utf16_to_utf8(utf8_to_utf16(ascii)).capacity(), ascii.size() * 4 / 3);
  EXPECT_LE(utf32_to_utf8(utf8_to_utf32(ascii)).capacity(), ascii.size() * 4 / 3);
  EXPECT_LE(utf32_to_utf16(utf8_to_utf32(ascii)).capacity(), ascii.size() * 4 / 3);
}

}  // namespace
