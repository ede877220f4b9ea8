// Explaining values: one key of a manager with a file of 10,000 keys, 100 options and an environment. The
// peers do not record where a value comes from; a plain lookup of the same key is what a user would do
// instead.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/config/config_texts.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/explain.hpp"
#include "orva/config/std_config_dispatch.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;

const config_manager& loaded_manager() {
  static const std::vector<std::string> words = config_bench::options(100);
  static const std::vector<const char*> arguments = [] {
    std::vector<const char*> pointers = {"app"};
    for (const auto& word : words) pointers.push_back(word.c_str());
    pointers.push_back(nullptr);
    return pointers;
  }();
  static const config_manager manager = [] {
    config_manager made;
    made.init(std_config_dispatch(static_cast<int>(arguments.size()) - 1, arguments.data(), environ,
                                  config_bench::file_path(), ""));
    made.load();
    return made;
  }();
  return manager;
}

const std::string file_key = config_bench::section_name(50) + "." + config_bench::key_name(50);

void look_up_a_key_of_the_file(benchmark::State& state) {
  const auto& manager = loaded_manager();
  for (auto _ : state) benchmark::DoNotOptimize(manager.get_value(file_key, 5));
}
BENCHMARK(look_up_a_key_of_the_file);

void explain_a_key_of_the_file(benchmark::State& state) {
  const explainer sources(loaded_manager());
  if (sources.explain(file_key).steps.at(0).origin.at.line == 0) throw std::logic_error("no line");
  for (auto _ : state) benchmark::DoNotOptimize(sources.explain(file_key, 5));
}
BENCHMARK(explain_a_key_of_the_file);

void explain_a_key_of_an_argument(benchmark::State& state) {
  const explainer sources(loaded_manager());
  if (sources.explain("page_5.option_55").steps.at(0).origin.argument == 0)
    throw std::logic_error("no number");
  for (auto _ : state) benchmark::DoNotOptimize(sources.explain("page_5.option_55", 5));
}
BENCHMARK(explain_a_key_of_an_argument);

void explain_a_missing_key(benchmark::State& state) {
  const explainer sources(loaded_manager());
  for (auto _ : state) benchmark::DoNotOptimize(sources.explain("no.such.key", 5));
}
BENCHMARK(explain_a_missing_key);

/// Reads the file, the arguments and the environment again.
void make_an_explainer(benchmark::State& state) {
  const auto& manager = loaded_manager();
  for (auto _ : state) benchmark::DoNotOptimize(explainer(manager));
}
BENCHMARK(make_an_explainer)->Unit(benchmark::kMicrosecond);

}  // namespace
