/// The work of `variant::try_as`: stores the value of a payload as a T, where nothing is lost, and returns
/// whether it did.
///
///     int number;
///     if (exact_value(payload, number)) use(number);
///
/// Internal: installed, because `try_as` is a template. These are overloads, since a template for a class
/// that the library does not export would not be exported either. They return no `optional`, as that costs
/// more than to read an integer.
#pragma once

#include <string>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/internal/variant_type.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::types::_private {

ORVA_API bool exact_value(const variant_type& payload, nil_t& value);
ORVA_API bool exact_value(const variant_type& payload, bool& value);
ORVA_API bool exact_value(const variant_type& payload, signed char& value);
ORVA_API bool exact_value(const variant_type& payload, unsigned char& value);
ORVA_API bool exact_value(const variant_type& payload, short& value);
ORVA_API bool exact_value(const variant_type& payload, unsigned short& value);
ORVA_API bool exact_value(const variant_type& payload, int& value);
ORVA_API bool exact_value(const variant_type& payload, unsigned int& value);
ORVA_API bool exact_value(const variant_type& payload, long& value);
ORVA_API bool exact_value(const variant_type& payload, unsigned long& value);
ORVA_API bool exact_value(const variant_type& payload, long long& value);
ORVA_API bool exact_value(const variant_type& payload, unsigned long long& value);
ORVA_API bool exact_value(const variant_type& payload, float& value);
ORVA_API bool exact_value(const variant_type& payload, double& value);
ORVA_API bool exact_value(const variant_type& payload, long double& value);
ORVA_API bool exact_value(const variant_type& payload, std::string& value);
ORVA_API bool exact_value(const variant_type& payload, strings::wide_string& value);
ORVA_API bool exact_value(const variant_type& payload, strings::ustring8& value);
ORVA_API bool exact_value(const variant_type& payload, strings::ustring16& value);
ORVA_API bool exact_value(const variant_type& payload, strings::ustring32& value);

}  // namespace ORVA_NAMESPACE::types::_private
