/// `basic_time`: hour, minute, second and millisecond as four plain numbers, none of them checked.
///
/// A plain value of sixteen bytes: copies are independent, and any thread may read one that nobody changes.
/// `time` is the class that knows what a day is.
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class basic_time {
 public:
  constexpr int hour() const { return hour_; }
  constexpr int minute() const { return minute_; }
  constexpr int second() const { return second_; }
  constexpr int millisecond() const { return millisecond_; }

  // Each setter returns the value that it was given.
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

}  // namespace ORVA_NAMESPACE::system::date_time
