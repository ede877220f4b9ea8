#include "orva/platform/clock.hpp"

#include <ctime>

#include "orva/platform/posix/calendar.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

constexpr std::uint64_t ticks_per_second = 10'000'000;
constexpr std::uint64_t nanoseconds_per_second = 1'000'000'000;

/// The call itself and no clock of the standard library around it: a stopwatch pays for every step between.
timespec reading_of(clockid_t clock) {
  timespec reading;
  clock_gettime(clock, &reading);
  return reading;
}

std::uint64_t scaled(const timespec& reading, std::uint64_t per_second) {
  return static_cast<std::uint64_t>(reading.tv_sec) * per_second +
         static_cast<std::uint64_t>(reading.tv_nsec) / (nanoseconds_per_second / per_second);
}

}  // namespace

calendar_time local_calendar() noexcept { return posix::local_calendar(reading_of(CLOCK_REALTIME)); }
calendar_time utc_calendar() noexcept { return posix::utc_calendar(reading_of(CLOCK_REALTIME)); }

std::uint64_t counter() noexcept { return scaled(reading_of(CLOCK_MONOTONIC), ticks_per_second); }
std::uint64_t counter_frequency() noexcept { return ticks_per_second; }

std::uint32_t millisecond_counter() noexcept {
  return static_cast<std::uint32_t>(scaled(reading_of(CLOCK_MONOTONIC), 1000));
}

}  // namespace ORVA_NAMESPACE::platform
