/// Converts readings of the clock to `date` and `time`.
///
/// Internal: not installed.
#pragma once

#include "orva/platform/clock.hpp"
#include "orva/system/date_time/date.hpp"
#include "orva/system/date_time/time.hpp"

namespace ORVA_NAMESPACE::system::date_time::_private {

inline date date_of(const platform::calendar_time& reading) {
  return {reading.day, reading.month, reading.year};
}

inline time time_of(const platform::calendar_time& reading) {
  return {reading.hour, reading.minute, reading.second, reading.millisecond};
}

}  // namespace ORVA_NAMESPACE::system::date_time::_private
