#include "orva/strings/case_mapping.hpp"

#include <gtest/gtest.h>

namespace strings = ORVA_2_18::strings;

TEST(lower_case, changes_only_the_range) {
  EXPECT_EQ(strings::lower_case("ABCDEF", 2, 4), "ABcdEF");
  EXPECT_EQ(strings::lower_case("ABCDEF", 2, 0xFFFFFFFF), "ABcdef");
}
