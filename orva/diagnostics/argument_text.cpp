#include "orva/diagnostics/internal/argument_text.hpp"

#include <charconv>
#include <cmath>
#include <typeinfo>

#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

namespace {

using types::variant;

template <typename Number>
strings::ustring8 shortest_text(Number value) {
  char digits[64];  // the longest `long double` takes 29
  return {digits, std::to_chars(digits, std::end(digits), value).ptr};
}

template <typename Number>
argument_text text_of_floating(Number value) {
  return {std::isfinite(value) ? argument_kind::number : argument_kind::text, shortest_text(value)};
}

template <typename... Types>
bool is_one_of(const std::type_info& type) {
  return ((type == typeid(Types)) || ...);
}

}  // namespace

argument_text text_of(const variant& value) {
  const std::type_info& type = value.type();
  if (value == types::nil) return {argument_kind::nothing, {}};
  if (type == typeid(bool)) return {argument_kind::truth, value.as_bool() ? "true" : "false"};
  if (is_one_of<signed char, short, int, long, long long>(type)) {
    return {argument_kind::number, shortest_text(value.as_int64())};
  }
  if (is_one_of<unsigned char, unsigned short, unsigned int, unsigned long, unsigned long long>(type)) {
    return {argument_kind::number, shortest_text(value.as_uint64())};
  }
  if (type == typeid(float)) return text_of_floating(value.as_float());
  if (type == typeid(double)) return text_of_floating(value.as_double());
  if (type == typeid(long double)) return text_of_floating(value.as_long_double());
  return {argument_kind::text, value.as_utf8()};
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
