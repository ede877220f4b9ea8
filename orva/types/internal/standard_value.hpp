/// The values of the standard library that a `variant` is made from, beside numbers and strings.
///
///     std::string_view, and views of the other widths    =>  the `ustring` of that width
///     std::u8string_view, std::u8string                  =>  ustring8
///     std::filesystem::path                              =>  its native text
///     std::chrono::duration                              =>  double, seconds
///     std::optional                                      =>  nil, or its value
///
/// Internal: installed. Each concept accepts exactly its type and no class derived from it, so that a class
/// which already converts to a number or to text is stored as before.
#pragma once

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"

namespace ORVA_NAMESPACE::types::_private {

template <typename T, typename... Targets>
concept converts_to_any = (std::is_convertible_v<T, Targets> || ...);

template <typename T>
concept converts_to_text =
    converts_to_any<T, const char*, const strings::code_unit16*, const strings::code_unit32*, std::string,
                    strings::wide_string, strings::ustring8, strings::ustring16, strings::ustring32>;

// Views of text.

template <typename T>
inline constexpr bool is_borrowed_text = false;
template <strings::code_unit Unit>
inline constexpr bool is_borrowed_text<std::basic_string_view<Unit>> = true;

template <typename T>
concept borrowed_text = is_borrowed_text<T>;

template <typename T>
concept utf8_text = std::same_as<T, std::u8string_view> || std::same_as<T, std::u8string>;

template <strings::code_unit Unit>
strings::basic_ustring<Unit> stored_form(std::basic_string_view<Unit> text) {
  return strings::basic_ustring<Unit>(text);
}

inline strings::ustring8 stored_form(std::u8string_view text) {
  return strings::ustring8(text.begin(), text.end());
}

// Durations. They are recognised by their members, since <chrono> would make this header much larger.

template <typename T>
inline constexpr bool has_form_of_duration = false;
template <template <typename, typename> typename Duration, typename Rep, typename Period>
inline constexpr bool has_form_of_duration<Duration<Rep, Period>> =
    std::is_arithmetic_v<Rep>&& requires(const Duration<Rep, Period>& value) {
  { value.count() } -> std::same_as<Rep>;
  requires std::same_as<typename Duration<Rep, Period>::rep, Rep>;
  requires std::same_as < typename Duration<Rep, Period>::period,
  typename Period::type > ;
  requires Period::num >
  0 && Period::den > 0;
};

/// A class of this form that converts to a number or to text is stored as that.
template <typename T>
concept duration = has_form_of_duration<T> && !std::is_convertible_v<T, bool> && !converts_to_text<T>;

/// The number that `std::chrono::duration<double>` holds for `value`.
template <duration Duration>
double stored_form(const Duration& value) {
  using period = typename Duration::period;
  using number = std::common_type_t<typename Duration::rep, double>;
  return static_cast<double>(static_cast<number>(value.count()) * static_cast<number>(period::num) /
                             static_cast<number>(period::den));
}

// Optional values.

template <typename T>
inline constexpr bool is_optional = false;
template <typename T>
inline constexpr bool is_optional<std::optional<T>> = true;

template <typename T>
concept optional_value = is_optional<T>;

}  // namespace ORVA_NAMESPACE::types::_private
