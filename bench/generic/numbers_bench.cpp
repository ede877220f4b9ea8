/// Number readers and writers compared with `std::from_chars`, `std::to_chars` and streams. One item is one
/// number. All lengths are equally frequent.
#include <benchmark/benchmark.h>

#include <charconv>
#include <concepts>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/generic/convert/read_number.hpp"
#include "orva/generic/convert/str_to_x.hpp"
#include "orva/generic/convert/write_number.hpp"
#include "orva/generic/convert/x_to_str.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
using radix = ORVA_NAMESPACE::types::radix_t;
using ORVA_NAMESPACE::strings::code_unit16;

constexpr std::size_t number_count = 4096;

/// Numbers whose lengths in digits are spread evenly, half of them negative where the type allows it.
template <std::integral Integer>
std::vector<Integer> mixed_numbers() {
  std::mt19937_64 random(42);
  std::vector<Integer> numbers;
  while (numbers.size() < number_count) {
    const auto bits = random() % (std::numeric_limits<Integer>::digits + 1);
    const auto magnitude = static_cast<Integer>(random() & ((bits == 64 ? 0 : 1ull << bits) - 1));
    numbers.push_back(std::is_signed_v<Integer> && random() % 2 ? static_cast<Integer>(0 - magnitude)
                                                                : magnitude);
  }
  return numbers;
}

/// Texts next to each other in one buffer, like the fields of a file.
template <typename Unit>
struct texts {
  std::basic_string<Unit> units;
  std::vector<std::basic_string_view<Unit>> fields;

  explicit texts(const std::vector<std::string>& numbers) {
    for (const auto& number : numbers) units.append(number.begin(), number.end()).push_back(',');
    std::size_t start = 0;
    for (const auto& number : numbers) {
      fields.push_back(std::basic_string_view<Unit>(units).substr(start, number.size()));
      start += number.size() + 1;
    }
  }
};

template <std::integral Integer>
std::vector<std::string> mixed_texts() {
  std::vector<std::string> result;
  for (const Integer number : mixed_numbers<Integer>()) result.push_back(std::to_string(number));
  return result;
}

/// Measurements: a few digits, a point, a few digits; some with an exponent or all 17 digits.
std::vector<std::string> floating_texts() {
  std::mt19937_64 random(42);
  std::vector<std::string> result;
  while (result.size() < number_count) {
    char text[64];
    const double value = static_cast<double>(random() % 1000000000) / 1000.0;
    const char* formats[] = {"%.2f", "%.3f", "%g", "%.17g", "%.6e"};
    std::snprintf(text, sizeof text, formats[random() % 5], value);
    result.push_back(text);
  }
  return result;
}

template <typename Unit, typename Read>
void read_each(benchmark::State& state, const std::vector<std::string>& numbers, Read read) {
  const texts<Unit> input(numbers);
  for (auto _ : state) {
    for (const auto& field : input.fields) benchmark::DoNotOptimize(read(field));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(input.fields.size()));
}

template <typename Integer>
Integer from_chars(std::string_view text) {
  Integer value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

void str_to_int32(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::int32_t>(), [](std::string_view text) {
    return convert::str_to_int32(text.data(), text.size(), radix::decimal, false);
  });
}
BENCHMARK(str_to_int32);

void from_chars_int32(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::int32_t>(), from_chars<std::int32_t>);
}
BENCHMARK(from_chars_int32);

void str_to_int64(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::int64_t>(), [](std::string_view text) {
    return convert::str_to_int64(text.data(), text.size(), radix::decimal, false);
  });
}
BENCHMARK(str_to_int64);

void from_chars_int64(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::int64_t>(), from_chars<std::int64_t>);
}
BENCHMARK(from_chars_int64);

void str_to_int64_by_prefix(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::int64_t>(), [](std::string_view text) {
    return convert::str_to_int64(text.data(), text.size(), radix::prefix, false);
  });
}
BENCHMARK(str_to_int64_by_prefix);

void str_to_int64_utf16(benchmark::State& state) {
  read_each<code_unit16>(state, mixed_texts<std::int64_t>(), [](std::basic_string_view<code_unit16> text) {
    return convert::str_to_int64(text.data(), text.size(), radix::decimal, false);
  });
}
BENCHMARK(str_to_int64_utf16);

void str_to_uint64(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::uint64_t>(), [](std::string_view text) {
    return convert::str_to_uint64(text.data(), text.size(), radix::decimal, false);
  });
}
BENCHMARK(str_to_uint64);

void from_chars_uint64(benchmark::State& state) {
  read_each<char>(state, mixed_texts<std::uint64_t>(), from_chars<std::uint64_t>);
}
BENCHMARK(from_chars_uint64);

// The readers and writers that say what is wrong, each beside that of the standard library.

template <typename Number, auto Texts>
void read_number(benchmark::State& state) {
  read_each<char>(state, Texts(), [](std::string_view text) { return convert::read_number<Number>(text); });
}

template <typename Number, auto Texts>
void std_from_chars(benchmark::State& state) {
  read_each<char>(state, Texts(), [](std::string_view text) {
    Number value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    benchmark::DoNotOptimize(result);
    return value;
  });
}

/// Every double has a text of 17 digits that reads back to it.
std::vector<std::string> texts_of_17_digits() {
  std::mt19937_64 random(42);
  std::uniform_real_distribution<double> any(0, 1);
  std::vector<std::string> result;
  while (result.size() < number_count) {
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", any(random));
    result.push_back(text);
  }
  return result;
}

std::vector<std::string> texts_of_short_doubles() {
  std::mt19937_64 random(42);
  std::vector<std::string> result;
  while (result.size() < number_count) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", static_cast<double>(random() % 1000000) / 100.0);
    result.push_back(text);
  }
  return result;
}

std::vector<std::string> hexadecimal_texts() {
  std::vector<std::string> result;
  for (const std::uint64_t number : mixed_numbers<std::uint64_t>()) {
    char text[64];
    result.emplace_back(text, std::to_chars(text, text + sizeof text, number, 16).ptr);
  }
  return result;
}

BENCHMARK_TEMPLATE(read_number, std::int32_t, mixed_texts<std::int32_t>);
BENCHMARK_TEMPLATE(std_from_chars, std::int32_t, mixed_texts<std::int32_t>);
BENCHMARK_TEMPLATE(read_number, std::uint64_t, mixed_texts<std::uint64_t>);
BENCHMARK_TEMPLATE(std_from_chars, std::uint64_t, mixed_texts<std::uint64_t>);
BENCHMARK_TEMPLATE(read_number, double, texts_of_17_digits);
BENCHMARK_TEMPLATE(std_from_chars, double, texts_of_17_digits);
BENCHMARK_TEMPLATE(read_number, double, texts_of_short_doubles);
BENCHMARK_TEMPLATE(std_from_chars, double, texts_of_short_doubles);
BENCHMARK_TEMPLATE(read_number, float, texts_of_short_doubles);
BENCHMARK_TEMPLATE(std_from_chars, float, texts_of_short_doubles);
BENCHMARK_TEMPLATE(read_number, long double, texts_of_17_digits);
BENCHMARK_TEMPLATE(std_from_chars, long double, texts_of_17_digits);

void read_number_hexadecimal(benchmark::State& state) {
  read_each<char>(state, hexadecimal_texts(),
                  [](std::string_view text) { return convert::read_number<std::uint64_t>(text, 16); });
}
BENCHMARK(read_number_hexadecimal);

void from_chars_hexadecimal(benchmark::State& state) {
  read_each<char>(state, hexadecimal_texts(), [](std::string_view text) {
    std::uint64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    benchmark::DoNotOptimize(result);
    return value;
  });
}
BENCHMARK(from_chars_hexadecimal);

template <typename Floating>
Floating from_stream(std::string_view text) {
  std::istringstream stream{std::string(text)};
  Floating value = 0;
  stream >> value;
  return stream.fail() ? 0 : value;
}

void str_to_double(benchmark::State& state) {
  read_each<char>(state, floating_texts(),
                  [](std::string_view text) { return convert::str_to_double(text); });
}
BENCHMARK(str_to_double);

void str_to_double_of_classic_locale(benchmark::State& state) {
  const std::locale& classic = std::locale::classic();
  read_each<char>(state, floating_texts(),
                  [&](std::string_view text) { return convert::str_to_double(text, classic); });
}
BENCHMARK(str_to_double_of_classic_locale);

void from_chars_double(benchmark::State& state) {
  read_each<char>(state, floating_texts(), [](std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  });
}
BENCHMARK(from_chars_double);

void stream_double(benchmark::State& state) { read_each<char>(state, floating_texts(), from_stream<double>); }
BENCHMARK(stream_double);

void str_to_float(benchmark::State& state) {
  read_each<char>(state, floating_texts(), [](std::string_view text) { return convert::str_to_float(text); });
}
BENCHMARK(str_to_float);

void stream_float(benchmark::State& state) { read_each<char>(state, floating_texts(), from_stream<float>); }
BENCHMARK(stream_float);

void str_to_long_double(benchmark::State& state) {
  read_each<char>(state, floating_texts(),
                  [](std::string_view text) { return convert::str_to_long_double(text); });
}
BENCHMARK(str_to_long_double);

void stream_long_double(benchmark::State& state) {
  read_each<char>(state, floating_texts(), from_stream<long double>);
}
BENCHMARK(stream_long_double);

template <std::integral Integer, typename Write>
void write_each(benchmark::State& state, Write write) {
  const auto numbers = mixed_numbers<Integer>();
  for (auto _ : state) {
    for (const Integer number : numbers) {
      char buffer[convert::number_buffer_size];
      write(number, buffer);
      benchmark::DoNotOptimize(buffer);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}

template <int Radix>
void ltoa_int32(benchmark::State& state) {
  write_each<std::int32_t>(state, [](long value, char* buffer) { convert::ltoa(value, buffer, Radix); });
}
BENCHMARK(ltoa_int32<10>);
BENCHMARK(ltoa_int32<16>);

template <int Radix>
void to_chars_int32(benchmark::State& state) {
  write_each<std::int32_t>(state, [](std::int32_t value, char* buffer) {
    *std::to_chars(buffer, buffer + convert::number_buffer_size, value, Radix).ptr = 0;
  });
}
BENCHMARK(to_chars_int32<10>);
BENCHMARK(to_chars_int32<16>);

template <int Radix>
void lltoa_int64(benchmark::State& state) {
  write_each<std::int64_t>(state,
                           [](long long value, char* buffer) { convert::lltoa(value, buffer, Radix); });
}
BENCHMARK(lltoa_int64<2>);
BENCHMARK(lltoa_int64<8>);
BENCHMARK(lltoa_int64<10>);
BENCHMARK(lltoa_int64<16>);
BENCHMARK(lltoa_int64<36>);

template <int Radix>
void to_chars_int64(benchmark::State& state) {
  write_each<std::int64_t>(state, [](std::int64_t value, char* buffer) {
    *std::to_chars(buffer, buffer + convert::number_buffer_size, value, Radix).ptr = 0;
  });
}
BENCHMARK(to_chars_int64<2>);
BENCHMARK(to_chars_int64<8>);
BENCHMARK(to_chars_int64<10>);
BENCHMARK(to_chars_int64<16>);
BENCHMARK(to_chars_int64<36>);

template <typename Floating>
std::vector<Floating> floating_numbers() {
  std::vector<Floating> numbers;
  for (const auto& text : texts_of_17_digits()) numbers.push_back(static_cast<Floating>(std::stold(text)));
  return numbers;
}

template <typename Floating>
void write_number(benchmark::State& state) {
  const auto numbers = floating_numbers<Floating>();
  for (auto _ : state) {
    for (const Floating number : numbers) {
      char buffer[convert::number_buffer_size];
      benchmark::DoNotOptimize(convert::write_number(buffer, buffer + sizeof buffer, number));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}
BENCHMARK(write_number<float>);
BENCHMARK(write_number<double>);
BENCHMARK(write_number<long double>);

template <typename Floating>
void std_to_chars(benchmark::State& state) {
  const auto numbers = floating_numbers<Floating>();
  for (auto _ : state) {
    for (const Floating number : numbers) {
      char buffer[convert::number_buffer_size];
      benchmark::DoNotOptimize(std::to_chars(buffer, buffer + sizeof buffer, number));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}
BENCHMARK(std_to_chars<float>);
BENCHMARK(std_to_chars<double>);
BENCHMARK(std_to_chars<long double>);

void write_number_int64(benchmark::State& state) {
  write_each<std::int64_t>(state, [](long long value, char* buffer) {
    *convert::write_number(buffer, buffer + convert::number_buffer_size, value).end = 0;
  });
}
BENCHMARK(write_number_int64);

}  // namespace
