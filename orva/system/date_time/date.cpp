#include "orva/system/date_time/date.hpp"

#include "orva/exceptions/raise.hpp"
#include "orva/system/date_time/calendar_reading.hpp"

namespace ORVA_2_18::system::date_time {

date date::local_date() { return _private::date_of(platform::local_calendar()); }
date date::UTC_date() { return _private::date_of(platform::utc_calendar()); }

void date::refuse_day() {
  ORVA_RAISE(exceptions::out_of_range, "day value out of valid range",
             "ORVA_2_18::system::date_time::date::day");
}

void date::refuse_month() {
  ORVA_RAISE(exceptions::out_of_range, "month value out of valid range",
             "ORVA_2_18::system::date_time::date::month");
}

void date::refuse_move() {
  ORVA_RAISE(exceptions::out_of_range, "date value out of valid range",
             "ORVA_2_18::system::date_time::date::minus_assign");
}

}  // namespace ORVA_2_18::system::date_time
