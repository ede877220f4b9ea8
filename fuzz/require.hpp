/// The checks of the fuzz targets.
#pragma once

#include <cstdlib>

namespace orva_fuzz {

/// Ends the process where the condition does not hold, which the fuzzer reports with the input.
inline void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace orva_fuzz
