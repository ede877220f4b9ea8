/// Converts days of the Gregorian calendar to numbers and back; `date` moves by them.
///
/// Day 1 is March 1 of year 0. Years start in March here, so that February 29 is the last day of its year.
/// All arithmetic is unsigned with 32 bits, and wraps.
///
/// Internal: installed only because `date` can be used in constant expressions. Not for callers.
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

/// The inverse, except that the number of a February 29 deliberately gives March 1.
///
/// Each division is of a linear function, and gives quotient and remainder without a correction. The
/// constants are those of C. Neri and L. Schneider, "Euclidean affine functions and their application to
/// calendar algorithms", 2022. The first two divisions count quarters of a day, as a year has 365.2425 days.
constexpr basic_date day_of_number(unsigned int number) {
  const std::uint64_t quarters = std::uint64_t{4} * (number - 1) + 3;
  const auto century = static_cast<unsigned int>(quarters / 146097);
  const auto quarters_in_century = static_cast<unsigned int>(quarters % 146097) | 3;

  // A division by 1461: 2939745 / 2^32 is a little above 1 / 1461, and the low half holds the remainder.
  const std::uint64_t scaled = std::uint64_t{2939745} * quarters_in_century;
  unsigned int year = 100 * century + static_cast<unsigned int>(scaled >> 32);
  unsigned int day_of_year = static_cast<unsigned int>(scaled) / 2939745 / 4;

  constexpr unsigned int february_29 = 365;
  if (day_of_year == february_29) {
    ++year;
    day_of_year = 0;
  }

  // A division by 30.6, the mean of the months from March on; 2^16 / 2141 is 30.61.
  const unsigned int months = 2141 * day_of_year + 197913;
  constexpr unsigned int january_1 = 306;
  const bool next_year = day_of_year >= january_1;

  basic_date result;
  result.year(next_year ? year + 1 : year);
  result.month(next_year ? (months >> 16) - 12 : months >> 16);
  result.day((months & 0xFFFF) / 2141 + 1);
  return result;
}

}  // namespace ORVA_NAMESPACE::system::date_time::_private
