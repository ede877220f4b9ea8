#include "orva/strings/text_argument.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/orva.hpp"

namespace {

using namespace orva::strings;

ustring8 taken(const text_argument& text) { return text; }

constexpr const char* euro = "x\xE2\x82\xAC";
const code_unit16 euro16[] = {'x', 0x20AC, 0};
const code_unit32 euro32[] = {'x', 0x20AC, 0};

TEST(text_argument, is_made_from_every_width) {
  EXPECT_EQ(taken(ustring8(euro)), euro);
  EXPECT_EQ(taken(std::string(euro)), euro);
  EXPECT_EQ(taken(euro), euro);
  EXPECT_EQ(taken("literal"), "literal");
  EXPECT_EQ(taken(std::string_view(euro)), euro);
  EXPECT_EQ(taken(ustring16::view(euro16)), euro);
  EXPECT_EQ(taken(ustring32::view(euro32)), euro);
  EXPECT_EQ(taken(ustring16(euro16)), euro);
  EXPECT_EQ(taken(wide_string(euro16)), euro);
  EXPECT_EQ(taken(euro16), euro);
  EXPECT_EQ(taken(ustring32(euro32)), euro);
  EXPECT_EQ(taken(std::basic_string<code_unit32>(euro32)), euro);
  EXPECT_EQ(taken(euro32), euro);
}

TEST(text_argument, borrows_a_ustring8) {
  const ustring8 text("not copied");
  const text_argument argument(text);
  EXPECT_EQ(&argument.get(), &text);
  EXPECT_EQ(&static_cast<const ustring8&>(argument), &text);
  EXPECT_EQ(argument.view().data(), text.data());
}

TEST(text_argument, borrows_a_standard_string_a_view_and_a_literal) {
  const std::string text("not copied");
  EXPECT_EQ(text_argument(text).view().data(), text.data());
  EXPECT_EQ(text_argument(std::string_view(text).substr(4)).view().data(), text.data() + 4);
  EXPECT_EQ(text_argument(text.c_str()).view().data(), text.data());
  const std::string_view view = text_argument(text);
  EXPECT_EQ(view.data(), text.data());
}

TEST(text_argument, gives_any_text_as_a_string_of_the_library) {
  const text_argument argument(std::string_view("copied").substr(0, 4));
  EXPECT_EQ(argument.get(), "copi");
  EXPECT_EQ(argument.view(), "copi");
  const text_argument copy = argument;
  EXPECT_EQ(copy.get(), "copi");
  EXPECT_NE(&copy.get(), &argument.get());
}

TEST(text_argument, is_made_from_nothing_that_is_no_text) {
  static_assert(!std::is_convertible_v<int, text_argument>);
  static_assert(!std::is_convertible_v<std::nullptr_t, text_argument>);
  static_assert(wchar_is_utf16 || !std::is_convertible_v<std::wstring, text_argument>);
}

TEST(text_argument, keeps_the_bytes_of_a_ustring8_and_a_byte_string) {
  EXPECT_EQ(taken(ustring8("a\0\xFF", 3)), ustring8("a\0\xFF", 3));
  EXPECT_EQ(taken(std::string("a\0\xFF", 3)), ustring8("a\0\xFF", 3));
}

TEST(text_argument, bad_text_arrives_as_minus_one) {
  EXPECT_EQ(taken(ustring16(1, static_cast<code_unit16>(0xD800))), "-1");
  EXPECT_EQ(taken(ustring32(1, static_cast<code_unit32>(0xD800))), "-1");
}

TEST(text_argument, swapped_mark_in_front_is_a_character) {
  const code_unit16 mark = swapped_byte_order_mark;
  const code_unit16 only_mark[] = {mark, 0};
  EXPECT_EQ(taken(only_mark), "\xEF\xBF\xBE");
  EXPECT_EQ(taken(ustring16(only_mark)), "\xEF\xBF\xBE");
  EXPECT_EQ(taken(wide_string(only_mark)), "\xEF\xBF\xBE");
  EXPECT_EQ(taken(ustring16({mark, mark, '+', 'a'})), "\xEF\xBF\xBE\xEF\xBF\xBE+a");
  EXPECT_EQ(taken(ustring16({mark, 0xD800})), "-1");
}

TEST(text_argument, copy_owns_what_the_original_converted) {
  text_argument copy("");
  {
    const text_argument original(euro16);
    copy = original;
  }
  EXPECT_EQ(copy.get(), euro);
}

}  // namespace
