/// Conversions between numbers, physical lengths and device pixels.
///
///     to_md(2.54, absolute_unit::centimetre)                =>  100000 md
///     to_device_unit(1, absolute_unit::inch, 300)           =>  300 pixels
///     to_device_unit(25.4, absolute_unit::millimetre, 96)   =>  96 pixels
///     to_md(150.0, device_unit::pixel, 300)                 =>  50000 md
///     to_md(device_unit(150), 300)                          =>  0 md      whole inches only
///
/// Resolutions are in pixels per inch. All functions are pure, usable in constant expressions, and callable
/// from any thread.
///
/// Edge cases: docs/edges.md#lengths
#pragma once

#include <limits>

#include "orva/export.hpp"
#include "orva/internal/double_arithmetic.hpp"
#include "orva/internal/number_argument.hpp"
#include "orva/internal/wrapping.hpp"
#include "orva/types/absolute_unit.hpp"
#include "orva/types/basic_absolute_impl.hpp"
#include "orva/types/device_unit.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::generic::convert {

using length_in_md = types::basic_absolute_impl<types::absolute_unit::md>;

namespace _private {

ORVA_BEGIN_INLINE_VTABLE

/// A length from a number in a unit that is known at run time only.
class length_in_any_unit : public length_in_md {
 public:
  constexpr length_in_any_unit(double length, unit_types unit) : unit_(unit) { value(length); }
  // GCC 12 does not evaluate an implicit one.
  constexpr ~length_in_any_unit() override {}

 private:
  constexpr unit_types do_type() const override { return unit_ >= md && unit_ <= pixel_96 ? unit_ : md; }

  unit_types unit_;
};

ORVA_END_INLINE_VTABLE

/// Toward zero. Also defined for a resolution of 0, which gives 0, and for an overflow, which wraps.
constexpr types::int32 whole_inches(types::int32 pixels, types::int32 dpi) {
  if (dpi == 0) return 0;
  if (dpi == -1) return internal::wrapping_subtract<types::int32>(0, pixels);
  return pixels / dpi;
}

/// A quotient of floating values, also for a resolution of 0: infinity, or NaN where there are 0 pixels. A
/// constant expression cannot divide by 0.
constexpr double inches(double pixels, types::int32 dpi) {
  using limits = std::numeric_limits<double>;
  if (dpi != 0) return internal::divide(pixels, dpi);
  return pixels > 0 ? limits::infinity() : pixels < 0 ? -limits::infinity() : limits::quiet_NaN();
}

}  // namespace _private

/// The same length, shown in md. Fractions stay.
constexpr length_in_md to_md(const types::absolute_unit& length) { return length; }

/// A number in a unit. Fractions stay. A unit that is none of the eight is md.
constexpr length_in_md to_md(double length, types::absolute_unit::unit_types unit) {
  return _private::length_in_any_unit(length, unit);
}
template <internal::integer_like Integer>
constexpr length_in_md to_md(Integer length, types::absolute_unit::unit_types unit) {
  return to_md(static_cast<double>(length), unit);
}

// Pixels to a length. An integer number of pixels gives whole inches: the inches are truncated toward zero
// first, and the product wraps at 32 bits; a resolution of 0 gives 0. A floating number of pixels loses
// nothing; a resolution of 0 gives an infinite length, whose `as_md` is the most negative number.

constexpr length_in_md to_md(const types::device_unit& pixels, types::int32 dpi) {
  return internal::wrapping_multiply<types::int32>(_private::whole_inches(pixels.as_int32(), dpi),
                                                   types::absolute_unit::m_md_per_inch);
}
template <internal::integer_like Integer>
constexpr length_in_md to_md(Integer pixels, types::device_unit::unit_types, types::int32 dpi) {
  return to_md(types::device_unit(pixels), dpi);
}
constexpr length_in_md to_md(double pixels, types::device_unit::unit_types, types::int32 dpi) {
  return to_md(internal::multiply(_private::inches(pixels, dpi), types::absolute_unit::m_md_per_inch),
               types::absolute_unit::md);
}

/// A copy, or a number of pixels, truncated toward zero.
constexpr types::device_unit to_device_unit(const types::device_unit& pixels,
                                            types::device_unit::unit_types = types::device_unit::pixel) {
  return pixels;
}

/// A length to pixels: whole md times `dpi`, a product that wraps at 32 bits, divided by the md of an inch
/// toward zero. At 300 pixels per inch this is correct up to 71 inches.
constexpr types::device_unit to_device_unit(const types::absolute_unit& length, types::int32 dpi) {
  return internal::wrapping_multiply<types::int32>(length.as_md(), dpi) / types::absolute_unit::m_md_per_inch;
}
/// A number in a unit, as for `to_md`, to pixels.
constexpr types::device_unit to_device_unit(double length, types::absolute_unit::unit_types unit,
                                            types::int32 dpi) {
  return to_device_unit(to_md(length, unit), dpi);
}
template <internal::integer_like Integer>
constexpr types::device_unit to_device_unit(Integer length, types::absolute_unit::unit_types unit,
                                            types::int32 dpi) {
  return to_device_unit(to_md(length, unit), dpi);
}

/// `to_device_unit` by another name, for the same arguments.
template <typename... Arguments>
constexpr auto to_dpx(const Arguments&... arguments) -> decltype(to_device_unit(arguments...)) {
  return to_device_unit(arguments...);
}

}  // namespace ORVA_NAMESPACE::generic::convert
