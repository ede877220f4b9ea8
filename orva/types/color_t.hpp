/// `color_t`: a colour of four bytes.
///
///     color_t(1, 2, 3).as_int32()              =>  0xFF030201      alpha is 255
///     color_t(1, 2, 3).as_rgb()                =>  0x030201
///     color_t().alpha()                        =>  0
///     color_t::rgb(0x33, 0x22, 0x11).alpha()   =>  255
///     color_t::rgb(0x112233).alpha()           =>  0               a packed number contains all four bytes
///
/// In memory the bytes are red, green, blue, alpha; as a number, red is the lowest byte, on every platform.
/// A plain value of 32 bits, usable in constant expressions. Threads may read one concurrently.
///
/// Edge cases: docs/edges.md#lengths
#pragma once

#include "orva/internal/number_argument.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

class alignas(int32) color_t {
 public:
  /// Transparent black: all bytes are 0.
  constexpr color_t() = default;
  constexpr color_t(const color_t& other) = default;
  /// The packed bytes, as `as_int32` returns them. An integer or unscoped enumeration is cut to 32 bits, and
  /// a floating value loses its fraction.
  template <internal::number_like Number>
  constexpr color_t(Number packed) : color_t(packed_bits{static_cast<uint32>(internal::to_int32(packed))}) {}
  constexpr color_t(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha = 255)
      : red_(red), green_(green), blue_(blue), alpha_(alpha) {}

  // A packed number is converted as by the constructor.

  static constexpr color_t rgba(internal::number_like auto packed) { return packed; }
  static constexpr color_t rgba(unsigned char red, unsigned char green, unsigned char blue,
                                unsigned char alpha) {
    return {red, green, blue, alpha};
  }
  /// Keeps the alpha of the packed number, as `rgba` does; only `rgb` of three bytes sets it to 255.
  static constexpr color_t rgb(internal::number_like auto packed) { return packed; }
  static constexpr color_t rgb(unsigned char red, unsigned char green, unsigned char blue) {
    return {red, green, blue};
  }

  constexpr color_t& assign(const color_t& other) { return *this = other; }
  constexpr color_t& operator=(const color_t& other) = default;

  /// Colours are equal when all four bytes are.
  constexpr bool equal(const color_t& other) const { return as_int32() == other.as_int32(); }
  constexpr bool operator==(const color_t& other) const { return equal(other); }

  // Each setter returns the new value.

  constexpr unsigned char red() const { return red_; }
  constexpr unsigned char red(unsigned char value) { return red_ = value; }
  constexpr unsigned char green() const { return green_; }
  constexpr unsigned char green(unsigned char value) { return green_ = value; }
  constexpr unsigned char blue() const { return blue_; }
  constexpr unsigned char blue(unsigned char value) { return blue_ = value; }
  constexpr unsigned char alpha() const { return alpha_; }
  constexpr unsigned char alpha(unsigned char value) { return alpha_ = value; }

  /// red + green * 2^8 + blue * 2^16 + alpha * 2^24; negative from an alpha of 128 on.
  constexpr int32 as_int32() const {
    const uint32 bits = uint32{red_} | uint32{green_} << 8 | uint32{blue_} << 16 | uint32{alpha_} << 24;
    return static_cast<int32>(bits);
  }
  /// The same without alpha.
  constexpr int32 as_rgb() const { return as_int32() & 0xFFFFFF; }

 private:
  struct packed_bits {
    uint32 value;
  };
  constexpr explicit color_t(packed_bits packed)
      : red_(static_cast<unsigned char>(packed.value)),
        green_(static_cast<unsigned char>(packed.value >> 8)),
        blue_(static_cast<unsigned char>(packed.value >> 16)),
        alpha_(static_cast<unsigned char>(packed.value >> 24)) {}

  unsigned char red_ = 0;
  unsigned char green_ = 0;
  unsigned char blue_ = 0;
  unsigned char alpha_ = 0;
};

static_assert(sizeof(color_t) == 4, "colours are stored and handed to devices as four bytes");

}  // namespace ORVA_NAMESPACE::types
