// Rendering of messages, compared with snprintf. catalog_bench compares the lookup of messages with gettext.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/message.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using i18n::message_t;

const message_t& files_in_folder() {
  static const message_t message(
      "files",
      {message_item("Im Ordner "), message_item("folder", message_item::string), message_item(" sind "),
       message_item("count", message_item::integer), message_item(" Dateien.")});
  return message;
}

const message_t& disk_free() {
  static const message_t message(
      "disk_free", {message_item("Frei: "), message_item("n\001precision\0011", message_item::memory),
                    message_item(" "), message_item("n\001precision\0011", message_item::memory_unit)});
  return message;
}

void render_string_and_integer(benchmark::State& state) {
  const message_t& message = files_in_folder();
  const varg_list args(argument("folder", "documents"), argument("count", 1234567));
  for (auto _ : state) benchmark::DoNotOptimize(message.as_utf8(args));
}
BENCHMARK(render_string_and_integer);

void build_args_and_render_string_and_integer(benchmark::State& state) {
  const message_t& message = files_in_folder();
  int count = 1234567;
  for (auto _ : state) {
    benchmark::DoNotOptimize(count);
    benchmark::DoNotOptimize(
        message.as_utf8(varg_list(argument("folder", "documents"), argument("count", count))));
  }
}
BENCHMARK(build_args_and_render_string_and_integer);

void snprintf_string_and_integer(benchmark::State& state) {
  int count = 1234567;
  const char* folder = "documents";
  for (auto _ : state) {
    benchmark::DoNotOptimize(count);
    benchmark::DoNotOptimize(folder);
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "Im Ordner %s sind %d Dateien.", folder, count);
    benchmark::DoNotOptimize(std::string(buffer));
  }
}
BENCHMARK(snprintf_string_and_integer);

void render_memory_and_unit(benchmark::State& state) {
  const message_t& message = disk_free();
  const varg_list args(argument("n", 1234567890));
  for (auto _ : state) benchmark::DoNotOptimize(message.as_utf8(args));
}
BENCHMARK(render_memory_and_unit);

void snprintf_memory_and_unit(benchmark::State& state) {
  double size = 1234567890;
  for (auto _ : state) {
    benchmark::DoNotOptimize(size);
    double scaled = size;
    int unit = 0;
    for (; scaled >= 1000 && unit < 8; ++unit) scaled /= 1000;
    static const char* const units[] = {"B", "KB", "MB", "GB", "TB", "PB", "EB", "ZB", "YB"};
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "Frei: %.1f %s", scaled, units[unit]);
    benchmark::DoNotOptimize(std::string(buffer));
  }
}
BENCHMARK(snprintf_memory_and_unit);

// --- single formatters ---

void formatter_int(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(i18n::_private::format_int(1234567, "base\x01spaced_dec"));
}
BENCHMARK(formatter_int);

void formatter_double(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(i18n::_private::format_double(1234.567, "precision\0013"));
}
BENCHMARK(formatter_double);

void snprintf_double(benchmark::State& state) {
  for (auto _ : state) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", 3, 1234.567);
    benchmark::DoNotOptimize(std::string(buffer));
  }
}
BENCHMARK(snprintf_double);

void formatter_duration(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(i18n::_private::format_duration(90061.5, ""));
}
BENCHMARK(formatter_duration);

}  // namespace
