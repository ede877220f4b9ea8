#include "orva/diagnostics/internal/argument_text.hpp"

#include <cmath>
#include <utility>

#include "orva/strings/standard_transforms.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

namespace {

using strings::ustring8;
using types::variant;

template <typename... Types>
bool holds_one_of(const variant& value) {
  return (value.holds<Types>() || ...);
}

argument_kind kind_of(const variant& value) {
  if (value == types::nil) return argument_kind::nothing;
  if (value.holds<bool>()) return argument_kind::truth;
  const bool is_number =
      holds_one_of<float, double, long double>(value)
          ? std::isfinite(value.as_long_double())
          : holds_one_of<signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                         unsigned long, long long, unsigned long long>(value);
  return is_number ? argument_kind::number : argument_kind::text;
}

/// The text of any value but nil. Wide text that is malformed has U+FFFD for each malformed part.
ustring8 shown_text(const variant& value) {
  if (value.holds<bool>()) return value.as_bool() ? "true" : "false";
  if (auto exact = value.try_as<ustring8>()) return *std::move(exact);
  if (const auto wide = value.try_as<strings::ustring16>()) return strings::to_utf8(*wide).text;
  return strings::to_utf8(value.try_as<strings::ustring32>().value()).text;
}

}  // namespace

argument_text text_of(const variant& value) {
  const argument_kind kind = kind_of(value);
  return {kind, kind == argument_kind::nothing ? ustring8() : shown_text(value)};
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
