#include "orva/internal/calendar.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <random>
#include <string>

namespace {

using ORVA_NAMESPACE::internal::calendar_time;
using ORVA_NAMESPACE::internal::utc_calendar;

std::string text(const calendar_time& t) {
  return std::to_string(t.day) + '.' + std::to_string(t.month) + '.' + std::to_string(t.year) + ' ' +
         std::to_string(t.hour) + ':' + std::to_string(t.minute) + ':' + std::to_string(t.second) + '.' +
         std::to_string(t.millisecond);
}

TEST(utc_calendar, moments) {
  EXPECT_EQ(text(utc_calendar(0, 0)), "1.1.1970 0:0:0.0");
  EXPECT_EQ(text(utc_calendar(-1, 0)), "31.12.1969 23:59:59.0");
  EXPECT_EQ(text(utc_calendar(1709251199, 0)), "29.2.2024 23:59:59.0");
  EXPECT_EQ(text(utc_calendar(253402300799, 999)), "31.12.9999 23:59:59.999");
}

TEST(utc_calendar, random_moments_are_what_the_c_runtime_says) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  // From year 1 to year 9999.
  std::uniform_int_distribution<std::int64_t> any(-62135596800, 253402300799);
  for (int i = 0; i < 200'000; ++i) {
    const auto second = static_cast<std::time_t>(any(random));
    const std::tm expected = *std::gmtime(&second);
    const auto t = utc_calendar(second, 0);
    ASSERT_EQ(t.year, expected.tm_year + 1900) << second;
    ASSERT_EQ(t.month, expected.tm_mon + 1) << second;
    ASSERT_EQ(t.day, expected.tm_mday) << second;
    ASSERT_EQ(t.hour, expected.tm_hour) << second;
    ASSERT_EQ(t.minute, expected.tm_min) << second;
    ASSERT_EQ(t.second, expected.tm_sec) << second;
  }
}

}  // namespace
