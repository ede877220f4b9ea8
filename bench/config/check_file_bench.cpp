// Checking a configuration file beside reading it, and texts with a mistake in each line, whose time must
// stay in proportion to their size.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "bench/config/config_texts.hpp"
#include "orva/config/check_file.hpp"

namespace {

using ORVA_NAMESPACE::config::check_file;
using ORVA_NAMESPACE::config::check_text;
using ORVA_NAMESPACE::diagnostics::report;

void set_bytes_per_second(benchmark::State& state, std::size_t size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

/// The file of `load_file_item` in config_bench.cpp.
void check_loaded_file(benchmark::State& state) {
  const std::string path = config_bench::file_path();
  for (auto _ : state) {
    report found;
    check_file(path, found);
    benchmark::DoNotOptimize(found);
  }
  set_bytes_per_second(state, config_bench::file_text().size());
}
BENCHMARK(check_loaded_file)->Unit(benchmark::kMicrosecond);

void check_mistakes(benchmark::State& state, std::string_view line) {
  const auto size = static_cast<std::size_t>(state.range(0));
  std::string text = "a[] = x,\n";
  while (text.size() < size) text += line;
  text += "\nb = \"\n";
  for (auto _ : state) {
    report found;
    check_text(text, "", found);
    benchmark::DoNotOptimize(found);
  }
  set_bytes_per_second(state, size);
  state.SetComplexityN(state.range(0));
}
constexpr int smallest = 1 << 14;
constexpr int largest = 1 << 20;
#define CHECK_MISTAKES(name, line)              \
  BENCHMARK_CAPTURE(check_mistakes, name, line) \
      ->RangeMultiplier(8)                      \
      ->Range(smallest, largest)                \
      ->Complexity()                            \
      ->Unit(benchmark::kMicrosecond)
CHECK_MISTAKES(blanks_in_values, "setting = dark blue\n");
CHECK_MISTAKES(elements_in_one_line, "x y,");
CHECK_MISTAKES(unclosed_quotes, "a = \"x\n");
CHECK_MISTAKES(quotes_with_backslashes, "\\\"y,\n");
CHECK_MISTAKES(quotes_in_comments, "# \\\"\n");

}  // namespace
