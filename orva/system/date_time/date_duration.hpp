/// `date_duration`: a signed number of days by which a `date` moves.
///
///     date d(28, 2, 2000);
///     d += 30;                      // an `int` converts
///
/// A plain value. Sums wrap at 32 bits. Can be used in constant expressions.
#pragma once

#include "orva/internal/wrapping.hpp"
#include "orva/version.hpp"

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

}  // namespace ORVA_NAMESPACE::system::date_time
