// Readings of the clock as dates and times, with a clock that tests set.
#include <gtest/gtest.h>

#include "orva/system/date_time/date_time.hpp"
#include "tests/system/date_time/fake_clock.hpp"
#include "tests/system/date_time/raised.hpp"

namespace {

using ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_time_t;
using ORVA_NAMESPACE::system::date_time::time;
using orva_test::clock;
using orva_test::raised;

struct clock_readings : testing::Test {
  clock_readings() {
    clock.local = {2024, 2, 29, 23, 59, 58, 997};
    clock.utc = {2024, 3, 1, 4, 5, 6, 7};
    clock.calendar_readings = 0;
  }
};

void expect(const date& read, unsigned int day, unsigned int month, unsigned int year) {
  EXPECT_EQ(read.day(), day);
  EXPECT_EQ(read.month(), month);
  EXPECT_EQ(read.year(), year);
}

void expect(const time& read, int hour, int minute, int second, int millisecond) {
  EXPECT_EQ(read.hour(), hour);
  EXPECT_EQ(read.minute(), minute);
  EXPECT_EQ(read.second(), second);
  EXPECT_EQ(read.millisecond(), millisecond);
}

TEST_F(clock_readings, local) {
  expect(date::local_date(), 29, 2, 2024);
  expect(time::local_time(), 23, 59, 58, 997);
}

TEST_F(clock_readings, UTC) {
  expect(date::UTC_date(), 1, 3, 2024);
  expect(time::UTC_time(), 4, 5, 6, 7);
}

TEST_F(clock_readings, date_and_time_are_one_reading) {
  const auto local = date_time_t::local_date_time();
  EXPECT_EQ(clock.calendar_readings, 1);
  expect(local.date(), 29, 2, 2024);
  expect(local.time(), 23, 59, 58, 997);
  const auto utc = date_time_t::UTC_date_time();
  EXPECT_EQ(clock.calendar_readings, 2);
  expect(utc.date(), 1, 3, 2024);
  expect(utc.time(), 4, 5, 6, 7);
}

TEST_F(clock_readings, pass_the_checks_of_the_constructors) {
  clock.local = {65535, 13, 1, 24, 0, 0, 0};
  EXPECT_EQ(raised([] { date::local_date(); }), orva_test::bad_month);
  EXPECT_EQ(raised([] { time::local_time(); }), orva_test::bad_hour);
  EXPECT_EQ(raised([] { date_time_t::local_date_time(); }), orva_test::bad_month);
  clock.utc = {65535, 12, 0, 23, 60, 0, 0};
  EXPECT_EQ(raised([] { date::UTC_date(); }), orva_test::bad_day);
  EXPECT_EQ(raised([] { time::UTC_time(); }), orva_test::bad_minute);
}

}  // namespace
