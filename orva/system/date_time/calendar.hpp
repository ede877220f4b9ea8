/// Calendar arithmetic that is exact or refuses: moves, differences and order of dates and times, and their
/// conversions to and from `std::chrono`.
///
///     const date leap(29, 2, 2024);
///     add_days(leap, 366)                                 =>  March 1, 2025
///     add_years(leap, 1, month_end::last_day)             =>  February 28, 2025
///     days_between(leap, date(1, 1, 2025))                =>  307
///     compare(leap, date(1, 3, 2024)) < 0                 =>  true
///     to_sys_days(leap)                                   =>  the std::chrono::sys_days of the same day
///
/// The calendar is the proleptic Gregorian one: its rules also hold for the time before it was introduced.
/// The years are 0 to 9999, those that ISO 8601 writes with four digits; year 0 is the year before year 1. A
/// date is valid if its year is one of these and its month has its day. So neither a default `date` is valid
/// nor one whose stored day exceeds the month: `date(d.day(), d.month(), d.year())` drops that stored day.
///
/// A function that gets an invalid date, or whose result would be outside these years, returns
/// `std::nullopt`. Nothing wraps, nothing raises, and a negative number moves back. February 29 is a day like
/// any other.
///
/// Days have 86,400 seconds: leap seconds do not count, as they do not in `std::chrono::system_clock`. A
/// `date_time_t` has no time zone; a conversion to or from `std::chrono` takes it as UTC.
///
/// Nothing is allocated, any thread may call, and all can be used in constant expressions. Dates and times
/// as text: `orva/system/date_time/iso8601.hpp`.
#pragma once

#include <chrono>
#include <compare>
#include <optional>

#include "orva/system/date_time/date.hpp"
#include "orva/system/date_time/date_time.hpp"
#include "orva/system/date_time/internal/day_number.hpp"
#include "orva/system/date_time/time.hpp"

namespace ORVA_NAMESPACE::system::date_time {

inline constexpr unsigned int min_year = 0;
inline constexpr unsigned int max_year = 9999;

/// A time is always valid.
[[nodiscard]] constexpr bool is_valid(const date& day) {
  return day.year() <= max_year && day.day() != 0 && !day.is_day_constrained();
}
[[nodiscard]] constexpr bool is_valid(const date_time_t& moment) { return is_valid(moment.date()); }

namespace _private {

// Days are counted from January 1, 1970.
inline constexpr int first_day = -719528;  // January 1, 0
inline constexpr int last_day = 2932896;   // December 31, 9999
inline constexpr long long milliseconds_of_day = 86400000;

// The numbers of `day_number` start in March of year 0: dates are converted 400 years later.
inline constexpr unsigned int years_of_cycle = 400;
inline constexpr unsigned int number_of_1970 = 719469 + 146097;

/// REQUIRES: the date is valid.
constexpr int days_since_1970(const date& day) {
  return static_cast<int>(day_number(day.year() + years_of_cycle, day.month(), day.day()) - number_of_1970);
}

/// REQUIRES: `first_day` to `last_day`.
constexpr date date_of_days(int days) {
  const basic_date fields = exact_day_of_number(static_cast<unsigned int>(days) + number_of_1970);
  return {fields.day(), fields.month(), fields.year() - years_of_cycle};
}

static_assert(days_since_1970(date(1, 1, min_year)) == first_day);
static_assert(days_since_1970(date(31, 12, max_year)) == last_day);

}  // namespace _private

// --- Order and differences ---

// Functions instead of operators: programs have defined such operators for these classes themselves, and
// `milliseconds` are already compared with 32 bits, as the `int` that they convert to.

/// By year, month and `day()`; invalid dates have a place, too. Dates that compare equal can differ in their
/// stored day.
[[nodiscard]] constexpr std::weak_ordering compare(const date& left, const date& right) {
  if (left.year() != right.year()) return left.year() <=> right.year();
  if (left.month() != right.month()) return left.month() <=> right.month();
  return left.day() <=> right.day();
}

[[nodiscard]] constexpr std::strong_ordering compare(const time_duration& left, const time_duration& right) {
  return left.total_milliseconds() <=> right.total_milliseconds();
}

[[nodiscard]] constexpr std::strong_ordering compare(const time& left, const time& right) {
  return compare(left - time(), right - time());
}

[[nodiscard]] constexpr std::weak_ordering compare(const date_time_t& left, const date_time_t& right) {
  const std::weak_ordering by_date = compare(left.date(), right.date());
  return std::is_neq(by_date) ? by_date : compare(left.time(), right.time());
}

/// For sorting and for keys: `std::map<date, int, earlier>`. Of two durations, the lesser one is the earlier.
struct earlier {
  template <typename Value>
  [[nodiscard]] constexpr bool operator()(const Value& left, const Value& right) const {
    return std::is_lt(compare(left, right));
  }
};

/// The days from `from` to `to`; negative if `to` is the earlier date.
[[nodiscard]] constexpr std::optional<int> days_between(const date& from, const date& to) {
  if (!is_valid(from) || !is_valid(to)) return std::nullopt;
  return _private::days_since_1970(to) - _private::days_since_1970(from);
}

/// The time from `from` to `to`; negative if `to` is the earlier moment.
[[nodiscard]] constexpr std::optional<time_duration> time_between(const date_time_t& from,
                                                                  const date_time_t& to) {
  const std::optional<int> days = days_between(from.date(), to.date());
  if (!days) return std::nullopt;
  return time_duration(0, 0, 0, *days * _private::milliseconds_of_day) + (to.time() - from.time());
}

// --- Moves by days, months and years ---

[[nodiscard]] constexpr std::optional<date> add_days(const date& day, long long days) {
  if (!is_valid(day)) return std::nullopt;
  const int from = _private::days_since_1970(day);
  if (days < _private::first_day - from || days > _private::last_day - from) return std::nullopt;
  return _private::date_of_days(from + static_cast<int>(days));
}

/// Where a move by months or years ends if the month that it reaches is too short.
enum class month_end {
  last_day,    ///< January 31 + 1 month  =>  February 28 or 29: the last day of the month
  next_month,  ///< January 31 + 1 month  =>  March 3 or 2: the days in excess count on
  refuse,      ///< January 31 + 1 month  =>  std::nullopt
};

namespace _private {

/// REQUIRES: `day` is 1 to 31, `month` 1 to 12, `year` 0 to 9999.
constexpr std::optional<date> date_by_rule(unsigned int day, unsigned int month, unsigned int year,
                                           month_end rule) {
  const unsigned int last = date(date::max_days_in_month, month, year).day();
  if (day <= last) return date(day, month, year);
  if (rule == month_end::last_day) return date(last, month, year);
  // A month that is too short is never December.
  if (rule == month_end::next_month) return date(day - last, month + 1, year);
  return std::nullopt;
}

}  // namespace _private

[[nodiscard]] constexpr std::optional<date> add_months(const date& day, long long months, month_end rule) {
  if (!is_valid(day)) return std::nullopt;
  constexpr int last_month = 12 * static_cast<int>(max_year) + 11;
  const int from = static_cast<int>(12 * day.year() + day.month() - 1);
  if (months < -from || months > last_month - from) return std::nullopt;
  const auto to = static_cast<unsigned int>(from + static_cast<int>(months));
  return _private::date_by_rule(day.day(), to % 12 + 1, to / 12, rule);
}

/// The rule is for February 29.
[[nodiscard]] constexpr std::optional<date> add_years(const date& day, long long years, month_end rule) {
  constexpr int whole_range = max_year - min_year;
  if (years < -whole_range || years > whole_range) return std::nullopt;
  return add_months(day, 12 * years, rule);
}

namespace _private {

constexpr std::optional<date_time_t> at_time(const std::optional<date>& day, const time& time_of_day) {
  if (!day) return std::nullopt;
  return date_time_t(*day, time_of_day);
}

}  // namespace _private

// The same for a date with a time, which stays.

[[nodiscard]] constexpr std::optional<date_time_t> add_days(const date_time_t& moment, long long days) {
  return _private::at_time(add_days(moment.date(), days), moment.time());
}

[[nodiscard]] constexpr std::optional<date_time_t> add_months(const date_time_t& moment, long long months,
                                                              month_end rule) {
  return _private::at_time(add_months(moment.date(), months, rule), moment.time());
}

[[nodiscard]] constexpr std::optional<date_time_t> add_years(const date_time_t& moment, long long years,
                                                             month_end rule) {
  return _private::at_time(add_years(moment.date(), years, rule), moment.time());
}

// --- Moves by a time, over midnight ---

/// A time of day and the days passed to reach it: negative if it is on a day before.
struct time_and_days {
  date_time::time time;
  long long days = 0;
};

namespace _private {

/// REQUIRES: 0 to `milliseconds_of_day` - 1.
constexpr time time_of_milliseconds(long long count) {
  const auto rest = static_cast<unsigned int>(count);
  return {rest / 3600000, rest / 60000 % 60, rest / 1000 % 60, rest % 1000};
}

/// Adds days, and milliseconds that are less than a day either way.
constexpr time_and_days move_time(const time& from, long long days, long long milliseconds) {
  const long long sum = (from - time()).total_milliseconds() + milliseconds;
  if (sum < 0) return {time_of_milliseconds(sum + milliseconds_of_day), days - 1};
  if (sum >= milliseconds_of_day) return {time_of_milliseconds(sum - milliseconds_of_day), days + 1};
  return {time_of_milliseconds(sum), days};
}

}  // namespace _private

/// Any duration is valid:
///
///     add_time(time(22, 30, 0, 0), time_duration(8, 0, 0, 0))         =>  06:30, 1 day
///     subtract_time(time(8, 30, 0, 0), time_duration(32, 31, 0, 0))   =>  23:59, -2 days
[[nodiscard]] constexpr time_and_days add_time(const time& from, const time_duration& duration) {
  const long long count = duration.total_milliseconds();
  return _private::move_time(from, count / _private::milliseconds_of_day,
                             count % _private::milliseconds_of_day);
}

/// Not the sum with the negated duration, because the least duration has no negative.
[[nodiscard]] constexpr time_and_days subtract_time(const time& from, const time_duration& duration) {
  const long long count = duration.total_milliseconds();
  return _private::move_time(from, -(count / _private::milliseconds_of_day),
                             -(count % _private::milliseconds_of_day));
}

/// Moves the date with the time:
///
///     May 17, 2024, 08:30 + 20 hours     =>  May 18, 2024, 04:30
///     May 17, 2024, 08:30 + 48 hours     =>  May 19, 2024, 08:30
[[nodiscard]] constexpr std::optional<date_time_t> add_time(const date_time_t& moment,
                                                            const time_duration& duration) {
  const time_and_days moved = add_time(moment.time(), duration);
  return _private::at_time(add_days(moment.date(), moved.days), moved.time);
}

[[nodiscard]] constexpr std::optional<date_time_t> subtract_time(const date_time_t& moment,
                                                                 const time_duration& duration) {
  const time_and_days moved = subtract_time(moment.time(), duration);
  return _private::at_time(add_days(moment.date(), moved.days), moved.time);
}

// --- Days of the week and of the year ---

[[nodiscard]] constexpr std::optional<std::chrono::weekday> weekday_of(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  constexpr int saturday = 6;  // January 1, 0
  const int since_first = _private::days_since_1970(day) - _private::first_day;
  return std::chrono::weekday(static_cast<unsigned int>((since_first + saturday) % 7));
}

/// 1 to 366.
[[nodiscard]] constexpr std::optional<int> day_of_year(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  return _private::days_since_1970(day) - _private::days_since_1970(date(1, 1, day.year())) + 1;
}

/// A week of ISO 8601: it starts on Monday and belongs to the year that has its Thursday.
struct iso_week {
  int year = 0;  ///< -1 to 9999
  int week = 0;  ///< 1 to 53
};

///     December 30, 2024   =>  week 1 of 2025
///     January 1, 2027     =>  week 53 of 2026
[[nodiscard]] constexpr std::optional<iso_week> iso_week_of(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  const auto days_of = [](unsigned int year) { return date(1, 1, year).is_leap_year() ? 366 : 365; };
  const int thursday = *day_of_year(day) + 4 - static_cast<int>(weekday_of(day)->iso_encoding());
  const int year = static_cast<int>(day.year());
  // The year before year 0 is no leap year, as is the greatest unsigned number.
  if (thursday < 1) return iso_week{year - 1, (thursday + days_of(day.year() - 1) - 1) / 7 + 1};
  if (thursday > days_of(day.year())) return iso_week{year + 1, 1};
  return iso_week{year, (thursday - 1) / 7 + 1};
}

// --- std::chrono ---

[[nodiscard]] constexpr std::optional<std::chrono::sys_days> to_sys_days(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  return std::chrono::sys_days(std::chrono::days(_private::days_since_1970(day)));
}

[[nodiscard]] constexpr std::optional<date> to_date(std::chrono::sys_days day) {
  const auto days = day.time_since_epoch().count();
  if (days < _private::first_day || days > _private::last_day) return std::nullopt;
  return _private::date_of_days(static_cast<int>(days));
}

[[nodiscard]] constexpr std::optional<std::chrono::year_month_day> to_year_month_day(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  return std::chrono::year(static_cast<int>(day.year())) / std::chrono::month(day.month()) /
         std::chrono::day(day.day());
}

[[nodiscard]] constexpr std::optional<date> to_date(std::chrono::year_month_day day) {
  const int year = int{day.year()};
  if (!day.ok() || year < static_cast<int>(min_year) || year > static_cast<int>(max_year))
    return std::nullopt;
  return date(unsigned{day.day()}, unsigned{day.month()}, static_cast<unsigned int>(year));
}

/// All years fit. A conversion of the result to `system_clock::time_point` would overflow outside the years
/// 1678 to 2261, where that clock counts nanoseconds: use `to_time_point`.
[[nodiscard]] constexpr std::optional<std::chrono::sys_time<std::chrono::milliseconds>> to_sys_time(
    const date_time_t& moment) {
  if (!is_valid(moment)) return std::nullopt;
  const long long days = _private::days_since_1970(moment.date());
  const long long in_day = (moment.time() - time()).total_milliseconds();
  return std::chrono::sys_time<std::chrono::milliseconds>(
      std::chrono::milliseconds(days * _private::milliseconds_of_day + in_day));
}

[[nodiscard]] constexpr std::optional<date_time_t> to_date_time(
    std::chrono::sys_time<std::chrono::milliseconds> moment) {
  constexpr long long first = _private::first_day * _private::milliseconds_of_day;
  constexpr long long end = (_private::last_day + 1) * _private::milliseconds_of_day;
  const long long count = moment.time_since_epoch().count();
  if (count < first || count >= end) return std::nullopt;
  const auto days = static_cast<int>((count - first) / _private::milliseconds_of_day);
  return date_time_t(_private::date_of_days(_private::first_day + days),
                     _private::time_of_milliseconds((count - first) % _private::milliseconds_of_day));
}

/// `std::nullopt` also where the clock's range ends earlier.
[[nodiscard]] constexpr std::optional<std::chrono::system_clock::time_point> to_time_point(
    const date_time_t& moment) {
  using std::chrono::milliseconds;
  using std::chrono::system_clock;
  const auto result = to_sys_time(moment);
  if (!result) return std::nullopt;
  const auto count = result->time_since_epoch();
  if (count < std::chrono::ceil<milliseconds>(system_clock::duration::min())) return std::nullopt;
  if (count > std::chrono::floor<milliseconds>(system_clock::duration::max())) return std::nullopt;
  return *result;
}

/// Rounds down to the millisecond.
[[nodiscard]] constexpr std::optional<date_time_t> to_date_time(
    std::chrono::system_clock::time_point moment) {
  return to_date_time(std::chrono::floor<std::chrono::milliseconds>(moment));
}

}  // namespace ORVA_NAMESPACE::system::date_time
