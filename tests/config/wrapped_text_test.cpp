#include "orva/config/internal/wrapped_text.hpp"

#include <gtest/gtest.h>

#include "orva/internal/text/display_width.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE::config::_private;
using ORVA_NAMESPACE::internal::text::display_width;

std::string wrapped(std::string_view text, std::size_t width, std::size_t indentation = 0) {
  std::string output;
  append_wrapped(output, text, {0, indentation, width});
  return output;
}

TEST(append_wrapped, documentation_example) {
  std::string output = "  --help  ";
  append_wrapped(output, "Shows this help.", {10, 10, 20});
  EXPECT_EQ(output, "  --help  Shows this\n          help.\n");
}

TEST(append_wrapped, breaks_at_blanks) {
  EXPECT_EQ(wrapped("", 5), "\n");
  EXPECT_EQ(wrapped("one two", 7), "one two\n");
  EXPECT_EQ(wrapped("one two", 6), "one\ntwo\n");
  EXPECT_EQ(wrapped("  one   two  three ", 8), "one two\nthree\n");
  EXPECT_EQ(wrapped("one two three", 9, 2), "one two\n  three\n");
}

TEST(append_wrapped, keeps_lines_and_empty_lines) {
  EXPECT_EQ(wrapped("a\n\nb", 9, 2), "a\n\n  b\n");
  EXPECT_EQ(wrapped("a\n", 9), "a\n");
}

TEST(append_wrapped, breaks_a_word_that_is_too_wide) {
  EXPECT_EQ(wrapped("abcdefgh", 3), "abc\ndef\ngh\n");
  EXPECT_EQ(wrapped("a bcdefgh i", 5, 1), "a\n bcde\n fgh\n i\n");
  EXPECT_EQ(wrapped("abc日", 4), "abc\n日\n");
  EXPECT_EQ(wrapped("日。。。", 5), "日。\n。。\n");
}

TEST(append_wrapped, breaks_between_wide_characters) {
  EXPECT_EQ(wrapped("日本語の本", 6), "日本語\nの本\n");
  EXPECT_EQ(wrapped("日本語の本", 7), "日本語\nの本\n");
  EXPECT_EQ(wrapped("日本abc語", 7), "日本abc\n語\n");
  EXPECT_EQ(wrapped("日本abc語", 6), "日本\nabc語\n");
}

TEST(append_wrapped, begins_no_line_with_a_full_stop_and_ends_none_with_an_opening_bracket) {
  EXPECT_EQ(wrapped("日本語。", 6), "日本\n語。\n");
  EXPECT_EQ(wrapped("日本「語」", 6), "日本\n「語」\n");
  EXPECT_EQ(wrapped("日本e\xCC\x81", 4), "日本\ne\xCC\x81\n");
}

std::string random_text(orva_test::random_engine& random) {
  static constexpr const char* parts[] = {
      "a",         "bc",       " ", "  ", "-", "日", "本", "。",        "「", "」",
      "e\xCC\x81", "\xC2\xA0", "(", ")",  ".", "ー", "\n", "long-word", "Ω",  "\xF0\x9F\x98\x80"};
  std::string text;
  for (std::size_t count = random() % 60; count > 0; --count) text += parts[random() % std::size(parts)];
  return text;
}

std::string without_blanks(std::string_view text) {
  std::string result;
  for (const char unit : text) {
    if (unit != ' ' && unit != '\n') result += unit;
  }
  return result;
}

TEST(append_wrapped, loses_nothing_and_keeps_to_the_width) {
  orva_test::random_engine random;
  for (int i = 0; i < 3000; ++i) {
    const std::string text = random_text(random);
    const std::size_t width = 4 + random() % 40;
    const std::size_t indentation = random() % (width - 2);
    const std::string output = wrapped(text, width, indentation);
    ASSERT_EQ(without_blanks(output), without_blanks(text));
    for (std::string_view rest = output; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      ASSERT_LE(display_width(line), width) << text << "\n---\n" << output;
      ASSERT_FALSE(line.ends_with(' ')) << text << "\n---\n" << output;
    }
  }
}

}  // namespace
