/// `variant_value_t<T>`: the payload of a `variant` that holds a T.
///
/// Internal: not installed. One class template for the twenty stored types. The conversions, which differ
/// between them, are in `types/internal/value_conversion.hpp`.
#pragma once

#include <concepts>
#include <ostream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "orva/types/internal/value_conversion.hpp"
#include "orva/types/internal/variant_type.hpp"

namespace ORVA_NAMESPACE::types {

namespace _private {

template <typename T>
struct stored_as {
  using type = T;
};
/// A byte string and a wide string are stored as the library's class of the same code unit, so that they are
/// converted to other widths without a copy.
template <strings::code_unit Unit>
struct stored_as<std::basic_string<Unit>> {
  using type = strings::basic_ustring<Unit>;
};

/// Writes text as UTF-8, up to the first zero byte.
template <code_unit Unit>
std::ostream& write(std::ostream& stream, const basic_ustring<Unit>& text) {
  if constexpr (std::same_as<Unit, char>) {
    return stream << text.c_str();
  } else {
    return stream << to_text<char>(text).c_str();
  }
}

}  // namespace _private

template <typename T>
class variant_value_t final : public variant_type {
 public:
  using stored = typename _private::stored_as<T>::type;

  /// Constructs the value from any argument of a constructor of T.
  template <typename Source>
  explicit variant_value_t(Source&& source) : value_(std::forward<Source>(source)) {}

  const stored& value() const noexcept { return value_; }

  bool is_valid() const override { return true; }
  const std::type_info& type() const override { return typeid(T); }
  variant_value_t* clone() const override {
    return generic::abilities::create_dynamic<variant_value_t>(value_);
  }

  std::ostream& ostream(std::ostream& stream) const override {
    // Only a byte string is written as a whole. A wide string is not written as text: this form shows that
    // one was written to a narrow stream.
    if constexpr (std::same_as<T, std::string>) {
      return stream << value_;
    } else if constexpr (std::same_as<T, strings::wide_string>) {
      return stream << "< " << typeid(T).name() << " instance at " << static_cast<const void*>(&value_)
                    << " >";
    } else {
      return _private::write(stream, value_);
    }
  }

  int as_int() const override { return number<int>(); }
  short as_short() const override { return number<short>(); }
  int32 as_long() const override { return number<int32>(); }
  signed char as_int8() const override { return number<signed char>(); }
  short as_int16() const override { return number<short>(); }
  int32 as_int32() const override { return number<int32>(); }
  long long as_int64() const override { return number<long long>(); }
  unsigned char as_uint8() const override { return number<unsigned char>(); }
  unsigned short as_uint16() const override { return number<unsigned short>(); }
  uint32 as_uint32() const override { return number<uint32>(); }
  unsigned long long as_uint64() const override { return number<unsigned long long>(); }
  bool as_bool() const override { return _private::to_bool(value_); }

  std::string as_string() const override { return text<char>(); }
  strings::wide_string as_wstring() const override { return text<strings::code_unit16>(); }
  strings::wide_string as_ustring() const override { return text<strings::code_unit16>(); }
  strings::ustring8 as_utf8() const override { return text<char>(); }
  strings::ustring16 as_utf16() const override { return text<strings::code_unit16>(); }
  strings::ustring32 as_utf32() const override { return text<strings::code_unit32>(); }

  float as_float() const override { return number<float>(); }
  double as_double() const override { return number<double>(); }
  long double as_long_double() const override { return number<long double>(); }

 private:
  template <typename Number>
  Number number() const {
    return _private::to_number<Number>(value_);
  }

  template <typename Unit>
  strings::basic_ustring<Unit> text() const {
    return _private::to_text<Unit>(value_);
  }

  const stored value_;
};

namespace _private {

/// The payload as the class that holds a T; null if it holds another type. All payloads are made in this
/// library, so the address of the type_info is enough to compare.
template <typename T>
const variant_value_t<T>* payload_of(const variant_type& payload) noexcept {
  const bool found = &typeid(payload) == &typeid(variant_value_t<T>);
  return found ? static_cast<const variant_value_t<T>*>(&payload) : nullptr;
}

}  // namespace _private

}  // namespace ORVA_NAMESPACE::types
