/// `date`: a day of the Gregorian calendar, extended backward without end.
///
/// A plain value of twelve bytes: copies are independent, and any thread may read one that nobody changes.
/// Everything but the two clock readings is usable in constant expressions. There is no comparison, no text
/// and no difference of two dates.
///
///     date d(28, 2, 2000);          day, month, year
///     d += 1;                       March 1, 2000
///     d -= date_duration(60);       January 1, 2000
///
/// The day that is set is kept, and read as the last one of a shorter month:
///
///     date end(31, 2, 2001);
///     end.day()                     =>  28
///     end.is_day_constrained()      =>  true
///     end.month(3); end.day()       =>  31
///
/// A move never lands on February 29, but on March 1 in its place. It begins at the day that is stored, so
/// that February 31, 2001 plus 1 is March 4.
///
/// A value that no calendar has raises `exceptions::out_of_range` and leaves the field as it was.
#pragma once

#include "orva/export.hpp"
#include "orva/system/date_time/basic_date.hpp"
#include "orva/system/date_time/date_duration.hpp"
#include "orva/system/date_time/internal/day_number.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class date {
 public:
  static constexpr unsigned int max_months_in_year = 12;
  static constexpr unsigned int max_weeks_in_year = 52;
  static constexpr unsigned int max_days_in_month = 31;

  /// Zero in all three fields, which is no day of the calendar; its `day()` is 0.
  constexpr date() = default;

  /// Checks the day, then the month, as the setters do. Any year will do.
  constexpr date(unsigned int day, unsigned int month, unsigned int year) {
    this->day(day);
    this->month(month);
    this->year(year);
  }

  /// The day by the clock, in the time zone of the process or in UTC. Outside Windows the zone is the one
  /// that `TZ` named when the process first asked for a local time, or last called `tzset`.
  ORVA_API static date local_date();
  ORVA_API static date UTC_date();

  // Each setter returns the value that it was given.

  constexpr unsigned int year() const { return fields_.year(); }
  constexpr unsigned int year(unsigned int value) { return fields_.year(value); }

  constexpr unsigned int month() const { return fields_.month(); }
  /// Raises for a value outside 1 to 12. The stored day stays what it is.
  constexpr unsigned int month(unsigned int value) {
    if (!is_valid_month(value)) refuse_month();
    return fields_.month(value);
  }

  /// The stored day, or the last day of the month if that comes first.
  constexpr unsigned int day() const { return get_days(); }
  /// Raises for a value outside 1 to 31; the month is not asked.
  constexpr unsigned int day(unsigned int value) {
    if (!is_valid_day(value)) refuse_day();
    return fields_.day(value);
  }

  constexpr bool is_leap_year() const { return year() % 4 == 0 && (year() % 100 != 0 || year() % 400 == 0); }
  /// Whether `day()` differs from the stored day.
  constexpr bool is_day_constrained() const { return get_days() != fields_.day(); }

  constexpr date& assign(const date& other) { return *this = other; }

  /// Moves forward, or back by a negative duration. Never fails: the number of the day wraps at 32 bits.
  constexpr date& plus_assign(const date_duration& duration) {
    move_to(pJulian_day_number() + static_cast<unsigned int>(duration.days()));
    return *this;
  }
  constexpr date& operator+=(const date_duration& duration) { return plus_assign(duration); }

  /// Moves back, or forward by a negative duration. Raises where that leads before March 1 of year 0, and
  /// leaves the date as it was.
  constexpr date& minus_assign(const date_duration& duration) {
    const unsigned int number = pJulian_day_number();
    if (static_cast<int>(number) <= duration.days()) refuse_move();
    move_to(number - static_cast<unsigned int>(duration.days()));
    return *this;
  }
  constexpr date& operator-=(const date_duration& duration) { return minus_assign(duration); }

 protected:
  constexpr bool is_valid_day(unsigned int value) const { return value >= 1 && value <= 31; }
  constexpr bool is_valid_month(unsigned int value) const { return value >= 1 && value <= 12; }

  /// What `day()` is.
  constexpr unsigned int get_days() const {
    const unsigned int last = days_in_month();
    return fields_.day() < last ? fields_.day() : last;
  }

  /// The number of the stored day: 719469 for January 1, 1970.
  constexpr unsigned int pJulian_day_number() const {
    return _private::day_number(fields_.year(), fields_.month(), fields_.day());
  }
  /// The inverse, but that the number of a February 29 gives March 1.
  constexpr void pJulian_day_number(unsigned int number) { move_to(number); }

 private:
  /// Stores without checks: every number is that of a day which its month has.
  constexpr void move_to(unsigned int number) { fields_ = _private::day_of_number(number); }

  /// 0 where there is no month.
  constexpr unsigned int days_in_month() const {
    if (!is_valid_month(month())) return 0;
    if (month() == 2) return is_leap_year() ? 29 : 28;
    // 31 and 30 alternate, and begin again with August.
    return 30 + ((month() ^ (month() >> 3)) & 1);
  }

  [[noreturn]] ORVA_API static void refuse_day();
  [[noreturn]] ORVA_API static void refuse_month();
  [[noreturn]] ORVA_API static void refuse_move();

  basic_date fields_;
};

}  // namespace ORVA_NAMESPACE::system::date_time
