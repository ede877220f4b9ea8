/// Measures a labeled buffer with a thousand values on three levels.
#include "orva/serialization/labeled_text_buffer.hpp"

#include <benchmark/benchmark.h>

#include <string>

#include "bench/serialization/labeled_tree.hpp"

namespace {

using orva_bench::labeled_tree;
using orva_bench::sample_tree;
using ORVA_NAMESPACE::serialization::labeled_serialize_buffer;
using ORVA_NAMESPACE::serialization::labeled_text_buffer;

void fill(labeled_serialize_buffer& buffer, const labeled_tree& tree) {
  for (const auto& [label, value] : tree.values) buffer.add_value(label, value);
  for (const auto& [label, group] : tree.groups) fill(*buffer.create_group(label), group);
}

labeled_text_buffer sample_buffer() {
  labeled_text_buffer buffer;
  fill(buffer, sample_tree());
  return buffer;
}

void labeled_fill(benchmark::State& state) {
  const labeled_tree tree = sample_tree();
  for (auto _ : state) {
    labeled_text_buffer buffer;
    fill(buffer, tree);
    benchmark::DoNotOptimize(buffer);
  }
}
BENCHMARK(labeled_fill);

void labeled_flatten(benchmark::State& state) {
  const labeled_text_buffer buffer = sample_buffer();
  for (auto _ : state) benchmark::DoNotOptimize(buffer.as_str().data());
}
BENCHMARK(labeled_flatten);

void labeled_parse(benchmark::State& state) {
  const std::string text = sample_buffer().as_str();
  for (auto _ : state) {
    const labeled_text_buffer buffer(text);
    benchmark::DoNotOptimize(buffer.is_empty());
  }
}
BENCHMARK(labeled_parse);

void labeled_overlay(benchmark::State& state) {
  labeled_text_buffer below = sample_buffer();
  const labeled_text_buffer above = sample_buffer();
  for (auto _ : state) below.overlay(above);
}
BENCHMARK(labeled_overlay);

void labeled_retrieve(benchmark::State& state) {
  labeled_text_buffer buffer = sample_buffer();
  for (auto _ : state) {
    labeled_serialize_buffer* group = buffer.retrieve_group("section 7")->retrieve_group("group 7");
    benchmark::DoNotOptimize(group->retrieve_value("value 777").as_int32());
  }
}
BENCHMARK(labeled_retrieve);

}  // namespace
