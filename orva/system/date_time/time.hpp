/// `time`: a time of day, to the millisecond.
///
///     time(23, 59, 59, 999) + milliseconds(1)              =>  00:00:00.000
///     time(0, 0, 0, 0) - milliseconds(1)                   =>  23:59:59.999
///     time(18, 0, 0, 0) - time(8, 30, 0, 0)                =>  a duration of 9 hours 30 minutes
///     time(8, 30, 0, 0) - time(18, 0, 0, 0)                =>  a duration of -9 hours -30 minutes
///
/// Moves wrap within the day; whole days passed are lost. A move back may reach the day before. One that
/// leads further raises, unless it ends at midnight exactly:
///
///     time(8, 30, 0, 0) - time_duration(32, 30, 0, 0)      =>  00:00:00.000
///     time(8, 30, 0, 0) - time_duration(32, 31, 0, 0)      =>  raises
///
/// Sums have 64 bits and wrap: a move forward by nearly 2^63 milliseconds or more is a move back.
///
/// A field out of range raises `exceptions::out_of_range` and is unchanged then.
///
/// A value of sixteen bytes; any thread may read one that no thread changes. All but the two clock readings
/// can be used in constant expressions. There are no comparisons.
///
/// Exact siblings, which report the days passed, and compare: `orva/system/date_time/calendar.hpp`.
/// `stream << t` writes ISO 8601; `orva/system/date_time/iso8601.hpp` also reads it.
///
/// Edge cases: docs/edges.md#dates
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"
#include "orva/internal/wrapping.hpp"
#include "orva/system/date_time/basic_time.hpp"
#include "orva/system/date_time/time_duration.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class time {
 public:
  static constexpr unsigned int min_hour = 0;
  static constexpr unsigned int max_hour = 23;
  static constexpr unsigned int min_minute = 0;
  static constexpr unsigned int max_minute = 59;
  static constexpr unsigned int min_second = 0;
  static constexpr unsigned int max_second = 59;
  static constexpr unsigned int min_millisecond = 0;
  static constexpr unsigned int max_millisecond = 999;

  /// Midnight.
  constexpr time() = default;

  /// Checks hour, minute, second and millisecond, in this order, as the setters do.
  constexpr time(unsigned int hour, unsigned int minute, unsigned int second, unsigned int millisecond) {
    store(hour, minute, second, millisecond);
  }

  /// The time by the clock, in the time zone of the process or in UTC. The zone is that of
  /// `date::local_date`.
  ORVA_API static time local_time();
  ORVA_API static time UTC_time();

  // Each setter returns its argument.

  constexpr int hour() const { return fields_.hour(); }
  /// Raises if the value is above 23.
  constexpr int hour(unsigned int value) {
    if (!is_valid_hour(static_cast<int>(value))) refuse_hour();
    return fields_.hour(value);
  }

  constexpr int minute() const { return fields_.minute(); }
  /// Raises if the value is above 59.
  constexpr int minute(unsigned int value) {
    if (!is_valid_minute(static_cast<int>(value))) refuse_minute();
    return fields_.minute(value);
  }

  constexpr int second() const { return fields_.second(); }
  /// Raises if the value is above 59.
  constexpr int second(unsigned int value) {
    if (!is_valid_second(static_cast<int>(value))) refuse_second();
    return fields_.second(value);
  }

  constexpr int millisecond() const { return fields_.millisecond(); }
  /// Raises if the value is above 999.
  constexpr int millisecond(unsigned int value) {
    if (!is_valid_millisecond(static_cast<int>(value))) refuse_millisecond();
    return fields_.millisecond(value);
  }

  constexpr time& assign(const time& other) { return *this = other; }

  /// Moves forward, or back by a negative duration, and wraps within the day. If it raises, the message names
  /// the first part of the result that is negative; the parts before it are stored.
  constexpr time& plus_assign(const time_duration& duration) {
    using internal::wrapping_add;
    constexpr long long day = 86400000;
    const time_duration sum = since_midnight() + duration;
    const milliseconds rest = wrapping_add(sum.total_milliseconds(), day) % day;
    store(static_cast<unsigned int>(rest.hour()), static_cast<unsigned int>(rest.minute()),
          static_cast<unsigned int>(rest.second()), static_cast<unsigned int>(rest.millisecond()));
    return *this;
  }
  constexpr time& operator+=(const time_duration& duration) { return plus_assign(duration); }

  /// Adds the negated duration.
  constexpr time& minus_assign(const time_duration& duration) {
    return plus_assign(time_duration() - duration);
  }
  constexpr time& operator-=(const time_duration& duration) { return minus_assign(duration); }

 protected:
  // A negative number is large as an unsigned one, and not valid.
  constexpr bool is_valid_hour(int value) const { return static_cast<unsigned int>(value) <= 23; }
  constexpr bool is_valid_minute(int value) const { return static_cast<unsigned int>(value) <= 59; }
  constexpr bool is_valid_second(int value) const { return static_cast<unsigned int>(value) <= 59; }
  constexpr bool is_valid_millisecond(int value) const { return static_cast<unsigned int>(value) <= 999; }

 private:
  constexpr time_duration since_midnight() const { return {hour(), minute(), second(), millisecond()}; }

  constexpr void store(unsigned int hour, unsigned int minute, unsigned int second,
                       unsigned int millisecond) {
    this->hour(hour);
    this->minute(minute);
    this->second(second);
    this->millisecond(millisecond);
  }

  [[noreturn]] ORVA_API static void refuse_hour();
  [[noreturn]] ORVA_API static void refuse_minute();
  [[noreturn]] ORVA_API static void refuse_second();
  [[noreturn]] ORVA_API static void refuse_millisecond();

  basic_time fields_;
};

constexpr time plus(time moved, const time_duration& duration) { return moved += duration; }
constexpr time plus(const time_duration& duration, time moved) { return moved += duration; }
constexpr time operator+(time moved, const time_duration& duration) { return moved += duration; }
constexpr time operator+(const time_duration& duration, time moved) { return moved += duration; }

constexpr time minus(time moved, const time_duration& duration) { return moved -= duration; }
constexpr time operator-(time moved, const time_duration& duration) { return moved -= duration; }

/// The duration from `from` to `to`: less than a day, and negative if `to` is earlier.
constexpr time_duration minus(const time& to, const time& from) {
  return {to.hour() - from.hour(), to.minute() - from.minute(), to.second() - from.second(),
          to.millisecond() - from.millisecond()};
}
constexpr time_duration operator-(const time& to, const time& from) { return minus(to, from); }

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const time& value);

}  // namespace _private

/// Writes ISO 8601, to the millisecond: "08:30:00.000". A template, so that a program's own `<<` for times is
/// preferred.
template <std::same_as<time> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
