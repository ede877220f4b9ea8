#include "orva/system/date_time/time.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <type_traits>

#include "tests/support/random_engine.hpp"
#include "tests/system/date_time/raised.hpp"

namespace ORVA_NAMESPACE::system::date_time {

static bool operator==(const time& left, const time& right) {
  return left.hour() == right.hour() && left.minute() == right.minute() && left.second() == right.second() &&
         left.millisecond() == right.millisecond();
}

}  // namespace ORVA_NAMESPACE::system::date_time

namespace {

using ORVA_NAMESPACE::system::date_time::basic_time;
using ORVA_NAMESPACE::system::date_time::milliseconds;
using ORVA_NAMESPACE::system::date_time::time;
using ORVA_NAMESPACE::system::date_time::time_duration;
using orva_test::raised;

constexpr unsigned int max_unsigned = std::numeric_limits<unsigned int>::max();
constexpr long long max_count = std::numeric_limits<long long>::max();
constexpr long long min_count = std::numeric_limits<long long>::min();
constexpr long long day = 86400000;

TEST(time, documentation_example) {
  EXPECT_EQ(time(23, 59, 59, 999) + milliseconds(1), time(0, 0, 0, 0));
  EXPECT_EQ(time(0, 0, 0, 0) - milliseconds(1), time(23, 59, 59, 999));
  const auto forward = time(18, 0, 0, 0) - time(8, 30, 0, 0);
  EXPECT_EQ(forward.hour(), 9);
  EXPECT_EQ(forward.minute(), 30);
  const auto back = time(8, 30, 0, 0) - time(18, 0, 0, 0);
  EXPECT_EQ(back.hour(), -9);
  EXPECT_EQ(back.minute(), -30);
  EXPECT_EQ(time(8, 30, 0, 0) - time_duration(32, 30, 0, 0), time(0, 0, 0, 0));
  EXPECT_EQ(raised([] { minus(time(8, 30, 0, 0), time_duration(32, 31, 0, 0)); }), orva_test::bad_minute);
}

TEST(basic_time, stores_anything) {
  basic_time fields;
  EXPECT_EQ(fields.hour(), 0);
  EXPECT_EQ(fields.millisecond(), 0);
  EXPECT_EQ(fields.hour(99), 99);
  EXPECT_EQ(fields.minute(max_unsigned), -1);
  EXPECT_EQ(fields.second(61), 61);
  EXPECT_EQ(fields.millisecond(1000), 1000);
  const basic_time copy = fields;
  EXPECT_EQ(copy.hour(), 99);
  EXPECT_EQ(copy.minute(), -1);
  EXPECT_EQ(copy.second(), 61);
  EXPECT_EQ(copy.millisecond(), 1000);
}

TEST(time, has_the_layout_of_basic_time) {
  static_assert(sizeof(basic_time) == 16 && sizeof(time) == 16);
  static_assert(std::is_trivially_copyable_v<time> && std::is_standard_layout_v<time>);
}

TEST(time, constants) {
  static_assert(std::is_same_v<decltype(time::min_hour), const unsigned int>);
  EXPECT_EQ(time::min_hour, 0u);
  EXPECT_EQ(time::max_hour, 23u);
  EXPECT_EQ(time::min_minute, 0u);
  EXPECT_EQ(time::max_minute, 59u);
  EXPECT_EQ(time::min_second, 0u);
  EXPECT_EQ(time::max_second, 59u);
  EXPECT_EQ(time::min_millisecond, 0u);
  EXPECT_EQ(time::max_millisecond, 999u);
}

TEST(time, default_is_midnight) { EXPECT_EQ(time(), time(0, 0, 0, 0)); }

TEST(time, constructor_checks_each_field_in_order) {
  EXPECT_EQ(raised([] { time(24, 0, 0, 0); }), orva_test::bad_hour);
  EXPECT_EQ(raised([] { time(0, 60, 0, 0); }), orva_test::bad_minute);
  EXPECT_EQ(raised([] { time(0, 0, 60, 0); }), orva_test::bad_second);
  EXPECT_EQ(raised([] { time(0, 0, 0, 1000); }), orva_test::bad_millisecond);
  EXPECT_EQ(raised([] { time(24, 60, 60, 1000); }), orva_test::bad_hour);
  EXPECT_EQ(raised([] { time(23, 60, 60, 1000); }), orva_test::bad_minute);
  EXPECT_EQ(raised([] { time(23, 59, 60, 1000); }), orva_test::bad_second);
  EXPECT_EQ(raised([] { time(23, 59, 59, 999); }), "nothing");
}

TEST(time, setters_return_the_value) {
  time t;
  EXPECT_EQ(t.hour(23), 23);
  EXPECT_EQ(t.minute(59), 59);
  EXPECT_EQ(t.second(58), 58);
  EXPECT_EQ(t.millisecond(999), 999);
  EXPECT_EQ(t, time(23, 59, 58, 999));
}

TEST(time, refused_setter_leaves_the_field) {
  time t(1, 2, 3, 4);
  for (const unsigned int value : {1000u, 0x80000000u, max_unsigned}) {
    EXPECT_EQ(raised([&] { t.hour(value); }), orva_test::bad_hour) << value;
    EXPECT_EQ(raised([&] { t.minute(value); }), orva_test::bad_minute) << value;
    EXPECT_EQ(raised([&] { t.second(value); }), orva_test::bad_second) << value;
    EXPECT_EQ(raised([&] { t.millisecond(value); }), orva_test::bad_millisecond) << value;
  }
  EXPECT_EQ(raised([&] { t.hour(24); }), orva_test::bad_hour);
  EXPECT_EQ(t, time(1, 2, 3, 4));
}

TEST(time, protected_checks_refuse_negative_numbers) {
  struct open_time : time {
    using time::is_valid_hour;
    using time::is_valid_millisecond;
    using time::is_valid_minute;
    using time::is_valid_second;
  };
  const open_time t;
  for (int value = -2000; value <= 2000; ++value) {
    EXPECT_EQ(t.is_valid_hour(value), value >= 0 && value <= 23);
    EXPECT_EQ(t.is_valid_minute(value), value >= 0 && value <= 59);
    EXPECT_EQ(t.is_valid_second(value), value >= 0 && value <= 59);
    EXPECT_EQ(t.is_valid_millisecond(value), value >= 0 && value <= 999);
  }
}

TEST(time, wraps_within_the_day) {
  EXPECT_EQ(time(23, 59, 59, 999) += time_duration(0, 0, 0, 1), time(0, 0, 0, 0));
  EXPECT_EQ(time(0, 0, 0, 0) -= time_duration(0, 0, 0, 1), time(23, 59, 59, 999));
  EXPECT_EQ(time(8, 30, 0, 0) += time_duration(100, 0, 0, 0), time(12, 30, 0, 0));
  EXPECT_EQ(time(8, 30, 0, 0) -= time_duration(8, 30, 0, 0), time(0, 0, 0, 0));
}

TEST(time, sum_below_minus_one_day_raises_for_its_first_negative_part) {
  struct {
    time_duration duration;
    std::string message;
    time afterwards;
  } const table[] = {
      {time_duration(49, 0, 0, 0), orva_test::bad_hour, time(5, 6, 7, 8)},
      {time_duration(29, 36, 7, 8), orva_test::bad_minute, time(0, 6, 7, 8)},
      {time_duration(29, 6, 37, 8), orva_test::bad_second, time(0, 0, 7, 8)},
      {time_duration(29, 6, 7, 38), orva_test::bad_millisecond, time(0, 0, 0, 8)},
  };
  for (const auto& row : table) {
    time t(5, 6, 7, 8);
    EXPECT_EQ(raised([&] { t -= row.duration; }), row.message);
    EXPECT_EQ(t, row.afterwards) << row.message;
  }
}

TEST(time, sum_below_minus_one_day_by_whole_days_is_midnight) {
  EXPECT_EQ(raised([] { time(0, 0, 0, 0) -= time_duration(49, 0, 0, 0); }), orva_test::bad_hour);
  EXPECT_EQ(time(0, 0, 0, 0) -= time_duration(48, 0, 0, 0), time(0, 0, 0, 0));
  EXPECT_EQ(time(5, 0, 0, 0) -= time_duration(77, 0, 0, 0), time(0, 0, 0, 0));
}

TEST(time, sum_within_one_day_back_wraps) {
  EXPECT_EQ(time(0, 0, 0, 1) -= milliseconds(day), time(0, 0, 0, 1));
  EXPECT_EQ(time(0, 0, 0, 0) -= milliseconds(day), time(0, 0, 0, 0));
  EXPECT_EQ(time(0, 0, 0, 1) -= milliseconds(day + 1), time(0, 0, 0, 0));
  EXPECT_EQ(raised([] { time(0, 0, 0, 1) -= milliseconds(day + 2); }), orva_test::bad_millisecond);
}

TEST(time, arithmetic_wraps_at_64_bits) {
  // 2^63 - 1 is a whole number of days and 25975808 ms. The most negative number is its own negative.
  EXPECT_EQ(time() += milliseconds(max_count - day), time(7, 12, 55, 807));
  time t(1, 2, 3, 4);
  EXPECT_EQ(raised([&] { t += milliseconds(max_count); }), orva_test::bad_hour);
  EXPECT_EQ(raised([&] { t -= milliseconds(min_count); }), orva_test::bad_hour);
  EXPECT_EQ(t, time(1, 2, 3, 4));
}

TEST(time, functions_do_what_the_operators_do) {
  time t(8, 0, 0, 0);
  EXPECT_EQ(&t.plus_assign(time_duration(1, 0, 0, 0)), &t);
  EXPECT_EQ(t, time(9, 0, 0, 0));
  EXPECT_EQ(&t.minus_assign(time_duration(2, 0, 0, 0)), &t);
  EXPECT_EQ(t, time(7, 0, 0, 0));
  EXPECT_EQ(&t.assign(time(1, 2, 3, 4)), &t);
  EXPECT_EQ(t, time(1, 2, 3, 4));
}

TEST(time, free_functions_leave_their_arguments) {
  const time t(8, 0, 0, 0);
  const time_duration hour(1, 0, 0, 0);
  EXPECT_EQ(plus(t, hour), time(9, 0, 0, 0));
  EXPECT_EQ(plus(hour, t), time(9, 0, 0, 0));
  EXPECT_EQ(t + hour, time(9, 0, 0, 0));
  EXPECT_EQ(hour + t, time(9, 0, 0, 0));
  EXPECT_EQ(minus(t, hour), time(7, 0, 0, 0));
  EXPECT_EQ(t - hour, time(7, 0, 0, 0));
  EXPECT_EQ(t, time(8, 0, 0, 0));
}

TEST(time, difference_is_signed) {
  EXPECT_EQ(minus(time(23, 59, 59, 999), time()).total_milliseconds(), day - 1);
  EXPECT_EQ((time() - time(23, 59, 59, 999)).total_milliseconds(), 1 - day);
  EXPECT_EQ((time(10, 0, 0, 0) - time(9, 59, 59, 999)).total_milliseconds(), 1);
  EXPECT_EQ((time(1, 2, 3, 4) - time(1, 2, 3, 4)).total_milliseconds(), 0);
}

TEST(time, every_difference_added_comes_back) {
  orva_test::random_engine random;
  std::uniform_int_distribution<int> any(0, static_cast<int>(day) - 1);
  for (int i = 0; i < 1'000'000; ++i) {
    const int from = any(random);
    const int to = any(random);
    const time start = time() + milliseconds(from);
    ASSERT_EQ((start - time()).total_milliseconds(), from);
    const time end = start + milliseconds(to);
    ASSERT_EQ((end - time()).total_milliseconds(), (from + to) % day);
    ASSERT_EQ(start + (end - start), end);
    ASSERT_EQ(end - (end - start), start);
  }
}

TEST(time, is_usable_in_constant_expressions) {
  constexpr time t = time(23, 59, 59, 999) + milliseconds(1);
  static_assert(t.hour() == 0 && (time(18, 0, 0, 0) - t).hour() == 18);
}

}  // namespace
