// Measures dates, and the calendars of the standard library and of Howard Hinnant's date library.
#include "orva/system/date_time/date.hpp"

#include <benchmark/benchmark.h>
#include <date/date.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <random>

#include "bench/system/date_time/for_each_input.hpp"
#include "orva/system/date_time/date_time.hpp"

namespace {

using orva_date = ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_duration;
using ORVA_NAMESPACE::system::date_time::date_time_t;
using ORVA_NAMESPACE::system::date_time::milliseconds;
using orva_time = ORVA_NAMESPACE::system::date_time::time;

struct open_date : orva_date {
  using orva_date::orva_date;
  using orva_date::pJulian_day_number;
};

using orva_bench::for_each_input;

constexpr std::size_t count = orva_bench::input_count;

/// Random days from 1600 on for some 900 years, and moves of up to 100 years either way.
struct inputs {
  std::array<int, count> days_since_epoch;
  std::array<int, count> moves;
  std::array<open_date, count> orva;
  std::array<std::chrono::year_month_day, count> chrono;
  std::array<date::year_month_day, count> hinnant;
};

inputs random_inputs() {
  std::mt19937 random(20240517);
  std::uniform_int_distribution<int> any_day(-135140, 200000);
  std::uniform_int_distribution<int> any_move(-36525, 36525);
  inputs result;
  for (std::size_t i = 0; i < count; ++i) {
    result.days_since_epoch[i] = any_day(random);
    result.moves[i] = any_move(random);
    const std::chrono::year_month_day day{
        std::chrono::sys_days(std::chrono::days(result.days_since_epoch[i]))};
    result.chrono[i] = day;
    result.orva[i] = {unsigned{day.day()}, unsigned{day.month()}, static_cast<unsigned int>(int{day.year()})};
    result.hinnant[i] = date::sys_days(date::days(result.days_since_epoch[i]));
  }
  return result;
}

const inputs& input() {
  static const inputs result = random_inputs();
  return result;
}

void number_of_day_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return in.orva[i].pJulian_day_number(); });
}
BENCHMARK(number_of_day_orva);

void number_of_day_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return std::chrono::sys_days(in.chrono[i]); });
}
BENCHMARK(number_of_day_std_chrono);

void number_of_day_hinnant_date(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return date::sys_days(in.hinnant[i]); });
}
BENCHMARK(number_of_day_hinnant_date);

void day_of_number_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    open_date result;
    result.pJulian_day_number(static_cast<unsigned int>(in.days_since_epoch[i] + 719469));
    return result;
  });
}
BENCHMARK(day_of_number_orva);

void day_of_number_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return std::chrono::year_month_day(std::chrono::sys_days(std::chrono::days(in.days_since_epoch[i])));
  });
}
BENCHMARK(day_of_number_std_chrono);

void day_of_number_hinnant_date(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return date::year_month_day(date::sys_days(date::days(in.days_since_epoch[i])));
  });
}
BENCHMARK(day_of_number_hinnant_date);

void plus_days_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    orva_date result = in.orva[i];
    result += in.moves[i];
    return result;
  });
}
BENCHMARK(plus_days_orva);

void plus_days_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    using namespace std::chrono;
    return year_month_day(sys_days(in.chrono[i]) + days(in.moves[i]));
  });
}
BENCHMARK(plus_days_std_chrono);

void plus_days_hinnant_date(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return date::year_month_day(date::sys_days(in.hinnant[i]) + date::days(in.moves[i]));
  });
}
BENCHMARK(plus_days_hinnant_date);

/// One date that moves on, where each step needs the result of the one before.
void walk_by_days_orva(benchmark::State& state) {
  for (auto _ : state) {
    orva_date day(1, 1, 2000);
    for (std::size_t i = 0; i < count; ++i) day += 40;
    benchmark::DoNotOptimize(day);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * count));
}
BENCHMARK(walk_by_days_orva);

void walk_by_days_std_chrono(benchmark::State& state) {
  using namespace std::chrono;
  for (auto _ : state) {
    year_month_day day = year(2000) / 1 / 1;
    for (std::size_t i = 0; i < count; ++i) day = sys_days(day) + days(40);
    benchmark::DoNotOptimize(day);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * count));
}
BENCHMARK(walk_by_days_std_chrono);

void plus_milliseconds_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    return orva_time(11, 12, 13, 14) + milliseconds(in.moves[i] * 1000);
  });
}
BENCHMARK(plus_milliseconds_orva);

void plus_milliseconds_std_chrono(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    using namespace std::chrono;
    const auto start = hours(11) + minutes(12) + seconds(13) + std::chrono::milliseconds(14);
    auto rest = (start + std::chrono::milliseconds(in.moves[i] * 1000)) % days(1);
    if (rest.count() < 0) rest += days(1);
    return hh_mm_ss<std::chrono::milliseconds>(rest);
  });
}
BENCHMARK(plus_milliseconds_std_chrono);

}  // namespace
