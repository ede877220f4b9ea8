/// Moves of dates and times, with sums that wrap at 64 bits.
///
/// Slow on purpose. `date_time_t` and its parts are compared with it for durations of all 64 bits.
#pragma once

#include <cstdint>
#include <string_view>

#include "tests/support/reference_calendar.hpp"

namespace orva_test {

inline std::int64_t wrapped_sum(std::int64_t left, std::int64_t right) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}

inline std::int64_t wrapped_negative(std::int64_t value) {
  return static_cast<std::int64_t>(0 - static_cast<std::uint64_t>(value));
}

struct reference_date_time {
  reference_day date;
  int parts[4];  // hour, minute, second, millisecond

  /// Returns the message of the failure, or empty text. Fields stored before a failure keep their values.
  std::string_view plus_days(int days) {
    date = reference_day_of_number(reference_day_number(date) + static_cast<unsigned int>(days));
    return {};
  }

  std::string_view minus_days(int days) {
    const unsigned int number = reference_day_number(date);
    if (static_cast<std::int32_t>(number) <= days) return "date value out of valid range";
    date = reference_day_of_number(number - static_cast<unsigned int>(days));
    return {};
  }

  std::string_view plus_milliseconds(std::int64_t count) {
    constexpr std::int64_t day = 86400000;
    const std::int64_t now = ((parts[0] * 60 + parts[1]) * 60 + parts[2]) * 1000 + parts[3];
    const std::int64_t rest = wrapped_sum(wrapped_sum(now, count), day) % day;
    const std::int64_t units[] = {rest / 3600000, rest / 60000 % 60, rest / 1000 % 60, rest % 1000};
    constexpr std::string_view messages[] = {
        "Hour value out of valid range", "Minute value out of valid range", "Second value out of valid range",
        "Millisecond value out of valid range"};
    for (int i = 0; i < 4; ++i) {
      if (units[i] < 0) return messages[i];
      parts[i] = static_cast<int>(units[i]);
    }
    return {};
  }

  /// Moves date and time by a duration: forward if `sign` is 1, back if it is -1.
  std::string_view move(std::int64_t count, int sign) {
    const std::int64_t hours = count / 3600000;
    if (hours >= 24 || hours <= -24) {
      const auto day = static_cast<int>(hours % 24);
      if (day < 1) return "day value out of valid range";
      date.day = static_cast<unsigned int>(day);
      const auto failure = sign > 0 ? plus_days(day) : minus_days(day);
      if (!failure.empty()) return failure;
    }
    return plus_milliseconds(sign > 0 ? count : wrapped_negative(count));
  }
};

}  // namespace orva_test
