/// Clocks of the platform layer that tests set.
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
  /// The ticks by which each reading moves the counter.
  std::uint64_t ticks_of_a_reading = 0;
  std::uint32_t milliseconds = 1;
  int frequency_readings = 0;
};

/// One for the process. It is initialised statically, as clocks are read while the program is loaded. Each
/// reading of the counter takes 30 microseconds.
inline constinit fake_clock clock = {.ticks_of_a_reading = 300};

}  // namespace orva_test
