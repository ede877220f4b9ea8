#include "orva/strings/split.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/support/random_engine.hpp"
#include "tests/support/reference_string_tools.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;
using strings::split_string;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

template <typename Unit>
std::basic_string<Unit> widen(std::string_view text) {
  return std::basic_string<Unit>(text.begin(), text.end());
}

TEST(split_string, documentation_example) {
  using pieces = std::vector<ustring8>;
  EXPECT_EQ(split_string("a,b", ",", 0), (pieces{"a", "b"}));
  EXPECT_EQ(split_string(",a", ",", 0), (pieces{"", "a"}));
  EXPECT_EQ(split_string("a,,b", ",", 0), (pieces{"a", "", "b"}));
  EXPECT_EQ(split_string("a,", ",", 0), (pieces{"a"}));
  EXPECT_EQ(split_string("", ",", 0), (pieces{}));
  EXPECT_EQ(split_string("a", "", 0), (pieces{"a"}));
  EXPECT_EQ(split_string("a,b,c", ",", 1), (pieces{"a", "b,c"}));
}

TEST(split_string, empty_text_at_an_empty_delimiter_is_one_empty_element) {
  EXPECT_EQ(split_string("", "", 0), (std::vector<ustring8>{""}));
}

TEST(split_string, max_is_the_number_of_cuts) {
  EXPECT_EQ(split_string("a,b,c", ",", 2), (std::vector<ustring8>{"a", "b", "c"}));
  EXPECT_EQ(split_string("a,b,c", ",", 3), (std::vector<ustring8>{"a", "b", "c"}));
  EXPECT_EQ(split_string("a,", ",", 1), (std::vector<ustring8>{"a"}));
  EXPECT_EQ(split_string("a,,", ",", 1), (std::vector<ustring8>{"a", ","}));
}

TEST(append_split, keeps_what_the_vector_holds) {
  std::vector<ustring8> pieces{"first"};
  strings::append_split<char>("a,b", ",", 0, pieces);
  strings::append_split<char>("", ",", 0, pieces);
  EXPECT_EQ(pieces, (std::vector<ustring8>{"first", "a", "b"}));
}

TEST(split_string, max_of_0_or_less_is_no_limit) {
  for (const int max : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(split_string("a,b,c", ",", max), (std::vector<ustring8>{"a", "b", "c"})) << max;
  }
}

TEST(split_string, delimiter_of_several_bytes_is_compared_byte_by_byte) {
  EXPECT_EQ(split_string("a\xE2\x82\xAC"
                         "b\xE2\x82\xAC",
                         "\xE2\x82\xAC", 0),
            (std::vector<ustring8>{"a", "b"}));
  EXPECT_EQ(split_string("a::b:c:::d", "::", 0), (std::vector<ustring8>{"a", "b:c", ":d"}));
  EXPECT_EQ(split_string("\xC3\xA4", "\xA4", 0), (std::vector<ustring8>{"\xC3"}));
}

template <typename Piece, typename Text>
constexpr bool splits_into =
    std::is_same_v<decltype(split_string(std::declval<Text>(), std::declval<Text>(), 0)), std::vector<Piece>>;

TEST(split_string, pieces_have_the_class_of_the_text) {
  EXPECT_TRUE((splits_into<ustring8, ustring8>));
  EXPECT_TRUE((splits_into<ustring16, ustring16>));
  EXPECT_TRUE((splits_into<ustring32, ustring32>));
  EXPECT_TRUE((splits_into<std::string, std::string>));
  EXPECT_TRUE((splits_into<strings::wide_string, strings::wide_string>));
  EXPECT_TRUE((splits_into<ustring8, const char*>));
  EXPECT_EQ(split_string(std::string("a,b"), ",", 0), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(split_string(ustring16(widen<strings::code_unit16>("a,b")), widen<strings::code_unit16>(","), 0),
            (std::vector<ustring16>{widen<strings::code_unit16>("a"), widen<strings::code_unit16>("b")}));
  EXPECT_EQ(split_string(widen<strings::code_unit16>("a,b"), widen<strings::code_unit16>(","), 0).size(), 2u);
  EXPECT_EQ(
      split_string(ustring32(widen<strings::code_unit32>("a,b")), widen<strings::code_unit32>(","), 1).size(),
      2u);
}

TEST(split_string, zero_units_are_text_like_any_other) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(split_string(text, std::string(1, '\0'), 0), (std::vector<std::string>{"a", "b"}));
}

TEST(split_string, every_short_text_as_the_reference) {
  for (unsigned int n = 0; n < 6561; ++n) {
    std::string text;
    for (unsigned int rest = n; rest != 0; rest /= 3) text.push_back("ab,"[rest % 3]);
    for (const std::string_view delimiter : {"", ",", "a", "aa", "ab", "aba", "abab"}) {
      for (const int max : {-1, 0, 1, 2}) {
        if (split_string(text, delimiter, max) != orva_test::reference_split<char>(text, delimiter, max)) {
          FAIL() << text << " at " << delimiter << ", " << max;
        }
      }
    }
  }
}

TEST(split_string, long_delimiters_as_the_reference) {
  orva_test::random_engine random;
  const auto random_text = [&](std::size_t size) {
    std::basic_string<strings::code_unit16> text(size, 'a');
    for (auto& unit : text) unit = static_cast<strings::code_unit16>('a' + (random() % 4 == 0));
    return text;
  };
  for (int run = 0; run < 20000; ++run) {
    const auto text = random_text(random() % 200);
    const auto delimiter = random_text(1 + random() % 14);
    EXPECT_EQ(split_string(text, delimiter, 0),
              orva_test::reference_split<strings::code_unit16>(text, delimiter, 0));
  }
}

TEST(split_string, repeating_text_and_delimiter_take_linear_time) {
  const std::string text(2000000, 'a');
  const std::string delimiter = std::string(100000, 'a') + 'b';
  EXPECT_EQ(split_string(text, delimiter, 0), (std::vector<std::string>{text}));
}

}  // namespace
