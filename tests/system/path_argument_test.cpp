#include "orva/system/path_argument.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/wide_text.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;
using ORVA_NAMESPACE::system::path_argument;
using orva_test::utf16;
using orva_test::utf32;
using namespace std::string_literals;

strings::ustring16 path_of(const path_argument& path) { return path.get(); }

TEST(path_argument, is_made_from_text_of_every_width) {
  const strings::ustring16 expected = utf16(u"\u00E4/b");
  const strings::ustring32 wide = utf32(U"\u00E4/b");
  EXPECT_EQ(path_of("\xC3\xA4/b"), expected);
  EXPECT_EQ(path_of("\xC3\xA4/b"s), expected);
  EXPECT_EQ(path_of(strings::ustring8("\xC3\xA4/b")), expected);
  EXPECT_EQ(path_of(expected.c_str()), expected);
  EXPECT_EQ(path_of(strings::wide_string(expected)), expected);
  EXPECT_EQ(path_of(expected), expected);
  EXPECT_EQ(path_of(wide.c_str()), expected);
  EXPECT_EQ(path_of(std::basic_string<strings::code_unit32>(wide)), expected);
  EXPECT_EQ(path_of(wide), expected);
}

TEST(path_argument, borrows_a_ustring16) {
  const strings::ustring16 path = utf16(u"a/b");
  EXPECT_EQ(&path_argument(path).get(), &path);
  EXPECT_EQ(path_argument(path).view().data(), path.data());
}

TEST(path_argument, borrows_a_wide_string_and_a_view) {
  const strings::wide_string path = utf16(u"a/b");
  EXPECT_EQ(path_argument(path).view().data(), path.data());
  EXPECT_EQ(path_argument(strings::ustring16::view(path)).view().data(), path.data());
  EXPECT_EQ(path_argument(path.c_str()).view().data(), path.data());
}

TEST(path_argument, a_copy_owns_what_was_converted) {
  const path_argument original("short");
  const path_argument copy = original;
  EXPECT_EQ(copy.get(), utf16(u"short"));
  EXPECT_NE(&copy.get(), &original.get());
}

TEST(path_argument, bad_text_is_the_path_minus_1_and_16_bits_are_not_looked_at) {
  EXPECT_EQ(path_of("a\x80"), utf16(u"-1"));
  EXPECT_EQ(path_of(strings::ustring32{strings::code_unit32{0x110000}}), utf16(u"-1"));
  EXPECT_EQ(path_of(strings::ustring32{strings::code_unit32{0xD800}}), utf16(u"-1"));
  const strings::ustring16 lone = {strings::code_unit16{0xD800}};
  EXPECT_EQ(path_of(lone), lone);
}

TEST(path_argument, no_text_of_32_bit_wchar_is_taken) {
  static_assert(strings::wchar_is_utf16 || !std::is_convertible_v<const wchar_t*, path_argument>);
  static_assert(strings::wchar_is_utf16 || !std::is_convertible_v<std::wstring, path_argument>);
  static_assert(!std::is_convertible_v<int, path_argument>);
}

}  // namespace
