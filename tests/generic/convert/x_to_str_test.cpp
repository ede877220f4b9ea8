#include "orva/generic/convert/x_to_str.hpp"

#include <gtest/gtest.h>

namespace convert = ORVA_2_18::generic::convert;

TEST(x_to_str, minimum_is_written) {
  char buffer[convert::number_buffer_size];
  convert::ltoa(-2147483647L - 1, buffer, 10);
  EXPECT_STREQ(buffer, "-2147483648");
}
