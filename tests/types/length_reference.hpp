/// The arithmetic of lengths in plain words, compiled without flags that change floating arithmetic.
#pragma once

namespace orva_test {

/// `value * factor / divisor`.
double reference_scaled(double value, double factor, double divisor);

/// Rounded to two decimals, halves upward.
double reference_rounded_to_hundredths(double value);

/// Rounded to a whole number, halves upward.
double reference_rounded(double value);

/// `pixels / dpi * 100000`.
double reference_md_of_pixels(double pixels, double dpi);

}  // namespace orva_test
