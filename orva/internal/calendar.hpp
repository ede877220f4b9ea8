/// Moments as calendar time.
///
/// Internal: not installed.
#pragma once

#include <cstdint>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// Gregorian. A leap second that the system shows as 60 is 59 here.
struct calendar_time {
  unsigned int year;   // cut to 16 bits
  unsigned int month;  // 1 to 12
  unsigned int day;    // 1 to the length of the month
  unsigned int hour;
  unsigned int minute;
  unsigned int second;
  unsigned int millisecond;
};

/// The calendar time of a moment in UTC: seconds since the first of January 1970, and milliseconds of that
/// second. The C runtime's own function takes the lock of the time zone and counts leap seconds where the
/// zone does.
calendar_time utc_calendar(std::int64_t second, unsigned int millisecond) noexcept;

}  // namespace ORVA_NAMESPACE::internal
