/// The speed of case mapping and caseless comparison by Unicode, compared with ICU on the same UTF-8 text.
#include <benchmark/benchmark.h>
#include <unicode/ucasemap.h>
#include <unicode/ustring.h>

#include <string>

#include "bench/strings/bench_texts.hpp"

namespace {

using namespace orva::strings;

const ustring8& text_of(const std::string& script) {
  static const auto texts = bench::texts(100'000);
  return texts.at(script);
}

void set_bytes(benchmark::State& state, const ustring8& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void upper(benchmark::State& state, const std::string& script) {
  const ustring8& text = text_of(script);
  for (auto _ : state) benchmark::DoNotOptimize(unicode_upper(text));
  set_bytes(state, text);
}

void upper_by_icu(benchmark::State& state, const std::string& script) {
  const ustring8& text = text_of(script);
  UErrorCode error = U_ZERO_ERROR;
  UCaseMap* const map = ucasemap_open("", 0, &error);
  for (auto _ : state) {
    std::string result(text.size() + text.size() / 2, '\0');
    const auto size = ucasemap_utf8ToUpper(map, result.data(), static_cast<std::int32_t>(result.size()),
                                           text.data(), static_cast<std::int32_t>(text.size()), &error);
    result.resize(static_cast<std::size_t>(size));
    benchmark::DoNotOptimize(result);
  }
  ucasemap_close(map);
  set_bytes(state, text);
}

void compare(benchmark::State& state, const std::string& script) {
  const ustring8& text = text_of(script);
  const ustring8 other = unicode_upper(text);
  for (auto _ : state) benchmark::DoNotOptimize(equal_caseless(text, other));
  set_bytes(state, text);
}

/// On UTF-16, since ICU has no comparison of UTF-8 without a conversion.
void compare_by_icu(benchmark::State& state, const std::string& script) {
  const ustring8& text = text_of(script);
  const auto left = utf8_to_utf16(text);
  const auto right = utf8_to_utf16(unicode_upper(text));
  for (auto _ : state) {
    UErrorCode error = U_ZERO_ERROR;
    benchmark::DoNotOptimize(u_strCaseCompare(left.data(), static_cast<std::int32_t>(left.size()),
                                              right.data(), static_cast<std::int32_t>(right.size()),
                                              U_FOLD_CASE_DEFAULT, &error));
  }
  set_bytes(state, text);
}

const bool registered = [] {
  for (const std::string script : {"Ascii", "Russian", "Chinese", "Hindi"}) {
    benchmark::RegisterBenchmark(("upper/" + script).c_str(), upper, script);
    benchmark::RegisterBenchmark(("upper_by_icu/" + script).c_str(), upper_by_icu, script);
    benchmark::RegisterBenchmark(("compare/" + script).c_str(), compare, script);
    benchmark::RegisterBenchmark(("compare_by_icu/" + script).c_str(), compare_by_icu, script);
  }
  return true;
}();

}  // namespace
