#include "orva/platform/posix/calendar.hpp"

#include <algorithm>
#include <chrono>

namespace ORVA_2_18::platform::posix {

namespace {

std::uint16_t year_of(int year) { return static_cast<std::uint16_t>(year); }

unsigned int milliseconds_of(const timespec& moment) {
  return static_cast<unsigned int>(moment.tv_nsec) / 1'000'000;
}

}  // namespace

calendar_time local_calendar(const timespec& moment) noexcept {
  tm local;
  if (localtime_r(&moment.tv_sec, &local) == nullptr) return utc_calendar(moment);
  const auto field = [](int value) { return static_cast<unsigned int>(value); };
  return {.year = year_of(local.tm_year + 1900),
          .month = field(local.tm_mon + 1),
          .day = field(local.tm_mday),
          .hour = field(local.tm_hour),
          .minute = field(local.tm_min),
          .second = field(std::min(local.tm_sec, 59)),
          .millisecond = milliseconds_of(moment)};
}

// The C runtime's own takes the lock of the time zone and counts leap seconds where the zone does.
calendar_time utc_calendar(const timespec& moment) noexcept {
  using namespace std::chrono;
  const sys_seconds second_of_epoch{seconds(moment.tv_sec)};
  const auto midnight = floor<days>(second_of_epoch);
  const year_month_day date(midnight);
  const auto second_of_day = static_cast<unsigned int>((second_of_epoch - midnight).count());
  return {.year = year_of(int{date.year()}),
          .month = unsigned{date.month()},
          .day = unsigned{date.day()},
          .hour = second_of_day / 3600,
          .minute = second_of_day / 60 % 60,
          .second = second_of_day % 60,
          .millisecond = milliseconds_of(moment)};
}

}  // namespace ORVA_2_18::platform::posix
