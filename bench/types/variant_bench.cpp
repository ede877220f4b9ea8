/// The speed of `variant`, compared with its parts (an allocation for each value, an atomic count for each
/// copy) and with `std::variant` and the standard conversions.
#include "orva/types/variant.hpp"

#include <benchmark/benchmark.h>

#include <atomic>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace {

using ORVA_NAMESPACE::types::variant;
using standard_variant =
    std::variant<std::monostate, bool, int, unsigned int, std::int64_t, double, std::string>;

void make_from_int(benchmark::State& state) {
  int number = 0;
  for (auto _ : state) {
    variant value(++number);
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(make_from_int);

void make_from_int_peer_malloc_and_free(benchmark::State& state) {
  for (auto _ : state) {
    void* memory = std::malloc(24);
    benchmark::DoNotOptimize(memory);
    std::free(memory);
  }
}
BENCHMARK(make_from_int_peer_malloc_and_free);

void copy(benchmark::State& state) {
  const variant original("text");
  for (auto _ : state) {
    variant value(original);
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(copy);

void copy_peer_atomic_increment_and_decrement(benchmark::State& state) {
  std::atomic<std::uint32_t> count{1};
  for (auto _ : state) {
    benchmark::DoNotOptimize(count.fetch_add(1));
    benchmark::DoNotOptimize(count.fetch_sub(1));
  }
}
BENCHMARK(copy_peer_atomic_increment_and_decrement);

void make_from_text(benchmark::State& state) {
  for (auto _ : state) {
    variant value("disk_free");
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(make_from_text);

void make_from_text_peer_std_variant(benchmark::State& state) {
  for (auto _ : state) {
    standard_variant value("disk_free");
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(make_from_text_peer_std_variant);

void try_as_int(benchmark::State& state) {
  const variant value(42);
  for (auto _ : state) benchmark::DoNotOptimize(value.try_as<int>());
}
BENCHMARK(try_as_int);

void try_as_int_peer_std_get_if(benchmark::State& state) {
  const standard_variant value(42);
  for (auto _ : state) {
    const int* number = std::get_if<int>(&value);
    benchmark::DoNotOptimize(number != nullptr ? std::optional<int>(*number) : std::nullopt);
  }
}
BENCHMARK(try_as_int_peer_std_get_if);

/// The mute accessor.
void try_as_int_peer_as_int(benchmark::State& state) {
  const variant value(42);
  for (auto _ : state) benchmark::DoNotOptimize(value.as_int());
}
BENCHMARK(try_as_int_peer_as_int);

void try_as_int_of_double(benchmark::State& state) {
  const variant value(42.0);
  for (auto _ : state) benchmark::DoNotOptimize(value.try_as<int>());
}
BENCHMARK(try_as_int_of_double);

void compare_same(benchmark::State& state) {
  const variant one("disk_free");
  const variant other("disk_free");
  for (auto _ : state) benchmark::DoNotOptimize(same(one, other));
}
BENCHMARK(compare_same);

void compare_same_peer_std_variant(benchmark::State& state) {
  const standard_variant one("disk_free");
  const standard_variant other("disk_free");
  for (auto _ : state) benchmark::DoNotOptimize(one == other);
}
BENCHMARK(compare_same_peer_std_variant);

const char* const numbers[] = {"0", "42", "-17", "123456", "2147483647", "-2000000000", "7", "65536"};

void text_to_int(benchmark::State& state) {
  const std::vector<variant> values(std::begin(numbers), std::end(numbers));
  for (auto _ : state) {
    for (const variant& value : values) benchmark::DoNotOptimize(value.as_int32());
  }
}
BENCHMARK(text_to_int);

void text_to_int_by_try_as(benchmark::State& state) {
  const std::vector<variant> values(std::begin(numbers), std::end(numbers));
  for (auto _ : state) {
    for (const variant& value : values) benchmark::DoNotOptimize(value.try_as<int>());
  }
}
BENCHMARK(text_to_int_by_try_as);

void text_to_int_peer_std_variant_from_chars(benchmark::State& state) {
  const std::vector<standard_variant> values(std::begin(numbers), std::end(numbers));
  for (auto _ : state) {
    for (const standard_variant& value : values) {
      const auto* text = std::get_if<std::string>(&value);
      int number = 0;
      if (text != nullptr) std::from_chars(text->data(), text->data() + text->size(), number);
      benchmark::DoNotOptimize(number);
    }
  }
}
BENCHMARK(text_to_int_peer_std_variant_from_chars);

void text_to_double(benchmark::State& state) {
  const variant value("3.14159265");
  for (auto _ : state) benchmark::DoNotOptimize(value.as_double());
}
BENCHMARK(text_to_double);

void text_to_double_peer_string_stream(benchmark::State& state) {
  const std::string text("3.14159265");
  for (auto _ : state) {
    std::istringstream stream(text);
    double number = 0;
    stream >> number;
    benchmark::DoNotOptimize(number);
  }
}
BENCHMARK(text_to_double_peer_string_stream);

void int_to_text(benchmark::State& state) {
  const variant value(-123456);
  for (auto _ : state) benchmark::DoNotOptimize(value.as_utf8());
}
BENCHMARK(int_to_text);

void int_to_text_peer_to_string(benchmark::State& state) {
  int value = -123456;
  for (auto _ : state) {
    benchmark::DoNotOptimize(value);
    benchmark::DoNotOptimize(std::to_string(value));
  }
}
BENCHMARK(int_to_text_peer_to_string);

void double_to_text(benchmark::State& state) {
  const variant value(1234.5);
  for (auto _ : state) benchmark::DoNotOptimize(value.as_utf8());
}
BENCHMARK(double_to_text);

void double_to_text_peer_string_stream(benchmark::State& state) {
  double value = 1234.5;
  for (auto _ : state) {
    benchmark::DoNotOptimize(value);
    std::ostringstream stream;
    stream << value;
    benchmark::DoNotOptimize(stream.str());
  }
}
BENCHMARK(double_to_text_peer_string_stream);

void text_to_bool(benchmark::State& state) {
  const variant value("off");
  for (auto _ : state) benchmark::DoNotOptimize(value.as_bool());
}
BENCHMARK(text_to_bool);

void text_to_text(benchmark::State& state) {
  const variant value("disk_free");
  for (auto _ : state) benchmark::DoNotOptimize(value.as_utf8());
}
BENCHMARK(text_to_text);

void text_to_text_peer_string_copy(benchmark::State& state) {
  const standard_variant value("disk_free");
  for (auto _ : state) benchmark::DoNotOptimize(std::string(std::get<std::string>(value)));
}
BENCHMARK(text_to_text_peer_string_copy);

}  // namespace
