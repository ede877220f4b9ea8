/// `absolute_unit`: a physical length, whatever unit it is told in.
///
/// The length is kept as a `double` in md, a hundred-thousandth of an inch. `absolute_unit` is what lengths
/// of all units have in common, and `basic_absolute_impl<N>` is a length that speaks unit N. Plain values,
/// usable in constant expressions; any thread may read one that nobody changes. `generic/convert/units.hpp`
/// makes lengths of numbers, and pixels of lengths.
///
/// All of it is compiled into the caller, by the caller's rules: on 32-bit x86 a number now and then comes
/// out one md off where the compiler computes in the x87's 80 bits. `-msse2 -mfpmath=sse` gives the results
/// of all other machines.
#pragma once

#include <concepts>

#include "orva/internal/floating_truncation.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

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
  /// Whole md, cut to 32 bits.
  template <std::integral Integer>
  constexpr absolute_unit(Integer length) : value_(static_cast<int32>(length)) {}
  /// Whole md, toward zero: 1.9 holds 1. Only `value` keeps fractions.
  constexpr absolute_unit(double length) : value_(internal::whole_part(length)) {}

  /// Takes the length; each side keeps its unit.
  constexpr absolute_unit& operator=(const absolute_unit& other) = default;

  constexpr unit_types type() const { return do_type(); }

  // Below, what 32 bits cannot hold gives the most negative number.

  /// In the unit of this length, rounded to a whole number.
  constexpr int32 as_int32() const { return do_as_int32(); }
  /// In the unit of this length, rounded to two decimals.
  constexpr double as_double() const { return do_as_double(); }
  /// Whole md, toward zero.
  constexpr int32 as_md() const { return internal::truncate_signed<int32>(value_); }

 protected:
  // Not virtual: a length is a value, and nobody owns one by its base.
  ~absolute_unit() = default;

  /// The length in the unit that `type()` tells; 0.0 for a unit that is none of the eight.
  constexpr double value() const {
    const unit_types unit = do_type();
    if (unit == md) return value_;
    return is_known(unit) ? value_ * per_inch(unit) / m_md_per_inch : 0.0;
  }
  /// The inverse, which keeps fractions of an md.
  constexpr void value(double length) {
    const unit_types unit = do_type();
    value_ = length;
    if (unit != md) value_ = is_known(unit) ? length * m_md_per_inch / per_inch(unit) : 0.0;
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

}  // namespace ORVA_NAMESPACE::types
