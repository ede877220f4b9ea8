#include "orva/system/date_time/date_time.hpp"

#include "orva/system/date_time/internal/calendar_reading.hpp"

namespace ORVA_NAMESPACE::system::date_time {

namespace {

date_time_t date_time_of(const platform::calendar_time& reading) {
  return {_private::date_of(reading), _private::time_of(reading)};
}

}  // namespace

date_time_t date_time_t::local_date_time() { return date_time_of(platform::local_calendar()); }
date_time_t date_time_t::UTC_date_time() { return date_time_of(platform::utc_calendar()); }

}  // namespace ORVA_NAMESPACE::system::date_time
