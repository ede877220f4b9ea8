#include "orva/platform/posix/calendar.hpp"

#include <algorithm>
#include <cstdint>

namespace ORVA_NAMESPACE::platform::posix {

namespace {

// Cut, never rounded: a second is not over before its end.
unsigned int milliseconds_of(const timespec& moment) {
  return static_cast<unsigned int>(moment.tv_nsec) / 1'000'000;
}

}  // namespace

calendar_time local_calendar(const timespec& moment) noexcept {
  tm local;
  if (localtime_r(&moment.tv_sec, &local) == nullptr) return utc_calendar(moment);
  const auto field = [](int value) { return static_cast<unsigned int>(value); };
  return {.year = static_cast<std::uint16_t>(local.tm_year + 1900),
          .month = field(local.tm_mon + 1),
          .day = field(local.tm_mday),
          .hour = field(local.tm_hour),
          .minute = field(local.tm_min),
          .second = field(std::min(local.tm_sec, 59)),
          .millisecond = milliseconds_of(moment)};
}

calendar_time utc_calendar(const timespec& moment) noexcept {
  return internal::utc_calendar(moment.tv_sec, milliseconds_of(moment));
}

}  // namespace ORVA_NAMESPACE::platform::posix
