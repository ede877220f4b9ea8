/// `argument`: a value with or without a name.
///
///     argument("count", 3)      =>  name "count", value 3
///     argument("count=3")       =>  no name, value "count=3": text is not parsed
///     argument("count", nil)    =>  a name without a value; not nil
///     argument(nil), argument() =>  nil
///
/// An argument with an empty name is positional. An argument is a plain value: a copy copies the name and
/// shares the value's payload. Any number of threads may read one while none changes it. Arguments cannot be
/// compared with each other, only with nil.
///
/// Edge cases: docs/edges.md#values
#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>
#include <utility>

#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::generic {

namespace _private {

template <typename T>
concept not_a_name = std::same_as<T, std::nullptr_t> || std::integral<T>;

}  // namespace _private

class argument {
 public:
  /// No name and no value: nil.
  argument() = default;
  argument(const types::nil_t&) {}
  /// A positional argument.
  argument(types::variant value) : value_(std::move(value)) {}
  argument(std::string_view name, types::variant value) : name_(name), value_(std::move(value)) {}
  // A name is text. `nullptr`, and a 0 that would be taken for a null pointer, do not compile.
  template <_private::not_a_name T>
  argument(T name, types::variant value) = delete;

  bool has_name() const noexcept { return !name_.empty(); }

  const strings::ustring8& name() const noexcept { return name_; }
  /// Sets the name and returns the new one.
  const strings::ustring8& name(strings::ustring8 new_name) { return name_ = std::move(new_name); }
  template <strings::other_text Text>
  const strings::ustring8& name(const Text& new_name) {
    return name(strings::ustring8(strings::text_argument(new_name).view()));
  }
  template <_private::not_a_name T>
  const strings::ustring8& name(T new_name) = delete;

  const types::variant& value() const noexcept { return value_; }
  /// Sets the value and returns the new one.
  const types::variant& value(types::variant new_value) { return value_ = std::move(new_value); }

  /// Replaces the value. The name stays.
  argument& assign(types::variant new_value) {
    value_ = std::move(new_value);
    return *this;
  }
  argument& operator=(types::variant new_value) { return assign(std::move(new_value)); }

  /// Replaces both.
  argument& assign(strings::ustring8 new_name, types::variant new_value) {
    name_ = std::move(new_name);
    return assign(std::move(new_value));
  }
  template <strings::other_text Text>
  argument& assign(const Text& new_name, types::variant new_value) {
    return assign(strings::ustring8(strings::text_argument(new_name).view()), std::move(new_value));
  }
  template <_private::not_a_name T>
  argument& assign(T new_name, types::variant new_value) = delete;
  argument& assign(const argument& other) { return *this = other; }

  /// An argument is nil if its name is empty and its value is nil. A named argument is never nil.
  bool equal(const types::nil_t& nothing) const noexcept { return !has_name() && value_ == nothing; }
  bool operator==(const types::nil_t& nothing) const noexcept { return equal(nothing); }

 private:
  strings::ustring8 name_;
  types::variant value_;
};

}  // namespace ORVA_NAMESPACE::generic
