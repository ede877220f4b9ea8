#include "orva/i18n/plural_number.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <regex>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

using ORVA_NAMESPACE::i18n::plural_number;

/// i v f t e
std::string operands_of(std::optional<plural_number> number) {
  if (!number) return "none";
  std::string text;
  for (const std::uint64_t operand : {number->integer(), number->fraction_length(), number->fraction(),
                                      number->trimmed_fraction(), std::uint64_t{number->exponent()}}) {
    if (!text.empty()) text += ' ';
    text += std::to_string(operand);
  }
  return text;
}

std::string operands_of(std::string_view text) { return operands_of(plural_number::read(text)); }

TEST(plural_number, documentation_example) {
  EXPECT_EQ(operands_of(plural_number(5)), "5 0 0 0 0");
  EXPECT_EQ(operands_of("1.50"), "1 2 50 5 0");
  EXPECT_EQ(operands_of("1.2c6"), "1200000 0 0 0 6");
  EXPECT_EQ(operands_of("1,5"), "none");
}

TEST(plural_number, text_of_an_integer_is_that_integer) {
  for (const int number : {0, 1, 9, 10, 99, 1000000, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(plural_number::read(std::to_string(number)), plural_number(number));
    EXPECT_EQ(plural_number::read("-" + std::to_string(number)), plural_number(-number));
  }
}

TEST(plural_number, integers_of_all_types_lose_their_sign_only) {
  EXPECT_EQ(plural_number(std::numeric_limits<std::int8_t>::min()).integer(), 128U);
  EXPECT_EQ(plural_number(std::numeric_limits<std::int32_t>::min()).integer(), 2147483648U);
  EXPECT_EQ(plural_number(std::numeric_limits<std::int64_t>::min()).integer(), 9223372036854775808U);
  EXPECT_EQ(plural_number(std::numeric_limits<std::uint64_t>::max()).integer(), 18446744073709551615U);
  EXPECT_EQ(plural_number(static_cast<unsigned char>(200)).integer(), 200U);
}

TEST(plural_number, floating_values_and_bool_are_no_number_as_it_is_shown) {
  EXPECT_FALSE((std::is_constructible_v<plural_number, double>));
  EXPECT_FALSE((std::is_constructible_v<plural_number, float>));
  EXPECT_FALSE((std::is_constructible_v<plural_number, bool>));
}

TEST(plural_number, digits_after_the_point_count_with_their_zeros) {
  EXPECT_EQ(operands_of("1.0"), "1 1 0 0 0");
  EXPECT_EQ(operands_of("0.30"), "0 2 30 3 0");
  EXPECT_EQ(operands_of("1.230"), "1 3 230 23 0");
  EXPECT_EQ(operands_of("007.007"), "7 3 7 7 0");
  EXPECT_EQ(operands_of("+2.5"), "2 1 5 5 0");
}

TEST(plural_number, power_of_ten_moves_the_point) {
  EXPECT_EQ(operands_of("1c6"), "1000000 0 0 0 6");
  EXPECT_EQ(operands_of("1e3"), "1000 0 0 0 3");
  EXPECT_EQ(operands_of("1.0000001c6"), "1000000 1 1 1 6");
  EXPECT_EQ(operands_of("1.25c1"), "12 1 5 5 1");
  EXPECT_EQ(operands_of("1.25c0"), "1 2 25 25 0");
}

/// As in the rules: compared with small numbers, and remainders by powers of ten.
TEST(plural_number, long_numbers_are_in_the_same_ranges) {
  const std::string zeros(40, '0');
  for (const std::string end : {"000000", "000001", "123456", "999999"}) {
    for (const std::string& digits :
         {"1" + zeros + end, "98765432109876543210" + end, "2" + end + end + end}) {
      const auto number = plural_number::read(digits);
      ASSERT_TRUE(number.has_value());
      EXPECT_EQ(number->integer() % 1000000, std::stoull(end)) << digits;
      EXPECT_GT(number->integer(), 1000000U) << digits;
      const auto fraction = plural_number::read("0." + digits);
      EXPECT_EQ(fraction->fraction() % 1000000, std::stoull(end)) << digits;
      EXPECT_EQ(fraction->fraction_length(), digits.size());
    }
  }
  EXPECT_EQ(plural_number::read("1c99")->integer() % 1000000, 0U);
  EXPECT_GT(plural_number::read("1c99")->integer(), 1000000U);
}

void expect_the_answer_of_the_grammar(const std::string& text) {
  static const std::regex grammar("[+-]?[0-9]+(\\.[0-9]+)?([ce][0-9]{1,2})?");
  EXPECT_EQ(plural_number::read(text).has_value(), std::regex_match(text, grammar)) << text;
}

TEST(plural_number, reads_the_texts_of_its_grammar_and_no_other) {
  const std::string_view units = "07+-.cex ";
  std::string text;
  const auto all = [&](const auto& self, int length) -> void {
    expect_the_answer_of_the_grammar(text);
    if (length == 0) return;
    for (const char unit : units) {
      text += unit;
      self(self, length - 1);
      text.pop_back();
    }
  };
  all(all, 5);
  expect_the_answer_of_the_grammar("1.5c100");
  expect_the_answer_of_the_grammar(std::string("1\0", 2));
}

}  // namespace
