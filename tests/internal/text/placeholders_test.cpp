#include "orva/internal/text/placeholders.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace {

using ORVA_NAMESPACE::internal::text::with_placeholders;

std::optional<std::string> value_of(std::string_view name) {
  if (name == "n") return "3";
  if (name == "n2") return "{n}";
  if (name.empty()) return "nothing";
  return std::nullopt;
}

TEST(placeholders, documentation_example) {
  EXPECT_EQ(with_placeholders("{n} of {total}, {x}", value_of), "3 of {total}, {x}");
}

TEST(placeholders, value_is_not_searched_for_names) {
  EXPECT_EQ(with_placeholders("{n2}{n}", value_of), "{n}3");
}

TEST(placeholders, brace_without_the_other_stays) {
  EXPECT_EQ(with_placeholders("", value_of), "");
  EXPECT_EQ(with_placeholders("a{n", value_of), "a{n");
  EXPECT_EQ(with_placeholders("{", value_of), "{");
  EXPECT_EQ(with_placeholders("}", value_of), "}");
  EXPECT_EQ(with_placeholders("n}{n}{n", value_of), "n}3{n");
  EXPECT_EQ(with_placeholders("{a{n}}", value_of), "{a3}");
  EXPECT_EQ(with_placeholders("{n{", value_of), "{n{");
  EXPECT_EQ(with_placeholders("{}", value_of), "nothing");
}

/// By trying each brace in turn.
std::string replaced_one_by_one(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t length = text[i] == '{' ? text.substr(i + 1).find_first_of("{}") : text.npos;
    const bool is_name = length != text.npos && text[i + 1 + length] == '}';
    const auto value = is_name ? value_of(text.substr(i + 1, length)) : std::nullopt;
    result += value ? *value : std::string(1, text[i]);
    if (value) i += length + 1;
  }
  return result;
}

TEST(placeholders, every_short_text_is_as_if_each_brace_was_tried_in_turn) {
  constexpr std::string_view units = "{}n2";
  for (std::size_t number = 0; number < 4 * 4 * 4 * 4 * 4 * 4; ++number) {
    std::string text;
    for (std::size_t rest = number; rest > 0; rest /= units.size()) text += units[rest % units.size()];
    EXPECT_EQ(with_placeholders(text, value_of), replaced_one_by_one(text)) << text;
  }
}

TEST(placeholders, text_of_nothing_but_braces_takes_time_in_proportion_to_its_size) {
  const std::string open(4'000'000, '{');
  EXPECT_EQ(with_placeholders(open, value_of), open);
  EXPECT_EQ(with_placeholders(open + "n}", value_of), open.substr(1) + '3');
  const std::string close(4'000'000, '}');
  EXPECT_EQ(with_placeholders(close, value_of), close);
  EXPECT_EQ(with_placeholders("{n" + close, value_of), '3' + close.substr(1));
}

}  // namespace
