#include "orva/internal/paths/path_text.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "orva/internal/paths/path_rules.hpp"
#include "orva/strings/ustring.hpp"
#include "tests/support/random_engine.hpp"

namespace {

namespace paths = ORVA_NAMESPACE::internal::paths;
namespace strings = ORVA_NAMESPACE::strings;
using paths::is_nameable;
using strings::code_unit16;
using strings::wide_string;

std::string to_utf8(const wide_string& path) {
  std::string bytes;
  paths::append_text(bytes, std::basic_string_view<code_unit16>(path));
  return bytes;
}

template <typename Ustring>
Ustring from_utf8(const std::string& bytes) {
  Ustring text;
  paths::append_text(text, std::string_view(bytes));
  return text;
}

wide_string units(std::initializer_list<unsigned int> values) {
  wide_string text;
  for (const unsigned int value : values) text += static_cast<code_unit16>(value);
  return text;
}

TEST(path_text, paired_and_unpaired_surrogates) {
  EXPECT_EQ(to_utf8(units({'a', '/', 0xE4, 0x20AC, 0xD83D, 0xDE00})),
            "a/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
  const wide_string high = units({0xD800}), low = units({0xDFFF}), mark = units({0xFFFE});
  EXPECT_EQ(to_utf8(high), "\xED\xA0\x80");
  EXPECT_EQ(to_utf8(low), "\xED\xBF\xBF");
  EXPECT_EQ(to_utf8(high + units({'x'})), "\xED\xA0\x80x");
  EXPECT_EQ(to_utf8(low + high), "\xED\xBF\xBF\xED\xA0\x80");
  EXPECT_EQ(to_utf8(high + high + low), "\xED\xA0\x80\xF0\x90\x8F\xBF");
  EXPECT_EQ(to_utf8(mark), "\xEF\xBF\xBE");
  EXPECT_EQ(to_utf8({}), "");
}

TEST(path_text, every_code_unit_comes_back_in_every_width) {
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const wide_string path = units({unit});
    const auto native = to_utf8(path);
    ASSERT_TRUE(is_nameable(native)) << unit;
    ASSERT_EQ(from_utf8<strings::ustring16>(native), path);
    ASSERT_EQ(from_utf8<strings::ustring32>(native),
              strings::ustring32(1, static_cast<strings::code_unit32>(unit)));
    ASSERT_EQ(from_utf8<strings::ustring8>(native), native);
  }
}

TEST(path_text, every_surrogate_pair_comes_back_as_one_code_point) {
  for (std::uint32_t code_point = 0x10000; code_point < 0x110000; ++code_point) {
    const strings::ustring32 text(1, static_cast<strings::code_unit32>(code_point));
    const wide_string path = units({0xD7C0 + (code_point >> 10), 0xDC00 + (code_point & 0x3FF)});
    const auto native = to_utf8(path);
    ASSERT_EQ(native.size(), 4u);
    ASSERT_TRUE(is_nameable(native));
    ASSERT_EQ(from_utf8<strings::ustring16>(native), path);
    ASSERT_EQ(from_utf8<strings::ustring32>(native), text);
  }
}

TEST(path_text, random_16_bit_texts_come_back) {
  orva_test::random_engine random;
  const unsigned int picks[] = {'a', '/', 0x7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFE};
  for (int run = 0; run < 50'000; ++run) {
    wide_string path;
    for (auto length = random() % 8; length > 0; --length)
      path += units({picks[random() % std::size(picks)]});
    const auto native = to_utf8(path);
    ASSERT_TRUE(is_nameable(native));
    ASSERT_EQ(from_utf8<strings::ustring16>(native), path);
  }
}

/// A name is nameable if reading it as a 16-bit path and going back gives the same bytes.
void expect_nameable_if_it_comes_back(const std::string& name) {
  const bool comes_back = to_utf8(from_utf8<strings::ustring16>(name)) == name;
  ASSERT_EQ(is_nameable(name), comes_back) << testing::PrintToString(name);
}

TEST(nameable, agrees_with_the_way_there_and_back_for_all_short_names) {
  for (int first = 0; first < 256; ++first) {
    expect_nameable_if_it_comes_back({static_cast<char>(first)});
    for (int second = 0; second < 256; ++second)
      expect_nameable_if_it_comes_back({static_cast<char>(first), static_cast<char>(second)});
  }
}

TEST(nameable, agrees_with_the_way_there_and_back_at_the_bounds_of_each_byte) {
  std::string bounds;
  for (const int lead : {0x00, 0x7F, 0x80, 0x90, 0xA0, 0xB0, 0xC0, 0xC2, 0xE0, 0xED, 0xEF, 0xF0, 0xF4, 0xF8})
    for (const int step : {-1, 0, 1}) bounds += static_cast<char>(lead + step);
  for (const char a : bounds)
    for (const char b : bounds)
      for (const char c : bounds) expect_nameable_if_it_comes_back({a, b, c, '\x80', '\xBF'});
}

TEST(nameable, agrees_with_the_way_there_and_back_for_random_names) {
  orva_test::random_engine random;
  const char* const picks[] = {
      "a",    "\xC3\xA4", "\xED\xA0\x80", "\xED\xB0\x80", "\xEF\xBF\xBE", "\xF0\x9F\x98\x80",
      "\x80", "\xE2\x82"};
  for (int run = 0; run < 50'000; ++run) {
    std::string name;
    for (auto pieces = random() % 6; pieces > 0; --pieces) name += picks[random() % std::size(picks)];
    expect_nameable_if_it_comes_back(name);
  }
}

TEST(path_rules, root_of_posix_is_the_slash) {
  constexpr auto style = paths::style::posix;
  EXPECT_TRUE(paths::is_root(style, std::string_view("/")));
  for (const std::string_view path : {"", "//", "a", "a/", "/a", "\\", "C:\\", "C:/"})
    EXPECT_FALSE(paths::is_root(style, path)) << path;
}

TEST(path_rules, root_of_windows_is_a_separator_or_a_drive_with_one) {
  constexpr auto style = paths::style::windows;
  for (const std::string_view path : {"\\", "/", "C:\\", "C:/", "c:\\"})
    EXPECT_TRUE(paths::is_root(style, path)) << path;
  for (const std::string_view path : {"", "\\\\", "a", "C:", "C:\\a", "C:\\\\", "ab\\", "/a"})
    EXPECT_FALSE(paths::is_root(style, path)) << path;
}

TEST(path_rules, separator_of_each_style) {
  EXPECT_EQ(paths::separator<char>(paths::style::posix), '/');
  EXPECT_EQ(paths::separator<char>(paths::style::windows), '\\');
}

}  // namespace
