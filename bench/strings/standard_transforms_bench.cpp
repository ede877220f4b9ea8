/// The transforms by the standard beside those of strings/unicode.hpp, beside ICU, and beside simdutf where
/// that is installed. Each produces an owned string, as a user would with either library.
///
/// Rates are bytes of the source text per second. Texts: see bench_texts.hpp; a "damaged" one has a malformed
/// unit every 1,000 units, which ICU replaces too. simdutf does not replace.
#include <benchmark/benchmark.h>
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

/// A string of what a function of ICU writes into at most `capacity` units.
template <typename Unit, typename Convert>
basic_ustring<Unit> by_icu(std::size_t capacity, Convert convert) {
  basic_ustring<Unit> result(capacity + 1, Unit{});
  std::int32_t length = 0;
  UErrorCode error = U_ZERO_ERROR;
  convert(result.data(), length_of(result), &length, &error);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

ustring16 icu_8_to_16(const ustring8& text) {
  return by_icu<code_unit16>(text.size(), [&](code_unit16* to, auto size, auto* length, auto* error) {
    u_strFromUTF8WithSub(to, size, length, text.data(), length_of(text), 0xFFFD, nullptr, error);
  });
}

ustring16 icu_32_to_16(const ustring32& text) {
  return by_icu<code_unit16>(2 * text.size(), [&](code_unit16* to, auto size, auto* length, auto* error) {
    const auto* const from = reinterpret_cast<const UChar32*>(text.data());
    u_strFromUTF32WithSub(to, size, length, from, length_of(text), 0xFFFD, nullptr, error);
  });
}

ustring8 icu_16_to_8(const ustring16& text) {
  return by_icu<char>(3 * text.size(), [&](char* to, auto size, auto* length, auto* error) {
    u_strToUTF8WithSub(to, size, length, text.data(), length_of(text), 0xFFFD, nullptr, error);
  });
}

ustring32 icu_16_to_32(const ustring16& text) {
  return by_icu<code_unit32>(text.size(), [&](code_unit32* to, auto size, auto* length, auto* error) {
    auto* const units = reinterpret_cast<UChar32*>(to);
    u_strToUTF32WithSub(units, size, length, text.data(), length_of(text), 0xFFFD, nullptr, error);
  });
}

#if defined(ORVA_BENCH_SIMDUTF)
ustring16 simdutf_8_to_16(const ustring8& text) {
  ustring16 result(simdutf::utf16_length_from_utf8(text.data(), text.size()), code_unit16{});
  result.resize(simdutf::convert_utf8_to_utf16(text.data(), text.size(), result.data()));
  return result;
}

ustring8 simdutf_16_to_8(const ustring16& text) {
  ustring8 result(simdutf::utf8_length_from_utf16(text.data(), text.size()), '\0');
  result.resize(simdutf::convert_utf16_to_utf8(text.data(), text.size(), result.data()));
  return result;
}
#endif

template <typename Source, typename Transform>
void add(const std::string& name, const Source& source, Transform transform) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(transform(source));
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(source.size() * sizeof(source[0])));
  });
}

/// The ways that take damaged text, too.
void add_replacing(const std::string& script, const ustring8& text8, const ustring16& text16,
                   const ustring32& text32) {
  add("utf8_to_utf16/" + script + "/orva", text8, [](const ustring8& text) { return to_utf16(text); });
  add("utf8_to_utf16/" + script + "/icu", text8, icu_8_to_16);
  add("utf16_to_utf8/" + script + "/orva", text16, [](const ustring16& text) { return to_utf8(text); });
  add("utf16_to_utf8/" + script + "/icu", text16, icu_16_to_8);
  add("utf16_to_utf32/" + script + "/orva", text16, [](const ustring16& text) { return to_utf32(text); });
  add("utf16_to_utf32/" + script + "/icu", text16, icu_16_to_32);
  add("utf32_to_utf16/" + script + "/orva", text32, [](const ustring32& text) { return to_utf16(text); });
  add("utf32_to_utf16/" + script + "/icu", text32, icu_32_to_16);
}

void add_all(const std::string& script, const ustring8& text8) {
  const ustring16 text16 = to_utf16(text8).text;
  const ustring32 text32 = to_utf32(text8).text;
  add_replacing(script, text8, text16, text32);
  add("utf8_to_utf16/" + script + "/core", text8, utf8_to_utf16);
  add("utf16_to_utf8/" + script + "/core", text16, utf16_to_utf8);
  add("utf16_to_utf32/" + script + "/core", text16, utf16_to_utf32);
  add("utf32_to_utf16/" + script + "/core", text32, utf32_to_utf16);
#if defined(ORVA_BENCH_SIMDUTF)
  add("utf8_to_utf16/" + script + "/simdutf", text8, simdutf_8_to_16);
  add("utf16_to_utf8/" + script + "/simdutf", text16, simdutf_16_to_8);
#endif
}

/// `text` with `fault` over a unit of each thousand.
template <typename Unit>
basic_ustring<Unit> damaged(basic_ustring<Unit> text, std::uint32_t fault) {
  for (std::size_t i = 500; i < text.size(); i += 1000) text[i] = static_cast<Unit>(fault);
  return text;
}

const bool all_added = [] {
  for (const auto& [script, text] : bench::texts(65536)) add_all(script, text);
  add_all("Ascii_64_bytes", bench::texts(64).at("Ascii"));
  for (const char* const script : {"Ascii", "Russian"}) {
    const ustring8 text = bench::texts(65536).at(script);
    add_replacing(std::string(script) + "_damaged", damaged(text, 0xFF), damaged(to_utf16(text).text, 0xDC00),
                  damaged(to_utf32(text).text, 0x110000));
  }
  return true;
}();

}  // namespace
