/// The calendar in plain steps: pairs of months from March on, and one division for each length of cycle.
///
/// Slow on purpose, and defined for every value of 32 bits. Moves of dates are compared with it.
#pragma once

namespace orva_test {

struct reference_day {
  unsigned int year;
  unsigned int month;
  unsigned int day;
};

/// The length of the first month of a pair. July and August both have 31 days.
inline unsigned int first_of_pair(unsigned int pair) { return pair == 3 || pair == 4 ? 30 : 31; }

inline unsigned int reference_day_number(reference_day date) {
  if (date.month < 3) {
    date.month += 12;
    date.year -= 1;
  }
  const unsigned int from_march = date.month - 3;
  const unsigned int pair = from_march / 2;
  unsigned int number = date.year * 365 + date.year / 4 - (date.year / 100 - date.year / 400);
  number += pair * 61;
  if (pair > 2) number += 1;
  if (from_march % 2 == 1) number += first_of_pair(pair);
  return number + date.day;
}

inline reference_day reference_day_of_number(unsigned int number) {
  unsigned int rest = number - 1;
  const unsigned int by_400 = rest / 146097;
  rest %= 146097;
  const unsigned int by_100 = rest / 36524;
  rest %= 36524;
  const unsigned int by_4 = rest / 1461;
  rest %= 1461;
  // This is 4 on the last day of a leap year, so that February 29 becomes the day after it.
  const unsigned int by_1 = rest / 365;
  rest -= by_1 * 365;
  const unsigned int counted = rest + 1;
  const unsigned int pair = (counted - (counted > 183 ? 1 : 0) - 1) / 61;
  const unsigned int in_pair = counted - pair * 61 - (pair > 2 ? 1 : 0);
  const unsigned int second = in_pair > first_of_pair(pair) ? 1 : 0;
  reference_day date = {400 * by_400 + 100 * by_100 + 4 * by_4 + by_1, 3 + 2 * pair + second,
                        in_pair - second * first_of_pair(pair)};
  if (date.month > 12) {
    date.month -= 12;
    date.year += 1;
  }
  return date;
}

}  // namespace orva_test
