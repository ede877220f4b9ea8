// Measures reading and writing of timestamps, and what a program uses instead.
#include "orva/system/date_time/iso8601.hpp"

#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <iomanip>
#include <random>
#include <sstream>
#include <string>

#include "bench/system/date_time/for_each_input.hpp"
#include "orva/system/date_time/calendar.hpp"

namespace {

namespace date_time = ORVA_NAMESPACE::system::date_time;

using orva_bench::for_each_input;

constexpr std::size_t count = orva_bench::input_count;

struct inputs {
  std::array<std::string, count> texts;  // 2024-02-29T08:30:00.123Z
  std::array<date_time::timestamp, count> values;
};

inputs random_inputs() {
  std::mt19937_64 random(20240517);
  inputs result;
  for (std::size_t i = 0; i < count; ++i) {
    const std::chrono::milliseconds since_1970(static_cast<std::int64_t>(random() % 4'000'000'000'000));
    const std::chrono::sys_time<std::chrono::milliseconds> moment(since_1970);
    result.values[i] = {*date_time::to_date_time(moment), 0};
    result.texts[i] = write_timestamp(result.values[i])->view();
  }
  return result;
}

const inputs& input() {
  static const inputs result = random_inputs();
  return result;
}

void read_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return date_time::read_timestamp(in.texts[i]); });
}
BENCHMARK(read_orva);

void read_sscanf(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    std::array<int, 7> fields = {};
    std::sscanf(in.texts[i].c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%3dZ", &fields[0], &fields[1], &fields[2],
                &fields[3], &fields[4], &fields[5], &fields[6]);
    return fields;
  });
}
BENCHMARK(read_sscanf);

/// Without the fraction, which it does not read.
void read_strptime(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    std::tm fields = {};
    benchmark::DoNotOptimize(strptime(in.texts[i].c_str(), "%Y-%m-%dT%H:%M:%S", &fields));
    return fields;
  });
}
BENCHMARK(read_strptime);

/// Without the fraction, which it does not read.
void read_std_get_time(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    std::tm fields = {};
    std::istringstream(in.texts[i]) >> std::get_time(&fields, "%Y-%m-%dT%H:%M:%S");
    return fields;
  });
}
BENCHMARK(read_std_get_time);

/// Digits at fixed positions without any check: the least that a reader can do.
void read_by_hand_unchecked(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    const std::string& text = in.texts[i];
    const auto number = [&text](std::size_t first, std::size_t digits) {
      unsigned int value = 0;
      for (std::size_t d = 0; d < digits; ++d)
        value = 10 * value + static_cast<unsigned int>(text[first + d] - '0');
      return value;
    };
    return date_time::date_time_t(
        date_time::date(number(8, 2), number(5, 2), number(0, 4)),
        date_time::time(number(11, 2), number(14, 2), number(17, 2), number(20, 3)));
  });
}
BENCHMARK(read_by_hand_unchecked);

void write_orva(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) { return write_timestamp(in.values[i]); });
}
BENCHMARK(write_orva);

void write_snprintf(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    const date_time::date_time_t& value = in.values[i].utc;
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02d:%02d:%02d.%03dZ", value.year(),
                  value.month(), value.day(), value.hour(), value.minute(), value.second(),
                  value.millisecond());
    return text;
  });
}
BENCHMARK(write_snprintf);

/// Without the fraction, which it does not write.
void write_strftime(benchmark::State& state) {
  for_each_input(state, [&in = input()](std::size_t i) {
    const date_time::date_time_t& value = in.values[i].utc;
    std::tm fields = {};
    fields.tm_year = static_cast<int>(value.year()) - 1900;
    fields.tm_mon = static_cast<int>(value.month()) - 1;
    fields.tm_mday = static_cast<int>(value.day());
    fields.tm_hour = value.hour();
    fields.tm_min = value.minute();
    fields.tm_sec = value.second();
    std::array<char, 32> text;
    benchmark::DoNotOptimize(std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &fields));
    return text;
  });
}
BENCHMARK(write_strftime);

}  // namespace
