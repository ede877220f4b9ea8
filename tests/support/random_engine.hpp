/// The random numbers of one test.
///
/// Each run has another seed. A failure shows it, and ORVA_TEST_SEED in the environment repeats the run:
///
///     orva_test::random_engine random;
///     const auto length = random() % 8;
///
///     ORVA_TEST_SEED=1234 ctest -R name_of_the_test
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <type_traits>

namespace orva_test {

inline std::uint64_t random_seed() {
  if (const char* const given = std::getenv("ORVA_TEST_SEED")) return std::strtoull(given, nullptr, 10);
  return std::random_device{}();
}

/// Of the width of a size, so that a number serves as a length or a position on every machine.
using engine_of_size_width = std::conditional_t<sizeof(std::size_t) == 8, std::mt19937_64, std::mt19937>;

class random_engine : public engine_of_size_width {
 public:
  explicit random_engine(std::uint64_t seed = random_seed())
      : engine_of_size_width(static_cast<result_type>(seed)),
        trace_(__FILE__, __LINE__, "ORVA_TEST_SEED=" + std::to_string(seed)) {}

  std::uint64_t bits64() { return static_cast<std::uint64_t>((*this)()) << 32 ^ (*this)(); }

 private:
  testing::ScopedTrace trace_;
};

}  // namespace orva_test
