/// The clocks: the calendar time of day, a fine counter and a coarse one.
///
/// Internal: not installed. No call fails, and any thread may make one. A port provides:
///
///     calendars    all fields from one reading of the clock, each in its range
///     counters     never go back while the machine runs, even when the time of day is set
#pragma once

#include <cstdint>

#include "orva/internal/calendar.hpp"

namespace ORVA_NAMESPACE::platform {

using internal::calendar_time;

/// In the time zone of the process, or in UTC where that is unknown.
calendar_time local_calendar() noexcept;
calendar_time utc_calendar() noexcept;

/// Ticks since some moment before the process began, and how many of them make a second.
std::uint64_t counter() noexcept;
std::uint64_t counter_frequency() noexcept;

/// Milliseconds since some moment; continues at 0 after 2^32 - 1.
std::uint32_t millisecond_counter() noexcept;

}  // namespace ORVA_NAMESPACE::platform
