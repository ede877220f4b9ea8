/// The same content as nested maps in MessagePack.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <msgpack.hpp>
#include <string>

#include "bench/serialization/labeled_tree.hpp"

namespace {

using orva_bench::labeled_tree;

void flatten(msgpack::packer<msgpack::sbuffer>& packer, const labeled_tree& tree) {
  packer.pack_map(static_cast<std::uint32_t>(tree.values.size() + tree.groups.size()));
  for (const auto& [label, value] : tree.values) packer.pack(label).pack(value);
  for (const auto& [label, group] : tree.groups) {
    packer.pack(label);
    flatten(packer, group);
  }
}

void labeled_flatten_peer_msgpack(benchmark::State& state) {
  const labeled_tree tree = orva_bench::sample_tree();
  for (auto _ : state) {
    msgpack::sbuffer bytes;
    msgpack::packer<msgpack::sbuffer> packer(bytes);
    flatten(packer, tree);
    benchmark::DoNotOptimize(bytes.data());
  }
}
BENCHMARK(labeled_flatten_peer_msgpack);

void read(const msgpack::object_map& map, labeled_tree& tree) {
  for (std::uint32_t i = 0; i < map.size; ++i) {
    const auto label = map.ptr[i].key.as<std::string>();
    const msgpack::object& content = map.ptr[i].val;
    if (content.type == msgpack::type::MAP) {
      read(content.via.map, tree.groups[label]);
    } else {
      content.convert(tree.values[label]);
    }
  }
}

void labeled_parse_peer_msgpack(benchmark::State& state) {
  msgpack::sbuffer bytes;
  msgpack::packer<msgpack::sbuffer> packer(bytes);
  flatten(packer, orva_bench::sample_tree());
  for (auto _ : state) {
    const msgpack::object_handle handle = msgpack::unpack(bytes.data(), bytes.size());
    labeled_tree tree;
    read(handle.get().via.map, tree);
    benchmark::DoNotOptimize(tree);
  }
}
BENCHMARK(labeled_parse_peer_msgpack);

}  // namespace
