/// Converts days of the Gregorian calendar to numbers and back; `date` and `calendar.hpp` move by them.
///
/// Day 1 is March 1 of year 0. Years start in March here, so that February 29 is the last day of its year.
/// All arithmetic is unsigned with 32 bits, and wraps.
///
/// Internal: installed only because both can be used in constant expressions. Not for callers.
#pragma once

#include <cstdint>

#include "orva/system/date_time/basic_date.hpp"

namespace ORVA_NAMESPACE::system::date_time::_private {

/// REQUIRES: month is 0 to 12; 0 means the December before.
constexpr unsigned int day_number(unsigned int year, unsigned int month, unsigned int day) {
  if (month < 3) {
    month += 12;
    --year;
  }
  const unsigned int leap_days = year / 4 - year / 100 + year / 400;
  // From March on, the months have 31 30 31 30 31 days, repeatedly: 153 days in five months.
  const unsigned int days_before_month = (153 * (month - 3) + 2) / 5;
  return year * 365 + leap_days + days_before_month + day;
}

/// A day of a year that starts on March 1.
struct day_of_march_year {
  unsigned int year;
  unsigned int day;  // 0 for March 1
};

/// Each division is of a linear function, and gives quotient and remainder without a correction. The
/// constants are those of C. Neri and L. Schneider, "Euclidean affine functions and their application to
/// calendar algorithms", 2022. The two divisions count quarters of a day, as a year has 365.2425 days.
constexpr day_of_march_year march_year_of_number(unsigned int number) {
  const std::uint64_t quarters = std::uint64_t{4} * (number - 1) + 3;
  const auto century = static_cast<unsigned int>(quarters / 146097);
  const auto quarters_in_century = static_cast<unsigned int>(quarters % 146097) | 3;

  // A division by 1461: 2939745 / 2^32 is a little above 1 / 1461, and the low half holds the remainder.
  const std::uint64_t scaled = std::uint64_t{2939745} * quarters_in_century;
  return {100 * century + static_cast<unsigned int>(scaled >> 32),
          static_cast<unsigned int>(scaled) / 2939745 / 4};
}

/// The year, month and day of the calendar.
constexpr basic_date day_of_calendar(day_of_march_year from_march) {
  // A division by 30.6, the mean of the months from March on; 2^16 / 2141 is 30.61.
  const unsigned int months = 2141 * from_march.day + 197913;
  constexpr unsigned int january_1 = 306;
  const bool next_year = from_march.day >= january_1;

  basic_date result;
  result.year(next_year ? from_march.year + 1 : from_march.year);
  result.month(next_year ? (months >> 16) - 12 : months >> 16);
  result.day((months & 0xFFFF) / 2141 + 1);
  return result;
}

/// The inverse of `day_number`.
constexpr basic_date exact_day_of_number(unsigned int number) {
  return day_of_calendar(march_year_of_number(number));
}

/// The inverse, except that the number of a February 29 deliberately gives March 1.
constexpr basic_date day_of_number(unsigned int number) {
  day_of_march_year from_march = march_year_of_number(number);
  constexpr unsigned int february_29 = 365;
  if (from_march.day == february_29) {
    ++from_march.year;
    from_march.day = 0;
  }
  return day_of_calendar(from_march);
}

}  // namespace ORVA_NAMESPACE::system::date_time::_private
