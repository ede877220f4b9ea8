/// The work of `variant::try_as`: the value of a payload as a T, where nothing is lost.
///
///     exact_value(payload, result_of<int>())
///
/// Internal: installed, because `try_as` is a template. These are overloads, since a template for a class
/// that the library does not export would not be exported either.
#pragma once

#include <optional>
#include <string>
#include <type_traits>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/internal/variant_type.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::types::_private {

template <typename T>
using result_of = std::type_identity<T>;

ORVA_API std::optional<nil_t> exact_value(const variant_type& payload, result_of<nil_t>);
ORVA_API std::optional<bool> exact_value(const variant_type& payload, result_of<bool>);
ORVA_API std::optional<signed char> exact_value(const variant_type& payload, result_of<signed char>);
ORVA_API std::optional<unsigned char> exact_value(const variant_type& payload, result_of<unsigned char>);
ORVA_API std::optional<short> exact_value(const variant_type& payload, result_of<short>);
ORVA_API std::optional<unsigned short> exact_value(const variant_type& payload, result_of<unsigned short>);
ORVA_API std::optional<int> exact_value(const variant_type& payload, result_of<int>);
ORVA_API std::optional<unsigned int> exact_value(const variant_type& payload, result_of<unsigned int>);
ORVA_API std::optional<long> exact_value(const variant_type& payload, result_of<long>);
ORVA_API std::optional<unsigned long> exact_value(const variant_type& payload, result_of<unsigned long>);
ORVA_API std::optional<long long> exact_value(const variant_type& payload, result_of<long long>);
ORVA_API std::optional<unsigned long long> exact_value(const variant_type& payload,
                                                       result_of<unsigned long long>);
ORVA_API std::optional<float> exact_value(const variant_type& payload, result_of<float>);
ORVA_API std::optional<double> exact_value(const variant_type& payload, result_of<double>);
ORVA_API std::optional<long double> exact_value(const variant_type& payload, result_of<long double>);
ORVA_API std::optional<std::string> exact_value(const variant_type& payload, result_of<std::string>);
ORVA_API std::optional<strings::wide_string> exact_value(const variant_type& payload,
                                                         result_of<strings::wide_string>);
ORVA_API std::optional<strings::ustring8> exact_value(const variant_type& payload,
                                                      result_of<strings::ustring8>);
ORVA_API std::optional<strings::ustring16> exact_value(const variant_type& payload,
                                                       result_of<strings::ustring16>);
ORVA_API std::optional<strings::ustring32> exact_value(const variant_type& payload,
                                                       result_of<strings::ustring32>);

}  // namespace ORVA_NAMESPACE::types::_private
