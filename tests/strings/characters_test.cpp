#include "orva/orva.hpp"

#include <gtest/gtest.h>

namespace {

using namespace orva::strings;

TEST(string_length, counts_bytes_not_characters) {
  EXPECT_EQ(string_length(ustring8("\xC3\xA4")), 2u);
  EXPECT_EQ(string_length("\xC3\xA4"), 2u);
}

}  // namespace
