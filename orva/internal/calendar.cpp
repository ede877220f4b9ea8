#include "orva/internal/calendar.hpp"

#include <chrono>

namespace ORVA_NAMESPACE::internal {

calendar_time utc_calendar(std::int64_t second, unsigned int millisecond) noexcept {
  using namespace std::chrono;
  const sys_seconds moment{seconds(second)};
  const auto midnight = floor<days>(moment);
  const year_month_day date(midnight);
  const auto second_of_day = static_cast<unsigned int>((moment - midnight).count());
  return {.year = static_cast<std::uint16_t>(int{date.year()}),
          .month = unsigned{date.month()},
          .day = unsigned{date.day()},
          .hour = second_of_day / 3600,
          .minute = second_of_day / 60 % 60,
          .second = second_of_day % 60,
          .millisecond = millisecond};
}

}  // namespace ORVA_NAMESPACE::internal
