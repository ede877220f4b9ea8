/// String tools beside the loops that a program would write over `std::string_view` and `std::string`. One
/// byte is one byte of the text.
#include <benchmark/benchmark.h>

#include <cctype>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "orva/strings/case_mapping.hpp"
#include "orva/strings/replace.hpp"
#include "orva/strings/split.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;

/// Lines of words of mixed length, separated by commas, with a capital here and there.
std::string table() {
  std::mt19937 random(42);
  std::string text;
  while (text.size() < 100000) {
    text += static_cast<char>('A' + random() % 26);
    text += std::string(random() % 24, 'x');
    text += ',';
  }
  return text;
}

template <typename Do>
void each(benchmark::State& state, const std::string& text, Do act) {
  for (auto _ : state) benchmark::DoNotOptimize(act(text));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

std::vector<std::string> split_by_loop(std::string_view text, std::string_view delimiter) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t match = text.find(delimiter);
    pieces.emplace_back(text.substr(0, match));
    if (match == text.npos) break;
    text.remove_prefix(match + delimiter.size());
  }
  return pieces;
}

void split_string(benchmark::State& state) {
  each(state, table(), [](const std::string& text) { return strings::split_string(text, ",", 0); });
}
BENCHMARK(split_string);

void split_by_string_view_loop(benchmark::State& state) {
  each(state, table(), [](const std::string& text) { return split_by_loop(text, ","); });
}
BENCHMARK(split_by_string_view_loop);

std::string replace_by_loop(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

template <int size>
void replace_all(benchmark::State& state) {
  each(state, table(), [](std::string text) {
    strings::replace_all(text, ",", std::string(size, ';'));
    return text;
  });
}
BENCHMARK(replace_all<0>);
BENCHMARK(replace_all<1>);
BENCHMARK(replace_all<3>);

template <int size>
void replace_by_string_loop(benchmark::State& state) {
  each(state, table(),
       [](const std::string& text) { return replace_by_loop(text, ",", std::string(size, ';')); });
}
BENCHMARK(replace_by_string_loop<0>);
BENCHMARK(replace_by_string_loop<1>);
BENCHMARK(replace_by_string_loop<3>);

/// Words of Cyrillic letters in UTF-8, so that nearly all bytes are outside ASCII.
std::string cyrillic(std::size_t size) {
  std::mt19937 random(42);
  std::string text;
  while (text.size() < size) {
    for (auto letters = random() % 10; letters > 0; --letters) {
      text += '\xD0';
      text += static_cast<char>(0x90 + random() % 0x30);
    }
    text += ' ';
  }
  return text;
}

void lower(benchmark::State& state, const std::string& text) {
  each(state, text, [](const std::string& units) { return strings::to_lower(units); });
}
BENCHMARK_CAPTURE(lower, ascii, table());
BENCHMARK_CAPTURE(lower, cyrillic, cyrillic(100000));
BENCHMARK_CAPTURE(lower, short_cyrillic, cyrillic(40));

void lower_by_runtime_loop(benchmark::State& state, const std::string& text) {
  each(state, text, [](std::string units) {
    for (char& unit : units) unit = static_cast<char>(std::tolower(static_cast<unsigned char>(unit)));
    return units;
  });
}
BENCHMARK_CAPTURE(lower_by_runtime_loop, ascii, table());
BENCHMARK_CAPTURE(lower_by_runtime_loop, cyrillic, cyrillic(100000));
BENCHMARK_CAPTURE(lower_by_runtime_loop, short_cyrillic, cyrillic(40));

}  // namespace
