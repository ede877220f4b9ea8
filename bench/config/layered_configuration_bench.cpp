// The benchmarks of config_bench.cpp with Poco's layered configuration.
#include <Poco/AutoPtr.h>
#include <Poco/Util/IniFileConfiguration.h>
#include <Poco/Util/LayeredConfiguration.h>
#include <Poco/Util/MapConfiguration.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "bench/config/config_texts.hpp"

namespace {

using config_bench::joined;
using config_bench::wanted;
using Poco::AutoPtr;
using Poco::Util::IniFileConfiguration;
using Poco::Util::LayeredConfiguration;
using Poco::Util::MapConfiguration;

void load_layered_configuration(benchmark::State& state) {
  const std::string path = config_bench::file_path();
  for (auto _ : state) {
    AutoPtr<LayeredConfiguration> layers(new LayeredConfiguration);
    layers->add(AutoPtr<IniFileConfiguration>(new IniFileConfiguration(path)), 0);
    benchmark::DoNotOptimize(layers);
  }
  state.SetItemsProcessed(state.iterations() * config_bench::section_count * config_bench::keys_per_section);
}
BENCHMARK(load_layered_configuration)->Unit(benchmark::kMicrosecond);

/// Only the source with this number has the wanted key. No source has it if the number is too large.
AutoPtr<LayeredConfiguration> layers_with(int source) {
  AutoPtr<LayeredConfiguration> layers(new LayeredConfiguration);
  for (int i = 0; i < config_bench::source_count; ++i) {
    AutoPtr<MapConfiguration> layer(new MapConfiguration);
    config_bench::fill_source(i == source,
                              [&](const std::string& key, int value) { layer->setInt(key, value); });
    if (i == source) layer->setString(config_bench::link, joined("${", wanted, "}"));
    layers->add(layer, i);
  }
  return layers;
}

void look_up_layered_configuration(benchmark::State& state) {
  const auto source = static_cast<int>(state.range(0));
  const auto layers = layers_with(source);
  const std::string key = wanted;
  const std::string fallback = "100";
  if (layers->getInt(key, 100) != (source < config_bench::source_count ? 640 : 100)) {
    throw std::logic_error("another value");
  }
  for (auto _ : state) benchmark::DoNotOptimize(layers->getString(key, fallback));
}
BENCHMARK(look_up_layered_configuration)->ArgName("found_in")->Arg(0)->Arg(1)->Arg(2)->Arg(3);

/// The value refers to the other key.
void follow_link_layered_configuration(benchmark::State& state) {
  const auto layers = layers_with(1);
  const std::string key = config_bench::link;
  if (layers->getInt(key) != 640) throw std::logic_error("another value");
  for (auto _ : state) benchmark::DoNotOptimize(layers->getString(key));
}
BENCHMARK(follow_link_layered_configuration);

void set_elements(MapConfiguration& options, const std::string& key, const std::string& text) {
  for (std::size_t from = 0, n = 0; from <= text.size(); ++n) {
    const auto comma = std::min(text.find(',', from), text.size());
    options.setString(joined(key, "[", n, "]"), text.substr(from, comma - from));
    from = comma + 1;
  }
}

/// Splits each option at the first `=` and at commas, as a program does that lets one option define any key.
void load_command_line_layered_configuration(benchmark::State& state) {
  const auto words = config_bench::options(state.range(0));
  for (auto _ : state) {
    AutoPtr<MapConfiguration> options(new MapConfiguration);
    for (const std::string& word : words) {
      const auto equals = std::min(word.find('='), word.size());
      const std::string key = word.substr(1, equals - 1);
      const std::string value = word.substr(std::min(equals + 1, word.size()));
      options->setString(key, value);
      if (value.find(',') != std::string::npos) set_elements(*options, key, value);
    }
    benchmark::DoNotOptimize(options);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(load_command_line_layered_configuration)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
