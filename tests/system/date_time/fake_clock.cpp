#include "tests/system/date_time/fake_clock.hpp"

namespace ORVA_NAMESPACE::platform {

using orva_test::clock;

calendar_time local_calendar() noexcept {
  ++clock.calendar_readings;
  return clock.local;
}

calendar_time utc_calendar() noexcept {
  ++clock.calendar_readings;
  return clock.utc;
}

std::uint64_t counter() noexcept {
  const auto reading = clock.ticks;
  clock.ticks += clock.ticks_of_a_reading;
  return reading;
}

std::uint64_t counter_frequency() noexcept {
  ++clock.frequency_readings;
  return clock.frequency;
}

std::uint32_t millisecond_counter() noexcept { return clock.milliseconds; }

}  // namespace ORVA_NAMESPACE::platform
