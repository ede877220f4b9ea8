#include "orva/internal/double_arithmetic.hpp"

namespace ORVA_NAMESPACE::internal {

double library_sum(double left, double right) noexcept { return left + right; }
double library_product(double left, double right) noexcept { return left * right; }
double library_quotient(double left, double right) noexcept { return left / right; }

}  // namespace ORVA_NAMESPACE::internal
