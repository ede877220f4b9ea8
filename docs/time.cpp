#include <chrono>
#include <iostream>
#include <string_view>

#include "orva/orva.hpp"

namespace date_time = orva::system::date_time;
using date_time::date_duration;
using date_time::date_time_t;
using date_time::milliseconds;
using date_time::month_end;
using date_time::time_duration;
using date_time::timer;

// `<<` writes ISO 8601. A program's own operator is preferred, here for dates.
std::ostream& operator<<(std::ostream& stream, const date_time::date& d) {
  return stream << d.day() << '.' << d.month() << '.' << d.year();
}

void dates() {
  date_time::date d(28, 12, 2024);  // day, month, year
  d += 7;
  std::cout << "a week on: " << d << '\n';
  d -= date_duration(366);
  std::cout << "366 days back: " << d << (d.is_leap_year() ? ", a leap year" : "") << '\n';

  date_time::date end(31, 1, 2023);
  for (unsigned int month = 1; month <= 4; ++month) {
    end.month(month);
    std::cout << "last of the month: " << end << (end.is_day_constrained() ? " (31 is kept)" : "") << '\n';
  }

  date_time::date leap(28, 2, 2024);
  std::cout << "the day after " << leap;
  std::cout << ": " << (leap += 1) << '\n';
}

void times() {
  const date_time::time evening(22, 30, 0, 0);
  std::cout << "8 hours on: " << evening + time_duration(8, 0, 0, 0) << '\n';
  std::cout << "a millisecond before midnight: " << date_time::time() - milliseconds(1) << '\n';

  const time_duration back = date_time::time(6, 15, 0, 0) - evening;
  std::cout << "from evening to morning: " << back.hour() << " h " << back.minute() << " min, "
            << back.total_hours() << " hours\n";
  std::cout << "the same in ISO 8601: " << back << '\n';
  const milliseconds week = 7LL * 24 * 3600 * 1000;
  std::cout << "a week: " << week.total_complete_hours() << " hours, " << int{week} << " ms\n";
}

void both() {
  date_time_t t(date_time::date(17, 5, 2024), date_time::time(20, 0, 0, 0));
  t += time_duration(5, 0, 0, 0);
  std::cout << "5 hours on: " << t.date() << ' ' << t.time() << '\n';
  t += date_duration(1);
  std::cout << "and a day: " << t.date() << ' ' << t.time() << '\n';
  std::cout << "in ISO 8601: " << t << '\n';
  t += time_duration(25, 0, 0, 0);
  std::cout << "25 hours on: " << t.date() << ' ' << t.time() << '\n';
  try {
    t += time_duration(48, 0, 0, 0);
  } catch (const orva::exceptions::out_of_range& error) {
    std::cout << "48 hours on: " << error.message() << '\n';
  }
}

void exact_moves() {
  const date_time::date leap(29, 2, 2024);
  std::cout << "the day before March 1: " << *add_days(date_time::date(1, 3, 2024), -1) << '\n';
  std::cout << "a year on: " << *add_years(leap, 1, month_end::last_day) << " or "
            << *add_years(leap, 1, month_end::next_month) << '\n';
  const bool is_refused = !add_years(leap, 1, month_end::refuse);
  std::cout << "or refused: " << std::boolalpha << is_refused << '\n';

  const date_time_t t(leap, date_time::time(20, 0, 0, 0));
  const date_time_t later = *add_time(t, time_duration(48, 30, 0, 0));
  std::cout << "48 hours 30 minutes on: " << later.date() << ' ' << later.time() << '\n';
  std::cout << "that is " << time_between(t, later)->total_hours() << " hours, "
            << *days_between(t.date(), later.date()) << " days\n";
  std::cout << "a Thursday: " << (weekday_of(leap) == std::chrono::Thursday) << '\n';
}

void texts() {
  const auto departure = date_time::read_timestamp("2024-02-29T23:30:00-08:00");
  const date_time::timestamp in_utc{departure.value.utc, 0};
  std::cout << "in UTC: " << write_timestamp(in_utc)->view() << '\n';

  for (const std::string_view text : {"2023-02-29", "2024-2-29", "2024-02"}) {
    const auto result = date_time::read_date(text);
    std::cout << text << ", " << describe(result, text) << '\n';
  }
  const auto precise = date_time::read_time("08:30:00.123456");
  std::cout << precise.value << (precise.is_rounded ? ", rounded down" : "") << '\n';
}

void clocks() {
  timer stopwatch;
  stopwatch.start();
  const date_time_t utc = date_time_t::UTC_date_time();
  const date_time_t local = date_time_t::local_date_time();
  stopwatch.stop();
  const bool is_now = utc.year() >= 2024 && local.year() >= 2024;
  std::cout << std::boolalpha << "the clock is set: " << is_now << '\n';
  std::cout << "read in less than a second: " << (stopwatch.elapsed_time() < 1'000'000) << '\n';
}

int main() {
  dates();
  times();
  both();
  exact_moves();
  texts();
  clocks();
}
