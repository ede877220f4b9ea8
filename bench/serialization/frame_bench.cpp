/// Measures frames of 10 MB, and a copy of the same bytes. frame_zlib_peer.cpp measures the checksum of zlib.
#include "orva/serialization/frame.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

using namespace ORVA_NAMESPACE::serialization;

const std::string content(10'000'000, 'x');

void count_bytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(content.size()));
}

void frame_write(benchmark::State& state) {
  std::string frame;
  for (auto _ : state) {
    frame.clear();
    frame_writer writer(frame, "bench", 1);
    writer.write(content);
    if (!writer.finish()) std::abort();
    benchmark::DoNotOptimize(frame.data());
  }
  count_bytes(state);
}
BENCHMARK(frame_write);

/// In pieces of a size that makes chunks of several pieces.
void frame_write_pieces(benchmark::State& state) {
  std::string frame;
  for (auto _ : state) {
    frame.clear();
    frame_writer writer(frame, "bench", 1);
    for (std::string_view rest = content; !rest.empty();
         rest.remove_prefix(std::min<std::size_t>(rest.size(), 1000)))
      writer.write(rest.substr(0, 1000));
    if (!writer.finish()) std::abort();
    benchmark::DoNotOptimize(frame.data());
  }
  count_bytes(state);
}
BENCHMARK(frame_write_pieces);

void read_in_pieces(benchmark::State& state, std::size_t size) {
  const std::string frame = write_frame("bench", 1, content);
  for (auto _ : state) {
    frame_reader reader;
    for (std::string_view rest = frame; !rest.empty();) {
      std::string_view piece = rest.substr(0, size);
      rest.remove_prefix(piece.size());
      using event = frame_reader::event;
      for (event seen = event::header; seen == event::header || seen == event::content;) {
        seen = reader.next(piece);
        benchmark::DoNotOptimize(reader.content().data());
      }
    }
    if (reader.finish().error != frame_error::none) std::abort();
  }
  count_bytes(state);
}
void frame_read(benchmark::State& state) { read_in_pieces(state, std::string::npos); }
BENCHMARK(frame_read);
void frame_read_pieces(benchmark::State& state) { read_in_pieces(state, 1000); }
BENCHMARK(frame_read_pieces);

void frame_peer_memcpy(benchmark::State& state) {
  std::string copy(content.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), content.data(), content.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
  count_bytes(state);
}
BENCHMARK(frame_peer_memcpy);

}  // namespace
