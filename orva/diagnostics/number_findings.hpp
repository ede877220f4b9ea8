/// `describe`: why a text is not the number that was expected, as a finding.
///
///     const std::string_view count = "300";
///     const auto result = convert::read_number<signed char>(count);
///     std::cerr << describe(result, count, "orders.txt");
///         =>  orders.txt:1:1: error: The number 300 is too large; the limit is 127. [number.too_large]
///
///     describe(convert::read_number<int>("12abc"), "12abc").code    =>  "number.rest", at 1:3
///
/// The codes are "number." and the name of the error, and "number.rest" where text follows the number.
/// docs/diagnostic_codes.md explains each. The place is where the number begins, or the text after it; a
/// bad radix has none. Where the text was part of a larger one, move the place:
///
///     finding found = describe(result, field);
///     found.at = place_in_whole(lines.place_of(offset_of_field), found.at);
///
/// Without an error and without text after the number, the result is a note without a code. `file` is the
/// name that the user knows, and only passed on.
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/generic/convert/read_number.hpp"
#include "orva/strings/text_view.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace _private {

ORVA_API finding describe_number(generic::convert::number_error error, std::size_t length,
                                 const types::variant& limit, const strings::text_view& text,
                                 std::string_view file);

/// The number that an error says was passed: the value, as far as it is none of an infinity and a zero, which
/// floating values out of range have.
template <generic::convert::any_number Number>
Number limit_of(const generic::convert::read_number_result<Number>& result) {
  if constexpr (generic::convert::any_floating<Number>) {
    using limits = std::numeric_limits<Number>;
    const bool is_large = result.error == generic::convert::number_error::too_large;
    return std::copysign(is_large ? limits::max() : limits::denorm_min(), result.value);
  } else {
    return result.value;
  }
}

}  // namespace _private

/// `text` is what was read. Arguments: `number`, its text; for a number out of range also `limit`, the
/// nearest that its type has.
template <generic::convert::any_number Number>
[[nodiscard]] finding describe(const generic::convert::read_number_result<Number>& result,
                               const strings::text_view& text, std::string_view file = {}) {
  return _private::describe_number(result.error, result.length, _private::limit_of(result), text, file);
}

}  // namespace ORVA_NAMESPACE::diagnostics
