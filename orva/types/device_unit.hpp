/// `device_unit`: a whole number of pixels of some device.
///
/// A plain value of 32 bits, made from any number without a cast and usable in constant expressions; any
/// thread may read one that nobody changes. `generic/convert/units.hpp` makes physical lengths of pixels, and
/// back.
///
///     device_unit(1.9).as_int32()                =>  1       toward zero
///     device_unit(-1.9).as_int32()               =>  -1
///     device_unit(0x100000005LL).as_int32()      =>  5       integers are cut to 32 bits
///     device_unit(1e10).as_int32()               =>  -2147483648, as for every floating value that does not fit
#pragma once

#include <concepts>

#include "orva/internal/floating_truncation.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

class device_unit {
 public:
  enum unit_types : int { pixel = 1 };

  constexpr device_unit() = default;
  constexpr device_unit(const device_unit& other) = default;
  template <std::integral Integer>
  constexpr device_unit(const Integer& pixels) : value_(static_cast<int32>(pixels)) {}
  template <std::floating_point Floating>
  constexpr device_unit(const Floating& pixels) : value_(internal::truncate_signed<int32>(pixels)) {}

  // Numbers are assigned as they are constructed from: `width = 640`.

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

 private:
  int32 value_ = 0;
};

}  // namespace ORVA_NAMESPACE::types
