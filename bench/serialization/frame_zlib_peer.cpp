/// Measures the checksum of zlib, without any frame.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <cstdint>
#include <string>

namespace {

void frame_peer_zlib_crc32(benchmark::State& state) {
  const std::string content(10'000'000, 'x');
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size())));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(content.size()));
}
BENCHMARK(frame_peer_zlib_crc32);

}  // namespace
