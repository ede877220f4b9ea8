// The benchmarks of config_bench.cpp with Qt's QSettings, which has no command line and no links.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QSettings>
#include <QString>
#include <QVariant>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "bench/config/config_texts.hpp"

namespace {

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// Settings read a file again only if its time has changed, and parse a section when one of its keys is read.
/// Therefore each run makes the file newer and reads a key of each section.
void load_settings(benchmark::State& state) {
  const QString path = text(config_bench::file_path());
  std::vector<QString> keys;
  for (int i = 0; i < config_bench::section_count; ++i) {
    keys.push_back(text(config_bench::joined(config_bench::section_name(i), "/", config_bench::key_name(i))));
  }
  auto time = std::filesystem::last_write_time(config_bench::file_path());
  for (auto _ : state) {
    time += std::chrono::seconds(1);
    std::filesystem::last_write_time(config_bench::file_path(), time);
    const QSettings settings(path, QSettings::IniFormat);
    for (const QString& key : keys) {
      if (!settings.contains(key)) throw std::runtime_error("not loaded");
    }
  }
  state.SetItemsProcessed(state.iterations() * config_bench::section_count * config_bench::keys_per_section);
}
BENCHMARK(load_settings)->Unit(benchmark::kMicrosecond);

/// A directory for the run, with the first three of the four files that settings look a key up in: the user's
/// for the program, the user's for all programs, the system's for the program.
class settings_files {
 public:
  /// Only the file with this number has the wanted key. No file has it if the number is too large.
  explicit settings_files(int source)
      : path_(std::filesystem::temp_directory_path() /
              config_bench::joined("orva-bench-", ::getpid(), "-", source)) {
    const char* const names[] = {"user/orva/bench.ini", "user/orva.ini", "system/orva/bench.ini"};
    for (int i = 0; i < config_bench::source_count; ++i) write(path_ / names[i], i == source);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, text(path_ / "user"));
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, text(path_ / "system"));
  }
  settings_files(const settings_files&) = delete;
  settings_files& operator=(const settings_files&) = delete;
  ~settings_files() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  static void write(const std::filesystem::path& path, bool with_wanted) {
    QSettings settings(text(path), QSettings::IniFormat);
    config_bench::fill_source(with_wanted, [&](const std::string& key, int value) {
      settings.setValue(text(key).replace('.', '/'), value);
    });
  }

  std::filesystem::path path_;
};

void look_up_settings(benchmark::State& state) {
  const auto source = static_cast<int>(state.range(0));
  const settings_files files(source);
  const QSettings settings(QSettings::IniFormat, QSettings::UserScope, "orva", "bench");
  const QString key = text(config_bench::wanted).replace('.', '/');
  const QVariant fallback = 100;
  if (settings.value(key, fallback).toInt() != (source < config_bench::source_count ? 640 : 100)) {
    throw std::logic_error("another value");
  }
  for (auto _ : state) benchmark::DoNotOptimize(settings.value(key, fallback));
}
BENCHMARK(look_up_settings)->ArgName("found_in")->Arg(0)->Arg(1)->Arg(2)->Arg(3);

}  // namespace
