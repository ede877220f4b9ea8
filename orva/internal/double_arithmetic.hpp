/// Sums, products and quotients of `double`, each rounded to a `double` by itself.
///
///     add(multiply(length, 100), 0.5)      not one fused operation, and not in 80 bits
///
/// For headers whose results must not depend on how their user compiles them. An expression in a header is
/// fused to one operation with one rounding by `-march=x86-64-v3` with `-ffp-contract=fast` (the default of
/// GCC for ARM64 and others too), and computed in 80 bits by `-mfpmath=387`. These functions are computed by
/// the library, or by the compiler in a constant expression.
///
/// Installed because public headers need it; not part of the interface.
#pragma once

#include <type_traits>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::internal {

ORVA_API double library_sum(double left, double right) noexcept;
ORVA_API double library_product(double left, double right) noexcept;
ORVA_API double library_quotient(double left, double right) noexcept;

constexpr double add(double left, double right) {
  return std::is_constant_evaluated() ? left + right : library_sum(left, right);
}

constexpr double multiply(double left, double right) {
  return std::is_constant_evaluated() ? left * right : library_product(left, right);
}

/// REQUIRES: `right` is not 0.
constexpr double divide(double left, double right) {
  return std::is_constant_evaluated() ? left / right : library_quotient(left, right);
}

}  // namespace ORVA_NAMESPACE::internal
