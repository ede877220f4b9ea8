/// Shared by the benchmarks of streaming parsers: the file, nodes that own their texts for the parsers that
/// have none, and counts of what was delivered.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "bench/parser/peak_memory.hpp"
#include "bench/parser/record_file.hpp"

namespace bench {

inline const record_file& feed() {
  static const record_file file;
  return file;
}

/// Counts what it is given, so that all sides show that they delivered the same.
struct totals {
  std::size_t nodes = 0;
  std::size_t bytes = 0;

  template <typename Attributes>
  void add(const std::string& tag, const Attributes& attributes, const std::string& data) {
    ++nodes;
    bytes += tag.size() + data.size();
    for (const auto& [name, value] : attributes) bytes += name.size() + value.size();
  }
};

struct owned_node {
  std::string tag;
  std::list<std::pair<std::string, std::string>> attributes;
  std::string data;
};

/// The nodes of one record, and of the element that is open around the records.
class record {
 public:
  explicit record(totals& receiver) : receiver_(receiver) {}

  owned_node& start(const char* tag) {
    open_.push_back(&nodes_.emplace_back());
    open_.back()->tag = tag;
    return *open_.back();
  }
  void text(const char* text, std::size_t length) {
    if (open_.size() > 1) open_.back()->data.append(text, length);
  }
  void end() {
    open_.pop_back();
    if (open_.size() > 1) return;
    for (const auto& node : nodes_)
      receiver_.add(node.tag, node.attributes, is_blank(node.data) ? "" : node.data);
    // The root is delivered with the first record, as the library does.
    if (open_.empty()) return;
    nodes_.clear();
    open_.front() = &root_;
  }

 private:
  static bool is_blank(const std::string& text) { return text.find_first_not_of(" \n") == text.npos; }

  totals& receiver_;
  std::list<owned_node> nodes_;
  std::vector<owned_node*> open_;
  owned_node root_;
};

inline void measure(benchmark::State& state, totals (*parse)()) {
  feed();
  totals last;
  static const peak_memory memory;
  for (auto _ : state) last = parse();
  state.counters["peak_growth"] =
      benchmark::Counter(memory.growth(), benchmark::Counter::kDefaults, benchmark::Counter::kIs1024);
  state.SetBytesProcessed(state.iterations() * feed().size());
  state.counters["nodes"] = static_cast<double>(last.nodes);
  state.counters["node_bytes"] = static_cast<double>(last.bytes);
}

}  // namespace bench
