/// Dates and times as text in the forms of RFC 3339, a profile of ISO 8601: readers that report what is wrong
/// and where, and writers.
///
///     read_date("2024-02-29").value                          =>  February 29, 2024
///     read_date("2023-02-29").error                          =>  iso8601_error::bad_day, with the count 8
///     read_timestamp("2024-05-17T08:30:00+02:00").value.utc  =>  May 17, 2024, 06:30
///     parse_time("08:30:00 h")                               =>  std::nullopt
///     write_date(date(29, 2, 2024))->view()                  =>  "2024-02-29"
///
/// The forms, with the names of their readers and writers:
///
///     date        2024-02-29
///     time        08:30:00     08:30:00.123           a fraction has one digit or more
///     date_time   2024-02-29T08:30:00.123             date and time, without a time zone
///     timestamp   2024-02-29T08:30:00.123Z            date, time, and the offset from UTC
///                 2024-02-29T08:30:00.123+05:30
///
/// Readers also take "t" or a space instead of "T", and "z" instead of "Z". All fields are required, and have
/// exactly as many digits as above: a text that was cut off is found out, except within its fraction. Other
/// forms of ISO 8601 are refused: without "-" and ":", without seconds, with a comma, weeks, ordinal dates,
/// the hour 24. The calendar and the range of years are those of `orva/system/date_time/calendar.hpp`.
///
/// **Fractions.** A time holds milliseconds. A reader drops further digits, and reports it if one of them is
/// not 0. A writer writes three digits always, so that texts sort as their times do.
///
/// **Leap seconds.** The second 60 is read only where a leap second can be: at 23:59 UTC, on the last day of
/// a month where there is a date. A text without an offset is taken as UTC here. A time has no second 60: it
/// is read as second 59, and reported. The writers never write it.
///
/// A reader reads as far as its form goes, and text may follow: compare `count` with the size of the text.
/// The functions `parse_` take a whole text that loses nothing, or nothing. The text is bytes; the positions
/// count them. Reading takes time in proportion to the form, allocates nothing and uses no locale. Any thread
/// may call.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/system/date_time/date.hpp"
#include "orva/system/date_time/date_time.hpp"
#include "orva/system/date_time/time.hpp"

namespace ORVA_NAMESPACE::system::date_time {

/// The rule that the text breaks.
enum class iso8601_error {
  none,
  ends_early,    ///< The text has all fields of its form.
  no_digit,      ///< The year has four digits, a fraction one or more, each other field two.
  no_separator,  ///< "-" separates year, month and day; ":" hour, minute and second; "T" date and time.
  no_offset,     ///< "Z", or "+" or "-" with hours and minutes, follows the time of a timestamp.
  bad_month,     ///< A month is 01 to 12.
  bad_day,       ///< A day is 01 to the length of its month.
  bad_hour,      ///< An hour is 00 to 23, also in an offset.
  bad_minute,    ///< A minute is 00 to 59, also in an offset.
  bad_second,    ///< A second is 00 to 59, and 60 in a leap second.
  bad_year,      ///< The timestamp is in the years 0 to 9999 of UTC. The position is that of the offset.
};

template <typename Value>
struct iso8601_result {
  Value value = {};  ///< default-constructed if there is an error
  /// The bytes that were read. With an error, the position of what is wrong: the first byte that cannot be
  /// there, the first digit of a field that is out of range, or the size of a text that ends early.
  std::size_t count = 0;
  iso8601_error error = iso8601_error::none;
  bool is_rounded = false;      ///< digits below the millisecond, not all of them 0, were dropped
  bool is_leap_second = false;  ///< the text has the second 60, the value the second 59
};

/// A moment, and the offset of the local time that the text is in.
struct timestamp {
  date_time_t utc;
  int offset = 0;  ///< minutes that the local time is ahead of UTC: -1439 to 1439; 0 for "Z" and "-00:00"
};

namespace _private {

/// A result without its value.
struct iso8601_reading {
  iso8601_error error;
  std::size_t count;
  bool is_rounded;
  bool is_leap_second;
};

ORVA_API diagnostics::finding describe(const iso8601_reading& read, std::string_view text,
                                       std::string_view file);

}  // namespace _private

/// What is wrong, in words, with line and column; a note without a code if nothing is.
///
///     const auto day = read_date("2023-02-29");
///     std::cerr << describe(day, "2023-02-29", "days.txt");
///         =>  days.txt:1:9: error: A day is 01 to the length of its month. [date.bad_day]
///
/// The codes are "date." and the name of the error. What the functions `parse_` refuse without an error is
/// reported too: text after the form as "date.rest"; a leap second, else dropped digits, as a warning. `text`
/// is what was read; where that is part of a larger one, `diagnostics::place_in_whole` moves the place.
/// `file` is the name that the user knows, and only passed on. docs/diagnostic_codes.md explains each code.
template <typename Value>
[[nodiscard]] diagnostics::finding describe(const iso8601_result<Value>& result, std::string_view text,
                                            std::string_view file = {}) {
  return _private::describe({result.error, result.count, result.is_rounded, result.is_leap_second}, text,
                            file);
}

[[nodiscard]] ORVA_API iso8601_result<date> read_date(std::string_view text);
[[nodiscard]] ORVA_API iso8601_result<time> read_time(std::string_view text);
/// Stops before an offset, if there is one.
[[nodiscard]] ORVA_API iso8601_result<date_time_t> read_date_time(std::string_view text);
[[nodiscard]] ORVA_API iso8601_result<timestamp> read_timestamp(std::string_view text);

// A value if the text is one from its first byte to its last, and is neither rounded nor a leap second.

[[nodiscard]] ORVA_API std::optional<date> parse_date(std::string_view text);
[[nodiscard]] ORVA_API std::optional<time> parse_time(std::string_view text);
[[nodiscard]] ORVA_API std::optional<date_time_t> parse_date_time(std::string_view text);
[[nodiscard]] ORVA_API std::optional<timestamp> parse_timestamp(std::string_view text);

/// What the writers return: a short text, stored in place.
struct iso8601_text {
  std::array<char, 29> bytes = {};  // 2024-02-29T08:30:00.123+05:30
  std::size_t size = 0;

  /// Valid as long as this object.
  constexpr std::string_view view() const { return {bytes.data(), size}; }
};

// Written texts read back to the same value. An invalid date has no text.

[[nodiscard]] ORVA_API std::optional<iso8601_text> write_date(const date& day);
[[nodiscard]] ORVA_API iso8601_text write_time(const time& time_of_day);
[[nodiscard]] ORVA_API std::optional<iso8601_text> write_date_time(const date_time_t& moment);
/// The offset 0 is written as "Z". Empty also for an offset that is out of range, and for a local time
/// outside the years 0 to 9999.
[[nodiscard]] ORVA_API std::optional<iso8601_text> write_timestamp(const timestamp& moment);

}  // namespace ORVA_NAMESPACE::system::date_time
