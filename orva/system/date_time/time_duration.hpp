/// `time_duration` and `milliseconds`: a signed span of time in milliseconds.
///
///     const time_duration d(1, 30, 0, 0);
///     d.hour()                      =>  1
///     d.minute()                    =>  30
///     d.total_complete_minutes()    =>  90
///     d.total_hours()               =>  1.5
///
/// Divisions truncate toward zero: each part of a negative duration is zero or negative.
///
///     time_duration(0, 0, -61, 0).minute()         =>  -1
///     time_duration(0, 0, -61, 0).second()         =>  -1
///     time_duration(0, 0, 0, -1).millisecond()     =>  -1
///
/// Plain values of 64 bits. Sums and differences wrap. Can be used in constant expressions.
///
/// Edge cases: docs/edges.md#dates
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"
#include "orva/internal/wrapping.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class time_duration {
 public:
  constexpr time_duration() = default;

  /// Hours, minutes and seconds are converted to milliseconds with 32 bits, which wrap from 596 hours 31
  /// minutes 23.648 seconds on. The milliseconds are added with 64 bits: give longer durations in them.
  constexpr time_duration(int hours, int minutes, int seconds, long long milliseconds)
      : count_(internal::wrapping_add<long long>(in_32_bits(hours, minutes, seconds), milliseconds)) {}

  // The parts of the duration.

  /// All whole hours, also 24 and more; the low 32 bits.
  constexpr int hour() const { return static_cast<int>(total_complete_hours()); }
  constexpr int minute() const { return static_cast<int>(total_complete_minutes() % 60); }
  constexpr int second() const { return static_cast<int>(total_complete_seconds() % 60); }
  constexpr int millisecond() const { return static_cast<int>(count_ % 1000); }

  // The whole duration in one unit, with its fraction.
  constexpr double total_hours() const { return static_cast<double>(count_) / 3600000.0; }
  constexpr double total_minutes() const { return static_cast<double>(count_) / 60000.0; }
  constexpr double total_seconds() const { return static_cast<double>(count_) / 1000.0; }

  // The whole duration in one unit, without its fraction.
  constexpr long long total_complete_hours() const { return count_ / 3600000; }
  constexpr long long total_complete_minutes() const { return count_ / 60000; }
  constexpr long long total_complete_seconds() const { return count_ / 1000; }
  constexpr long long total_milliseconds() const { return count_; }

  constexpr bool is_negative() const { return count_ < 0; }

  constexpr time_duration& assign(const time_duration& other) { return *this = other; }

  constexpr time_duration& plus_assign(const time_duration& other) {
    count_ = internal::wrapping_add(count_, other.count_);
    return *this;
  }
  constexpr time_duration& operator+=(const time_duration& other) { return plus_assign(other); }

  constexpr time_duration& minus_assign(const time_duration& other) {
    count_ = internal::wrapping_subtract(count_, other.count_);
    return *this;
  }
  constexpr time_duration& operator-=(const time_duration& other) { return minus_assign(other); }

 private:
  static constexpr int in_32_bits(int hours, int minutes, int seconds) {
    using internal::wrapping_add;
    using internal::wrapping_multiply;
    return wrapping_add(wrapping_add(wrapping_multiply(hours, 3600000), wrapping_multiply(minutes, 60000)),
                        wrapping_multiply(seconds, 1000));
  }

  long long count_ = 0;
};

constexpr time_duration plus(time_duration left, const time_duration& right) { return left += right; }
constexpr time_duration minus(time_duration left, const time_duration& right) { return left -= right; }
constexpr time_duration operator+(time_duration left, const time_duration& right) { return left += right; }
constexpr time_duration operator-(time_duration left, const time_duration& right) { return left -= right; }

/// A duration that is made from its number of milliseconds, and converts to it: `t += milliseconds(5)`.
class milliseconds : public time_duration {
 public:
  constexpr milliseconds() = default;
  constexpr milliseconds(long long count) : time_duration(0, 0, 0, count) {}

  /// The low 32 bits of the number; `total_milliseconds` returns all of it.
  constexpr operator int() const { return static_cast<int>(total_milliseconds()); }

  constexpr milliseconds& assign(const milliseconds& other) { return *this = other; }
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const time_duration& value);

}  // namespace _private

/// Writes hours, minutes and seconds as ISO 8601 does, without the parts that are 0: "PT1H30M", "-PT0.005S",
/// "PT26H", "PT0S". `milliseconds` is not written so but as the `int` that it converts to. A template, so
/// that a program's own `<<` for this type is preferred.
template <std::same_as<time_duration> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
