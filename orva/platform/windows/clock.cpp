#include "orva/platform/clock.hpp"

#include <algorithm>

#include "orva/platform/windows/system.hpp"
// Behind the system's header, which it needs.
#include <timeapi.h>

namespace ORVA_NAMESPACE::platform {

namespace {

using read_calendar = void(WINAPI*)(SYSTEMTIME*);

calendar_time reading_of(read_calendar read) {
  SYSTEMTIME found = {};
  read(&found);
  const unsigned int second = std::min<unsigned int>(found.wSecond, 59);
  return {found.wYear, found.wMonth, found.wDay, found.wHour, found.wMinute, second, found.wMilliseconds};
}

using read_counter = BOOL(WINAPI*)(LARGE_INTEGER*);

std::uint64_t reading_of(read_counter read) {
  LARGE_INTEGER found = {};
  read(&found);
  return static_cast<std::uint64_t>(found.QuadPart);
}

}  // namespace

calendar_time local_calendar() noexcept { return reading_of(::GetLocalTime); }
calendar_time utc_calendar() noexcept { return reading_of(::GetSystemTime); }

std::uint64_t counter() noexcept { return reading_of(::QueryPerformanceCounter); }
std::uint64_t counter_frequency() noexcept { return reading_of(::QueryPerformanceFrequency); }

std::uint32_t millisecond_counter() noexcept { return ::timeGetTime(); }

}  // namespace ORVA_NAMESPACE::platform
