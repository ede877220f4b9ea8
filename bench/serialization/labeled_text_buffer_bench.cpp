/// Measures a labeled buffer with a thousand values on three levels.
#include "orva/serialization/labeled_text_buffer.hpp"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdlib>
#include <string>

#include "bench/serialization/labeled_tree.hpp"
#include "orva/serialization/exact_flat_form.hpp"

namespace {

using orva_bench::labeled_tree;
using orva_bench::sample_tree;
using ORVA_NAMESPACE::serialization::labeled_serialize_buffer;
using ORVA_NAMESPACE::serialization::labeled_text_buffer;
using ORVA_NAMESPACE::serialization::read_error;
using ORVA_NAMESPACE::serialization::read_exact_flat_form;
using ORVA_NAMESPACE::serialization::write_exact_flat_form;

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

void labeled_flatten_exact(benchmark::State& state) {
  const labeled_text_buffer buffer = sample_buffer();
  for (auto _ : state) benchmark::DoNotOptimize(write_exact_flat_form(buffer).data());
}
BENCHMARK(labeled_flatten_exact);

void labeled_parse(benchmark::State& state) {
  const std::string text = sample_buffer().as_str();
  for (auto _ : state) {
    const labeled_text_buffer buffer(text);
    benchmark::DoNotOptimize(buffer.is_empty());
  }
}
BENCHMARK(labeled_parse);

void labeled_parse_exact(benchmark::State& state) {
  const std::string text = sample_buffer().as_str();
  for (auto _ : state) {
    labeled_text_buffer buffer;
    if (read_exact_flat_form(text, buffer).error != read_error::none) std::abort();
    benchmark::DoNotOptimize(buffer.is_empty());
  }
}
BENCHMARK(labeled_parse_exact);

void labeled_overlay(benchmark::State& state) {
  labeled_text_buffer below = sample_buffer();
  const labeled_text_buffer above = sample_buffer();
  for (auto _ : state) below.overlay(above);
}
BENCHMARK(labeled_overlay);

/// Every value, group by group.
std::size_t count_values(const labeled_text_buffer& buffer) {
  std::size_t count = 0;
  for (const auto& [label, stored] : buffer.entries()) {
    count += 1 + count_values(stored.group);
  }
  return count;
}

void labeled_iterate(benchmark::State& state) {
  const labeled_text_buffer buffer = sample_buffer();
  for (auto _ : state) benchmark::DoNotOptimize(count_values(buffer));
}
BENCHMARK(labeled_iterate);

void labeled_retrieve(benchmark::State& state) {
  labeled_text_buffer buffer = sample_buffer();
  for (auto _ : state) {
    labeled_serialize_buffer* group = buffer.retrieve_group("section 7")->retrieve_group("group 7");
    benchmark::DoNotOptimize(group->retrieve_value("value 777").as_int32());
  }
}
BENCHMARK(labeled_retrieve);

}  // namespace
