#include "orva/internal/number_text/floating_text.hpp"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "orva/internal/number_text/integer_text.hpp"
#include "orva/internal/number_text/scaled_digits.hpp"

namespace ORVA_NAMESPACE::internal {

namespace {

// Most values have an exact `scaled_digits`. This takes a third of the time of `std::to_chars`, which writes
// all other values.

/// A number whose last `decimals` digits are after the point.
char* write_with_point(bool negative, std::uint64_t digits, std::size_t decimals, char* output) {
  const std::uint64_t unit = powers_of_ten[decimals];
  char* const point = write_shared_decimal(negative, digits / unit, output);
  if (decimals == 0) return point;
  // A one in front keeps the zeros after the point, and is replaced by it.
  char* const end = write_shared_decimal(false, unit + digits % unit, point);
  *point = '.';
  return end;
}

/// The decimal exponent of a value from 0.001 up to 1e15. The small powers of ten are the least doubles that
/// are not below them, so that the comparison is exact.
int decimal_exponent(double magnitude) {
  if (magnitude < 1) return magnitude >= 0.1 ? -1 : magnitude >= 0.01 ? -2 : -3;
  const auto whole = static_cast<std::uint64_t>(magnitude);
  std::size_t exponent = 0;
  while (powers_of_ten[exponent + 1] <= whole) ++exponent;
  return static_cast<int>(exponent);
}

/// Null: the value is not one of these, and the contents of `output` are undefined.
char* write_common_general(double value, int precision, char* output) {
  const double magnitude = std::abs(value);
  if (!(magnitude >= 0.001 && magnitude < 1e15) || precision <= 0 || precision > 17) return nullptr;
  const int scale = precision - 1 - decimal_exponent(magnitude);
  // With more digits in front of the point than the precision, the notation has an exponent.
  if (scale < 0) return nullptr;
  auto decimals = static_cast<std::size_t>(scale);
  std::uint64_t digits = scaled_digits(magnitude, decimals);
  // Rounding has added a digit.
  if (digits == powers_of_ten[static_cast<std::size_t>(precision)]) return nullptr;
  for (; decimals > 0 && digits % 10 == 0; --decimals) digits /= 10;
  return write_with_point(value < 0, digits, decimals, output);
}

/// Null: the value is not one of these.
char* write_common_fixed(double value, int precision, char* output) {
  constexpr int most_decimals = 3;
  const double magnitude = std::abs(value);
  if (precision > most_decimals || !(magnitude >= 0x1p-11 && magnitude < 0x1p52)) return nullptr;
  const auto decimals = static_cast<std::size_t>(precision);
  return write_with_point(value < 0, scaled_digits(magnitude, decimals), decimals, output);
}

}  // namespace

char* write_general(double value, int precision, char* output) {
  if (char* const end = write_common_general(value, precision, output)) return end;
  char* const bound = output + general_text_size(static_cast<std::size_t>(precision));
  return std::to_chars(output, bound, value, std::chars_format::general, precision).ptr;
}

char* write_fixed(double value, int precision, char* output) {
  if (char* const end = write_common_fixed(value, precision, output)) return end;
  return std::to_chars(output, output + fixed_text_size, value, std::chars_format::fixed, precision).ptr;
}

char* write_scientific(double value, int precision, char* output) {
  return std::to_chars(output, output + fixed_text_size, value, std::chars_format::scientific, precision).ptr;
}

}  // namespace ORVA_NAMESPACE::internal
