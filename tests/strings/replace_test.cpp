#include "orva/strings/replace.hpp"

#include <gtest/gtest.h>

namespace strings = ORVA_2_18::strings;

TEST(replace_all, new_text_is_not_searched_again) {
  strings::ustring8 text = "aaa";
  EXPECT_EQ(strings::replace_all(text, "a", "aa"), 3);
  EXPECT_EQ(text, "aaaaaa");
}

TEST(replace_all, matches_do_not_overlap) {
  strings::ustring16 text = {'a', 'a', 'a'};
  EXPECT_EQ(strings::replace_all(text, strings::ustring16(2, 'a'), strings::ustring16(1, 'a')), 1);
  EXPECT_EQ(text.size(), 2u);
}
