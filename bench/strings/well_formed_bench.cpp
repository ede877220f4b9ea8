/// Validation of the three encodings beside ICU, beside simdjson, which validates UTF-8 as simdutf does, and
/// beside simdutf itself where that is installed.
///
/// Rates are bytes of the text per second. Texts: see bench_texts.hpp. ICU validates while it measures a
/// conversion, which is its fastest way to tell whether a text is well-formed; it has none for UTF-16 into
/// UTF-16.
#include <benchmark/benchmark.h>
#include <simdjson.h>
#include <unicode/ustring.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/strings/bench_texts.hpp"
#include "orva/orva.hpp"

#if defined(ORVA_BENCH_SIMDUTF)
#include <simdutf.h>
#endif

namespace {

using namespace orva::strings;

std::int32_t length_of(const auto& text) { return static_cast<std::int32_t>(text.size()); }

bool by_icu(const ustring8& text) {
  UErrorCode error = U_ZERO_ERROR;
  std::int32_t length = 0;
  u_strFromUTF8(nullptr, 0, &length, text.data(), length_of(text), &error);
  return error == U_BUFFER_OVERFLOW_ERROR;
}

bool by_icu(const ustring16& text) {
  UErrorCode error = U_ZERO_ERROR;
  std::int32_t length = 0;
  u_strToUTF8(nullptr, 0, &length, text.data(), length_of(text), &error);
  return error == U_BUFFER_OVERFLOW_ERROR;
}

bool by_icu(const ustring32& text) {
  UErrorCode error = U_ZERO_ERROR;
  std::int32_t length = 0;
  u_strFromUTF32(nullptr, 0, &length, reinterpret_cast<const UChar32*>(text.data()), length_of(text), &error);
  return error == U_BUFFER_OVERFLOW_ERROR;
}

bool by_simdjson(const ustring8& text) { return simdjson::validate_utf8(text.data(), text.size()); }

#if defined(ORVA_BENCH_SIMDUTF)
bool by_simdutf(const ustring8& text) { return simdutf::validate_utf8(text.data(), text.size()); }
bool by_simdutf(const ustring16& text) { return simdutf::validate_utf16(text.data(), text.size()); }
bool by_simdutf(const ustring32& text) { return simdutf::validate_utf32(text.data(), text.size()); }
#endif

template <typename Text, typename Validate>
void add(const std::string& name, const Text& text, Validate validate) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    for (auto _ : state) {
      if (!validate(text)) state.SkipWithError("the text is well-formed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size() * sizeof(text[0])));
  });
}

template <typename Text>
void add_all(const std::string& name, const Text& text) {
  add(name + "/orva", text, [](const Text& given) { return is_well_formed(given); });
  add(name + "/icu", text, [](const Text& given) { return by_icu(given); });
  if constexpr (sizeof(text[0]) == 1) {
    add(name + "/simdjson", text, [](const Text& given) { return by_simdjson(given); });
  }
#if defined(ORVA_BENCH_SIMDUTF)
  add(name + "/simdutf", text, [](const Text& given) { return by_simdutf(given); });
#endif
}

void add_script(const std::string& script, const ustring8& text) {
  add_all("utf8/" + script, text);
  add_all("utf16/" + script, to_utf16(text).text);
  add_all("utf32/" + script, to_utf32(text).text);
}

const bool all_added = [] {
  for (const auto& [script, text] : bench::texts(65536)) add_script(script, text);
  add_script("Ascii_24_bytes", bench::texts(24).at("Ascii"));
  for (const std::size_t size : {8u, 12u, 16u, 24u, 31u, 64u}) {
    for (const std::string script : {"Russian", "Chinese"}) {
      add_script(script + '_' + std::to_string(size) + "_bytes", bench::texts(size).at(script));
    }
  }
  return true;
}();

}  // namespace
