/// `has_bits`: whether a floating value that a function returned has the expected bits.
///
/// On 32-bit x86 a function returns it in a register that makes every NaN a quiet one. The function cannot
/// prevent that, so the bits that any call would return for the value are accepted too.
#pragma once

#include <bit>
#include <cstdint>
#include <type_traits>

namespace orva_test {

template <typename Floating>
using bits_of_floating = std::conditional_t<sizeof(Floating) == 4, std::uint32_t, std::uint64_t>;

template <typename Floating>
bool has_bits(const Floating& value, bits_of_floating<Floating> bits) {
  using bits_type = bits_of_floating<Floating>;
  // Volatile, so that the compiler makes the call.
  Floating (*volatile returned)(bits_type) = [](bits_type pattern) {
    return std::bit_cast<Floating>(pattern);
  };
  const auto found = std::bit_cast<bits_type>(value);
  return found == bits || found == std::bit_cast<bits_type>(returned(bits));
}

}  // namespace orva_test
