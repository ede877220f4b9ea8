// The benchmarks of declared_settings_bench.cpp with CLI11, which writes the values into variables.
#include <benchmark/benchmark.h>

#include <CLI/CLI.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/config/declared_options.hpp"

namespace {

using config_bench::kind_of;
using config_bench::option_count;
using config_bench::option_kind;
using config_bench::option_name;

struct values {
  std::vector<int> integers = std::vector<int>(option_count);
  std::vector<std::string> texts = std::vector<std::string>(option_count);
  std::vector<char> flags = std::vector<char>(option_count);
};

void declare(CLI::App& app, values& read) {
  for (int number = 0; number < option_count; ++number) {
    const auto position = static_cast<std::size_t>(number);
    const std::string option = "--" + option_name(number);
    switch (kind_of(number)) {
      case option_kind::integer:
        app.add_option(option, read.integers[position], "An option of the benchmark.")
            ->check(CLI::Range(0, option_count));
        break;
      case option_kind::text:
        app.add_option(option, read.texts[position], "An option of the benchmark.");
        break;
      case option_kind::flag:
        app.add_flag(option, read.flags[position], "An option of the benchmark.");
        break;
    }
  }
}

void parse_and_check(CLI::App& app, const values& read, const config_bench::command_line& line) {
  app.parse(line.argc(), const_cast<char**>(line.argv()));
  long long sum = 0;
  for (std::size_t i = 0; i < option_count; ++i) {
    sum += read.integers[i] + static_cast<long long>(read.texts[i].size()) + read.flags[i];
  }
  if (sum != config_bench::expected_sum()) throw std::logic_error("another value");
}

void declare_and_read_cli11(benchmark::State& state) {
  const config_bench::command_line line;
  for (auto _ : state) {
    CLI::App app("program");
    values read;
    declare(app, read);
    parse_and_check(app, read, line);
  }
}
BENCHMARK(declare_and_read_cli11)->Unit(benchmark::kMicrosecond);

void read_cli11(benchmark::State& state) {
  const config_bench::command_line line;
  CLI::App app("program");
  values read;
  declare(app, read);
  for (auto _ : state) parse_and_check(app, read, line);
}
BENCHMARK(read_cli11)->Unit(benchmark::kMicrosecond);

}  // namespace
