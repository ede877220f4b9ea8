/// The speed of `delegate_t` made from callables, compared with `std::function`.
///
/// A delegate is one pointer, so each of its functions is on the heap. `std::function` has room in itself for
/// two pointers, and allocates for more.
#include "orva/functor/delegate.hpp"

#include <benchmark/benchmark.h>

#include <array>
#include <functional>
#include <utility>

namespace {

using delegate = ORVA_NAMESPACE::functor::delegate_t<int(int)>;
using peer = std::function<int(int)>;

int twice(int number) { return 2 * number; }

/// A lambda that captures `Count` numbers.
template <std::size_t Count>
auto capturing() {
  return [numbers = std::array<int, Count>{}](int number) { return numbers[0] + number; };
}

constexpr std::size_t small_count = 2, large_count = 64;

template <typename Function>
void call_lambda(benchmark::State& state) {
  const Function function = capturing<small_count>();
  int number = 0;
  for (auto _ : state) {
    number = function(number);
    benchmark::DoNotOptimize(number);
  }
}
BENCHMARK(call_lambda<delegate>);
BENCHMARK(call_lambda<peer>);

template <typename Function>
void call_function(benchmark::State& state) {
  const Function function = twice;
  int number = 1;
  for (auto _ : state) {
    number = function(number);
    benchmark::DoNotOptimize(number);
  }
}
BENCHMARK(call_function<delegate>);
BENCHMARK(call_function<peer>);

template <typename Function, std::size_t Count>
void make(benchmark::State& state) {
  for (auto _ : state) {
    Function function = capturing<Count>();
    benchmark::DoNotOptimize(function);
  }
}
BENCHMARK(make<delegate, small_count>);
BENCHMARK(make<peer, small_count>);
BENCHMARK(make<delegate, large_count>);
BENCHMARK(make<peer, large_count>);

template <typename Function, std::size_t Count>
void copy(benchmark::State& state) {
  const Function original = capturing<Count>();
  for (auto _ : state) {
    Function function = original;
    benchmark::DoNotOptimize(function);
  }
}
BENCHMARK(copy<delegate, small_count>);
BENCHMARK(copy<peer, small_count>);
BENCHMARK(copy<delegate, large_count>);
BENCHMARK(copy<peer, large_count>);

template <typename Function>
void move(benchmark::State& state) {
  Function first = capturing<small_count>(), second;
  for (auto _ : state) {
    second = std::move(first);
    first = std::move(second);
    benchmark::DoNotOptimize(first);
  }
}
BENCHMARK(move<delegate>);
BENCHMARK(move<peer>);

}  // namespace
