/// The exception of an operation on dates and times as one line: "message | source file | function".
#pragma once

#include <string>

#include "orva/exceptions/exception.hpp"

namespace orva_test {

/// Returns "nothing" if the operation does not raise.
template <typename Operation>
std::string raised(Operation operation) {
  try {
    operation();
  } catch (const ORVA_NAMESPACE::exceptions::out_of_range& error) {
    const auto& state = error.error_state();
    return std::string(error.message()) + " | " + state.file() + " | " + state.function();
  }
  return "nothing";
}

inline const std::string bad_day =
    "day value out of valid range | system/date_time/date | " ORVA_QUALIFIED("system::date_time::date::day");
inline const std::string bad_month =
    "month value out of valid range | system/date_time/date | " ORVA_QUALIFIED(
        "system::date_time::date::month");
inline const std::string bad_date = "date value out of valid range | system/date_time/date | " ORVA_QUALIFIED(
    "system::date_time::date::minus_assign");
inline const std::string bad_hour = "Hour value out of valid range | system/date_time/time | " ORVA_QUALIFIED(
    "system::date_time::time::hour");
inline const std::string bad_minute =
    "Minute value out of valid range | system/date_time/time | " ORVA_QUALIFIED(
        "system::date_time::time::minute");
inline const std::string bad_second =
    "Second value out of valid range | system/date_time/time | " ORVA_QUALIFIED(
        "system::date_time::time::second");
inline const std::string bad_millisecond =
    "Millisecond value out of valid range | system/date_time/time | " ORVA_QUALIFIED(
        "system::date_time::time::millisecond");

}  // namespace orva_test
