// Configuration compared with Boost.PropertyTree: loading a file, looking a key up in three sources,
// following a link, reading a command line. No peer stores command line options that were not declared. The
// peers that are not installed everywhere have files of their own: key_file_bench.cpp, settings_bench.cpp and
// layered_configuration_bench.cpp.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/config/config_texts.hpp"
#include "orva/config/commandline_item.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/user_item.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using boost::property_tree::ptree;
using config_bench::link;
using config_bench::source_count;
using config_bench::wanted;
using ORVA_NAMESPACE::types::variant;

void load_file_item(benchmark::State& state) {
  const std::string path = config_bench::file_path();
  for (auto _ : state) {
    file_item item(path);
    item.load();
    benchmark::DoNotOptimize(item);
  }
  state.SetItemsProcessed(state.iterations() * config_bench::section_count * config_bench::keys_per_section);
}
BENCHMARK(load_file_item)->Unit(benchmark::kMicrosecond);

void load_property_tree(benchmark::State& state) {
  const std::string path = config_bench::file_path();
  for (auto _ : state) {
    ptree tree;
    boost::property_tree::read_ini(path, tree);
    benchmark::DoNotOptimize(tree);
  }
  state.SetItemsProcessed(state.iterations() * config_bench::section_count * config_bench::keys_per_section);
}
BENCHMARK(load_property_tree)->Unit(benchmark::kMicrosecond);

/// Sets up the items that it is given.
class fixed_dispatch : public config_dispatch {
 public:
  explicit fixed_dispatch(item_list items) : items_(std::move(items)) {}
  void setup(item_list& items) const override { items = items_; }
  void load(item_list&) const override {}
  void unload(item_list&) const override {}
  void save(item_list&) const override {}
  fixed_dispatch* clone() const override { return new fixed_dispatch(*this); }

 private:
  item_list items_;
};

/// Only the source with this number has the wanted key. No source has it if the number is too large.
config_manager manager_with(int source) {
  item_list items;
  for (int i = 0; i < source_count; ++i) {
    user_item item;
    config_bench::fill_source(i == source,
                              [&](const std::string& key, int value) { item.set(key, value, 0); });
    if (i == source) item.set(link, wanted, config_tree::NODE_LINK);
    items.emplace_back(item.clone());
  }
  config_manager manager;
  manager.init(fixed_dispatch(items));
  return manager;
}

void look_up_config_manager(benchmark::State& state) {
  const config_manager manager = manager_with(static_cast<int>(state.range(0)));
  const ORVA_NAMESPACE::strings::ustring8 key = wanted;
  const variant fallback = 100;
  for (auto _ : state) benchmark::DoNotOptimize(manager.get_value(key, fallback));
}
BENCHMARK(look_up_config_manager)->ArgName("found_in")->Arg(0)->Arg(1)->Arg(2)->Arg(3);

std::array<ptree, source_count> trees_with(int source) {
  std::array<ptree, source_count> trees;
  for (int i = 0; i < source_count; ++i) {
    auto& tree = trees[static_cast<std::size_t>(i)];
    config_bench::fill_source(i == source, [&](const std::string& key, int value) { tree.put(key, value); });
    if (i == source) tree.put(link, wanted);
  }
  return trees;
}

const std::string* look_up(const std::array<ptree, source_count>& trees, const std::string& key) {
  for (const ptree& tree : trees) {
    if (const auto found = tree.get_child_optional(key)) return &found->data();
  }
  return nullptr;
}

void look_up_property_tree(benchmark::State& state) {
  const auto trees = trees_with(static_cast<int>(state.range(0)));
  const std::string key = wanted;
  for (auto _ : state) benchmark::DoNotOptimize(look_up(trees, key));
}
BENCHMARK(look_up_property_tree)->ArgName("found_in")->Arg(0)->Arg(1)->Arg(2)->Arg(3);

void follow_link_config_manager(benchmark::State& state) {
  const config_manager manager = manager_with(1);
  const ORVA_NAMESPACE::strings::ustring8 key = link;
  for (auto _ : state) benchmark::DoNotOptimize(manager.get_value(key));
}
BENCHMARK(follow_link_config_manager);

/// By hand: the value of one key is the name of the next.
void follow_link_property_tree(benchmark::State& state) {
  const auto trees = trees_with(1);
  const std::string key = link;
  for (auto _ : state) {
    const std::string* const target = look_up(trees, key);
    benchmark::DoNotOptimize(look_up(trees, *target));
  }
}
BENCHMARK(follow_link_property_tree);

void look_up_with_a_literal(benchmark::State& state) {
  const config_manager manager = manager_with(0);
  for (auto _ : state) benchmark::DoNotOptimize(manager.get_value("window.main.width"));
}
BENCHMARK(look_up_with_a_literal);

void load_command_line(benchmark::State& state) {
  const auto words = config_bench::options(state.range(0));
  std::vector<const char*> argv{"app.exe"};
  for (const std::string& word : words) argv.push_back(word.c_str());
  argv.push_back(nullptr);
  for (auto _ : state) {
    commandline_item item(static_cast<unsigned int>(words.size()) + 1, argv.data());
    item.load();
    benchmark::DoNotOptimize(item);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(load_command_line)->Arg(1000)->Unit(benchmark::kMicrosecond);

void put_elements(ptree& node) {
  const std::string text = node.data();
  for (std::size_t from = 0, n = 0; from <= text.size(); ++n) {
    const auto comma = std::min(text.find(',', from), text.size());
    node.put(std::to_string(n), text.substr(from, comma - from));
    from = comma + 1;
  }
}

/// The same keys, split at the first `=` and at commas.
void load_command_line_property_tree(benchmark::State& state) {
  const auto words = config_bench::options(state.range(0));
  for (auto _ : state) {
    ptree tree;
    for (const std::string& word : words) {
      const auto equals = std::min(word.find('='), word.size());
      ptree& node = tree.put(word.substr(1, equals - 1), word.substr(std::min(equals + 1, word.size())));
      if (node.data().find(',') != std::string::npos) put_elements(node);
    }
    benchmark::DoNotOptimize(tree);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(load_command_line_property_tree)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
