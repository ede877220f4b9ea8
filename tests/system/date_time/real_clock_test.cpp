// The clocks of the machine, in the library as programs link it.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

#include "orva/system/date_time/date_time.hpp"
#include "orva/system/date_time/timer.hpp"

namespace {

using ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_time_t;
using ORVA_NAMESPACE::system::date_time::resolution_microseconds;
using ORVA_NAMESPACE::system::date_time::resolution_milliseconds;
using ORVA_NAMESPACE::system::date_time::timer;
namespace date_time = ORVA_NAMESPACE::system::date_time;
namespace chrono = std::chrono;

/// Milliseconds since the epoch of a calendar time in UTC.
long long since_epoch(const date_time_t& t) {
  const chrono::year_month_day day(chrono::year(static_cast<int>(t.year())), chrono::month(t.month()),
                                   chrono::day(t.day()));
  const long long midnight =
      chrono::duration_cast<chrono::milliseconds>(chrono::sys_days(day).time_since_epoch()).count();
  return midnight + (t.time() - date_time::time()).total_milliseconds();
}

long long now() {
  return chrono::duration_cast<chrono::milliseconds>(chrono::system_clock::now().time_since_epoch()).count();
}

TEST(real_clock, UTC_is_what_the_system_clock_says) {
  const auto before = now();
  const auto read = since_epoch(date_time_t::UTC_date_time());
  EXPECT_GE(read, before);
  EXPECT_LE(read, now());
}

TEST(real_clock, parts_are_what_the_system_clock_says) {
  // A reading at midnight may differ; two in a row cannot.
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto before = now();
    const auto read = since_epoch({date::UTC_date(), date_time::time::UTC_time()});
    if (attempt == 0 && (read < before || read > now())) continue;
    EXPECT_GE(read, before);
    EXPECT_LE(read, now());
    return;
  }
}

TEST(real_clock, local_is_what_the_c_runtime_says) {
  const auto before = std::time(nullptr);
  const auto read = since_epoch(date_time_t::local_date_time()) / 1000;
  std::tm local = *std::localtime(&before);
  local.tm_isdst = 0;
  const auto expected =
      chrono::sys_days(chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday) +
      chrono::hours(local.tm_hour) + chrono::minutes(local.tm_min) + chrono::seconds(local.tm_sec);
  EXPECT_GE(read, expected.time_since_epoch().count());
  EXPECT_LE(read, expected.time_since_epoch().count() + 10);
}

TEST(real_clock, each_resolution_measures_a_pause) {
  for (const auto resolution : {resolution_microseconds, resolution_milliseconds}) {
    timer t(resolution);
    const auto start = chrono::steady_clock::now();
    t.start();
    std::this_thread::sleep_for(chrono::milliseconds(20));
    t.stop();
    const auto bound =
        chrono::duration_cast<chrono::microseconds>(chrono::steady_clock::now() - start).count();
    const auto unit = resolution == resolution_microseconds ? 1u : 1000u;
    EXPECT_GE(t.elapsed_time(), 19000u / unit);
    EXPECT_LE(t.elapsed_time(), static_cast<unsigned long long>(bound) / unit + 1);
  }
}

TEST(real_clock, overhead_is_measured_at_load_and_small) { EXPECT_LT(timer::overhead_microseconds(), 1000u); }

TEST(real_clock, measuring_the_overhead_takes_less_than_20_microseconds) {
  // The best of several, as the system may interrupt any one.
  auto best = chrono::steady_clock::duration::max();
  for (int i = 0; i < 100; ++i) {
    timer::overhead_microseconds(0);
    const auto start = chrono::steady_clock::now();
    const date_time::TimerOverheadTester tester;
    best = std::min(best, chrono::steady_clock::now() - start);
  }
  EXPECT_LT(best, chrono::microseconds(20));
}

}  // namespace
