#include "orva/generic/convert/str_to_x.hpp"

#include <gtest/gtest.h>

namespace convert = ORVA_2_18::generic::convert;
using radix = ORVA_2_18::types::radix_t;

TEST(str_to_x, trailing_text_is_ignored) {
  EXPECT_EQ(convert::str_to_int32("12abc", 0, radix::prefix, true), 12);
}

TEST(str_to_x, unsigned_reader_takes_length_0_at_its_word) {
  EXPECT_EQ(convert::str_to_uint32("42", 0, radix::decimal, true), 4u);
}

TEST(str_to_x, floating_text_is_read_as_by_a_stream) {
  EXPECT_EQ(convert::str_to_double("1e3"), 1000.0);
  EXPECT_EQ(convert::str_to_double("12abc"), 12.0);
}
