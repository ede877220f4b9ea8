#include "orva/system/date_time/date_time.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/system/date_time/raised.hpp"

namespace {

using ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_duration;
using ORVA_NAMESPACE::system::date_time::date_time_t;
using ORVA_NAMESPACE::system::date_time::milliseconds;
using ORVA_NAMESPACE::system::date_time::time;
using ORVA_NAMESPACE::system::date_time::time_duration;
using orva_test::raised;

std::string text(const date_time_t& value) {
  return std::to_string(value.day()) + '.' + std::to_string(value.month()) + '.' +
         std::to_string(value.year()) + ' ' + std::to_string(value.hour()) + ':' +
         std::to_string(value.minute()) + ':' + std::to_string(value.second()) + '.' +
         std::to_string(value.millisecond());
}

date_time_t may_17() { return {date(17, 5, 2024), time(8, 30, 0, 0)}; }

TEST(date_time, documentation_example) {
  date_time_t t(date(17, 5, 2024), time(8, 30, 0, 0));
  t += date_duration(30);
  EXPECT_EQ(text(t), "16.6.2024 8:30:0.0");
  t += time_duration(20, 0, 0, 0);
  EXPECT_EQ(text(t), "16.6.2024 4:30:0.0");
}

TEST(date_time, is_a_date_followed_by_a_time) {
  static_assert(sizeof(date_time_t) == sizeof(date) + sizeof(time));
  static_assert(std::is_trivially_copyable_v<date_time_t> && std::is_standard_layout_v<date_time_t>);
  EXPECT_EQ(text(date_time_t()), "0.0.0 0:0:0.0");
  EXPECT_EQ(text(may_17()), "17.5.2024 8:30:0.0");
}

TEST(date_time, constants_differ_from_those_of_date_in_the_days_of_a_month) {
  static_assert(std::is_same_v<decltype(date_time_t::max_days_in_month), const unsigned int>);
  EXPECT_EQ(date_time_t::max_days_in_month, 32u);
  EXPECT_EQ(date::max_days_in_month, 31u);
  EXPECT_EQ(date_time_t::max_months_in_year, 12u);
  EXPECT_EQ(date_time_t::max_weeks_in_year, 52u);
  EXPECT_EQ(date_time_t::min_hour, 0u);
  EXPECT_EQ(date_time_t::max_hour, 23u);
  EXPECT_EQ(date_time_t::min_minute, 0u);
  EXPECT_EQ(date_time_t::max_minute, 59u);
  EXPECT_EQ(date_time_t::min_second, 0u);
  EXPECT_EQ(date_time_t::max_second, 59u);
  EXPECT_EQ(date_time_t::min_millisecond, 0u);
  EXPECT_EQ(date_time_t::max_millisecond, 999u);
}

TEST(date_time, gives_its_parts_by_reference) {
  date_time_t t = may_17();
  t.date().month(2);
  t.time() += milliseconds(1);
  EXPECT_EQ(text(t), "17.2.2024 8:30:0.1");
  const date_time_t& same = t;
  EXPECT_EQ(&same.date(), &t.date());
  EXPECT_EQ(&same.time(), &t.time());
}

TEST(date_time, forwards_getters_and_setters) {
  date_time_t t;
  EXPECT_EQ(t.year(2001), 2001u);
  EXPECT_EQ(t.month(2), 2u);
  EXPECT_EQ(t.day(31), 31u);
  EXPECT_EQ(t.hour(23), 23);
  EXPECT_EQ(t.minute(59), 59);
  EXPECT_EQ(t.second(58), 58);
  EXPECT_EQ(t.millisecond(997), 997);
  EXPECT_EQ(text(t), "28.2.2001 23:59:58.997");
  EXPECT_TRUE(t.is_day_constrained());
  EXPECT_FALSE(t.is_leap_year());
}

TEST(date_time, setters_raise_as_those_of_the_parts) {
  date_time_t t = may_17();
  EXPECT_EQ(raised([&] { t.month(13); }), orva_test::bad_month);
  EXPECT_EQ(raised([&] { t.day(32); }), orva_test::bad_day);
  EXPECT_EQ(raised([&] { t.hour(24); }), orva_test::bad_hour);
  EXPECT_EQ(raised([&] { t.minute(60); }), orva_test::bad_minute);
  EXPECT_EQ(raised([&] { t.second(60); }), orva_test::bad_second);
  EXPECT_EQ(raised([&] { t.millisecond(1000); }), orva_test::bad_millisecond);
  EXPECT_EQ(text(t), text(may_17()));
}

TEST(date_time, is_assigned_whole_or_by_part) {
  date_time_t t;
  EXPECT_EQ(text(t.assign(date(1, 2, 2003))), "1.2.2003 0:0:0.0");
  EXPECT_EQ(text(t.assign(time(4, 5, 6, 7))), "1.2.2003 4:5:6.7");
  EXPECT_EQ(text(t.assign(date(8, 9, 2010), time(11, 12, 13, 14))), "8.9.2010 11:12:13.14");
  EXPECT_EQ(text(t = date(3, 2, 2001)), "3.2.2001 11:12:13.14");
  EXPECT_EQ(text(t = time(0, 0, 0, 1)), "3.2.2001 0:0:0.1");
  EXPECT_EQ(text(t.assign(may_17())), text(may_17()));
  t = date_time_t();
  EXPECT_EQ(text(t), "0.0.0 0:0:0.0");
}

TEST(date_time, moves_the_date_by_days) {
  date_time_t t = may_17();
  EXPECT_EQ(text(t += date_duration(20)), "6.6.2024 8:30:0.0");
  EXPECT_EQ(text(t -= date_duration(20)), "17.5.2024 8:30:0.0");
  EXPECT_EQ(text(t.plus_assign(date_duration(1))), "18.5.2024 8:30:0.0");
  EXPECT_EQ(text(t.minus_assign(date_duration(1))), "17.5.2024 8:30:0.0");
}

TEST(date_time, duration_below_a_day_leaves_the_date_and_wraps_the_time) {
  EXPECT_EQ(text(may_17() += time_duration(20, 0, 0, 0)), "17.5.2024 4:30:0.0");
  EXPECT_EQ(text(may_17() -= time_duration(20, 0, 0, 0)), "17.5.2024 12:30:0.0");
  EXPECT_EQ(text(may_17() += time_duration(23, 59, 59, 999)), "17.5.2024 8:29:59.999");
  EXPECT_EQ(text(may_17() += time_duration(-23, -59, -59, -999)), "17.5.2024 8:30:0.1");
}

TEST(date_time, duration_from_a_day_on_overwrites_the_day_by_the_hours_beyond_whole_days) {
  struct {
    int hours;
    const char* plus;
    const char* minus;
  } const table[] = {
      {25, "2.5.2024 9:30:0.0", "30.4.2024 7:30:0.0"},
      {26, "4.5.2024 10:30:0.0", "30.4.2024 6:30:0.0"},
      {32, "16.5.2024 16:30:0.0", "30.4.2024 0:30:0.0"},
      {47, "15.6.2024 7:30:0.0", nullptr},
      {53, "10.5.2024 13:30:0.0", nullptr},
      {24 * 20 + 1, "2.5.2024 9:30:0.0", nullptr},
  };
  for (const auto& row : table) {
    const time_duration duration(row.hours, 0, 0, 0);
    EXPECT_EQ(text(may_17() += duration), row.plus) << row.hours;
    EXPECT_EQ(text(may_17().plus_assign(duration)), row.plus) << row.hours;
    if (row.minus == nullptr) continue;
    EXPECT_EQ(text(may_17() -= duration), row.minus) << row.hours;
    EXPECT_EQ(text(may_17().minus_assign(duration)), row.minus) << row.hours;
  }
}

TEST(date_time, whole_days_raise_and_change_nothing) {
  for (const int hours : {24, 48, -24, -48, 240}) {
    date_time_t t = may_17();
    EXPECT_EQ(raised([&] { t += time_duration(hours, 0, 0, 0); }), orva_test::bad_day) << hours;
    EXPECT_EQ(raised([&] { t -= time_duration(hours, 0, 0, 0); }), orva_test::bad_day) << hours;
    EXPECT_EQ(text(t), text(may_17())) << hours;
  }
  date_time_t t = may_17();
  EXPECT_EQ(raised([&] { t += time_duration(24, 59, 59, 999); }), orva_test::bad_day);
}

TEST(date_time, negative_duration_of_a_day_or_more_raises) {
  date_time_t t = may_17();
  for (const int hours : {-25, -26, -47, -500}) {
    EXPECT_EQ(raised([&] { t += time_duration(hours, 0, 0, 0); }), orva_test::bad_day) << hours;
    EXPECT_EQ(raised([&] { t -= time_duration(hours, 0, 0, 0); }), orva_test::bad_day) << hours;
  }
  EXPECT_EQ(text(t), text(may_17()));
}

TEST(date_time, date_stays_moved_where_the_time_raises) {
  date_time_t t(date(17, 5, 2024), time(0, 30, 0, 5));
  EXPECT_EQ(raised([&] { t -= time_duration(25, 0, 0, 0); }), orva_test::bad_minute);
  EXPECT_EQ(text(t), "30.4.2024 0:30:0.5");
}

TEST(date_time, day_stays_overwritten_where_the_date_raises) {
  date_time_t t(date(17, 3, 0), time());
  EXPECT_EQ(raised([&] { t -= time_duration(26, 0, 0, 0); }), orva_test::bad_date);
  EXPECT_EQ(text(t), "2.3.0 0:0:0.0");
}

TEST(date_time, hours_of_any_size_are_reduced) {
  date_time_t t = may_17();
  const long long hours = 2562047788015 - 48;  // 7 more than whole days, and no sum wraps
  EXPECT_EQ(text(t += milliseconds(hours * 3600000)), "14.5.2024 15:30:0.0");
}

TEST(date_time, is_usable_in_constant_expressions) {
  constexpr auto moved = [] {
    date_time_t result(date(17, 5, 2024), time(8, 30, 0, 0));
    result += time_duration(25, 0, 0, 0);
    return result;
  }();
  static_assert(moved.day() == 2 && moved.hour() == 9);
}

}  // namespace
