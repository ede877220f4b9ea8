/// The six transforms beside ICU, each producing an owned string as a user would with either library.
///
/// Rates are bytes of the source text per second. Texts: see bench_texts.hpp.
#include <benchmark/benchmark.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <string>

#include "bench/strings/bench_texts.hpp"
#include "orva/orva.hpp"

namespace {

using namespace orva::strings;

icu::UnicodeString icu_8_to_16(const ustring8& text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string icu_16_to_8(const icu::UnicodeString& text) {
  UErrorCode error = U_ZERO_ERROR;
  std::int32_t length = 0;
  std::string result(static_cast<std::size_t>(text.length()) * 3, '\0');
  u_strToUTF8(result.data(), static_cast<std::int32_t>(result.size()), &length, text.getBuffer(),
              text.length(), &error);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

icu::UnicodeString icu_32_to_16(const ustring32& text) {
  return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                       static_cast<std::int32_t>(text.size()));
}

std::u32string icu_16_to_32(const icu::UnicodeString& text) {
  UErrorCode error = U_ZERO_ERROR;
  std::u32string result(static_cast<std::size_t>(text.length()), U'\0');
  const auto length = text.toUTF32(reinterpret_cast<UChar32*>(result.data()), text.length(), error);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

std::u32string icu_8_to_32(const ustring8& text) { return icu_16_to_32(icu_8_to_16(text)); }
std::string icu_32_to_8(const ustring32& text) { return icu_16_to_8(icu_32_to_16(text)); }

template <typename Source, typename Transform>
void add(const std::string& name, const Source& source, std::int64_t bytes, Transform transform) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(transform(source));
    state.SetBytesProcessed(state.iterations() * bytes);
  });
}

void add_all(const std::string& script, const ustring8& text8) {
  const ustring16 text16 = utf8_to_utf16(text8);
  const ustring32 text32 = utf8_to_utf32(text8);
  const auto icu16 = icu_8_to_16(text8);
  const auto bytes8 = static_cast<std::int64_t>(text8.size());
  const auto bytes16 = static_cast<std::int64_t>(text16.size()) * 2;
  const auto bytes32 = static_cast<std::int64_t>(text32.size()) * 4;
  add("utf8_to_utf16/" + script + "/orva", text8, bytes8, utf8_to_utf16);
  add("utf8_to_utf16/" + script + "/icu", text8, bytes8, icu_8_to_16);
  add("utf8_to_utf32/" + script + "/orva", text8, bytes8, utf8_to_utf32);
  add("utf8_to_utf32/" + script + "/icu", text8, bytes8, icu_8_to_32);
  add("utf16_to_utf8/" + script + "/orva", text16, bytes16, utf16_to_utf8);
  add("utf16_to_utf8/" + script + "/icu", icu16, bytes16, icu_16_to_8);
  add("utf16_to_utf32/" + script + "/orva", text16, bytes16, utf16_to_utf32);
  add("utf16_to_utf32/" + script + "/icu", icu16, bytes16, icu_16_to_32);
  add("utf32_to_utf8/" + script + "/orva", text32, bytes32, utf32_to_utf8);
  add("utf32_to_utf8/" + script + "/icu", text32, bytes32, icu_32_to_8);
  add("utf32_to_utf16/" + script + "/orva", text32, bytes32, utf32_to_utf16);
  add("utf32_to_utf16/" + script + "/icu", text32, bytes32, icu_32_to_16);
}

const bool all_added = [] {
  for (const auto& [script, text] : bench::texts(65536)) add_all(script, text);
  add_all("Ascii_64_bytes", bench::texts(64).at("Ascii"));
  return true;
}();

}  // namespace
