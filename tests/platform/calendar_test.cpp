#include "orva/platform/posix/calendar.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

namespace {

using ORVA_NAMESPACE::platform::calendar_time;
using ORVA_NAMESPACE::platform::posix::local_calendar;
using ORVA_NAMESPACE::platform::posix::utc_calendar;

std::string text(const calendar_time& t) {
  return std::to_string(t.day) + '.' + std::to_string(t.month) + '.' + std::to_string(t.year) + ' ' +
         std::to_string(t.hour) + ':' + std::to_string(t.minute) + ':' + std::to_string(t.second) + '.' +
         std::to_string(t.millisecond);
}

TEST(utc_calendar, milliseconds_are_cut) {
  EXPECT_EQ(utc_calendar({0, 999'999}).millisecond, 0);
  EXPECT_EQ(utc_calendar({0, 1'000'000}).millisecond, 1);
  EXPECT_EQ(utc_calendar({-1, 999'999'999}).millisecond, 999);
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
