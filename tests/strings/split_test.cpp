#include "orva/strings/split.hpp"

#include <gtest/gtest.h>

namespace strings = ORVA_2_18::strings;

TEST(split_string, cuts_at_each_delimiter) {
  EXPECT_EQ(strings::split_string("a,b", ",", 0), (std::vector<strings::ustring8>{"a", "b"}));
  EXPECT_EQ(strings::split_string(std::string(",a"), ",", 0), (std::vector<std::string>{"", "a"}));
  EXPECT_EQ(strings::split_string("", ",", 0).size(), 0u);
  EXPECT_EQ(strings::split_string("", "", 0), (std::vector<strings::ustring8>{""}));
  EXPECT_EQ(strings::split_string("a,b,c", strings::ustring8(","), 1),
            (std::vector<strings::ustring8>{"a", "b,c"}));
}
