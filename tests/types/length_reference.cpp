#include "tests/types/length_reference.hpp"

#include <cmath>

namespace orva_test {

namespace {

/// Ends an expression: also a compiler that would fuse by default cannot fuse across it.
double evaluated(double value) {
  volatile double result = value;
  return result;
}

}  // namespace

double reference_scaled(double value, double factor, double divisor) {
  return evaluated(value * factor) / divisor;
}

double reference_rounded_to_hundredths(double value) {
  return std::floor(evaluated(value * 100) + 0.5) / 100;
}

double reference_rounded(double value) { return std::floor(value + 0.5); }

double reference_md_of_pixels(double pixels, double dpi) { return evaluated(pixels / dpi) * 100000; }

}  // namespace orva_test
