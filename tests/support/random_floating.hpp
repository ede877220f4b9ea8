/// Random floating values.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "tests/support/random_engine.hpp"

namespace orva_test {

/// Of any exponent, subnormal values among them; never negative, and never infinity or NaN.
template <typename Floating>
Floating random_value(random_engine& random) {
  using limits = std::numeric_limits<Floating>;
  const auto mantissa = static_cast<Floating>(random.bits64() >> (64 - std::min(limits::digits, 64)));
  const int least = limits::min_exponent - limits::digits;
  const auto range = static_cast<std::uint64_t>(limits::max_exponent - limits::digits - least);
  return std::ldexp(mantissa, least + static_cast<int>(random() % range));
}

}  // namespace orva_test
