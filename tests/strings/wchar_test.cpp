#include "orva/strings/wchar.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "orva/orva.hpp"

namespace {

using namespace orva::strings;

ustring16 one(int unit) { return ustring16(1, static_cast<code_unit16>(unit)); }

TEST(wchar, basic_plane_crosses_unit_by_unit) {
  EXPECT_EQ(from_wchar(L"x\u20AC"), utf8_to_utf16("x\xE2\x82\xAC"));
  EXPECT_EQ(to_wchar(utf8_to_utf16("x\xE2\x82\xAC")), L"x\u20AC");
  EXPECT_EQ(from_wchar(L""), ustring16());
  EXPECT_EQ(to_wchar(ustring16()), L"");
}

TEST(wchar, character_outside_the_basic_plane_is_a_pair) {
  EXPECT_EQ(from_wchar(L"\U0001F600"), utf8_to_utf16("\xF0\x9F\x98\x80"));
  EXPECT_EQ(to_wchar(utf8_to_utf16("\xF0\x9F\x98\x80")), L"\U0001F600");
}

TEST(wchar, every_code_point_comes_back) {
  for (std::uint32_t code_point = 0; code_point < 0x110000; ++code_point) {
    std::wstring text(1, static_cast<wchar_t>(code_point));
    if (wchar_is_utf16 && code_point >= 0x10000) {
      text = {static_cast<wchar_t>((code_point >> 10) + 0xD7C0),
              static_cast<wchar_t>((code_point & 0x3FF) + 0xDC00)};
    }
    ASSERT_EQ(to_wchar(from_wchar(text)), text) << std::hex << code_point;
  }
}

TEST(wchar, lone_surrogate_and_swapped_mark_cross_as_they_are) {
  for (const int unit : {0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFE, 0xFEFF, 0xFFFF}) {
    EXPECT_EQ(to_wchar(one(unit)), std::wstring(1, static_cast<wchar_t>(unit)));
    EXPECT_EQ(from_wchar(std::wstring(1, static_cast<wchar_t>(unit))), one(unit));
  }
}

TEST(wchar, zero_unit_is_kept) {
  EXPECT_EQ(from_wchar(std::wstring_view(L"a\0b", 3)).size(), 3u);
  EXPECT_EQ(to_wchar(from_wchar(std::wstring_view(L"a\0b", 3))), std::wstring(L"a\0b", 3));
}

TEST(wchar, value_above_unicode_becomes_the_replacement_character) {
  if (wchar_is_utf16) GTEST_SKIP() << "no such value in 16 bits";
  const std::uint32_t values[] = {0x110000, 0x7FFFFFFF, 0xFFFFFFFF};
  for (const std::uint32_t value : values) {
    EXPECT_EQ(from_wchar(std::wstring(1, static_cast<wchar_t>(value))), one(0xFFFD));
  }
}

}  // namespace
