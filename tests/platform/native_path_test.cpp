#include "orva/platform/native_path.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "orva/platform/posix/nameable.hpp"

namespace {

namespace platform = ORVA_2_18::platform;
namespace strings = ORVA_2_18::strings;
using platform::posix::is_nameable;

template <typename Ustring>
Ustring from_native(const std::string& native) {
  Ustring text;
  platform::append_native(text, native);
  return text;
}

TEST(native_path, paired_and_unpaired_surrogates) {
  EXPECT_EQ(platform::to_native(u"a/\u00E4\u20AC\U0001F600"), "a/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
  const std::u16string high = {u'\xD800'}, low = {u'\xDFFF'}, mark = {u'\xFFFE'};
  EXPECT_EQ(platform::to_native(high), "\xED\xA0\x80");
  EXPECT_EQ(platform::to_native(low), "\xED\xBF\xBF");
  EXPECT_EQ(platform::to_native(high + u"x"), "\xED\xA0\x80x");
  EXPECT_EQ(platform::to_native(low + high), "\xED\xBF\xBF\xED\xA0\x80");
  EXPECT_EQ(platform::to_native(high + high + low), "\xED\xA0\x80\xF0\x90\x8F\xBF");
  EXPECT_EQ(platform::to_native(mark), "\xEF\xBF\xBE");
  EXPECT_EQ(platform::to_native(u""), "");
}

TEST(native_path, every_code_unit_comes_back_in_every_width) {
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const std::u16string path = {static_cast<char16_t>(unit)};
    const auto native = platform::to_native(path);
    ASSERT_TRUE(is_nameable(native)) << unit;
    ASSERT_EQ(from_native<strings::ustring16>(native), path);
    ASSERT_EQ(from_native<strings::ustring32>(native), strings::ustring32(1, unit));
    ASSERT_EQ(from_native<strings::ustring8>(native), native);
  }
}

TEST(native_path, every_surrogate_pair_comes_back_as_one_code_point) {
  for (strings::code_unit32 code_point = 0x10000; code_point < 0x110000; ++code_point) {
    const strings::ustring32 text(1, code_point);
    const std::u16string path = {static_cast<char16_t>(0xD7C0 + (code_point >> 10)),
                                 static_cast<char16_t>(0xDC00 + (code_point & 0x3FF))};
    const auto native = platform::to_native(path);
    ASSERT_EQ(native.size(), 4u);
    ASSERT_TRUE(is_nameable(native));
    ASSERT_EQ(from_native<strings::ustring16>(native), path);
    ASSERT_EQ(from_native<strings::ustring32>(native), text);
  }
}

TEST(native_path, random_16_bit_texts_come_back) {
  const unsigned seed = 20261121;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const char16_t picks[] = {u'a', u'/', u'\x7FF', u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF', u'\xFFFE'};
  for (int run = 0; run < 50'000; ++run) {
    std::u16string path;
    for (auto length = random() % 8; length > 0; --length) path += picks[random() % std::size(picks)];
    const auto native = platform::to_native(path);
    ASSERT_TRUE(is_nameable(native));
    ASSERT_EQ(from_native<strings::ustring16>(native), path);
  }
}

/// A name is nameable if reading it as a 16-bit path and going back gives the same bytes.
void expect_nameable_if_it_comes_back(const std::string& name) {
  const bool comes_back = platform::to_native(from_native<strings::ustring16>(name)) == name;
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
  const unsigned seed = 20261122;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const char* const picks[] = {
      "a",    "\xC3\xA4", "\xED\xA0\x80", "\xED\xB0\x80", "\xEF\xBF\xBE", "\xF0\x9F\x98\x80",
      "\x80", "\xE2\x82"};
  for (int run = 0; run < 50'000; ++run) {
    std::string name;
    for (auto pieces = random() % 6; pieces > 0; --pieces) name += picks[random() % std::size(picks)];
    expect_nameable_if_it_comes_back(name);
  }
}

TEST(native_path, only_the_root_is_a_root) {
  EXPECT_TRUE(platform::is_root("/"));
  for (const auto* path : {"", "//", "a", "a/", "/a"}) EXPECT_FALSE(platform::is_root(path)) << path;
}

}  // namespace
