// Replacing a file durably, compared with GLib, and with store_file, which waits for no disk.
#include "orva/system/replace_file.hpp"

#include <benchmark/benchmark.h>

#include <string>

#include "orva/system/file_utility.hpp"
#include "tests/support/temporary_directory.hpp"

#ifdef ORVA_BENCH_GLIB
#include <glib.h>
#endif

namespace {

using orva_test::temporary_directory;
namespace sys = ORVA_NAMESPACE::system;

std::string contents_of(const benchmark::State& state) {
  return std::string(static_cast<std::size_t>(state.range(0)), 'x');
}

void replace_file_orva(benchmark::State& state) {
  const temporary_directory directory;
  const auto path = directory.write("file", "old");
  const std::string contents = contents_of(state);
  for (auto _ : state)
    if (sys::replace_file(path, contents).code != sys::replace_file_result::error::none)
      state.SkipWithError("replace_file");
}
BENCHMARK(replace_file_orva)->Arg(4096)->Arg(1 << 20)->Unit(benchmark::kMicrosecond)->UseRealTime();

void store_file_orva(benchmark::State& state) {
  const temporary_directory directory;
  const auto path = directory.write("file", "old");
  const std::string contents = contents_of(state);
  for (auto _ : state)
    if (sys::store_file(path, contents) != 0) state.SkipWithError("store_file");
}
BENCHMARK(store_file_orva)->Arg(4096)->Arg(1 << 20)->Unit(benchmark::kMicrosecond)->UseRealTime();

#ifdef ORVA_BENCH_GLIB
/// GLib does not sync the directory.
void replace_file_glib(benchmark::State& state) {
  const temporary_directory directory;
  const auto path = directory.write("file", "old");
  const std::string contents = contents_of(state);
  constexpr auto flags =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  for (auto _ : state)
    if (g_file_set_contents_full(path.c_str(), contents.data(), static_cast<gssize>(contents.size()), flags,
                                 0644, nullptr) == 0)
      state.SkipWithError("g_file_set_contents_full");
}
BENCHMARK(replace_file_glib)->Arg(4096)->Arg(1 << 20)->Unit(benchmark::kMicrosecond)->UseRealTime();
#endif

}  // namespace
