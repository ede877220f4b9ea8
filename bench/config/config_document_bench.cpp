// Editing one key of a file of 10,000, with a comment before each section: config_document in each step. The
// same with GLib's GKeyFile is in key_file_bench.cpp.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/config/config_texts.hpp"
#include "orva/config/config_document.hpp"

namespace {

using ORVA_NAMESPACE::config::config_document;

void require(const config_document::result& result) {
  if (result.error != config_document::error::none) throw std::runtime_error("refused");
}

const std::string& edited_key() {
  static const std::string key =
      config_bench::joined(config_bench::section_name(50), ".", config_bench::key_name(50));
  return key;
}

void read_document(benchmark::State& state) {
  const std::string text = config_bench::commented_file_text();
  for (auto _ : state) benchmark::DoNotOptimize(config_document(text));
}
BENCHMARK(read_document)->Unit(benchmark::kMicrosecond);

void set_in_document(benchmark::State& state) {
  config_document document(config_bench::commented_file_text());
  int value = 0;
  for (auto _ : state) require(document.set(edited_key(), std::to_string(++value % 10)));
}
BENCHMARK(set_in_document)->Unit(benchmark::kMicrosecond);

void add_to_and_remove_from_document(benchmark::State& state) {
  config_document document(config_bench::commented_file_text());
  for (auto _ : state) {
    require(document.set("section_50.new_key", "value", "a comment"));
    require(document.remove("section_50.new_key"));
  }
}
BENCHMARK(add_to_and_remove_from_document)->Unit(benchmark::kMicrosecond);

void get_from_document(benchmark::State& state) {
  const config_document document(config_bench::commented_file_text());
  for (auto _ : state) benchmark::DoNotOptimize(document.get(edited_key()));
}
BENCHMARK(get_from_document)->Unit(benchmark::kMicrosecond);

/// From text to text.
void edit_text_by_document(benchmark::State& state) {
  const std::string text = config_bench::commented_file_text();
  for (auto _ : state) {
    config_document document(text);
    require(document.set(edited_key(), "new"));
    benchmark::DoNotOptimize(document.text().data());
  }
}
BENCHMARK(edit_text_by_document)->Unit(benchmark::kMicrosecond);

/// The same in a file, which is synced to the disk before it takes the place of the old one.
void edit_file_by_document(benchmark::State& state) {
  const std::string path = config_bench::joined(config_bench::file_path(), ".document");
  std::ofstream(path, std::ios::binary) << config_bench::commented_file_text();
  int value = 0;
  for (auto _ : state) {
    config_document document;
    if (document.load(path).error != config_document::load_error::none)
      throw std::runtime_error("not loaded");
    require(document.set(edited_key(), std::to_string(++value % 10)));
    if (document.save().code != ORVA_NAMESPACE::system::replace_file_result::error::none) {
      throw std::runtime_error("not saved");
    }
  }
  std::filesystem::remove(path);
}
BENCHMARK(edit_file_by_document)->Unit(benchmark::kMicrosecond);

}  // namespace
