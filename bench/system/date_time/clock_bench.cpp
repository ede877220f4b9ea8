// Measures clock readings and stopwatches, the system calls that they use, and the standard library.
#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

#include "orva/system/date_time/date_time.hpp"
#include "orva/system/date_time/timer.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;

struct open_timer : timer {
  using timer::current_time;
  using timer::timer;
};

template <typename Operation>
void repeat(benchmark::State& state, Operation operation) {
  for (auto _ : state) {
    auto result = operation();
    benchmark::DoNotOptimize(result);
  }
}

timespec read_clock(clockid_t clock) {
  timespec reading;
  clock_gettime(clock, &reading);
  return reading;
}

void counter_reading_clock_gettime(benchmark::State& state) {
  repeat(state, [] { return read_clock(CLOCK_MONOTONIC); });
}
BENCHMARK(counter_reading_clock_gettime);

void counter_reading_std_chrono(benchmark::State& state) {
  repeat(state, [] { return std::chrono::steady_clock::now(); });
}
BENCHMARK(counter_reading_std_chrono);

void counter_reading_orva(benchmark::State& state) {
  const open_timer t;
  repeat(state, [&] { return t.current_time(); });
}
BENCHMARK(counter_reading_orva);

void local_reading_clock_gettime_localtime_r(benchmark::State& state) {
  repeat(state, [] {
    const timespec reading = read_clock(CLOCK_REALTIME);
    std::tm fields;
    localtime_r(&reading.tv_sec, &fields);
    return fields;
  });
}
BENCHMARK(local_reading_clock_gettime_localtime_r);

void local_reading_orva(benchmark::State& state) {
  repeat(state, [] { return date_time_t::local_date_time(); });
}
BENCHMARK(local_reading_orva);

void utc_reading_clock_gettime_gmtime_r(benchmark::State& state) {
  repeat(state, [] {
    const timespec reading = read_clock(CLOCK_REALTIME);
    std::tm fields;
    gmtime_r(&reading.tv_sec, &fields);
    return fields;
  });
}
BENCHMARK(utc_reading_clock_gettime_gmtime_r);

void utc_reading_std_chrono(benchmark::State& state) {
  using namespace std::chrono;
  repeat(state, [] {
    const auto now = floor<std::chrono::milliseconds>(system_clock::now());
    const auto midnight = floor<days>(now);
    return std::pair(year_month_day(midnight), hh_mm_ss(now - midnight));
  });
}
BENCHMARK(utc_reading_std_chrono);

void utc_reading_orva(benchmark::State& state) {
  repeat(state, [] { return date_time_t::UTC_date_time(); });
}
BENCHMARK(utc_reading_orva);

void start_and_stop_orva(benchmark::State& state) {
  timer t;
  repeat(state, [&] {
    t.start();
    t.stop();
    return t.is_timer_running();
  });
}
BENCHMARK(start_and_stop_orva);

void start_and_stop_std_chrono(benchmark::State& state) {
  std::chrono::steady_clock::duration sum{};
  repeat(state, [&] {
    const auto start = std::chrono::steady_clock::now();
    sum += std::chrono::steady_clock::now() - start;
    return sum;
  });
}
BENCHMARK(start_and_stop_std_chrono);

void start_and_stop_clock_gettime(benchmark::State& state) {
  long sum = 0;
  repeat(state, [&] {
    const timespec start = read_clock(CLOCK_MONOTONIC);
    const timespec stop = read_clock(CLOCK_MONOTONIC);
    sum += (stop.tv_sec - start.tv_sec) * 1'000'000'000 + stop.tv_nsec - start.tv_nsec;
    return sum;
  });
}
BENCHMARK(start_and_stop_clock_gettime);

/// The cost of loading the library, which constructs such an object.
void overhead_measurement_at_load(benchmark::State& state) {
  for (auto _ : state) {
    timer::overhead_microseconds(0);
    const TimerOverheadTester tester;
  }
  timer::overhead_microseconds(0);
}
BENCHMARK(overhead_measurement_at_load);

}  // namespace
