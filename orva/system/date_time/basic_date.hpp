/// `basic_date`: year, month and day as plain numbers, without checks.
///
///     basic_date d;
///     d.month(13);                  // stored as it is
///
/// A value of twelve bytes; any thread may read one that no thread changes. `date` checks its fields and
/// computes with the calendar.
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class basic_date {
 public:
  constexpr unsigned int year() const { return year_; }
  constexpr unsigned int month() const { return month_; }
  constexpr unsigned int day() const { return day_; }

  // Each setter returns its argument.
  constexpr unsigned int year(unsigned int value) { return year_ = value; }
  constexpr unsigned int month(unsigned int value) { return month_ = value; }
  constexpr unsigned int day(unsigned int value) { return day_ = value; }

 private:
  unsigned int year_ = 0;
  unsigned int month_ = 0;
  unsigned int day_ = 0;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const basic_date& value);

}  // namespace _private

/// Writes the fields as they are: "2024-05-17", "0000-13-00". A template, so that a program's own `<<` for
/// this type is preferred.
template <std::same_as<basic_date> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
