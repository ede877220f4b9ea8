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

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace orva_test {

inline std::uint64_t random_seed() {
  if (const char* const given = std::getenv("ORVA_TEST_SEED")) return std::strtoull(given, nullptr, 10);
  return std::random_device{}();
}

class random_engine : public std::mt19937_64 {
 public:
  explicit random_engine(std::uint64_t seed = random_seed())
      : std::mt19937_64(seed), trace_(__FILE__, __LINE__, "ORVA_TEST_SEED=" + std::to_string(seed)) {}

 private:
  testing::ScopedTrace trace_;
};

}  // namespace orva_test
