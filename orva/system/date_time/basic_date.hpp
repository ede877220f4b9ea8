/// `basic_date`: year, month and day as three plain numbers, none of them checked.
///
/// A plain value of twelve bytes: copies are independent, and any thread may read one that nobody changes.
/// `date` is the class that knows the calendar.
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class basic_date {
 public:
  constexpr unsigned int year() const { return year_; }
  constexpr unsigned int month() const { return month_; }
  constexpr unsigned int day() const { return day_; }

  // Each setter returns the value that it was given.
  constexpr unsigned int year(unsigned int value) { return year_ = value; }
  constexpr unsigned int month(unsigned int value) { return month_ = value; }
  constexpr unsigned int day(unsigned int value) { return day_ = value; }

 private:
  unsigned int year_ = 0;
  unsigned int month_ = 0;
  unsigned int day_ = 0;
};

}  // namespace ORVA_NAMESPACE::system::date_time
