/// `basic_absolute_impl<N>`: a physical length that is shown in the unit N of `absolute_unit::unit_types`.
///
///     basic_absolute_impl<absolute_unit::inch> width(254000);      md, so 2.54 inches
///     width.as_int32()                 =>  3
///     width.as_double()                =>  2.54
///     width.as_md()                    =>  254000
///     basic_absolute_impl<absolute_unit::centimetre>(width).as_double()    =>  6.45
///
/// A plain value, usable in constant expressions. Lengths of all units convert to each other; only the unit
/// of the results changes. A plain number is always md, in whatever unit the length is shown: use
/// `generic::convert::to_md` for a number in a unit.
///
/// Edge cases: docs/edges.md#lengths
#pragma once

#include "orva/types/absolute_unit.hpp"

namespace ORVA_NAMESPACE::types {

/// N is an `int`, so that a unit can be given by its number too.
template <int N>
class basic_absolute_impl : public absolute_unit {
 public:
  using absolute_unit::absolute_unit;
  constexpr basic_absolute_impl() = default;
  constexpr basic_absolute_impl(const basic_absolute_impl& other) = default;
  /// The same length in another unit.
  constexpr basic_absolute_impl(const absolute_unit& other) : absolute_unit(other) {}

  using absolute_unit::operator=;
  constexpr basic_absolute_impl& operator=(const basic_absolute_impl& other) = default;
  constexpr virtual ~basic_absolute_impl() {}  // GCC 12 does not evaluate a defaulted one

 protected:
  constexpr unit_types do_type() const override { return static_cast<unit_types>(N); }
  /// Halves upward: 2.5 is 3, -2.5 is -2.
  constexpr int32 do_as_int32() const override {
    return internal::truncate_signed<int32>(internal::floor(internal::add(value(), 0.5)));
  }
  /// Halves upward.
  constexpr double do_as_double() const override {
    return internal::divide(internal::floor(internal::add(internal::multiply(value(), 100), 0.5)), 100);
  }
};

}  // namespace ORVA_NAMESPACE::types
