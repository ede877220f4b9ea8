/// The speed of `varg_list`, compared with a vector of pairs of a string and a `std::variant`.
#include "orva/generic/varg_list.hpp"

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::strings::ustring8;
using standard_variant = std::variant<std::monostate, bool, int, double, std::string>;
using standard_list = std::vector<std::pair<std::string, standard_variant>>;

const standard_variant* find(const standard_list& list, const std::string& name) {
  for (const auto& [each, value] : list) {
    if (each == name) return &value;
  }
  return nullptr;
}

void build_three(benchmark::State& state) {
  for (auto _ : state) {
    const varg_list list(argument("name", "disk"), argument("free", 1500000), argument("ratio", 0.75));
    benchmark::DoNotOptimize(&list);
  }
}
BENCHMARK(build_three);

/// As in the list, a name that is already there is not added.
void build_three_peer_vector_of_std_variant(benchmark::State& state) {
  for (auto _ : state) {
    standard_list list;
    const std::pair<std::string, standard_variant> given[] = {
        {"name", "disk"}, {"free", 1500000}, {"ratio", 0.75}};
    for (const auto& each : given) {
      if (find(list, each.first) == nullptr) list.push_back(each);
    }
    benchmark::DoNotOptimize(&list);
  }
}
BENCHMARK(build_three_peer_vector_of_std_variant);

void copy_three(benchmark::State& state) {
  const varg_list list(argument("name", "disk"), argument("free", 1500000), argument("ratio", 0.75));
  for (auto _ : state) {
    const varg_list copied = list;
    benchmark::DoNotOptimize(&copied);
  }
}
BENCHMARK(copy_three);

void copy_three_peer_vector_of_std_variant(benchmark::State& state) {
  const standard_list list = {{"name", "disk"}, {"free", 1500000}, {"ratio", 0.75}};
  for (auto _ : state) {
    const standard_list copied = list;
    benchmark::DoNotOptimize(&copied);
  }
}
BENCHMARK(copy_three_peer_vector_of_std_variant);

void look_up_last(benchmark::State& state) {
  const varg_list list(argument("name", "disk"), argument("free", 1500000), argument("ratio", 0.75));
  const ustring8 name = "ratio";
  for (auto _ : state) benchmark::DoNotOptimize(list[name].value().as_int32());
}
BENCHMARK(look_up_last);

void look_up_last_peer_vector_of_std_variant(benchmark::State& state) {
  const standard_list list = {{"name", "disk"}, {"free", 1500000}, {"ratio", 0.75}};
  const std::string name = "ratio";
  for (auto _ : state) benchmark::DoNotOptimize(static_cast<int>(std::get<double>(*find(list, name))));
}
BENCHMARK(look_up_last_peer_vector_of_std_variant);

void look_up_missing(benchmark::State& state) {
  const varg_list list(argument("name", "disk"), argument("free", 1500000), argument("ratio", 0.75));
  const ustring8 name = "missing";
  for (auto _ : state) benchmark::DoNotOptimize(&list[name]);
}
BENCHMARK(look_up_missing);

void look_up_missing_peer_vector_of_std_variant(benchmark::State& state) {
  const standard_list list = {{"name", "disk"}, {"free", 1500000}, {"ratio", 0.75}};
  const std::string name = "missing";
  for (auto _ : state) benchmark::DoNotOptimize(find(list, name));
}
BENCHMARK(look_up_missing_peer_vector_of_std_variant);

}  // namespace
