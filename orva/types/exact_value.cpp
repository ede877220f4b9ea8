#include "orva/types/internal/exact_value.hpp"

#include <cmath>
#include <concepts>
#include <optional>
#include <type_traits>
#include <utility>

#include "orva/types/internal/exact_conversion.hpp"
#include "orva/types/internal/variant_value.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::types {

namespace _private {

namespace {

/// Calls `call` with the payload as the class that it is, and returns the result. Every payload is of one of
/// these classes.
template <typename Result, typename Call, typename... Types>
Result with_class_of(const variant_type& payload, type_list<Types...>, const Call& call) {
  Result result{};
  const auto try_class = [&]<typename T>(std::type_identity<T>) {
    const auto* const found = payload_of<T>(payload);
    if (found != nullptr) result = call(*found);
    return found != nullptr;
  };
  static_cast<void>((try_class(std::type_identity<Types>()) || ...));
  return result;
}

template <typename T>
bool same_value(const T& one, const T& other) noexcept {
  if constexpr (std::same_as<T, nil_t>) {
    return true;
  } else if constexpr (std::floating_point<T>) {
    if (std::isnan(one)) return std::isnan(other);
    return one == other && std::signbit(one) == std::signbit(other);
  } else {
    return one == other;
  }
}

/// Not inlined, so that reading a value of the stored type needs no room for the others.
template <stored_type T>
[[gnu::noinline]] std::optional<T> converted_from(const variant_type& payload) {
  // The usual case first: settings and fields of files are text.
  if (const auto* const text = payload_of<strings::ustring8>(payload)) return exactly<T>(text->value());
  return with_class_of<std::optional<T>>(payload, stored_types(),
                                         [](const auto& found) { return exactly<T>(found.value()); });
}

template <stored_type T>
bool store_exactly(const variant_type& payload, T& value) {
  if (const auto* const stored = payload_of<T>(payload)) {
    value = stored->value();
    return true;
  }
  auto converted = converted_from<T>(payload);
  if (!converted) return false;
  value = std::move(*converted);
  return true;
}

}  // namespace

#define ORVA_DEFINE_EXACT_VALUE(T) \
  bool exact_value(const variant_type& payload, T& value) { return store_exactly(payload, value); }
ORVA_DEFINE_EXACT_VALUE(nil_t)
ORVA_DEFINE_EXACT_VALUE(bool)
ORVA_DEFINE_EXACT_VALUE(signed char)
ORVA_DEFINE_EXACT_VALUE(unsigned char)
ORVA_DEFINE_EXACT_VALUE(short)
ORVA_DEFINE_EXACT_VALUE(unsigned short)
ORVA_DEFINE_EXACT_VALUE(int)
ORVA_DEFINE_EXACT_VALUE(unsigned int)
ORVA_DEFINE_EXACT_VALUE(long)
ORVA_DEFINE_EXACT_VALUE(unsigned long)
ORVA_DEFINE_EXACT_VALUE(long long)
ORVA_DEFINE_EXACT_VALUE(unsigned long long)
ORVA_DEFINE_EXACT_VALUE(float)
ORVA_DEFINE_EXACT_VALUE(double)
ORVA_DEFINE_EXACT_VALUE(long double)
ORVA_DEFINE_EXACT_VALUE(std::string)
ORVA_DEFINE_EXACT_VALUE(strings::wide_string)
ORVA_DEFINE_EXACT_VALUE(strings::ustring8)
ORVA_DEFINE_EXACT_VALUE(strings::ustring16)
ORVA_DEFINE_EXACT_VALUE(strings::ustring32)
#undef ORVA_DEFINE_EXACT_VALUE

}  // namespace _private

bool same(const variant& one, const variant& other) noexcept {
  const variant_type& left = one.payload();
  const variant_type& right = other.payload();
  if (&left == &right) return true;
  return _private::with_class_of<bool>(
      left, _private::stored_types(), [&right]<typename T>(const variant_value_t<T>& found) {
        const auto* const like = _private::payload_of<T>(right);
        return like != nullptr && _private::same_value(found.value(), like->value());
      });
}

}  // namespace ORVA_NAMESPACE::types
