/// The same content as nested maps in the text archive of Boost.Serialization.
#include <benchmark/benchmark.h>

#include <boost/archive/text_iarchive.hpp>
#include <boost/archive/text_oarchive.hpp>
#include <boost/serialization/map.hpp>
#include <boost/serialization/string.hpp>
#include <sstream>

#include "bench/serialization/labeled_tree.hpp"

namespace boost::serialization {

template <typename Archive>
void serialize(Archive& archive, orva_bench::labeled_tree& tree, unsigned int) {
  archive& tree.values& tree.groups;
}

}  // namespace boost::serialization

namespace {

using orva_bench::labeled_tree;

std::string flatten(const labeled_tree& tree) {
  std::ostringstream stream;
  boost::archive::text_oarchive archive(stream, boost::archive::no_header);
  archive << tree;
  return stream.str();
}

void labeled_flatten_peer_boost(benchmark::State& state) {
  const labeled_tree tree = orva_bench::sample_tree();
  for (auto _ : state) benchmark::DoNotOptimize(flatten(tree).data());
}
BENCHMARK(labeled_flatten_peer_boost);

void labeled_parse_peer_boost(benchmark::State& state) {
  const std::string text = flatten(orva_bench::sample_tree());
  for (auto _ : state) {
    std::istringstream stream(text);
    boost::archive::text_iarchive archive(stream, boost::archive::no_header);
    labeled_tree tree;
    archive >> tree;
    benchmark::DoNotOptimize(tree);
  }
}
BENCHMARK(labeled_parse_peer_boost);

}  // namespace
