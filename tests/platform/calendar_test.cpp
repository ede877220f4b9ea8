#include "orva/platform/posix/calendar.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

namespace {

using ORVA_2_18::platform::calendar_time;
using ORVA_2_18::platform::posix::local_calendar;
using ORVA_2_18::platform::posix::utc_calendar;

std::string text(const calendar_time& t) {
  return std::to_string(t.day) + '.' + std::to_string(t.month) + '.' + std::to_string(t.year) + ' ' +
         std::to_string(t.hour) + ':' + std::to_string(t.minute) + ':' + std::to_string(t.second) + '.' +
         std::to_string(t.millisecond);
}

TEST(utc_calendar, moments) {
  EXPECT_EQ(text(utc_calendar({0, 0})), "1.1.1970 0:0:0.0");
  EXPECT_EQ(text(utc_calendar({-1, 0})), "31.12.1969 23:59:59.0");
  EXPECT_EQ(text(utc_calendar({1709251199, 0})), "29.2.2024 23:59:59.0");
  EXPECT_EQ(text(utc_calendar({253402300799, 999'999'999})), "31.12.9999 23:59:59.999");
}

TEST(utc_calendar, milliseconds_are_cut) {
  EXPECT_EQ(utc_calendar({0, 999'999}).millisecond, 0);
  EXPECT_EQ(utc_calendar({0, 1'000'000}).millisecond, 1);
  EXPECT_EQ(utc_calendar({-1, 999'999'999}).millisecond, 999);
}

TEST(utc_calendar, random_moments_are_what_the_c_runtime_says) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  // From year 1 to year 9999.
  std::uniform_int_distribution<std::time_t> any(-62135596800, 253402300799);
  for (int i = 0; i < 200'000; ++i) {
    const std::time_t second = any(random);
    std::tm expected;
    gmtime_r(&second, &expected);
    const auto t = utc_calendar({second, 0});
    ASSERT_EQ(t.year, expected.tm_year + 1900) << second;
    ASSERT_EQ(t.month, expected.tm_mon + 1) << second;
    ASSERT_EQ(t.day, expected.tm_mday) << second;
    ASSERT_EQ(t.hour, expected.tm_hour) << second;
    ASSERT_EQ(t.minute, expected.tm_min) << second;
    ASSERT_EQ(t.second, expected.tm_sec) << second;
  }
}

TEST(local_calendar, moment_beyond_every_calendar_has_fields_in_range) {
  constexpr std::time_t far = std::time_t{1} << 57;  // the C runtime has no year for it
  for (const std::time_t second : {far, -far}) {
    const auto t = local_calendar({second, 0});
    EXPECT_TRUE(t.month >= 1 && t.month <= 12) << text(t);
    EXPECT_TRUE(t.day >= 1 && t.day <= 31) << text(t);
    EXPECT_LT(t.hour, 24) << text(t);
    EXPECT_LT(t.minute, 60) << text(t);
    EXPECT_LT(t.second, 60) << text(t);
  }
}

}  // namespace
