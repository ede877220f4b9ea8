// The benchmarks of declared_settings_bench.cpp with Boost.Program_options. It knows no ranges: the check is
// made of the values that are read.
#include <benchmark/benchmark.h>

#include <boost/program_options.hpp>
#include <stdexcept>
#include <string>

#include "bench/config/declared_options.hpp"

namespace {

using config_bench::kind_of;
using config_bench::option_count;
using config_bench::option_kind;
using config_bench::option_name;
namespace po = boost::program_options;

void declare(po::options_description& described) {
  for (int number = 0; number < option_count; ++number) {
    const std::string name = option_name(number);
    switch (kind_of(number)) {
      case option_kind::integer:
        described.add_options()(name.c_str(), po::value<int>(), "An option of the benchmark.");
        break;
      case option_kind::text:
        described.add_options()(name.c_str(), po::value<std::string>(), "An option of the benchmark.");
        break;
      case option_kind::flag:
        described.add_options()(name.c_str(), po::bool_switch(), "An option of the benchmark.");
        break;
    }
  }
}

long long sum_of(const po::variables_map& values) {
  long long sum = 0;
  for (int number = 0; number < option_count; ++number) {
    const std::string name = option_name(number);
    if (kind_of(number) == option_kind::text) {
      sum += static_cast<long long>(values[name].as<std::string>().size());
    } else if (kind_of(number) == option_kind::flag) {
      sum += values[name].as<bool>() ? 1 : 0;
    } else {
      const int value = values[name].as<int>();
      if (value < 0 || value > option_count) throw std::logic_error("out of range");
      sum += value;
    }
  }
  return sum;
}

void parse_and_check(const po::options_description& described, const config_bench::command_line& line) {
  po::variables_map values;
  // Without its default style, which accepts abbreviated options: options may begin with others' names.
  const int style = po::command_line_style::default_style & ~po::command_line_style::allow_guessing;
  po::store(po::command_line_parser(line.argc(), line.argv()).options(described).style(style).run(), values);
  po::notify(values);
  if (sum_of(values) != config_bench::expected_sum()) throw std::logic_error("another value");
}

void declare_and_read_program_options(benchmark::State& state) {
  const config_bench::command_line line;
  for (auto _ : state) {
    po::options_description described;
    declare(described);
    parse_and_check(described, line);
  }
}
BENCHMARK(declare_and_read_program_options)->Unit(benchmark::kMicrosecond);

void read_program_options(benchmark::State& state) {
  const config_bench::command_line line;
  po::options_description described;
  declare(described);
  for (auto _ : state) parse_and_check(described, line);
}
BENCHMARK(read_program_options)->Unit(benchmark::kMicrosecond);

}  // namespace
