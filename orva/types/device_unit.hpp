/// `device_unit`: a whole number of pixels of some device.
///
///     device_unit width = 640;
///     device_unit(1.9).as_int32()                =>  1              toward zero
///     device_unit(-1.9).as_int32()               =>  -1
///     device_unit(0x100000005LL).as_int32()      =>  5              integers are cut to 32 bits
///     device_unit(1e10).as_int32()               =>  -2147483648    as for every floating value out of range
///
/// A plain value of 32 bits. It is made from any number or unscoped enumeration without a cast, and can be
/// used in constant expressions. Threads may read one concurrently. `generic/convert/units.hpp` converts
/// between pixels and physical lengths.
///
/// Edge cases: docs/edges.md#lengths
#pragma once

#include "orva/export.hpp"
#include "orva/internal/number_argument.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

ORVA_BEGIN_INLINE_VTABLE

class device_unit {
 public:
  enum unit_types : int { pixel = 1 };

  constexpr device_unit() = default;
  constexpr device_unit(const device_unit& other) = default;
  template <internal::number_like Number>
  constexpr device_unit(const Number& pixels) : value_(internal::to_int32(pixels)) {}

  // A number is converted as by the constructor: `width = 640`.

  constexpr device_unit& assign(const device_unit& other) { return *this = other; }
  constexpr device_unit& operator=(const device_unit& other) = default;

  constexpr bool equal(const device_unit& other) const { return value_ == other.value_; }
  constexpr bool operator==(const device_unit& other) const { return equal(other); }

  constexpr unit_types type() const { return do_type(); }
  constexpr int32 as_int32() const { return do_as_int32(); }
  /// Rounded to the nearest `float` from 16777217 pixels on.
  constexpr float as_float() const { return do_as_float(); }
  constexpr double as_double() const { return do_as_double(); }

 protected:
  virtual constexpr unit_types do_type() const { return pixel; }
  virtual constexpr int32 do_as_int32() const { return value_; }
  virtual constexpr float do_as_float() const { return static_cast<float>(value_); }
  virtual constexpr double do_as_double() const { return value_; }

 public:
  constexpr virtual ~device_unit() {}  // GCC 12 does not evaluate a defaulted one

 private:
  int32 value_ = 0;
};

ORVA_END_INLINE_VTABLE

}  // namespace ORVA_NAMESPACE::types
