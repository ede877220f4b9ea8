/// `date`: a day of the Gregorian calendar, which is also used for the time before it was introduced.
///
///     date d(28, 2, 2000);          // day, month, year
///     d += 1;                       // March 1, 2000
///     d -= date_duration(60);       // January 1, 2000
///
/// The day is stored as it was set. `day()` returns the last day of the month if the month is shorter:
///
///     date end(31, 2, 2001);
///     end.day()                     =>  28
///     end.is_day_constrained()      =>  true
///     end.month(3); end.day()       =>  31
///
/// A move that would reach February 29 reaches March 1. A move starts at the stored day: February 31, 2001
/// plus 1 is March 4.
///
/// A day or month out of range raises `exceptions::out_of_range`; the field is unchanged then.
///
/// A value of twelve bytes; any thread may read one that no thread changes. All but the two clock readings
/// can be used in constant expressions. There are no comparisons and no difference of two dates.
///
/// Exact siblings, which refuse instead of wrapping, reach February 29, compare and subtract:
/// `orva/system/date_time/calendar.hpp`. `stream << d` writes ISO 8601; dates are read, and written if they
/// are valid, by `orva/system/date_time/iso8601.hpp`.
///
/// Edge cases: docs/edges.md#dates
#pragma once

#include <concepts>
#include <iosfwd>

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

  /// All fields are 0, which is not a day of the calendar. `day()` is 0.
  constexpr date() = default;

  /// Checks the day, then the month, as the setters do. Any year is valid.
  constexpr date(unsigned int day, unsigned int month, unsigned int year) {
    this->day(day);
    this->month(month);
    this->year(year);
  }

  /// Today by the clock, in the time zone of the process or in UTC. Outside Windows, that zone is the value
  /// of `TZ` at the first local time in the process, or at the last call of `tzset`.
  ORVA_API static date local_date();
  ORVA_API static date UTC_date();

  // Each setter returns its argument.

  constexpr unsigned int year() const { return fields_.year(); }
  constexpr unsigned int year(unsigned int value) { return fields_.year(value); }

  constexpr unsigned int month() const { return fields_.month(); }
  /// Raises unless the value is 1 to 12. The stored day is unchanged.
  constexpr unsigned int month(unsigned int value) {
    if (!is_valid_month(value)) refuse_month();
    return fields_.month(value);
  }

  /// The stored day, or the last day of the month if that is less.
  constexpr unsigned int day() const { return get_days(); }
  /// Raises unless the value is 1 to 31, in any month.
  constexpr unsigned int day(unsigned int value) {
    if (!is_valid_day(value)) refuse_day();
    return fields_.day(value);
  }

  constexpr bool is_leap_year() const { return year() % 4 == 0 && (year() % 100 != 0 || year() % 400 == 0); }
  /// Whether `day()` differs from the stored day.
  constexpr bool is_day_constrained() const { return get_days() != fields_.day(); }

  constexpr date& assign(const date& other) { return *this = other; }

  /// Moves forward, or back by a negative duration. Never raises: the number of the day wraps at 32 bits.
  constexpr date& plus_assign(const date_duration& duration) {
    move_to(pJulian_day_number() + static_cast<unsigned int>(duration.days()));
    return *this;
  }
  constexpr date& operator+=(const date_duration& duration) { return plus_assign(duration); }

  /// Moves back, or forward by a negative duration. Raises, with the date unchanged, unless the number of the
  /// day is greater than the duration, both as signed numbers of 32 bits:
  ///
  ///     from March 1, 0 on                a move to a day before March 1, 0 raises
  ///     from year 5879611 on              the number is negative: every move back raises
  ///     January and February of year 0    the number has wrapped to a far date: no move back raises
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

  /// The same as `day()`.
  constexpr unsigned int get_days() const {
    const unsigned int last = days_in_month();
    return fields_.day() < last ? fields_.day() : last;
  }

  /// The number of the stored day: 719469 for January 1, 1970.
  constexpr unsigned int pJulian_day_number() const {
    return _private::day_number(fields_.year(), fields_.month(), fields_.day());
  }
  /// The inverse, except that the number of a February 29 gives March 1.
  constexpr void pJulian_day_number(unsigned int number) { move_to(number); }

 private:
  /// Stores without checks: every number gives a day that its month has.
  constexpr void move_to(unsigned int number) { fields_ = _private::day_of_number(number); }

  /// 0 if the month is invalid.
  constexpr unsigned int days_in_month() const {
    if (!is_valid_month(month())) return 0;
    if (month() == 2) return is_leap_year() ? 29 : 28;
    // 31 and 30 alternate, and start again in August.
    return 30 + ((month() ^ (month() >> 3)) & 1);
  }

  [[noreturn]] ORVA_API static void refuse_day();
  [[noreturn]] ORVA_API static void refuse_month();
  [[noreturn]] ORVA_API static void refuse_move();

  basic_date fields_;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const date& value);

}  // namespace _private

/// Writes `day()` and the other fields as ISO 8601 does: "2024-05-17"; a year above 9999 as "+12024". The
/// date without fields is "0000-00-00". A template, so that a program's own `<<` for dates is preferred.
template <std::same_as<date> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
