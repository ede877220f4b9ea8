/// `absolute_unit`: a physical length, independent of the unit that it is shown in.
///
///     int32 rounded(const absolute_unit& length) { return length.as_int32(); }      in the length's own unit
///     rounded(convert::to_md(2.54, absolute_unit::centimetre))                  =>  100000
///
/// The length is stored as a `double` in md, a hundred-thousandth of an inch. `absolute_unit` is the common
/// base of lengths in all units; `basic_absolute_impl<N>` is a length in unit N. `generic/convert/units.hpp`
/// converts numbers to lengths, and lengths to pixels.
///
/// Lengths are plain values, usable in constant expressions. Threads may read one concurrently. Results do
/// not depend on the compiler flags of the program that uses them, such as those for fused arithmetic.
///
/// Edge cases: docs/edges.md#lengths
#pragma once

#include "orva/export.hpp"
#include "orva/internal/double_arithmetic.hpp"
#include "orva/internal/floating_truncation.hpp"
#include "orva/internal/number_argument.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

ORVA_BEGIN_INLINE_VTABLE

class absolute_unit {
 public:
  enum unit_types : int {
    md = 1,
    dot_300 = 2,
    millimetre = 3,
    centimetre = 4,
    inch = 5,
    point = 6,
    pica = 7,
    pixel_96 = 8,
  };

  static constexpr long long m_md_per_inch = 100000;

  constexpr absolute_unit() = default;
  constexpr absolute_unit(const absolute_unit& other) = default;
  /// Whole md, cut to 32 bits. An unscoped enumeration is an integer too.
  template <internal::integer_like Integer>
  constexpr absolute_unit(Integer length) : value_(static_cast<int32>(length)) {}
  /// Whole md, toward zero: 1.9 is 1 md. Only `value` keeps fractions.
  constexpr absolute_unit(double length) : value_(internal::whole_part(length)) {}

  /// Copies the length; each side keeps its unit.
  constexpr absolute_unit& operator=(const absolute_unit& other) = default;

  constexpr unit_types type() const { return do_type(); }

  // The integer results are the most negative number where the length does not fit into 32 bits.

  /// In the unit of this length, rounded to a whole number.
  constexpr int32 as_int32() const { return do_as_int32(); }
  /// In the unit of this length, rounded to two decimals.
  constexpr double as_double() const { return do_as_double(); }
  /// Whole md, toward zero.
  constexpr int32 as_md() const { return internal::truncate_signed<int32>(value_); }

 protected:
  // Not virtual: a length is a value, and is not deleted through a pointer to its base.
  ~absolute_unit() = default;

  /// The length in the unit of `type()`; 0.0 for a unit that is none of the eight.
  constexpr double value() const {
    const unit_types unit = do_type();
    if (unit == md) return value_;
    if (!is_known(unit)) return 0.0;
    return internal::divide(internal::multiply(value_, per_inch(unit)), m_md_per_inch);
  }
  /// The inverse, which keeps fractions of an md.
  constexpr void value(double length) {
    const unit_types unit = do_type();
    value_ = unit == md       ? length
             : is_known(unit) ? internal::divide(internal::multiply(length, m_md_per_inch), per_inch(unit))
                              : 0.0;
  }

  virtual constexpr unit_types do_type() const = 0;
  virtual constexpr int32 do_as_int32() const = 0;
  virtual constexpr double do_as_double() const = 0;

 private:
  static constexpr bool is_known(unit_types unit) { return unit >= md && unit <= pixel_96; }

  static constexpr double per_inch(unit_types unit) {
    constexpr double units[] = {m_md_per_inch, 300, 25.4, 2.54, 1, 72, 6, 96};
    return units[unit - md];
  }

  double value_ = 0;
};

ORVA_END_INLINE_VTABLE

}  // namespace ORVA_NAMESPACE::types
