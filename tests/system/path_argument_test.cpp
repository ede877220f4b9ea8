#include "orva/system/path_argument.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

namespace strings = ORVA_2_18::strings;
using ORVA_2_18::system::path_argument;
using namespace std::string_literals;

strings::ustring16 path_of(const path_argument& path) { return path.get(); }

TEST(path_argument, is_made_from_text_of_every_width) {
  const strings::ustring16 expected = u"\u00E4/b";
  EXPECT_EQ(path_of("\xC3\xA4/b"), expected);
  EXPECT_EQ(path_of("\xC3\xA4/b"s), expected);
  EXPECT_EQ(path_of(strings::ustring8("\xC3\xA4/b")), expected);
  EXPECT_EQ(path_of(u"\u00E4/b"), expected);
  EXPECT_EQ(path_of(u"\u00E4/b"s), expected);
  EXPECT_EQ(path_of(strings::ustring16(u"\u00E4/b")), expected);
  EXPECT_EQ(path_of(U"\u00E4/b"), expected);
  EXPECT_EQ(path_of(U"\u00E4/b"s), expected);
  EXPECT_EQ(path_of(strings::ustring32(U"\u00E4/b")), expected);
}

TEST(path_argument, borrows_a_ustring16) {
  const strings::ustring16 path = u"a/b";
  EXPECT_EQ(&path_argument(path).get(), &path);
}

TEST(path_argument, a_copy_owns_what_was_converted) {
  const path_argument original("short");
  const path_argument copy = original;
  EXPECT_EQ(copy.get(), u"short");
  EXPECT_NE(&copy.get(), &original.get());
}

TEST(path_argument, bad_text_is_the_path_minus_1_and_16_bits_are_not_looked_at) {
  EXPECT_EQ(path_of("a\x80"), u"-1");
  EXPECT_EQ(path_of(U"\x110000"s), u"-1");
  EXPECT_EQ(path_of(std::u32string{char32_t{0xD800}}), u"-1");
  const std::u16string lone = {u'\xD800'};
  EXPECT_EQ(path_of(lone), lone);
}

TEST(path_argument, no_text_of_32_bit_wchar_is_taken) {
  static_assert(strings::wchar_is_utf16 || !std::is_convertible_v<const wchar_t*, path_argument>);
  static_assert(strings::wchar_is_utf16 || !std::is_convertible_v<std::wstring, path_argument>);
  static_assert(!std::is_convertible_v<int, path_argument>);
}

}  // namespace
