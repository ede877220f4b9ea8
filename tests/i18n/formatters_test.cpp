#include "orva/i18n/formatters.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/strings/split.hpp"
#include "tests/support/attribute_string.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using strings::ustring8;

std::vector<ustring8> cut_all(std::string_view fields) {
  std::vector<ustring8> result;
  while (!fields.empty()) result.emplace_back(cut_field(fields));
  return result;
}

TEST(formatters, attribute_strings_are_cut_as_split_string_splits) {
  for (unsigned int pattern = 0; pattern < 1u << 12; ++pattern) {
    for (std::size_t length = 0; length <= 12; ++length) {
      ustring8 text;
      for (std::size_t i = 0; i < length; ++i)
        text += (pattern >> i & 1) != 0 ? '\x01' : static_cast<char>('a' + i);
      ASSERT_EQ(cut_all(text), strings::split_string(text, "\x01", 0)) << testing::PrintToString(text);
    }
  }
}

TEST(formatters, numbers_are_read_as_atoi_does_but_saturate) {
  EXPECT_EQ(to_number(""), 0);
  EXPECT_EQ(to_number("12"), 12);
  EXPECT_EQ(to_number(" \t\n12x"), 12);
  EXPECT_EQ(to_number("-7"), -7);
  EXPECT_EQ(to_number("+7"), 7);
  EXPECT_EQ(to_number("- 7"), 0);
  EXPECT_EQ(to_number("0x10"), 0);
  EXPECT_EQ(to_number("010"), 10);
  EXPECT_EQ(to_number(std::string_view("1\0002", 3)), 1);
  EXPECT_EQ(to_number("2147483647"), std::numeric_limits<int>::max());
  EXPECT_EQ(to_number("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(to_number("-99999999999999999999"), std::numeric_limits<int>::min());
}

/// Calls `visit` with each attribute string of up to `fields` fields.
void for_each_attribute_string(int fields, const std::function<void(const ustring8&)>& visit) {
  static const std::vector<std::string> vocabulary = {
      "",          "b",  "base",      "dec",         "hex",   "bin",  "f",
      "fieldsize", "p",  "precision", "target_unit", "KB",    "YB",   "any",
      "m",         "mc", "Y",         "short_form",  "false", "true", "0",
      "1",         "-1", "70",        "x",           ";",     "1;f",  "2147483647"};
  std::function<void(ustring8, int)> extend = [&](const ustring8& text, int left) {
    visit(text);
    if (left == 0) return;
    for (const std::string& word : vocabulary) extend(text.empty() ? word : text + '\x01' + word, left - 1);
  };
  extend("", fields);
}

TEST(formatters, no_attribute_string_gives_more_than_a_bounded_text) {
  constexpr std::size_t longest = max_padding + 66;
  const double large = std::numeric_limits<double>::max();
  for_each_attribute_string(3, [&](const ustring8& attrs) {
    ustring8 unit;
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
      ASSERT_LE(format_int(value, attrs).size(), longest);
    }
    for (const double value : {-0.0, 1e6, -large}) {
      ASSERT_LE(format_double(value, attrs).size(), max_double_length);
      ASSERT_LE(format_duration(value, attrs).size(), 2 * max_double_length);
    }
    ASSERT_LE(format_memory(large, attrs, unit).size(), max_double_length);
    ASSERT_LE(unit.size(), 2u);
    ASSERT_LE(format_metric(-1234, attrs, unit).size(), max_double_length);
    ASSERT_LE(unit.size(), 5u);
  });
}

TEST(formatters, refusal_and_an_odd_number_of_fields_leave_the_unit_empty) {
  for_each_attribute_string(3, [&](const ustring8& attrs) {
    const bool is_odd = cut_all(attrs).size() % 2 != 0;
    for (const auto format : {format_memory, format_metric}) {
      ustring8 unit = "before";
      const ustring8 text = format(1234.5, attrs, unit);
      ASSERT_TRUE(!is_odd || text == refused_value) << attrs;
      ASSERT_TRUE(text != refused_value || unit.empty()) << attrs;
    }
    if (is_odd) {
      ASSERT_EQ(format_int(1, attrs), refused_value);
      ASSERT_EQ(format_double(1, attrs), refused_value);
      ASSERT_EQ(format_duration(1, attrs), refused_value);
    }
  });
}

}  // namespace
