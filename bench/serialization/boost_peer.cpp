/// Boost.Serialization, its text and its binary archive.
#include <benchmark/benchmark.h>

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/text_iarchive.hpp>
#include <boost/archive/text_oarchive.hpp>
#include <boost/serialization/string.hpp>
#include <sstream>
#include <string>

#include "bench/serialization/record.hpp"

namespace {

using orva_bench::record;
using orva_bench::sample_records;

template <typename Archive>
std::string written() {
  std::ostringstream stream;
  Archive archive(stream, boost::archive::no_header);
  for (const record& each : sample_records()) archive << each;
  return stream.str();
}

template <typename Archive>
void write_records(benchmark::State& state) {
  const auto records = sample_records();
  for (auto _ : state) {
    std::ostringstream stream;
    Archive archive(stream, boost::archive::no_header);
    for (const record& each : records) archive << each;
    benchmark::DoNotOptimize(stream.str().data());
  }
}

template <typename Input, typename Output>
void read_records(benchmark::State& state) {
  const std::string bytes = written<Output>();
  record each;
  for (auto _ : state) {
    std::istringstream stream(bytes);
    Input archive(stream, boost::archive::no_header);
    for (int i = 0; i < 100; ++i) archive >> each;
    benchmark::DoNotOptimize(each);
  }
}

using namespace boost::archive;

BENCHMARK(write_records<text_oarchive>)->Name("write_text_peer_boost");
BENCHMARK(read_records<text_iarchive, text_oarchive>)->Name("read_text_peer_boost");
BENCHMARK(write_records<binary_oarchive>)->Name("write_binary_peer_boost");
BENCHMARK(read_records<binary_iarchive, binary_oarchive>)->Name("read_binary_peer_boost");

}  // namespace
