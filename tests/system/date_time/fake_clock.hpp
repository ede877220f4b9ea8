/// The clocks of the platform layer, as a test sets them.
#pragma once

#include <cstdint>

#include "orva/platform/clock.hpp"

namespace orva_test {

struct fake_clock {
  ORVA_NAMESPACE::platform::calendar_time local = {};
  ORVA_NAMESPACE::platform::calendar_time utc = {};
  int calendar_readings = 0;

  std::uint64_t ticks = 1;
  std::uint64_t frequency = 10'000'000;
  /// How far a reading of the counter moves it.
  std::uint64_t ticks_of_a_reading = 0;
  std::uint32_t milliseconds = 1;
  int frequency_readings = 0;
};

/// One for the process. Clocks are read while the program is loaded, so it needs no construction; each
/// reading of the counter then takes 30 microseconds.
inline constinit fake_clock clock = {.ticks_of_a_reading = 300};

}  // namespace orva_test
