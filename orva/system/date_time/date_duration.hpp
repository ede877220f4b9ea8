/// `date_duration`: a signed number of days by which a `date` moves.
///
///     date d(28, 2, 2000);
///     d += 30;                      // an `int` converts
///
/// A plain value. Sums wrap at 32 bits. Can be used in constant expressions.
#pragma once

#include <concepts>
#include <iosfwd>

#include "orva/export.hpp"
#include "orva/internal/wrapping.hpp"

namespace ORVA_NAMESPACE::system::date_time {

class date_duration {
 public:
  constexpr date_duration() = default;
  constexpr date_duration(int days) : days_(days) {}

  constexpr int days() const { return days_; }
  /// Returns its argument.
  constexpr int days(int value) { return days_ = value; }

  constexpr date_duration& assign(const date_duration& other) { return *this = other; }

  constexpr date_duration& plus_assign(const date_duration& other) {
    days_ = internal::wrapping_add(days_, other.days_);
    return *this;
  }
  constexpr date_duration& operator+=(const date_duration& other) { return plus_assign(other); }

  constexpr date_duration& minus_assign(const date_duration& other) {
    days_ = internal::wrapping_subtract(days_, other.days_);
    return *this;
  }
  constexpr date_duration& operator-=(const date_duration& other) { return minus_assign(other); }

 private:
  int days_ = 0;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const date_duration& value);

}  // namespace _private

/// Writes days as ISO 8601 does: "P30D", "-P1D". A template, so that a program's own `<<` for this type is
/// preferred.
template <std::same_as<date_duration> Value>
std::ostream& operator<<(std::ostream& stream, const Value& value) {
  return _private::write(stream, value);
}

}  // namespace ORVA_NAMESPACE::system::date_time
