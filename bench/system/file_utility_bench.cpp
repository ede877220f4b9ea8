// Measures the file services, and the same work by system calls and by the standard library.
#include "orva/system/file_utility.hpp"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::temporary_directory;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;

constexpr std::size_t large_size = 64u << 20;

const std::string& large_file() {
  static const temporary_directory directory;
  static const std::string path = directory.write("large", std::string(large_size, 'x'));
  return path;
}

/// A directory of `count` empty files.
const std::string& flat_directory(int count) {
  static const temporary_directory directory;
  static const bool filled = [&] {
    for (int i = 0; i < count; ++i) directory.write("entry_" + std::to_string(i) + ".txt", "");
    return true;
  }();
  (void)filled;
  static const std::string path = directory.name();
  return path;
}

/// 40 directories of 1,000 files each.
const std::string& tree() {
  static const temporary_directory directory;
  static const bool filled = [&] {
    for (int i = 0; i < 40'000; ++i)
      directory.write("part_" + std::to_string(i % 40) + "/file_" + std::to_string(i) + ".txt", "");
    return true;
  }();
  (void)filled;
  static const std::string path = directory.name();
  return path;
}

void load_64_mb_orva(benchmark::State& state) {
  const auto& path = large_file();
  for (auto _ : state) {
    strings::ustring8 contents;
    if (sys::load_file(path, contents) != 0) state.SkipWithError("load_file");
    benchmark::DoNotOptimize(contents.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * large_size));
}
BENCHMARK(load_64_mb_orva)->Unit(benchmark::kMillisecond);

void load_64_mb_open_fstat_read(benchmark::State& state) {
  const auto& path = large_file();
  for (auto _ : state) {
    const int file = open(path.c_str(), O_RDONLY);
    struct stat status = {};
    fstat(file, &status);
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> contents(new char[size]);
    if (read(file, contents.get(), size) != status.st_size) state.SkipWithError("read");
    close(file);
    benchmark::DoNotOptimize(contents.get());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * large_size));
}
BENCHMARK(load_64_mb_open_fstat_read)->Unit(benchmark::kMillisecond);

void list_100000_entries_orva(benchmark::State& state) {
  const auto& path = flat_directory(100'000);
  for (auto _ : state) {
    const auto paths = sys::list_directory(path);
    if (paths.size() != 100'000) state.SkipWithError("list_directory");
  }
}
BENCHMARK(list_100000_entries_orva)->Unit(benchmark::kMillisecond);

void list_100000_entries_std_filesystem(benchmark::State& state) {
  const auto& path = flat_directory(100'000);
  for (auto _ : state) {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(path))
      paths.push_back(entry.path().string());
    if (paths.size() != 100'000) state.SkipWithError("directory_iterator");
  }
}
BENCHMARK(list_100000_entries_std_filesystem)->Unit(benchmark::kMillisecond);

void walk_40000_files_orva(benchmark::State& state) {
  const auto& path = tree();
  for (auto _ : state) {
    std::vector<strings::ustring8> files;
    sys::get_directory_files(path, files);
    if (files.size() != 40'000) state.SkipWithError("get_directory_files");
  }
}
BENCHMARK(walk_40000_files_orva)->Unit(benchmark::kMillisecond);

/// One stat of the full path for each entry, without sorting.
void walk_with_readdir(const std::string& directory, std::vector<std::string>& files) {
  DIR* const search = opendir(directory.c_str());
  if (search == nullptr) return;
  while (const dirent* entry = readdir(search)) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    std::string full = directory + "/" + name;
    struct stat status = {};
    if (stat(full.c_str(), &status) != 0) continue;
    if (S_ISDIR(status.st_mode)) walk_with_readdir(full, files);
    if (S_ISREG(status.st_mode)) files.push_back(std::move(full));
  }
  closedir(search);
}

void walk_40000_files_readdir_stat(benchmark::State& state) {
  const auto& path = tree();
  for (auto _ : state) {
    std::vector<std::string> files;
    walk_with_readdir(path, files);
    if (files.size() != 40'000) state.SkipWithError("readdir");
  }
}
BENCHMARK(walk_40000_files_readdir_stat)->Unit(benchmark::kMillisecond);

}  // namespace
