/// Random texts that alternate between ASCII and any units, so that a fast loop and the plain one take turns.
#pragma once

#include <random>

namespace reference {

/// Runs of ASCII and of units below `values`, whose lengths are around those of the fast loops' blocks.
template <typename Text, typename Random>
Text runs(Random& random, unsigned values) {
  std::uniform_int_distribution<unsigned> count(0, 8);
  std::uniform_int_distribution<unsigned> length(0, 70);
  std::uniform_int_distribution<unsigned> ascii(1, 0x7F);
  std::uniform_int_distribution<unsigned> any(1, values - 1);
  Text text;
  for (unsigned run = count(random); run > 0; --run) {
    const bool plain = run % 2 == 0;
    for (unsigned left = length(random); left > 0; --left) {
      text.push_back(static_cast<typename Text::value_type>(plain ? ascii(random) : any(random)));
    }
  }
  return text;
}

}  // namespace reference
