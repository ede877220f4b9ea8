/// Values of declared settings: read from text by their type, and written as text.
///
///     read_value(integer_between(1, 64), "8")     =>  value 8, error none
///     read_value(integer_between(1, 64), "80")    =>  nil, error out_of_range
///
/// A value is held as a variant of the type of its kind, the same whichever source it comes from:
///
///     flag  bool      integer  long long     number  double     text, choice, path  ustring8
///     size  unsigned, of 64 bits             duration  long long: nanoseconds
///
/// Internal: not installed. For a list these read and write one element.
#pragma once

#include <string_view>

#include "orva/config/setting_type.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config::_private {

enum class value_error {
  none,
  /// The text is none of the kind.
  wrong_kind,
  /// An integer or a number, but outside of the range.
  out_of_range,
};

struct value_result {
  types::variant value;
  value_error error = value_error::none;
};

value_result read_value(const setting_type& type, std::string_view text);

/// The same for a value that need not be text. A number for a duration is seconds.
value_result check_value(const setting_type& type, const types::variant& value);

/// A text from which `read_value` reads the same value.
strings::ustring8 write_value(const setting_type& type, const types::variant& value);

}  // namespace ORVA_NAMESPACE::config::_private
