#include "orva/system/date_time/date.hpp"

#include "orva/internal/raise.hpp"
#include "orva/system/date_time/internal/calendar_reading.hpp"

namespace ORVA_NAMESPACE::system::date_time {

date date::local_date() { return _private::date_of(platform::local_calendar()); }
date date::UTC_date() { return _private::date_of(platform::utc_calendar()); }

void date::refuse_day() {
  ORVA_RAISE(exceptions::out_of_range, "day value out of valid range",
             ORVA_QUALIFIED("system::date_time::date::day"));
}

void date::refuse_month() {
  ORVA_RAISE(exceptions::out_of_range, "month value out of valid range",
             ORVA_QUALIFIED("system::date_time::date::month"));
}

void date::refuse_move() {
  ORVA_RAISE(exceptions::out_of_range, "date value out of valid range",
             ORVA_QUALIFIED("system::date_time::date::minus_assign"));
}

}  // namespace ORVA_NAMESPACE::system::date_time
