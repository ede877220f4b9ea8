#include "orva/platform/posix/calendar.hpp"

#include <algorithm>
#include <chrono>

namespace ORVA_2_18::platform::posix {

namespace {

std::uint16_t milliseconds_of(const timespec& moment) {
  return static_cast<std::uint16_t>(moment.tv_nsec / 1'000'000);
}

}  // namespace

calendar_time local_calendar(const timespec& moment) noexcept {
  tm local;
  if (localtime_r(&moment.tv_sec, &local) == nullptr) return utc_calendar(moment);
  const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
  return {field(local.tm_year + 1900), field(local.tm_mon + 1), field(local.tm_mday),
          field(local.tm_hour),        field(local.tm_min),     field(std::min(local.tm_sec, 59)),
          milliseconds_of(moment)};
}

// The C runtime's own takes the lock of the time zone and counts leap seconds where the zone does.
calendar_time utc_calendar(const timespec& moment) noexcept {
  using namespace std::chrono;
  const sys_seconds second_of_epoch{seconds(moment.tv_sec)};
  const auto midnight = floor<days>(second_of_epoch);
  const year_month_day date(midnight);
  const auto second_of_day = static_cast<unsigned int>((second_of_epoch - midnight).count());
  const auto field = [](unsigned int value) { return static_cast<std::uint16_t>(value); };
  return {static_cast<std::uint16_t>(int{date.year()}),
          field(unsigned{date.month()}),
          field(unsigned{date.day()}),
          field(second_of_day / 3600),
          field(second_of_day / 60 % 60),
          field(second_of_day % 60),
          milliseconds_of(moment)};
}

}  // namespace ORVA_2_18::platform::posix
