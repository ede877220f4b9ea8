/// The clocks: the calendar time of day, a fine counter and a coarse one.
///
/// Internal: not installed. A port owes: counters that never go back while the machine runs, whatever is done
/// to the time of day; a calendar time of one reading, with every field in the range that is told. No call
/// fails, and any thread may make one.
#pragma once

#include <cstdint>

#include "orva/internal/calendar.hpp"

namespace ORVA_NAMESPACE::platform {

using internal::calendar_time;

/// In the time zone of the process, or in UTC where that cannot be told.
calendar_time local_calendar() noexcept;
calendar_time utc_calendar() noexcept;

/// Ticks since some moment before the process began, and how many of them make a second.
std::uint64_t counter() noexcept;
std::uint64_t counter_frequency() noexcept;

/// Milliseconds since some moment; goes on at 0 after 2^32 - 1.
std::uint32_t millisecond_counter() noexcept;

}  // namespace ORVA_NAMESPACE::platform
