// The benchmarks of config_bench.cpp with GLib's GKeyFile.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/config/config_texts.hpp"

namespace {

using key_file = std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)>;

void load_key_file(benchmark::State& state) {
  const std::string path = config_bench::file_path();
  for (auto _ : state) {
    const key_file file(g_key_file_new(), g_key_file_unref);
    if (!g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr)) {
      throw std::runtime_error("not loaded");
    }
    benchmark::DoNotOptimize(file);
  }
  state.SetItemsProcessed(state.iterations() * config_bench::section_count * config_bench::keys_per_section);
}
BENCHMARK(load_key_file)->Unit(benchmark::kMicrosecond);

/// One source. A key file has groups and keys: the keys have two parts.
void look_up_key_file(benchmark::State& state) {
  const key_file file(g_key_file_new(), g_key_file_unref);
  g_key_file_load_from_file(file.get(), config_bench::file_path().c_str(), G_KEY_FILE_NONE, nullptr);
  const std::string section = config_bench::section_name(50);
  const std::string key = config_bench::key_name(50);
  for (auto _ : state) g_free(g_key_file_get_value(file.get(), section.c_str(), key.c_str(), nullptr));
}
BENCHMARK(look_up_key_file);

/// Editing one key, with comments kept, from text to text.
void edit_text_by_key_file(benchmark::State& state) {
  const std::string text = config_bench::commented_file_text();
  const std::string section = config_bench::section_name(50);
  const std::string key = config_bench::key_name(50);
  for (auto _ : state) {
    const key_file file(g_key_file_new(), g_key_file_unref);
    if (!g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_KEEP_COMMENTS, nullptr)) {
      throw std::runtime_error("not loaded");
    }
    g_key_file_set_string(file.get(), section.c_str(), key.c_str(), "new");
    gsize length = 0;
    g_free(g_key_file_to_data(file.get(), &length, nullptr));
  }
}
BENCHMARK(edit_text_by_key_file)->Unit(benchmark::kMicrosecond);

/// The same in a file.
void edit_key_file(benchmark::State& state) {
  const std::string path = config_bench::joined(config_bench::file_path(), ".key_file");
  std::ofstream(path, std::ios::binary) << config_bench::commented_file_text();
  const std::string section = config_bench::section_name(50);
  const std::string key = config_bench::key_name(50);
  int value = 0;
  for (auto _ : state) {
    const key_file file(g_key_file_new(), g_key_file_unref);
    if (!g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr)) {
      throw std::runtime_error("not loaded");
    }
    g_key_file_set_string(file.get(), section.c_str(), key.c_str(), std::to_string(++value % 10).c_str());
    if (!g_key_file_save_to_file(file.get(), path.c_str(), nullptr)) throw std::runtime_error("not saved");
  }
  std::filesystem::remove(path);
}
BENCHMARK(edit_key_file)->Unit(benchmark::kMicrosecond);

}  // namespace
