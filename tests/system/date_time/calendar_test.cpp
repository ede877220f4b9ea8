#include "orva/system/date_time/calendar.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <compare>
#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/date_time_text.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
using ORVA_NAMESPACE::system::date_time::time;  // not the function of the C library
using orva_test::text;
namespace chrono = std::chrono;

constexpr long long least = std::numeric_limits<long long>::min();
constexpr long long greatest = std::numeric_limits<long long>::max();

std::string text(const time_and_days& t) { return text(t.time) + " and " + std::to_string(t.days); }

template <typename Value>
std::string text(const std::optional<Value>& value) {
  return value ? text(*value) : "nothing";
}

const date first_date(1, 1, 0);
const date last_date(31, 12, 9999);

/// All that is not a day of the calendar, or is one outside the years.
std::vector<date> invalid_dates() {
  date only_a_month;
  only_a_month.month(1);
  date only_a_day;
  only_a_day.day(1);
  return {date(),
          only_a_month,
          only_a_day,
          date(30, 2, 2024),
          date(29, 2, 2023),
          date(31, 4, 2024),
          date(1, 1, 10000),
          date(1, 3, std::numeric_limits<unsigned int>::max())};
}

TEST(calendar, documentation_example) {
  const date leap(29, 2, 2024);
  EXPECT_EQ(text(add_days(leap, 366)), "1.3.2025");
  EXPECT_EQ(text(add_years(leap, 1, month_end::last_day)), "28.2.2025");
  EXPECT_EQ(days_between(leap, date(1, 1, 2025)), 307);
  EXPECT_TRUE(compare(leap, date(1, 3, 2024)) < 0);
  EXPECT_EQ(to_sys_days(leap), chrono::sys_days(chrono::year(2024) / 2 / 29));
}

TEST(calendar, can_be_used_in_constant_expressions) {
  constexpr date leap(29, 2, 2024);
  static_assert(is_valid(leap));
  static_assert(add_days(leap, 1)->month() == 3);
  static_assert(add_months(leap, -12, month_end::last_day)->day() == 28);
  static_assert(add_years(leap, 4, month_end::refuse)->day() == 29);
  static_assert(add_time(date_time_t(leap, time(23, 0, 0, 0)), time_duration(1, 0, 0, 0))->month() == 3);
  static_assert(compare(leap, leap) == 0);
  static_assert(weekday_of(leap) == chrono::Thursday);
  static_assert(iso_week_of(leap)->week == 9);
  static_assert(to_date(*to_sys_days(leap))->day() == 29);
  static_assert(to_date_time(*to_time_point(date_time_t(leap, time())))->day() == 29);
}

TEST(calendar, days_of_the_years_0_to_9999_are_valid) {
  EXPECT_TRUE(is_valid(first_date));
  EXPECT_TRUE(is_valid(last_date));
  EXPECT_TRUE(is_valid(date(29, 2, 0)));
  EXPECT_TRUE(is_valid(date_time_t(last_date, time(23, 59, 59, 999))));
  for (const date& invalid : invalid_dates()) {
    EXPECT_FALSE(is_valid(invalid)) << text(invalid);
    EXPECT_FALSE(is_valid(date_time_t(invalid, time()))) << text(invalid);
  }
}

TEST(calendar, date_of_its_own_day_month_and_year_has_no_stored_day) {
  const date constrained(30, 2, 2024);
  const date day(constrained.day(), constrained.month(), constrained.year());
  EXPECT_TRUE(is_valid(day));
  EXPECT_EQ(text(day), "29.2.2024");
}

TEST(calendar, invalid_dates_are_refused_by_every_function) {
  for (const date& invalid : invalid_dates()) {
    SCOPED_TRACE(text(invalid));
    const date_time_t moment(invalid, time());
    const date_time_t valid(first_date, time());
    EXPECT_EQ(text(add_days(invalid, 0)), "nothing");
    EXPECT_EQ(text(add_months(invalid, 0, month_end::last_day)), "nothing");
    EXPECT_EQ(text(add_years(invalid, 0, month_end::last_day)), "nothing");
    EXPECT_EQ(text(add_days(moment, 0)), "nothing");
    EXPECT_EQ(text(add_months(moment, 0, month_end::next_month)), "nothing");
    EXPECT_EQ(text(add_years(moment, 0, month_end::next_month)), "nothing");
    EXPECT_EQ(text(add_time(moment, time_duration())), "nothing");
    EXPECT_EQ(text(subtract_time(moment, time_duration())), "nothing");
    EXPECT_EQ(days_between(invalid, first_date), std::nullopt);
    EXPECT_EQ(days_between(first_date, invalid), std::nullopt);
    EXPECT_FALSE(time_between(moment, valid).has_value());
    EXPECT_FALSE(time_between(valid, moment).has_value());
    EXPECT_EQ(weekday_of(invalid), std::nullopt);
    EXPECT_EQ(day_of_year(invalid), std::nullopt);
    EXPECT_FALSE(iso_week_of(invalid).has_value());
    EXPECT_EQ(to_sys_days(invalid), std::nullopt);
    EXPECT_EQ(to_year_month_day(invalid), std::nullopt);
    EXPECT_EQ(to_sys_time(moment), std::nullopt);
    EXPECT_EQ(to_time_point(moment), std::nullopt);
  }
}

TEST(calendar, days_reach_february_29_and_both_ends_of_the_years) {
  EXPECT_EQ(text(add_days(date(28, 2, 2024), 1)), "29.2.2024");
  EXPECT_EQ(text(add_days(date(1, 3, 2024), -1)), "29.2.2024");
  EXPECT_EQ(text(add_days(date(1, 3, 1900), -1)), "28.2.1900");
  EXPECT_EQ(text(add_days(date(29, 2, 2024), 0)), "29.2.2024");
  EXPECT_EQ(text(add_days(date(28, 2, 0), 1)), "29.2.0");
  EXPECT_EQ(text(add_days(first_date, 3652424)), "31.12.9999");
  EXPECT_EQ(text(add_days(last_date, -3652424)), "1.1.0");
  EXPECT_EQ(text(add_days(date_time_t(last_date, time(1, 2, 3, 4)), -1)), "30.12.9999 1:2:3.4");
}

TEST(calendar, moves_out_of_the_years_are_refused) {
  EXPECT_EQ(text(add_days(first_date, -1)), "nothing");
  EXPECT_EQ(text(add_days(last_date, 1)), "nothing");
  EXPECT_EQ(text(add_days(first_date, 3652425)), "nothing");
  EXPECT_EQ(text(add_months(first_date, -1, month_end::last_day)), "nothing");
  EXPECT_EQ(text(add_months(last_date, 1, month_end::last_day)), "nothing");
  EXPECT_EQ(text(add_years(date(31, 12, 0), -1, month_end::last_day)), "nothing");
  EXPECT_EQ(text(add_years(date(1, 1, 9999), 1, month_end::last_day)), "nothing");
  for (const long long far : {least, least + 1, greatest - 1, greatest, 1LL << 32, -(1LL << 32)}) {
    for (const date& from : {first_date, date(17, 5, 2024), last_date}) {
      EXPECT_EQ(text(add_days(from, far)), "nothing") << far;
      EXPECT_EQ(text(add_months(from, far, month_end::next_month)), "nothing") << far;
      EXPECT_EQ(text(add_years(from, far, month_end::next_month)), "nothing") << far;
    }
  }
}

TEST(calendar, months_end_by_the_rule_where_the_month_is_too_short) {
  const struct {
    date from;
    long long months;
    std::string last_day;
    std::string next_month;
    std::string refuse;
  } rows[] = {
      {date(31, 1, 2023), 1, "28.2.2023", "3.3.2023", "nothing"},
      {date(31, 1, 2024), 1, "29.2.2024", "2.3.2024", "nothing"},
      {date(30, 1, 2023), 1, "28.2.2023", "2.3.2023", "nothing"},
      {date(29, 1, 2023), 1, "28.2.2023", "1.3.2023", "nothing"},
      {date(28, 1, 2023), 1, "28.2.2023", "28.2.2023", "28.2.2023"},
      {date(31, 3, 2024), 1, "30.4.2024", "1.5.2024", "nothing"},
      {date(31, 3, 2024), -1, "29.2.2024", "2.3.2024", "nothing"},
      {date(31, 1, 2024), -2, "30.11.2023", "1.12.2023", "nothing"},
      {date(31, 10, 2024), 2, "31.12.2024", "31.12.2024", "31.12.2024"},
      {date(15, 11, 2024), 2, "15.1.2025", "15.1.2025", "15.1.2025"},
      {date(15, 1, 2024), -1, "15.12.2023", "15.12.2023", "15.12.2023"},
      {date(29, 2, 2024), 12, "28.2.2025", "1.3.2025", "nothing"},
      {date(29, 2, 2024), -48, "29.2.2020", "29.2.2020", "29.2.2020"},
      {date(31, 12, 9999), -119999, "31.1.0", "31.1.0", "31.1.0"},
      {date(31, 1, 0), 119999, "31.12.9999", "31.12.9999", "31.12.9999"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(text(row.from) + " and " + std::to_string(row.months));
    EXPECT_EQ(text(add_months(row.from, row.months, month_end::last_day)), row.last_day);
    EXPECT_EQ(text(add_months(row.from, row.months, month_end::next_month)), row.next_month);
    EXPECT_EQ(text(add_months(row.from, row.months, month_end::refuse)), row.refuse);
  }
}

TEST(calendar, years_end_by_the_rule_from_february_29) {
  const date leap(29, 2, 2096);
  EXPECT_EQ(text(add_years(leap, 4, month_end::last_day)), "28.2.2100");
  EXPECT_EQ(text(add_years(leap, 4, month_end::next_month)), "1.3.2100");
  EXPECT_EQ(text(add_years(leap, 4, month_end::refuse)), "nothing");
  EXPECT_EQ(text(add_years(leap, 8, month_end::refuse)), "29.2.2104");
  EXPECT_EQ(text(add_years(leap, -2096, month_end::refuse)), "29.2.0");
  EXPECT_EQ(text(add_years(date(31, 12, 0), 9999, month_end::refuse)), "31.12.9999");
  EXPECT_EQ(text(add_years(date_time_t(leap, time(23, 0, 0, 0)), 1, month_end::last_day)),
            "28.2.2097 23:0:0.0");
}

TEST(calendar, rule_out_of_its_range_refuses) {
  EXPECT_EQ(text(add_months(date(31, 1, 2023), 1, static_cast<month_end>(9))), "nothing");
}

TEST(calendar, times_report_the_days_that_they_pass) {
  EXPECT_EQ(text(add_time(time(22, 30, 0, 0), time_duration(8, 0, 0, 0))), "6:30:0.0 and 1");
  EXPECT_EQ(text(add_time(time(23, 59, 59, 999), milliseconds(1))), "0:0:0.0 and 1");
  EXPECT_EQ(text(add_time(time(23, 59, 59, 998), milliseconds(1))), "23:59:59.999 and 0");
  EXPECT_EQ(text(add_time(time(), milliseconds(-1))), "23:59:59.999 and -1");
  EXPECT_EQ(text(add_time(time(), time_duration(-24, 0, 0, 0))), "0:0:0.0 and -1");
  EXPECT_EQ(text(add_time(time(8, 30, 0, 0), time_duration(48, 0, 0, 0))), "8:30:0.0 and 2");
  EXPECT_EQ(text(subtract_time(time(8, 30, 0, 0), time_duration(32, 30, 0, 0))), "0:0:0.0 and -1");
  EXPECT_EQ(text(subtract_time(time(8, 30, 0, 0), time_duration(32, 31, 0, 0))), "23:59:0.0 and -2");
}

TEST(calendar, times_take_the_greatest_and_the_least_duration) {
  // 2^63 milliseconds are 106,751,991,167 days, 7 hours, 12 minutes and 55.808 seconds.
  EXPECT_EQ(text(add_time(time(), milliseconds(greatest))), "7:12:55.807 and 106751991167");
  EXPECT_EQ(text(add_time(time(), milliseconds(least))), "16:47:4.192 and -106751991168");
  EXPECT_EQ(text(subtract_time(time(), milliseconds(least))), "7:12:55.808 and 106751991167");
  EXPECT_EQ(text(subtract_time(time(), milliseconds(greatest))), "16:47:4.193 and -106751991168");
  const date_time_t moment(date(17, 5, 2024), time(8, 30, 0, 0));
  for (const long long far : {least, greatest}) {
    EXPECT_EQ(text(add_time(moment, milliseconds(far))), "nothing");
    EXPECT_EQ(text(subtract_time(moment, milliseconds(far))), "nothing");
  }
}

TEST(calendar, moment_moves_its_date_over_midnight) {
  const date_time_t moment(date(17, 5, 2024), time(8, 30, 0, 0));
  EXPECT_EQ(text(add_time(moment, time_duration(20, 0, 0, 0))), "18.5.2024 4:30:0.0");
  EXPECT_EQ(text(add_time(moment, time_duration(48, 0, 0, 0))), "19.5.2024 8:30:0.0");
  EXPECT_EQ(text(add_time(moment, time_duration(-25, 0, 0, 0))), "16.5.2024 7:30:0.0");
  EXPECT_EQ(text(subtract_time(moment, time_duration(25, 0, 0, 0))), "16.5.2024 7:30:0.0");
  EXPECT_EQ(text(add_time(date_time_t(date(28, 2, 2024), time(23, 59, 59, 999)), milliseconds(1))),
            "29.2.2024 0:0:0.0");
  EXPECT_EQ(text(add_time(date_time_t(last_date, time(23, 59, 59, 999)), milliseconds(1))), "nothing");
  EXPECT_EQ(text(subtract_time(date_time_t(first_date, time()), milliseconds(1))), "nothing");
}

TEST(calendar, differences_have_the_sign_of_the_way) {
  EXPECT_EQ(days_between(date(28, 2, 2024), date(1, 3, 2024)), 2);
  EXPECT_EQ(days_between(date(1, 3, 2024), date(28, 2, 2024)), -2);
  EXPECT_EQ(days_between(first_date, last_date), 3652424);
  const date_time_t evening(date(31, 12, 1999), time(23, 59, 59, 999));
  const date_time_t morning(date(1, 1, 2000), time());
  EXPECT_EQ(time_between(evening, morning)->total_milliseconds(), 1);
  EXPECT_EQ(time_between(morning, evening)->total_milliseconds(), -1);
  EXPECT_EQ(time_between({first_date, time()}, {last_date, time(23, 59, 59, 999)})->total_milliseconds(),
            3652425LL * 86400000 - 1);
}

TEST(calendar, values_in_order_compare_as_their_places) {
  const std::vector<date> dates = {date(),           first_date, date(31, 1, 2024),      date(1, 2, 2024),
                                   date(1, 1, 2025), last_date,  date(1, 1, 4000000000u)};
  for (std::size_t i = 0; i < dates.size(); ++i) {
    for (std::size_t j = 0; j < dates.size(); ++j) {
      EXPECT_EQ(compare(dates[i], dates[j]), i <=> j);
      const date_time_t left(dates[i], time());
      const date_time_t right(dates[j], time());
      EXPECT_EQ(compare(left, right), i <=> j);
    }
  }
  const std::vector<time> times = {time(), time(0, 0, 0, 1), time(0, 0, 1, 0), time(0, 1, 0, 0),
                                   time(1, 0, 0, 0)};
  for (std::size_t i = 0; i < times.size(); ++i) {
    for (std::size_t j = 0; j < times.size(); ++j) {
      EXPECT_EQ(compare(times[i], times[j]), i <=> j);
      EXPECT_EQ(compare(date_time_t(first_date, times[i]), date_time_t(first_date, times[j])), i <=> j);
    }
  }
}

TEST(calendar, date_is_compared_by_the_day_it_reads_as) {
  EXPECT_TRUE(compare(date(31, 2, 2023), date(28, 2, 2023)) == 0);
  EXPECT_TRUE(compare(date(31, 2, 2023), date(1, 3, 2023)) < 0);
}

TEST(calendar, durations_are_compared_with_all_their_bits) {
  const milliseconds low(1);
  const milliseconds high(1LL << 32);
  EXPECT_TRUE(compare(low, high) < 0);
  EXPECT_TRUE(compare(milliseconds(least), milliseconds(greatest)) < 0);
  EXPECT_TRUE(compare(time_duration(0, 1, 0, 0), milliseconds(60000)) == 0);
}

TEST(calendar, earlier_sorts_and_serves_as_the_order_of_keys) {
  std::vector<date> dates = {date(3, 1, 2024), date(1, 1, 2025), date(2, 1, 2024)};
  std::sort(dates.begin(), dates.end(), earlier());
  EXPECT_EQ(text(dates[0]) + ' ' + text(dates[1]) + ' ' + text(dates[2]), "2.1.2024 3.1.2024 1.1.2025");
  std::map<date, int, earlier> numbers;
  numbers[date(1, 1, 2024)] = 1;
  numbers[date(1, 1, 2024)] = 2;
  EXPECT_EQ(numbers.size(), 1u);
  EXPECT_TRUE(earlier()(milliseconds(-1), milliseconds(0)));
  EXPECT_FALSE(earlier()(milliseconds(0), milliseconds(0)));
  EXPECT_TRUE(earlier()(time(8, 29, 59, 999), time(8, 30, 0, 0)));
  EXPECT_TRUE(earlier()(date_time_t(first_date, time()), date_time_t(first_date, time(0, 0, 0, 1))));
}

TEST(calendar, iso_week_belongs_to_the_year_of_its_thursday) {
  const struct {
    date day;
    int year;
    int week;
  } rows[] = {
      {date(30, 12, 2024), 2025, 1},  {date(29, 12, 2024), 2024, 52}, {date(1, 1, 2027), 2026, 53},
      {date(4, 1, 2027), 2027, 1},    {date(1, 1, 2024), 2024, 1},    {date(31, 12, 2020), 2020, 53},
      {date(1, 1, 2023), 2022, 52},   {date(1, 1, 0), -1, 52},        {date(3, 1, 0), 0, 1},
      {date(31, 12, 9999), 9999, 52},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(iso_week_of(row.day)->year, row.year) << text(row.day);
    EXPECT_EQ(iso_week_of(row.day)->week, row.week) << text(row.day);
  }
}

TEST(calendar, chrono_dates_that_are_no_days_or_out_of_the_years_are_refused) {
  using chrono::year;
  EXPECT_EQ(text(to_date(year(2024) / 2 / 29)), "29.2.2024");
  EXPECT_EQ(text(to_date(year(0) / 1 / 1)), "1.1.0");
  EXPECT_EQ(text(to_date(year(9999) / 12 / 31)), "31.12.9999");
  EXPECT_EQ(text(to_date(year(2023) / 2 / 29)), "nothing");
  EXPECT_EQ(text(to_date(year(2023) / 0 / 1)), "nothing");
  EXPECT_EQ(text(to_date(year(2023) / 1 / 0)), "nothing");
  EXPECT_EQ(text(to_date(year(-1) / 12 / 31)), "nothing");
  EXPECT_EQ(text(to_date(year(10000) / 1 / 1)), "nothing");
  EXPECT_EQ(text(to_date(year::min() / 1 / 1)), "nothing");
  EXPECT_EQ(text(to_date(year::max() / 1 / 1)), "nothing");
  const chrono::sys_days first = year(0) / 1 / 1;
  const chrono::sys_days last = year(9999) / 12 / 31;
  EXPECT_EQ(text(to_date(first)), "1.1.0");
  EXPECT_EQ(text(to_date(last)), "31.12.9999");
  EXPECT_EQ(text(to_date(first - chrono::days(1))), "nothing");
  EXPECT_EQ(text(to_date(last + chrono::days(1))), "nothing");
  EXPECT_EQ(text(to_date(chrono::sys_days::min())), "nothing");
  EXPECT_EQ(text(to_date(chrono::sys_days::max())), "nothing");
}

TEST(calendar, chrono_instants_out_of_the_years_are_refused) {
  using instant = chrono::sys_time<chrono::milliseconds>;
  const instant first = chrono::sys_days(chrono::year(0) / 1 / 1);
  const instant last =
      chrono::sys_days(chrono::year(9999) / 12 / 31) + chrono::hours(24) - chrono::milliseconds(1);
  EXPECT_EQ(text(to_date_time(first)), "1.1.0 0:0:0.0");
  EXPECT_EQ(text(to_date_time(last)), "31.12.9999 23:59:59.999");
  EXPECT_EQ(to_sys_time({first_date, time()}), first);
  EXPECT_EQ(to_sys_time({last_date, time(23, 59, 59, 999)}), last);
  EXPECT_EQ(text(to_date_time(first - chrono::milliseconds(1))), "nothing");
  EXPECT_EQ(text(to_date_time(last + chrono::milliseconds(1))), "nothing");
  EXPECT_EQ(text(to_date_time(instant::min())), "nothing");
  EXPECT_EQ(text(to_date_time(instant::max())), "nothing");
}

TEST(calendar, time_point_is_rounded_down_to_the_millisecond) {
  using chrono::system_clock;
  const system_clock::time_point epoch;
  const auto tick = system_clock::duration(1);
  EXPECT_EQ(text(to_date_time(epoch)), "1.1.1970 0:0:0.0");
  EXPECT_EQ(text(to_date_time(epoch + chrono::milliseconds(5) + tick)), "1.1.1970 0:0:0.5");
  EXPECT_EQ(text(to_date_time(epoch - tick)), "31.12.1969 23:59:59.999");
}

TEST(calendar, date_out_of_the_range_of_the_clock_has_no_time_point) {
  using chrono::system_clock;
  const date_time_t inside(date(17, 5, 2024), time(8, 30, 0, 0));
  EXPECT_EQ(to_time_point(inside), chrono::sys_days(chrono::year(2024) / 5 / 17) + chrono::minutes(510));
  // The ends of the range, and one millisecond more.
  const auto first = chrono::ceil<chrono::milliseconds>(system_clock::time_point::min());
  const auto last = chrono::floor<chrono::milliseconds>(system_clock::time_point::max());
  const auto one = chrono::milliseconds(1);
  if (const auto moment = to_date_time(first)) {
    EXPECT_EQ(to_time_point(*moment), first);
    EXPECT_EQ(to_time_point(*to_date_time(first - one)), std::nullopt);
    EXPECT_EQ(to_time_point({first_date, time()}), std::nullopt);
  }
  if (const auto moment = to_date_time(last)) {
    EXPECT_EQ(to_time_point(*moment), last);
    EXPECT_EQ(to_time_point(*to_date_time(last + one)), std::nullopt);
    EXPECT_EQ(to_time_point({last_date, time()}), std::nullopt);
  }
}

TEST(calendar, ends_of_the_clock_are_converted_where_the_years_hold_them) {
  using chrono::system_clock;
  // They are in the years 1677 and 2262 of a clock that counts nanoseconds.
  if (chrono::floor<chrono::hours>(system_clock::duration::max()) < chrono::hours(24 * 365 * 1000)) {
    EXPECT_EQ(text(to_date_time(system_clock::time_point::min())), "21.9.1677 0:12:43.145");
    EXPECT_EQ(text(to_date_time(system_clock::time_point::max())), "11.4.2262 23:47:16.854");
  }
}

}  // namespace
