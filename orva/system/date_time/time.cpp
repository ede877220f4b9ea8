#include "orva/system/date_time/time.hpp"

#include "orva/internal/raise.hpp"
#include "orva/system/date_time/internal/calendar_reading.hpp"

namespace ORVA_NAMESPACE::system::date_time {

time time::local_time() { return _private::time_of(platform::local_calendar()); }
time time::UTC_time() { return _private::time_of(platform::utc_calendar()); }

void time::refuse_hour() {
  ORVA_RAISE(exceptions::out_of_range, "Hour value out of valid range",
             ORVA_QUALIFIED("system::date_time::time::hour"));
}

void time::refuse_minute() {
  ORVA_RAISE(exceptions::out_of_range, "Minute value out of valid range",
             ORVA_QUALIFIED("system::date_time::time::minute"));
}

void time::refuse_second() {
  ORVA_RAISE(exceptions::out_of_range, "Second value out of valid range",
             ORVA_QUALIFIED("system::date_time::time::second"));
}

void time::refuse_millisecond() {
  ORVA_RAISE(exceptions::out_of_range, "Millisecond value out of valid range",
             ORVA_QUALIFIED("system::date_time::time::millisecond"));
}

}  // namespace ORVA_NAMESPACE::system::date_time
