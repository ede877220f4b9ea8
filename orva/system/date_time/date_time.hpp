/// `date_time_t`: a date and a time of day.
///
///     date_time_t t(date(17, 5, 2024), time(8, 30, 0, 0));
///     t += date_duration(30);             // June 16, 2024, 08:30
///     t += time_duration(20, 0, 0, 0);    // June 16, 2024, 04:30: the date stays
///
/// Operations are those of its two parts, `date` and `time`, which describe what each one raises.
///
/// A duration below 24 hours moves the time within the day and leaves the date. A longer one overwrites the
/// day of the month, see `plus_assign`: move by days with a `date_duration`.
///
/// Exact siblings, which move the date with the time: `add_time`, `add_days` and others in
/// `orva/system/date_time/calendar.hpp`. Text: `orva/system/date_time/iso8601.hpp`.
///
/// A plain value; any thread may read one that no thread changes.
///
/// Edge cases: docs/edges.md#dates
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"
#include "orva/system/date_time/date.hpp"
#include "orva/system/date_time/time.hpp"

namespace ORVA_NAMESPACE::system::date_time {

// The types `date` and `time` are qualified in the class, which has members of these names.
class date_time_t {
 public:
  static constexpr unsigned int max_months_in_year = 12;
  static constexpr unsigned int max_weeks_in_year = 52;
  /// One more than `date::max_days_in_month`.
  static constexpr unsigned int max_days_in_month = 32;
  static constexpr unsigned int min_hour = 0;
  static constexpr unsigned int max_hour = 23;
  static constexpr unsigned int min_minute = 0;
  static constexpr unsigned int max_minute = 59;
  static constexpr unsigned int min_second = 0;
  static constexpr unsigned int max_second = 59;
  static constexpr unsigned int min_millisecond = 0;
  static constexpr unsigned int max_millisecond = 999;

  constexpr date_time_t() = default;
  constexpr date_time_t(const date_time::date& day, const date_time::time& time_of_day)
      : date_(day), time_(time_of_day) {}

  /// Both parts are from one reading of the clock, so that they agree at midnight. The time zone is that of
  /// `date::local_date`.
  ORVA_API static date_time_t local_date_time();
  ORVA_API static date_time_t UTC_date_time();

  constexpr date_time::date& date() { return date_; }
  constexpr const date_time::date& date() const { return date_; }
  constexpr date_time::time& time() { return time_; }
  constexpr const date_time::time& time() const { return time_; }

  constexpr unsigned int year() const { return date_.year(); }
  constexpr unsigned int year(unsigned int value) { return date_.year(value); }
  constexpr unsigned int month() const { return date_.month(); }
  constexpr unsigned int month(unsigned int value) { return date_.month(value); }
  constexpr unsigned int day() const { return date_.day(); }
  constexpr unsigned int day(unsigned int value) { return date_.day(value); }
  constexpr bool is_leap_year() const { return date_.is_leap_year(); }
  constexpr bool is_day_constrained() const { return date_.is_day_constrained(); }

  constexpr int hour() const { return time_.hour(); }
  constexpr int hour(unsigned int value) { return time_.hour(value); }
  constexpr int minute() const { return time_.minute(); }
  constexpr int minute(unsigned int value) { return time_.minute(value); }
  constexpr int second() const { return time_.second(); }
  constexpr int second(unsigned int value) { return time_.second(value); }
  constexpr int millisecond() const { return time_.millisecond(); }
  constexpr int millisecond(unsigned int value) { return time_.millisecond(value); }

  // Assigning one part leaves the other unchanged.

  constexpr date_time_t& assign(const date_time::date& day, const date_time::time& time_of_day) {
    return *this = date_time_t(day, time_of_day);
  }
  constexpr date_time_t& assign(const date_time::date& day) {
    date_ = day;
    return *this;
  }
  constexpr date_time_t& assign(const date_time::time& time_of_day) {
    time_ = time_of_day;
    return *this;
  }
  constexpr date_time_t& assign(const date_time_t& other) { return *this = other; }
  constexpr date_time_t& operator=(const date_time::date& day) { return assign(day); }
  constexpr date_time_t& operator=(const date_time::time& time_of_day) { return assign(time_of_day); }

  // Moves the date; the time stays.

  constexpr date_time_t& plus_assign(const date_duration& duration) {
    date_ += duration;
    return *this;
  }
  constexpr date_time_t& operator+=(const date_duration& duration) { return plus_assign(duration); }
  constexpr date_time_t& minus_assign(const date_duration& duration) {
    date_ -= duration;
    return *this;
  }
  constexpr date_time_t& operator-=(const date_duration& duration) { return minus_assign(duration); }

  /// Moves the time, which wraps within the day. A duration of 24 hours or more, forward or back, first sets
  /// the day of the month to its hours modulo 24, and then moves the date by that number of days:
  ///
  ///     May 17, 2024, 08:30 += 20 hours    =>  May 17, 2024, 04:30
  ///     May 17, 2024, 08:30 += 25 hours    =>  May 2, 2024, 09:30      day 1 plus 1
  ///     May 17, 2024, 08:30 += 53 hours    =>  May 10, 2024, 13:30     day 5 plus 5
  ///     May 17, 2024, 08:30 += 48 hours    =>  "day value out of valid range" is raised
  ///     May 17, 2024, 08:30 += -25 hours   =>  the same
  constexpr date_time_t& plus_assign(const time_duration& duration) {
    if (reaches_a_day(duration)) date_ += put_hours_into_day(duration);
    time_ += duration;
    return *this;
  }
  constexpr date_time_t& operator+=(const time_duration& duration) { return plus_assign(duration); }

  /// The same in the other direction:
  ///
  ///     May 17, 2024, 08:30 -= 25 hours    =>  April 30, 2024, 07:30   day 1 minus 1
  constexpr date_time_t& minus_assign(const time_duration& duration) {
    if (reaches_a_day(duration)) date_ -= put_hours_into_day(duration);
    time_ -= duration;
    return *this;
  }
  constexpr date_time_t& operator-=(const time_duration& duration) { return minus_assign(duration); }

 private:
  static constexpr bool reaches_a_day(const time_duration& duration) {
    const long long hours = duration.total_complete_hours();
    return hours >= 24 || hours <= -24;
  }

  /// Deliberately the remainder of the hours, not the number of days: the results are part of the contract.
  constexpr date_duration put_hours_into_day(const time_duration& duration) {
    const auto hours = static_cast<unsigned int>(duration.total_complete_hours() % 24);
    return static_cast<int>(date_.day(hours));
  }

  date_time::date date_;
  date_time::time time_;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const date_time_t& value);

}  // namespace _private

/// Writes ISO 8601, to the millisecond and without a time zone: "2024-05-17T08:30:00.000". A template, so
/// that a program's own `<<` for this type is preferred.
template <std::same_as<date_time_t> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
