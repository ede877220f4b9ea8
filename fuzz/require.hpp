/// The checks of the fuzz targets.
#pragma once

#include <cstdlib>
#include <iostream>

namespace orva_fuzz {

/// Ends the process where the condition does not hold, which the fuzzer reports with the input.
inline void require(bool condition) {
  if (!condition) std::abort();
}

/// The same, and says before what does not hold.
inline void require(bool condition, const char* what) {
  if (condition) return;
  std::cerr << what << std::endl;
  std::abort();
}

}  // namespace orva_fuzz
