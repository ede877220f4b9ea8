#include "orva/system/date_time/date_duration.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using ORVA_NAMESPACE::system::date_time::date_duration;

constexpr int max_int = std::numeric_limits<int>::max();
constexpr int min_int = std::numeric_limits<int>::min();

TEST(date_duration, holds_a_number_of_days) {
  static_assert(sizeof(date_duration) == 4);
  EXPECT_EQ(date_duration().days(), 0);
  date_duration duration(-5);
  EXPECT_EQ(duration.days(), -5);
  EXPECT_EQ(duration.days(7), 7);
  EXPECT_EQ(duration.days(), 7);
  duration.assign(8);
  EXPECT_EQ(duration.days(), 8);
  duration = date_duration(9);
  EXPECT_EQ(duration.days(), 9);
}

TEST(date_duration, adds_and_subtracts) {
  date_duration duration(10);
  EXPECT_EQ(duration.plus_assign(5).days(), 15);
  EXPECT_EQ(duration.minus_assign(20).days(), -5);
  EXPECT_EQ((duration += 6).days(), 1);
  EXPECT_EQ((duration -= 2).days(), -1);
}

TEST(date_duration, sums_wrap_at_32_bits) {
  EXPECT_EQ((date_duration(max_int) += 1).days(), min_int);
  EXPECT_EQ((date_duration(min_int) -= 1).days(), max_int);
  EXPECT_EQ((date_duration(0) -= min_int).days(), min_int);
}

}  // namespace
