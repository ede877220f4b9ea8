/// `basic_time`: hour, minute, second and millisecond as plain numbers, without checks.
///
///     basic_time t;
///     t.hour(25);                   // stored as it is
///
/// A value of sixteen bytes; any thread may read one that no thread changes. `time` checks its fields and
/// computes with them.
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class basic_time {
 public:
  constexpr int hour() const { return hour_; }
  constexpr int minute() const { return minute_; }
  constexpr int second() const { return second_; }
  constexpr int millisecond() const { return millisecond_; }

  // Each setter returns its argument.
  constexpr int hour(unsigned int value) { return hour_ = static_cast<int>(value); }
  constexpr int minute(unsigned int value) { return minute_ = static_cast<int>(value); }
  constexpr int second(unsigned int value) { return second_ = static_cast<int>(value); }
  constexpr int millisecond(unsigned int value) { return millisecond_ = static_cast<int>(value); }

 private:
  int hour_ = 0;
  int minute_ = 0;
  int second_ = 0;
  int millisecond_ = 0;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const basic_time& value);

}  // namespace _private

/// Writes the fields as they are: "08:30:00.000", "25:00:-1.000". A template, so that a program's own `<<`
/// for this type is preferred.
template <std::same_as<basic_time> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
