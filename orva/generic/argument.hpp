/// `argument`: a value with a name, or without one.
///
/// An argument with an empty name is positional. A plain value: copying one copies the name and shares the value's
/// payload. Arguments that nobody changes may be read by many threads.
///
///     argument("count", 3)      =>  name "count", value 3
///     argument("count=3")       =>  no name, value "count=3": text is never taken apart
///     argument("count", nil)    =>  a declared name without a value, which is not nil
///     argument(nil), argument() =>  nil
///
/// Two arguments cannot be compared with each other.
#pragma once

#include "orva/export.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_2_18::generic {

class ORVA_API argument {
 public:
  /// No name and no value: nil.
  argument() = default;
  argument(const types::nil_t& nothing);
  /// A positional argument.
  argument(const types::variant& value);
  argument(const strings::text_argument& name, const types::variant& value);

  bool has_name() const noexcept { return !name_.empty(); }

  const strings::ustring8& name() const noexcept { return name_; }
  /// Sets the name and returns the new one.
  const strings::ustring8& name(const strings::text_argument& new_name);

  const types::variant& value() const noexcept { return value_; }
  /// Sets the value and returns the new one.
  const types::variant& value(const types::variant& new_value);

  /// Replaces the value and keeps the name.
  argument& assign(const types::variant& new_value);
  argument& operator=(const types::variant& new_value) { return assign(new_value); }

  /// Replaces both.
  argument& assign(const strings::text_argument& new_name, const types::variant& new_value);
  argument& assign(const argument& other) { return *this = other; }

  /// Nil is an empty name with a nil value: a named argument is never nil.
  bool equal(const types::nil_t& nothing) const noexcept;
  bool operator==(const types::nil_t& nothing) const noexcept { return equal(nothing); }

 private:
  strings::ustring8 name_;
  types::variant value_;
};

}  // namespace ORVA_2_18::generic
