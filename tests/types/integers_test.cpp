#include "orva/types/integers.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace ORVA_NAMESPACE::types;

TEST(integers, have_32_bits_on_every_platform) {
  static_assert(std::numeric_limits<int32>::min() == -2147483647 - 1);
  static_assert(std::numeric_limits<int32>::max() == 2147483647);
  static_assert(std::numeric_limits<uint32>::max() == 0xFFFFFFFF);
}

TEST(integers, unsigned_wraps_at_32_bits) { EXPECT_EQ(static_cast<uint32>(uint32{0xFFFFFFFF} + 1), 0u); }

}  // namespace
