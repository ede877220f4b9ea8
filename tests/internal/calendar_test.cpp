#include "orva/internal/calendar.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <random>
#include <string>

#include "tests/support/random_engine.hpp"

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
  orva_test::random_engine random;
  // From year 1 to year 9999; 32-bit times and some runtimes end sooner.
  using seconds = std::numeric_limits<std::time_t>;
  std::uniform_int_distribution<std::int64_t> any(std::max<std::int64_t>(-62135596800, seconds::min()),
                                                  std::min<std::int64_t>(253402300799, seconds::max()));
  int compared = 0;
  for (int i = 0; i < 200'000; ++i) {
    const auto second = static_cast<std::time_t>(any(random));
    const std::tm* const found = std::gmtime(&second);
    if (found == nullptr) continue;
    const std::tm expected = *found;
    ++compared;
    const auto t = utc_calendar(second, 0);
    ASSERT_EQ(t.year, expected.tm_year + 1900) << second;
    ASSERT_EQ(t.month, expected.tm_mon + 1) << second;
    ASSERT_EQ(t.day, expected.tm_mday) << second;
    ASSERT_EQ(t.hour, expected.tm_hour) << second;
    ASSERT_EQ(t.minute, expected.tm_min) << second;
    ASSERT_EQ(t.second, expected.tm_sec) << second;
  }
  EXPECT_GT(compared, 1000);
}

}  // namespace
