/// Measures `checked_reader` beside the readers of the buffers, which check nothing, over a hundred records.
#include "orva/serialization/checked_reader.hpp"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <utility>

#include "bench/serialization/buffer_record.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using orva_bench::read;
using orva_bench::record;
using orva_bench::sample_records;
using orva_bench::write;

template <typename Form>
Form sample_buffer() {
  Form buffer;
  for (const record& each : sample_records()) write(buffer, each);
  return buffer;
}

template <typename Form>
void read_mute(benchmark::State& state) {
  Form buffer = sample_buffer<Form>();
  record each;
  for (auto _ : state) {
    buffer.reset_read();
    while (!buffer.at_end()) {
      read(buffer, each);
      benchmark::DoNotOptimize(each);
    }
  }
}
BENCHMARK(read_mute<serialize_binary_buf>)->Name("read_binary_mute");
BENCHMARK(read_mute<serialize_text_buf>)->Name("read_text_mute");

/// One read after another, with one look at the end of a record.
bool read_record(checked_reader& in, record& each) {
  const auto id = in.read_int32();
  const auto count = in.read_int32();
  const auto size = in.read_int64();
  const auto flags = in.read_uint32();
  const auto price = in.read_double();
  const auto weight = in.read_double();
  auto name = in.read_string();
  auto path = in.read_string();
  auto note = in.read_string();
  if (!note) return false;
  each.id = *id;
  each.count = *count;
  each.size = *size;
  each.flags = *flags;
  each.price = *price;
  each.weight = *weight;
  each.name = *std::move(name);
  each.path = *std::move(path);
  each.note = *std::move(note);
  return true;
}

template <typename Form>
void read_checked(benchmark::State& state) {
  const Form buffer = sample_buffer<Form>();
  record each;
  for (auto _ : state) {
    checked_reader in(buffer);
    while (!in.at_end()) {
      if (!read_record(in, each)) std::abort();
      benchmark::DoNotOptimize(each);
    }
  }
}
BENCHMARK(read_checked<serialize_binary_buf>)->Name("read_binary_checked");
BENCHMARK(read_checked<serialize_text_buf>)->Name("read_text_checked");

}  // namespace
