// Declared settings compared with CLI11 and Boost.Program_options: 1,000 options are declared, given, checked
// and read. The peers have files of their own, as they are not installed everywhere.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench/config/declared_options.hpp"
#include "orva/config/settings.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using config_bench::kind_of;
using config_bench::option_count;
using config_bench::option_kind;
using config_bench::option_name;

setting_type type_of(int number) {
  switch (kind_of(number)) {
    case option_kind::integer:
      return integer_between(0, option_count);
    case option_kind::text:
      return text();
    case option_kind::flag:
      break;
  }
  return flag();
}

declaration declared_program() {
  declaration declared("program");
  for (int number = 0; number < option_count; ++number) {
    declared.add(setting(option_name(number), type_of(number)).help("An option of the benchmark."));
  }
  return declared;
}

long long sum_of(const settings& values) {
  long long sum = 0;
  for (int number = 0; number < option_count; ++number) {
    const std::string key = option_name(number);
    switch (kind_of(number)) {
      case option_kind::integer:
        sum += values.get<int>(key);
        break;
      case option_kind::text:
        sum += static_cast<long long>(values.get<std::string>(key).size());
        break;
      case option_kind::flag:
        sum += values.get<bool>(key) ? 1 : 0;
        break;
    }
  }
  return sum;
}

void read_and_check(const declaration& declared, const config_bench::command_line& line) {
  const settings values(declared, line.argc(), line.argv());
  if (values.report().has_errors() || sum_of(values) != config_bench::expected_sum()) {
    throw std::logic_error("another value");
  }
}

/// What a start of the program costs.
void declare_and_read_settings(benchmark::State& state) {
  const config_bench::command_line line;
  for (auto _ : state) read_and_check(declared_program(), line);
}
BENCHMARK(declare_and_read_settings)->Unit(benchmark::kMicrosecond);

/// Without the declaration.
void read_settings(benchmark::State& state) {
  const config_bench::command_line line;
  const declaration declared = declared_program();
  for (auto _ : state) read_and_check(declared, line);
}
BENCHMARK(read_settings)->Unit(benchmark::kMicrosecond);

}  // namespace
