#include "orva/parser/internal/start_tag_search.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace {

using ORVA_NAMESPACE::parser::_private::find_start_tag;
using ORVA_NAMESPACE::parser::_private::stream_lexer;

constexpr std::size_t window = 100;

/// Whether one is found, and the position that the search ends at.
std::string search(std::string_view text) {
  stream_lexer lexer;
  lexer.start(text.data(), text.data() + text.size(), 5);
  const bool found = find_start_tag(lexer, {"a", "bc"}, window);
  EXPECT_EQ(lexer.line(), 5u) << "lines do not count";
  return (found ? "found at " : "none up to ") + std::to_string(lexer.position() - text.data());
}

TEST(start_tag_search, stops_at_the_bracket_of_a_wanted_element) {
  EXPECT_EQ(search("<a>"), "found at 0");
  EXPECT_EQ(search("text\n\n<b><bc/>"), "found at 9");
  EXPECT_EQ(search("</a><!a><a_><ab>< \n a x"), "found at 16");
  EXPECT_EQ(search("<<a<"), "found at 1");
}

TEST(start_tag_search, stops_at_a_tag_that_is_cut_off) {
  EXPECT_EQ(search("text"), "none up to 4");
  EXPECT_EQ(search("text<"), "none up to 4");
  EXPECT_EQ(search("text< "), "none up to 4");
  EXPECT_EQ(search("text<a"), "none up to 4");
  EXPECT_EQ(search("text</a"), "none up to 7");
}

TEST(start_tag_search, passes_over_a_tag_that_fills_the_window) {
  EXPECT_EQ(search("<" + std::string(window - 2, 'x')), "none up to 0");
  EXPECT_EQ(search("<" + std::string(window - 1, 'x')), "none up to 100");
  EXPECT_EQ(search("<" + std::string(window, ' ') + "<a>"), "found at 101");
}

}  // namespace
