/// Moments as calendar time.
#pragma once

#include <sys/time.h>

#include <ctime>

#include "orva/platform/clock.hpp"

namespace ORVA_NAMESPACE::platform::posix {

/// The zone of the process, as the C runtime knows it: `TZ` when it was first asked, or at the last `tzset`.
calendar_time local_calendar(const timespec& moment) noexcept;
calendar_time utc_calendar(const timespec& moment) noexcept;

}  // namespace ORVA_NAMESPACE::platform::posix
