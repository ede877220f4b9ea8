#include "orva/generic/convert/x_to_str.hpp"

#include <cstdint>

#include "orva/debug/assert.hpp"
#include "orva/internal/number_text/integer_text.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace {

/// Every radix but 10. Apart from the decimal numbers, which would be slower otherwise.
template <typename Unit>
[[gnu::noinline]] void write_in_radix(bool negative, std::uint64_t magnitude, Unit* buffer,
                                      unsigned int radix) {
  ORVA_ASSERT(radix >= 2);
  if (radix >= 2) {
    if (negative) *buffer++ = '-';
    buffer = internal::write_digits(magnitude, radix, buffer);
  }
  *buffer = 0;
}

template <typename Unit>
void write(bool negative, std::uint64_t magnitude, Unit* buffer, unsigned int radix) {
  if (radix != 10) return write_in_radix(negative, magnitude, buffer, radix);
  *internal::write_signed_decimal(negative, magnitude, buffer) = 0;
}

template <typename Unit>
void write_any_signed(long long value, Unit* buffer, unsigned int radix) {
  const auto bits = static_cast<unsigned long long>(value);
  write(value < 0, value < 0 ? 0 - bits : bits, buffer, radix);
}

}  // namespace

namespace _private {

void write_signed(long long value, char* buffer, unsigned int radix) {
  write_any_signed(value, buffer, radix);
}
void write_signed(long long value, strings::code_unit16* buffer, unsigned int radix) {
  write_any_signed(value, buffer, radix);
}
void write_signed(long long value, strings::code_unit32* buffer, unsigned int radix) {
  write_any_signed(value, buffer, radix);
}

void write_unsigned(unsigned long long value, char* buffer, unsigned int radix) {
  write(false, value, buffer, radix);
}
void write_unsigned(unsigned long long value, strings::code_unit16* buffer, unsigned int radix) {
  write(false, value, buffer, radix);
}
void write_unsigned(unsigned long long value, strings::code_unit32* buffer, unsigned int radix) {
  write(false, value, buffer, radix);
}

}  // namespace _private

}  // namespace ORVA_NAMESPACE::generic::convert
