#include "orva/diagnostics/place.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/random_engine.hpp"

namespace {

using orva::diagnostics::line_index;
using orva::diagnostics::place;
using orva::diagnostics::place_in_whole;
using orva::diagnostics::place_of;

TEST(place, documentation_example) {
  const std::string text = "one\ntwo\n";
  EXPECT_EQ(place_of(text, 5), (place{2, 2}));
  const line_index lines(text);
  EXPECT_EQ(lines.place_of(5), (place{2, 2}));
  EXPECT_EQ(lines.line(2), "two");
  EXPECT_EQ(place_in_whole({2, 5}, {1, 3}), (place{2, 7}));
}

TEST(place, of_a_part_is_moved_into_the_whole_text) {
  EXPECT_EQ(place_in_whole({2, 5}, {1, 1}), (place{2, 5}));
  EXPECT_EQ(place_in_whole({2, 5}, {2, 1}), (place{3, 1}));
  EXPECT_EQ(place_in_whole({2, 5}, {}), (place{2, 5}));
  const std::string text = "a\n\xC3\xA4;b\xE2\x82\xAC\nc;\nd";
  for (std::size_t begin = 0; begin <= text.size(); ++begin) {
    if ((text[begin] & 0xC0) == 0x80) continue;
    const std::string_view part = std::string_view(text).substr(begin);
    for (std::size_t offset = 0; offset <= part.size(); ++offset) {
      EXPECT_EQ(place_in_whole(place_of(text, begin), place_of(part, offset)),
                place_of(text, begin + offset));
    }
  }
}

struct example {
  std::string_view text;
  std::size_t offset;
  place expected;
};

constexpr example examples[] = {
    {"", 0, {1, 1}},
    {"", 7, {1, 1}},
    {"ab", 0, {1, 1}},
    {"ab", 2, {1, 3}},
    {"ab", 3, {1, 3}},
    {"a\nb", 1, {1, 2}},
    {"a\nb", 2, {2, 1}},
    {"a\r\nb", 1, {1, 2}},
    {"a\r\nb", 2, {1, 3}},
    {"a\r\nb", 3, {2, 1}},
    {"a\rb", 2, {1, 3}},
    {"\n\n", 1, {2, 1}},
    {"\n\n", 2, {3, 1}},
    // A byte within a character has the column of the character.
    {"\xC3\xA4"
     "b",
     1,
     {1, 1}},
    {"\xC3\xA4"
     "b",
     2,
     {1, 2}},
    {"x\xF0\x9F\x98\x80y", 4, {1, 2}},
    {"x\xF0\x9F\x98\x80y", 5, {1, 3}},
    // Each malformed part is a column.
    {"\xFF\xFF"
     "b",
     2,
     {1, 3}},
    {"\xE2\x82"
     "b",
     2,
     {1, 2}},
    {"\xED\xA0\x80"
     "b",
     3,
     {1, 4}},
    // A byte order mark has no column.
    {"\xEF\xBB\xBF"
     "ab",
     0,
     {1, 1}},
    {"\xEF\xBB\xBF"
     "ab",
     2,
     {1, 1}},
    {"\xEF\xBB\xBF"
     "ab",
     3,
     {1, 1}},
    {"\xEF\xBB\xBF"
     "ab",
     4,
     {1, 2}},
    {"\xEF\xBB\xBF\na", 4, {2, 1}},
    {"a\xEF\xBB\xBF"
     "b",
     4,
     {1, 3}},
};

TEST(place, counts_lines_by_line_feeds_and_columns_by_code_points) {
  for (const example& each : examples) {
    SCOPED_TRACE(testing::Message() << '"' << each.text << "\" at " << each.offset);
    EXPECT_EQ(place_of(each.text, each.offset), each.expected);
    EXPECT_EQ(line_index(each.text).place_of(each.offset), each.expected);
  }
}

TEST(place, an_index_agrees_with_single_lookups_in_random_bytes) {
  orva_test::random_engine random;
  constexpr std::string_view pieces[] = {
      "a", "\n", "\r\n", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xFF", "\xE2\x82"};
  for (int round = 0; round < 2000; ++round) {
    std::string text = random() % 4 == 0 ? "\xEF\xBB\xBF" : "";
    for (auto count = random() % 20; count > 0; --count) text += pieces[random() % std::size(pieces)];
    const line_index lines(text);
    for (std::size_t offset = 0; offset <= text.size() + 1; ++offset) {
      ASSERT_EQ(lines.place_of(offset), place_of(text, offset))
          << testing::PrintToString(text) << " at " << offset;
    }
  }
}

TEST(place, columns_never_go_back_within_a_line) {
  const std::string text = "a\xC3\xA4\xE2\x82\xAC\xFF\xE2\x82z\nb\xF0\x9F\x98\x80";
  place last{1, 0};
  for (std::size_t offset = 0; offset <= text.size(); ++offset) {
    const place now = place_of(text, offset);
    EXPECT_TRUE(now.line > last.line || now.column >= last.column) << offset;
    last = now;
  }
}

TEST(line_index, gives_lines_without_their_ends) {
  const line_index lines("one\r\n\ntwo\r");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines.line(1), "one");
  EXPECT_EQ(lines.line(2), "");
  // No line feed follows: the carriage return is a character of the line.
  EXPECT_EQ(lines.line(3), "two\r");
}

TEST(line_index, has_no_line_0_and_none_after_the_last) {
  const line_index lines("one\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines.line(0), "");
  EXPECT_EQ(lines.line(2), "");
  EXPECT_EQ(lines.line(3), "");
}

TEST(line_index, leaves_a_byte_order_mark_out_of_the_first_line) {
  EXPECT_EQ(line_index("\xEF\xBB\xBFone\ntwo").line(1), "one");
}

}  // namespace
