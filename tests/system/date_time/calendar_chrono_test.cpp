// Every day, many pairs of days and random instants, compared with std::chrono.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <random>

#include "orva/system/date_time/calendar.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
namespace chrono = std::chrono;
using chrono::days;
using chrono::sys_days;
using chrono::year_month_day;

/// 10 million in the release preset, fewer in builds without full optimisation or with sanitizers.
constexpr int random_instants = ORVA_TEST_RANDOM_INSTANTS;

const sys_days year_1 = chrono::year(1) / 1 / 1;
const sys_days year_10000 = chrono::year(10000) / 1 / 1;

date as_date(year_month_day day) {
  return {unsigned{day.day()}, unsigned{day.month()}, static_cast<unsigned int>(int{day.year()})};
}

bool same(const date& left, year_month_day right) {
  return static_cast<int>(left.year()) == int{right.year()} && left.month() == unsigned{right.month()} &&
         left.day() == unsigned{right.day()} && !left.is_day_constrained();
}

bool same(const std::optional<date>& left, year_month_day right) {
  // A year that std::chrono holds, and ISO 8601 does not.
  const bool is_in_range = int{right.year()} >= 0 && int{right.year()} <= 9999;
  return is_in_range ? left && same(*left, right) : !left;
}

/// Calls `is_right` for every day of the years 1 to 9999; fails at the first day where it returns false.
template <typename Condition>
void expect_for_every_day(Condition is_right) {
  for (sys_days day = year_1; day < year_10000; day += days(1)) {
    if (!is_right(day)) FAIL() << "day " << day.time_since_epoch().count() << " from 1970";
  }
}

TEST(calendar_chrono, every_day_from_year_1_to_9999_converts_to_sys_days_and_back) {
  expect_for_every_day([](sys_days day) {
    const date converted = *to_date(day);
    return same(converted, day) && to_sys_days(converted) == day;
  });
}

TEST(calendar_chrono, every_day_from_year_1_to_9999_converts_to_year_month_day_and_back) {
  expect_for_every_day([](sys_days day) {
    const year_month_day fields = day;
    return same(*to_date(fields), fields) && to_year_month_day(as_date(fields)) == fields;
  });
}

TEST(calendar_chrono, every_day_from_year_1_to_9999_has_its_weekday_and_its_day_of_the_year) {
  expect_for_every_day([](sys_days day) {
    const year_month_day fields = day;
    const date converted = as_date(fields);
    const auto since_new_year = day - sys_days(fields.year() / 1 / 1);
    return weekday_of(converted) == chrono::weekday(day) &&
           day_of_year(converted) == since_new_year.count() + 1;
  });
}

TEST(calendar_chrono, every_day_from_year_1_to_9999_has_the_iso_week_of_its_thursday) {
  expect_for_every_day([](sys_days day) {
    const sys_days thursday = day - (chrono::weekday(day) - chrono::Monday) + days(3);
    const year_month_day fields = thursday;
    const auto since_new_year = thursday - sys_days(fields.year() / 1 / 1);
    const iso_week week = *iso_week_of(as_date(day));
    return week.year == int{fields.year()} && week.week == since_new_year.count() / 7 + 1;
  });
}

TEST(calendar_chrono, every_day_from_year_1_to_9999_moves_to_its_neighbours) {
  expect_for_every_day([](sys_days day) {
    const date from = as_date(day);
    return same(add_days(from, 1), day + days(1)) && same(*add_days(from, -1), day - days(1));
  });
}

TEST(calendar_chrono, days_are_as_far_apart_and_in_the_same_order_as_in_chrono) {
  // Steps that share no factor with each other or with the lengths of weeks, years and cycles.
  for (sys_days from = year_1; from < year_10000; from += days(10007)) {
    const date left = as_date(from);
    for (sys_days to = year_1; to < year_10000; to += days(20011)) {
      const date right = as_date(to);
      ASSERT_EQ(days_between(left, right), (to - from).count());
      ASSERT_TRUE(same(add_days(left, (to - from).count()), to));
      ASSERT_EQ(compare(left, right), from <=> to);
    }
  }
}

year_month_day by_rule(year_month_day day, month_end rule) {
  if (day.ok()) return day;
  if (rule == month_end::last_day) return day.year() / day.month() / chrono::last;
  return sys_days(day);  // counts on into the next month
}

void expect_months_as_in_chrono(year_month_day from, int months) {
  const year_month_day wanted = from + chrono::months(months);
  const date day = as_date(from);
  for (const month_end rule : {month_end::last_day, month_end::next_month}) {
    const auto moved = add_months(day, months, rule);
    ASSERT_TRUE(same(moved, by_rule(wanted, rule))) << months;
  }
  const bool is_kept = wanted.ok() && int{wanted.year()} >= 0 && int{wanted.year()} <= 9999;
  ASSERT_EQ(add_months(day, months, month_end::refuse).has_value(), is_kept) << months;
}

TEST(calendar_chrono, months_from_the_days_of_a_cycle_end_where_chrono_does) {
  const sys_days start = chrono::year(1999) / 1 / 1;
  for (sys_days day = start; day < start + days(1461); day += days(1)) {
    for (int months = -30; months <= 30; ++months)
      ASSERT_NO_FATAL_FAILURE(expect_months_as_in_chrono(day, months));
  }
}

TEST(calendar_chrono, random_months_end_where_chrono_does) {
  orva_test::random_engine random;
  std::uniform_int_distribution<int> any_day(0, static_cast<int>((year_10000 - year_1).count()) - 1);
  std::uniform_int_distribution<int> any_move(-130000, 130000);
  for (int i = 0; i < 100'000; ++i) {
    const year_month_day from = year_1 + days(any_day(random));
    ASSERT_NO_FATAL_FAILURE(expect_months_as_in_chrono(from, any_move(random)));
  }
}

TEST(calendar_chrono, years_from_every_february_29_end_where_chrono_does) {
  for (int year = 0; year <= 9996; year += 4) {
    const year_month_day leap = chrono::year(year) / 2 / 29;
    if (!leap.ok()) continue;
    for (int years = -9; years <= 9; ++years) {
      const year_month_day wanted = leap + chrono::years(years);
      for (const month_end rule : {month_end::last_day, month_end::next_month}) {
        ASSERT_TRUE(same(add_years(as_date(leap), years, rule), by_rule(wanted, rule)))
            << year << ' ' << years;
      }
    }
  }
}

using instant = chrono::sys_time<chrono::milliseconds>;

bool same(const date_time_t& left, instant right) {
  const sys_days midnight = chrono::floor<days>(right);
  const chrono::hh_mm_ss<chrono::milliseconds> clock(right - midnight);
  return same(left.date(), midnight) && left.hour() == clock.hours().count() &&
         left.minute() == clock.minutes().count() && left.second() == clock.seconds().count() &&
         left.millisecond() == clock.subseconds().count();
}

TEST(calendar_chrono, random_instants_convert_move_and_compare_as_in_chrono) {
  orva_test::random_engine random;
  const instant first = year_1;
  const auto range = static_cast<std::uint64_t>((year_10000 - year_1).count()) * 86400000;
  const auto any_instant = [&] {
    return first + chrono::milliseconds(static_cast<std::int64_t>(random.bits64() % range));
  };
  instant from = first;
  for (int i = 0; i < random_instants; ++i) {
    const instant to = any_instant();
    const date_time_t left = *to_date_time(from);
    const date_time_t right = *to_date_time(to);
    const milliseconds distance((to - from).count());
    const bool is_right = same(right, to) && to_sys_time(right) == to &&
                          time_between(left, right)->total_milliseconds() == (to - from).count() &&
                          compare(left, right) == (from <=> to) && same(*add_time(left, distance), to) &&
                          same(*subtract_time(right, distance), from);
    if (!is_right) FAIL() << from.time_since_epoch().count() << " to " << to.time_since_epoch().count();
    from = to;
  }
}

}  // namespace
