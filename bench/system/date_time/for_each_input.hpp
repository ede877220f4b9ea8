/// The loop of the benchmarks over many inputs, so that no branch can learn one of them.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>

namespace orva_bench {

inline constexpr std::size_t input_count = 1024;

/// Calls `operation` with the index of each input. One item is one call.
template <typename Operation>
void for_each_input(benchmark::State& state, Operation operation) {
  for (auto _ : state) {
    for (std::size_t i = 0; i < input_count; ++i) {
      auto result = operation(i);
      benchmark::DoNotOptimize(result);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * input_count));
}

}  // namespace orva_bench
