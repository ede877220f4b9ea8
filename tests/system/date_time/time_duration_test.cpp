#include "orva/system/date_time/time_duration.hpp"
#include "tests/support/random_engine.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace {

using ORVA_NAMESPACE::system::date_time::milliseconds;
using ORVA_NAMESPACE::system::date_time::time_duration;

constexpr int max_int = std::numeric_limits<int>::max();
constexpr int min_int = std::numeric_limits<int>::min();
constexpr long long max_count = std::numeric_limits<long long>::max();
constexpr long long min_count = std::numeric_limits<long long>::min();

TEST(time_duration, documentation_example) {
  const time_duration d(1, 30, 0, 0);
  EXPECT_EQ(d.hour(), 1);
  EXPECT_EQ(d.minute(), 30);
  EXPECT_EQ(d.total_complete_minutes(), 90);
  EXPECT_EQ(d.total_hours(), 1.5);
  EXPECT_EQ(time_duration(0, 0, -61, 0).minute(), -1);
  EXPECT_EQ(time_duration(0, 0, -61, 0).second(), -1);
  EXPECT_EQ(time_duration(0, 0, 0, -1).millisecond(), -1);
}

TEST(time_duration, is_one_count_of_64_bits) {
  static_assert(sizeof(time_duration) == 8 && sizeof(milliseconds) == 8);
  EXPECT_EQ(time_duration().total_milliseconds(), 0);
  EXPECT_EQ(time_duration(1, 2, 3, 4).total_milliseconds(), 3723004);
}

TEST(time_duration, parts_of_a_long_duration) {
  const time_duration duration(49, 59, 58, 997);
  EXPECT_EQ(duration.hour(), 49);
  EXPECT_EQ(duration.minute(), 59);
  EXPECT_EQ(duration.second(), 58);
  EXPECT_EQ(duration.millisecond(), 997);
}

TEST(time_duration, totals) {
  const time_duration duration(0, 0, 0, 5399999);
  EXPECT_EQ(duration.total_complete_hours(), 1);
  EXPECT_EQ(duration.total_complete_minutes(), 89);
  EXPECT_EQ(duration.total_complete_seconds(), 5399);
  EXPECT_EQ(duration.total_hours(), 5399999.0 / 3600000.0);
  EXPECT_EQ(duration.total_minutes(), 5399999.0 / 60000.0);
  EXPECT_EQ(duration.total_seconds(), 5399999.0 / 1000.0);
}

TEST(time_duration, negative_duration_has_negative_parts) {
  const time_duration duration(0, 0, 0, -5399999);
  EXPECT_EQ(duration.hour(), -1);
  EXPECT_EQ(duration.minute(), -29);
  EXPECT_EQ(duration.second(), -59);
  EXPECT_EQ(duration.millisecond(), -999);
  EXPECT_EQ(duration.total_complete_hours(), -1);
  EXPECT_EQ(duration.total_complete_minutes(), -89);
  EXPECT_EQ(duration.total_complete_seconds(), -5399);
  EXPECT_TRUE(time_duration(0, 0, 0, -1).is_negative());
  EXPECT_EQ(time_duration(0, 0, 0, -1).millisecond(), -1);
  EXPECT_EQ(time_duration(0, 0, 0, -1).hour(), 0);
  EXPECT_FALSE(time_duration().is_negative());
}

TEST(time_duration, hours_minutes_and_seconds_wrap_at_32_bits_before_they_widen) {
  EXPECT_EQ(time_duration(596, 31, 23, 647).total_milliseconds(), 2147483647);
  EXPECT_EQ(time_duration(596, 31, 23, 648).total_milliseconds(),
            2147483648);  // milliseconds are added with 64 bits
  EXPECT_EQ(time_duration(596, 31, 24, 0).total_milliseconds(), 2147484000LL - 4294967296);
  EXPECT_EQ(time_duration(597, 0, 0, 0).total_milliseconds(), 2149200000LL - 4294967296);
  EXPECT_EQ(time_duration(max_int, max_int, max_int, 0).total_milliseconds(), -(3600000 + 60000 + 1000));
  EXPECT_EQ(time_duration(min_int, min_int, min_int, 5).total_milliseconds(), 5);
}

TEST(time_duration, milliseconds_wrap_at_64_bits) {
  EXPECT_EQ(time_duration(0, 0, 1, max_count).total_milliseconds(), min_count + 999);
  EXPECT_EQ(time_duration(0, 0, -1, min_count).total_milliseconds(), max_count - 999);
}

TEST(time_duration, hours_beyond_32_bits_are_cut) {
  const time_duration duration(0, 0, 0, max_count);
  EXPECT_EQ(duration.total_complete_hours(), max_count / 3600000);
  EXPECT_EQ(duration.hour(), static_cast<std::int32_t>(max_count / 3600000));
}

TEST(time_duration, adds_and_subtracts) {
  time_duration duration(1, 0, 0, 0);
  EXPECT_EQ(duration.plus_assign(time_duration(0, 30, 0, 0)).total_complete_minutes(), 90);
  EXPECT_EQ(duration.minus_assign(time_duration(2, 0, 0, 0)).total_complete_minutes(), -30);
  EXPECT_EQ((duration += time_duration(0, 31, 0, 0)).total_milliseconds(), 60000);
  EXPECT_EQ((duration -= time_duration(0, 2, 0, 0)).total_milliseconds(), -60000);
  const time_duration left(0, 0, 5, 0);
  const time_duration right(0, 0, 7, 0);
  EXPECT_EQ(plus(left, right).total_milliseconds(), 12000);
  EXPECT_EQ(minus(left, right).total_milliseconds(), -2000);
  EXPECT_EQ((left + right).total_milliseconds(), 12000);
  EXPECT_EQ((left - right).total_milliseconds(), -2000);
  EXPECT_EQ(left.total_milliseconds(), 5000);
}

TEST(time_duration, sums_wrap_at_64_bits) {
  EXPECT_EQ((milliseconds(max_count) + milliseconds(1)).total_milliseconds(), min_count);
  EXPECT_EQ((milliseconds(min_count) - milliseconds(1)).total_milliseconds(), max_count);
  EXPECT_EQ((milliseconds(0) - milliseconds(min_count)).total_milliseconds(), min_count);
}

TEST(time_duration, is_assigned) {
  time_duration duration;
  EXPECT_EQ(duration.assign(time_duration(1, 0, 0, 0)).hour(), 1);
  duration = milliseconds(7);
  EXPECT_EQ(duration.total_milliseconds(), 7);
  duration.assign(duration);
  EXPECT_EQ(duration.total_milliseconds(), 7);
}

TEST(time_duration, random_durations_give_what_wider_arithmetic_gives) {
  orva_test::random_engine random;
  const auto any_int = [&] { return static_cast<std::int32_t>(random() >> random() % 33); };
  for (int i = 0; i < 200'000; ++i) {
    const std::int64_t hours = any_int();
    const std::int64_t minutes = any_int();
    const std::int64_t seconds = any_int();
    const auto rest = static_cast<std::int64_t>(random.bits64()) >> random() % 60 >> 2;
    const auto narrow = static_cast<std::int32_t>(hours * 3600000 + minutes * 60000 + seconds * 1000);
    const time_duration duration(static_cast<int>(hours), static_cast<int>(minutes),
                                 static_cast<int>(seconds), rest);
    ASSERT_EQ(duration.total_milliseconds(), narrow + rest);
    ASSERT_EQ(duration.total_complete_hours() * 3600000 + duration.minute() * 60000 +
                  duration.second() * 1000 + duration.millisecond(),
              narrow + rest);
  }
}

TEST(milliseconds, converts_to_int) {
  const int number = milliseconds(5);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(milliseconds(), 0);
  EXPECT_EQ(milliseconds(-5), -5);
}

TEST(milliseconds, as_int_are_the_low_32_bits) {
  EXPECT_EQ(int{milliseconds(0x100000005)}, 5);
  EXPECT_EQ(int{milliseconds(0x80000000)}, min_int);
  EXPECT_EQ(milliseconds(0x100000005).total_milliseconds(), 0x100000005);
}

TEST(milliseconds, is_assigned_from_a_count) {
  milliseconds duration;
  EXPECT_EQ(duration.assign(7), 7);
  duration = 8;
  EXPECT_EQ(duration, 8);
  duration.assign(milliseconds(9));
  EXPECT_EQ(duration.total_milliseconds(), 9);
  duration += milliseconds(1);
  EXPECT_EQ(duration, 10);
}

TEST(time_duration, is_usable_in_constant_expressions) {
  static_assert((time_duration(1, 30, 0, 0) + milliseconds(500)).total_seconds() == 5400.5);
  static_assert(milliseconds(5) == 5);
}

}  // namespace
