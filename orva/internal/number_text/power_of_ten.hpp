/// Powers of ten with 128 bits, to convert decimal numbers into floating values.
///
///     power_of_ten(-1)    =>  0xCCCC...CCCC * 2^-131, with an error of less than 1 in the last bit
///
/// Internal: not installed.
#pragma once

#include "orva/internal/number_text/scaled_number.hpp"

namespace ORVA_NAMESPACE::internal {

/// Exact from 0 to 55.
///
/// REQUIRES: `exponent` is from -5000 to 5000.
scaled_number power_of_ten(int exponent);

}  // namespace ORVA_NAMESPACE::internal
