// Every day and many moves, compared with the calendar of the standard library and with the plain steps.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <random>
#include <string>

#include "orva/system/date_time/date.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_calendar.hpp"

namespace {

using ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_duration;
using orva_test::reference_day;
namespace chrono = std::chrono;

struct open_date : date {
  using date::date;
  using date::pJulian_day_number;
};

constexpr int epoch = 719469;

unsigned int number_of(chrono::year_month_day day) {
  return static_cast<unsigned int>(chrono::sys_days(day).time_since_epoch().count() + epoch);
}

chrono::year_month_day day_of(unsigned int number) {
  return chrono::sys_days(chrono::days(static_cast<int>(number) - epoch));
}

bool is_february_29(chrono::year_month_day day) {
  return day.month() == chrono::February && day.day() == chrono::day(29);
}

bool same(const date& left, chrono::year_month_day right) {
  return static_cast<int>(left.year()) == int{right.year()} && left.month() == unsigned{right.month()} &&
         left.day() == unsigned{right.day()};
}

bool same(const date& left, const reference_day& right) {
  return left.year() == right.year && left.month() == right.month && left.day() == right.day;
}

open_date as_date(chrono::year_month_day day) {
  return {unsigned{day.day()}, unsigned{day.month()}, static_cast<unsigned int>(int{day.year()})};
}

/// The day at which a move to `day` ends: March 1 instead of February 29.
chrono::year_month_day reached(chrono::year_month_day day) {
  return is_february_29(day) ? chrono::year_month_day(day.year() / chrono::March / 1) : day;
}

TEST(date_calendar, every_day_from_year_1_to_9999_has_its_number_and_comes_back_but_february_29) {
  const auto last = number_of(chrono::year(9999) / 12 / 31);
  int leap_days = 0;
  for (auto number = number_of(chrono::year(1) / 1 / 1); number <= last; ++number) {
    const auto day = day_of(number);
    ASSERT_EQ(as_date(day).pJulian_day_number(), number);
    open_date back;
    back.pJulian_day_number(number);
    ASSERT_TRUE(same(back, reached(day))) << number;
    leap_days += is_february_29(day) ? 1 : 0;
  }
  EXPECT_EQ(leap_days, 9999 / 4 - 9999 / 100 + 9999 / 400);
}

TEST(date_calendar, every_day_from_year_1_to_9999_plus_one_is_the_next_but_march_1_for_february_29) {
  const auto last = number_of(chrono::year(9999) / 12 / 31);
  for (auto number = number_of(chrono::year(1) / 1 / 1); number <= last; ++number) {
    date moved = as_date(day_of(number));
    moved += 1;
    ASSERT_TRUE(same(moved, reached(day_of(number + 1)))) << number;
  }
}

TEST(date_calendar, a_million_random_moves) {
  orva_test::random_engine random;
  const auto first = number_of(chrono::year(1) / 1 / 1);
  std::uniform_int_distribution<unsigned int> any_number(first, number_of(chrono::year(9999) / 12 / 31));
  for (int i = 0; i < 1'000'000; ++i) {
    const auto from = any_number(random);
    const auto to = any_number(random);
    date forward = as_date(day_of(from));
    date back = forward;
    const auto days = static_cast<int>(to) - static_cast<int>(from);
    forward += days;
    back -= -days;
    ASSERT_TRUE(same(forward, reached(day_of(to)))) << from << " to " << to;
    ASSERT_TRUE(same(back, reached(day_of(to)))) << from << " to " << to;
  }
}

TEST(date_calendar, a_million_random_moves_step_by_step) {
  orva_test::random_engine random;
  std::uniform_int_distribution<int> any_step(-1000, 1000);
  date walking(1, 1, 5000);
  auto at = number_of(chrono::year(5000) / 1 / 1);
  for (int i = 0; i < 1'000'000; ++i) {
    const int step = any_step(random);
    if (step < 0) walking -= -step;
    if (step >= 0) walking += step;
    // Where a step reaches February 29, the next one starts at March 1.
    at = number_of(reached(day_of(at + static_cast<unsigned int>(step))));
    ASSERT_TRUE(same(walking, day_of(at))) << i;
  }
}

void expect_as_the_plain_steps(unsigned int number) {
  open_date moved;
  moved.pJulian_day_number(number);
  ASSERT_TRUE(same(moved, orva_test::reference_day_of_number(number))) << number;
  ASSERT_FALSE(moved.is_day_constrained()) << number;
}

TEST(date_calendar, numbers_of_all_32_bits_give_what_the_plain_steps_give) {
  constexpr unsigned int cycle = 146097;
  // Two whole cycles of the calendar, the ends of the number range, and the neighbours of each power of two.
  for (unsigned int number = 0; number <= 2 * cycle; ++number) expect_as_the_plain_steps(number);
  for (unsigned int number = 0; number <= cycle; ++number) expect_as_the_plain_steps(0u - number);
  for (int bit = 10; bit < 32; ++bit) {
    for (unsigned int near = 0; near < 2000; ++near) expect_as_the_plain_steps((1u << bit) - 1000 + near);
  }
}

TEST(date_calendar, random_numbers_and_dates_of_all_32_bits_give_what_the_plain_steps_give) {
  orva_test::random_engine random;
  for (int i = 0; i < 1'000'000; ++i) {
    expect_as_the_plain_steps(static_cast<unsigned int>(random()));
    const reference_day day = {static_cast<unsigned int>(random()),
                               static_cast<unsigned int>(random() % 12 + 1),
                               static_cast<unsigned int>(random() % 31 + 1)};
    ASSERT_EQ(open_date(day.day, day.month, day.year).pJulian_day_number(),
              orva_test::reference_day_number(day));
  }
}

TEST(date_calendar, default_date_has_the_number_of_the_plain_steps) {
  EXPECT_EQ(open_date().pJulian_day_number(), orva_test::reference_day_number({0, 0, 0}));
}

}  // namespace
