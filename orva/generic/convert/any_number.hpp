/// `any_number`: the types that `read_number` and `write_number` convert.
///
///     template <any_number Number>
///     Number field(std::string_view text) { return read_number<Number>(text).value; }
///
/// Every integer type up to 64 bits and every floating type of the language. The one-byte integers, `char`
/// included, are numbers like the others. `bool` and the character types such as `wchar_t` are not numbers.
#pragma once

#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace _private {

template <typename Type, typename... Types>
concept one_of = (std::is_same_v<Type, Types> || ...);

}  // namespace _private

template <typename Number>
concept any_integer = _private::one_of<Number, char, signed char, unsigned char, short, unsigned short, int,
                                       unsigned int, long, unsigned long, long long, unsigned long long>;

template <typename Number>
concept any_floating = _private::one_of<Number, float, double, long double>;

template <typename Number>
concept any_number = any_integer<Number> || any_floating<Number>;

}  // namespace ORVA_NAMESPACE::generic::convert
