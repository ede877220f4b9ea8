#include "orva/strings/replace.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>

#include "orva/strings/gh2.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_string_tools.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;
using strings::replace_all;

struct replaced {
  std::string text;
  int count;

  bool operator==(const replaced&) const = default;
};

replaced replace(std::string text, std::string_view from, std::string_view to) {
  const int count = replace_all(text, from, to);
  return {text, count};
}

replaced reference(std::string text, std::string_view from, std::string_view to) {
  const int count = orva_test::reference_replace<char>(text, from, to);
  return {text, count};
}

TEST(replace_all, documentation_example) {
  EXPECT_EQ(replace("aaa", "a", "aa"), (replaced{"aaaaaa", 3}));
  EXPECT_EQ(replace("aaa", "aa", "a"), (replaced{"aa", 1}));
  EXPECT_EQ(replace("aaa", "", "x"), (replaced{"aaa", 0}));
}

TEST(replace_all, without_a_match_nothing_changes) {
  EXPECT_EQ(replace("abc", "d", "x"), (replaced{"abc", 0}));
  EXPECT_EQ(replace("", "d", "x"), (replaced{"", 0}));
  EXPECT_EQ(replace("abc", "abcd", "x"), (replaced{"abc", 0}));
}

TEST(replace_all, an_empty_replacement_removes) {
  EXPECT_EQ(replace("a-b-c", "-", ""), (replaced{"abc", 2}));
  EXPECT_EQ(replace("---", "-", ""), (replaced{"", 3}));
}

TEST(replace_all, every_string_class_is_taken) {
  strings::ustring8 narrow = "a.b";
  EXPECT_EQ(replace_all(narrow, ".", "--"), 1);
  EXPECT_EQ(narrow, "a--b");
  strings::ustring16 wide(3, 'a');
  EXPECT_EQ(replace_all(wide, strings::ustring16(1, 'a'), strings::wide_string(2, 'b')), 3);
  EXPECT_EQ(wide, strings::ustring16(6, 'b'));
  strings::wide_string plain(3, 'a');
  EXPECT_EQ(replace_all(plain, strings::wide_string(2, 'a'), strings::wide_string(1, 'a')), 1);
  EXPECT_EQ(plain, strings::wide_string(2, 'a'));
  EXPECT_EQ(strings::gh2::replace_all(plain, strings::wide_string(1, 'a'), strings::wide_string()), 2);
  EXPECT_EQ(plain, strings::wide_string());
  strings::ustring32 utf32(3, 'a');
  EXPECT_EQ(replace_all(utf32, strings::ustring32(1, 'a'), strings::ustring32(3, 'b')), 3);
  EXPECT_EQ(utf32, strings::ustring32(9, 'b'));
}

TEST(replace_all, the_texts_may_be_parts_of_the_string) {
  std::string text = "abcabc";
  EXPECT_EQ(replace_all(text, std::string_view(text).substr(0, 2), std::string_view(text).substr(1, 4)), 2);
  EXPECT_EQ(text, "bcabcbcabc");
  EXPECT_EQ(replace_all(text, text, "x"), 1);
  EXPECT_EQ(text, "x");
  EXPECT_EQ(replace_all(text, "x", text), 1);
  EXPECT_EQ(text, "x");
  text = "aXbX";
  EXPECT_EQ(replace_all(text, "X", std::string_view(text).substr(0, 3)), 2);
  EXPECT_EQ(text, "aaXbbaXb");
}

TEST(replace_all, result_longer_than_a_string_throws_and_leaves_the_text) {
  std::string text(1 << 12, 'a');
  // The view is larger than its text: the size is checked before any unit is read.
  const std::string_view huge(text.data() + text.size() + 1, text.max_size() / 1000);
  const std::string before = text;
  try {
    replace_all(text, "a", huge);
    FAIL() << "nothing thrown";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(), "string too long");
  }
  EXPECT_EQ(text, before);
}

TEST(replace_all, every_short_text_as_the_reference) {
  for (unsigned int n = 0; n < 6561; ++n) {
    std::string text;
    for (unsigned int rest = n; rest != 0; rest /= 3) text.push_back("abc"[rest % 3]);
    for (const std::string_view from : {"", "a", "b", "aa", "ab", "aba", "bab", "abab"}) {
      for (const std::string_view to : {"", "a", "b", "aa", "ba", "aba", "aabbab"}) {
        const auto expected = reference(text, from, to);
        if (replace(text, from, to) != expected) FAIL() << text << " from " << from << " to " << to;
      }
    }
  }
}

TEST(replace_all, long_texts_as_the_reference) {
  orva_test::random_engine random;
  const auto random_text = [&](std::size_t size) {
    std::string text(size, 'a');
    for (char& unit : text) unit = random() % 4 ? 'a' : 'b';
    return text;
  };
  for (int run = 0; run < 20000; ++run) {
    const auto text = random_text(random() % 200);
    const auto from = random_text(1 + random() % 14);
    const auto to = random_text(random() % 20);
    EXPECT_EQ(replace(text, from, to), reference(text, from, to)) << text << ' ' << from << ' ' << to;
  }
}

TEST(replace_all, many_matches_take_linear_time) {
  std::string text(1000000, 'a');
  EXPECT_EQ(replace_all(text, "a", "bbb"), 1000000);
  EXPECT_EQ(text, std::string(3000000, 'b'));
  EXPECT_EQ(replace_all(text, "bbb", "a"), 1000000);
  EXPECT_EQ(text, std::string(1000000, 'a'));
}

TEST(replace_all, repeating_texts_take_linear_time) {
  std::string text(2000000, 'a');
  EXPECT_EQ(replace_all(text, std::string(100000, 'a') + 'b', "x"), 0);
}

}  // namespace
