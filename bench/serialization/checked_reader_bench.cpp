/// Measures `checked_reader` beside the readers of the buffers, which check nothing, over a hundred records.
#include "orva/serialization/checked_reader.hpp"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <utility>

#include "bench/serialization/record.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using orva_bench::record;
using orva_bench::sample_records;

template <typename Form>
Form sample_buffer() {
  Form buffer;
  for (const record& each : sample_records()) {
    buffer.append_int32(each.id);
    buffer.append_int32(each.count);
    buffer.append_int64(each.size);
    buffer.append_uint32(each.flags);
    buffer.append_double(each.price, 17);
    buffer.append_double(each.weight, 17);
    buffer.append_string(each.name);
    buffer.append_string(each.path);
    buffer.append_string(each.note);
  }
  return buffer;
}

template <typename Form>
void read_mute(benchmark::State& state) {
  Form buffer = sample_buffer<Form>();
  record each;
  for (auto _ : state) {
    buffer.reset_read();
    while (!buffer.at_end()) {
      each.id = buffer.read_int32();
      each.count = buffer.read_int32();
      each.size = buffer.read_int64();
      each.flags = buffer.read_uint32();
      each.price = buffer.read_double();
      each.weight = buffer.read_double();
      each.name = buffer.read_string();
      each.path = buffer.read_string();
      each.note = buffer.read_string();
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
