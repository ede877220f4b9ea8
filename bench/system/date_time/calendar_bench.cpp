// Measures exact calendar arithmetic, and the same with std::chrono.
#include "orva/system/date_time/calendar.hpp"

#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>

#include "bench/system/date_time/for_each_input.hpp"

namespace {

namespace date_time = ORVA_NAMESPACE::system::date_time;
namespace chrono = std::chrono;
using instant = chrono::sys_time<chrono::milliseconds>;

using orva_bench::for_each_input;

constexpr std::size_t count = orva_bench::input_count;

/// Random moments from 1600 on for some 900 years, and moves of up to 100 years either way.
struct inputs {
  std::array<int, count> moves;
  std::array<date_time::date_time_t, count> orva;
  std::array<chrono::year_month_day, count> days;
  std::array<instant, count> instants;
};

inputs random_inputs() {
  std::mt19937 random(20240517);
  std::uniform_int_distribution<int> any_day(-135140, 200000);
  std::uniform_int_distribution<int> any_millisecond(0, 86399999);
  std::uniform_int_distribution<int> any_move(-36525, 36525);
  inputs result;
  for (std::size_t i = 0; i < count; ++i) {
    const chrono::sys_days day{chrono::days(any_day(random))};
    result.moves[i] = any_move(random);
    result.instants[i] = day + chrono::milliseconds(any_millisecond(random));
    result.days[i] = day;
    result.orva[i] = *date_time::to_date_time(result.instants[i]);
  }
  return result;
}

const inputs& input() {
  static const inputs result = random_inputs();
  return result;
}

void add_days_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return add_days(in.orva[i].date(), in.moves[i]); });
}
BENCHMARK(add_days_orva);

void add_days_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return chrono::year_month_day(chrono::sys_days(in.days[i]) + chrono::days(in.moves[i]));
  });
}
BENCHMARK(add_days_std_chrono);

void add_months_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return add_months(in.orva[i].date(), in.moves[i] / 30, date_time::month_end::last_day);
  });
}
BENCHMARK(add_months_orva);

void add_months_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    chrono::year_month_day result = in.days[i] + chrono::months(in.moves[i] / 30);
    if (!result.ok()) result = result.year() / result.month() / chrono::last;
    return result;
  });
}
BENCHMARK(add_months_std_chrono);

void days_between_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return days_between(in.orva[i].date(), in.orva[count - 1 - i].date());
  });
}
BENCHMARK(days_between_orva);

void days_between_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return chrono::sys_days(in.days[count - 1 - i]) - chrono::sys_days(in.days[i]);
  });
}
BENCHMARK(days_between_std_chrono);

/// With the checks that `days_between` makes.
void days_between_std_chrono_checked(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) -> std::optional<chrono::days> {
    const chrono::year_month_day from = in.days[i];
    const chrono::year_month_day to = in.days[count - 1 - i];
    if (!from.ok() || !to.ok()) return std::nullopt;
    return chrono::sys_days(to) - chrono::sys_days(from);
  });
}
BENCHMARK(days_between_std_chrono_checked);

void add_time_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return add_time(in.orva[i], date_time::milliseconds(in.moves[i] * 50000LL));
  });
}
BENCHMARK(add_time_orva);

/// From fields to fields, as `add_time` does.
void add_time_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    const date_time::time& clock = in.orva[i].time();
    const instant moment = chrono::sys_days(in.days[i]) + chrono::hours(clock.hour()) +
                           chrono::minutes(clock.minute()) + chrono::seconds(clock.second()) +
                           chrono::milliseconds(clock.millisecond() + in.moves[i] * 50000LL);
    const auto midnight = chrono::floor<chrono::days>(moment);
    return std::pair(chrono::year_month_day(midnight), chrono::hh_mm_ss(moment - midnight));
  });
}
BENCHMARK(add_time_std_chrono);

void instant_to_fields_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return date_time::to_date_time(in.instants[i]); });
}
BENCHMARK(instant_to_fields_orva);

void instant_to_fields_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    const auto midnight = chrono::floor<chrono::days>(in.instants[i]);
    return std::pair(chrono::year_month_day(midnight), chrono::hh_mm_ss(in.instants[i] - midnight));
  });
}
BENCHMARK(instant_to_fields_std_chrono);

void fields_to_instant_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return to_sys_time(in.orva[i]); });
}
BENCHMARK(fields_to_instant_orva);

void fields_to_instant_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) -> instant {
    const date_time::time& clock = in.orva[i].time();
    return chrono::sys_days(in.days[i]) + chrono::hours(clock.hour()) + chrono::minutes(clock.minute()) +
           chrono::seconds(clock.second()) + chrono::milliseconds(clock.millisecond());
  });
}
BENCHMARK(fields_to_instant_std_chrono);

}  // namespace
