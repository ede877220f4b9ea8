/// The speed of finding lines and columns, compared with the loop that a program would write: one that looks
/// at each byte up to the offset.
#include "orva/diagnostics/place.hpp"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using ORVA_NAMESPACE::diagnostics::line_index;
using ORVA_NAMESPACE::diagnostics::place;
using ORVA_NAMESPACE::diagnostics::place_of;

const std::string& source() {
  static const std::string text = [] {
    std::string lines;
    for (int i = 0; lines.size() < 1'000'000; ++i)
      lines += "  <item n=\"" + std::to_string(i) + "\">gr\xC3\xBC\xC3\x9F</item>\n";
    return lines;
  }();
  return text;
}

void place_of_offset(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(place_of(source(), source().size() - 10));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source().size()));
}
BENCHMARK(place_of_offset);

void place_of_offset_peer_loop(benchmark::State& state) {
  for (auto _ : state) {
    place at{1, 1};
    for (std::size_t i = 0; i < source().size() - 10; ++i) {
      if (source()[i] == '\n') {
        ++at.line;
        at.column = 1;
      } else if ((static_cast<unsigned char>(source()[i]) & 0xC0) != 0x80) {
        ++at.column;
      }
    }
    benchmark::DoNotOptimize(at);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source().size()));
}
BENCHMARK(place_of_offset_peer_loop);

void index_of_lines(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(line_index(source()));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source().size()));
}
BENCHMARK(index_of_lines);

void lookup_in_index(benchmark::State& state) {
  const line_index lines(source());
  std::size_t offset = 0;
  for (auto _ : state) {
    offset = (offset + 99'991) % source().size();
    benchmark::DoNotOptimize(lines.place_of(offset));
  }
}
BENCHMARK(lookup_in_index);

}  // namespace
