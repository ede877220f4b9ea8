/// MessagePack.
#include <benchmark/benchmark.h>

#include <msgpack.hpp>
#include <string>

#include "bench/serialization/record.hpp"

namespace {

using orva_bench::record;
using orva_bench::sample_records;

void write(msgpack::sbuffer& bytes, const std::vector<record>& records) {
  msgpack::packer<msgpack::sbuffer> packer(bytes);
  for (const record& each : records) {
    packer.pack_array(9);
    packer.pack(each.id).pack(each.count).pack(each.size).pack(each.flags);
    packer.pack(each.price).pack(each.weight).pack(each.name).pack(each.path).pack(each.note);
  }
}

void write_binary_peer_msgpack(benchmark::State& state) {
  const auto records = sample_records();
  for (auto _ : state) {
    msgpack::sbuffer bytes;
    write(bytes, records);
    benchmark::DoNotOptimize(bytes.data());
  }
}
BENCHMARK(write_binary_peer_msgpack);

void read(const msgpack::object_array& fields, record& each) {
  fields.ptr[0].convert(each.id);
  fields.ptr[1].convert(each.count);
  fields.ptr[2].convert(each.size);
  fields.ptr[3].convert(each.flags);
  fields.ptr[4].convert(each.price);
  fields.ptr[5].convert(each.weight);
  fields.ptr[6].convert(each.name);
  fields.ptr[7].convert(each.path);
  fields.ptr[8].convert(each.note);
}

void read_binary_peer_msgpack(benchmark::State& state) {
  const auto records = sample_records();
  msgpack::sbuffer bytes;
  write(bytes, records);
  record each;
  msgpack::object_handle handle;
  for (auto _ : state) {
    std::size_t offset = 0;
    while (offset < bytes.size()) {
      msgpack::unpack(handle, bytes.data(), bytes.size(), offset);
      read(handle.get().via.array, each);
    }
    benchmark::DoNotOptimize(each);
  }
}
BENCHMARK(read_binary_peer_msgpack);

}  // namespace
