#include "orva/generic/convert/x_to_str.hpp"

#include <algorithm>

#include "orva/debug/assert.hpp"

namespace ORVA_2_18::generic::convert {

template <strings::code_unit Unit>
void ulltoa(unsigned long long value, Unit* buffer, unsigned int radix) {
  ORVA_ASSERT(radix >= 2);
  Unit* end = buffer;
  if (radix >= 2) {
    do {
      const auto digit = static_cast<unsigned int>(value % radix);
      *end++ = static_cast<Unit>(digit < 10 ? '0' + digit : 'a' + (digit - 10));
      value /= radix;
    } while (value != 0);
  }
  *end = 0;
  std::reverse(buffer, end);
}

template <strings::code_unit Unit>
void lltoa(long long value, Unit* buffer, unsigned int radix) {
  auto magnitude = static_cast<unsigned long long>(value);
  if (value < 0 && radix >= 2) {
    *buffer++ = '-';
    magnitude = 0 - magnitude;
  }
  ulltoa(magnitude, buffer, radix);
}

template void ulltoa(unsigned long long, char*, unsigned int);
template void ulltoa(unsigned long long, strings::code_unit16*, unsigned int);
template void ulltoa(unsigned long long, strings::code_unit32*, unsigned int);
template void lltoa(long long, char*, unsigned int);
template void lltoa(long long, strings::code_unit16*, unsigned int);
template void lltoa(long long, strings::code_unit32*, unsigned int);

}  // namespace ORVA_2_18::generic::convert
