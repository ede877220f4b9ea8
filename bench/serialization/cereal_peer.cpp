/// cereal, its binary archive.
#include <benchmark/benchmark.h>

#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#include <sstream>

#include "bench/serialization/record.hpp"

namespace {

using orva_bench::record;
using orva_bench::sample_records;

void write(std::ostream& stream, std::vector<record>& records) {
  cereal::BinaryOutputArchive archive(stream);
  for (record& each : records) each.serialize(archive);
}

void write_binary_peer_cereal(benchmark::State& state) {
  auto records = sample_records();
  for (auto _ : state) {
    std::ostringstream stream;
    write(stream, records);
    benchmark::DoNotOptimize(stream.str().data());
  }
}
BENCHMARK(write_binary_peer_cereal);

void read_binary_peer_cereal(benchmark::State& state) {
  auto records = sample_records();
  std::ostringstream written;
  write(written, records);
  const std::string bytes = written.str();
  record each;
  for (auto _ : state) {
    std::istringstream stream(bytes);
    cereal::BinaryInputArchive archive(stream);
    for (std::size_t i = 0; i < records.size(); ++i) each.serialize(archive);
    benchmark::DoNotOptimize(each);
  }
}
BENCHMARK(read_binary_peer_cereal);

}  // namespace
