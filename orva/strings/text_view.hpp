/// `text_view`: the parameter of an operation that takes text of any width as it is.
///
///     [[nodiscard]] bool is_well_formed(const text_view& text);
///
///     is_well_formed("bytes");
///     is_well_formed(u8"bytes");
///     is_well_formed(some_ustring16);
///
/// The width of the code unit decides the encoding: UTF-8, UTF-16 or UTF-32, the wider two in the byte order
/// of the machine. Nothing is copied, converted or checked. The text is borrowed and must live as long as the
/// view does: until the end of the call, as every temporary does.
///
/// Taken are strings of the library, standard strings and views, and literals, of `char`, `char8_t`,
/// `char16_t`, `char32_t`, `code_unit16` and `code_unit32`. Text of a `wchar_t` of 32 bits is not:
/// `from_wchar` converts it. An operation that works in one encoding takes a `text_argument` instead, which
/// converts.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

namespace _private {

// Declared for deduction only, as those of ustring_for.hpp are, and for the standard character types too.
template <typename Unit>
Unit unit_in(const std::basic_string<Unit>&);
template <typename Unit>
Unit unit_in(const std::basic_string_view<Unit>&);
template <typename Unit>
Unit unit_in(const Unit*);

template <typename Text>
using unit_of = decltype(_private::unit_in(std::declval<const Text&>()));

template <typename Unit>
concept encoded_unit = code_unit<Unit> || std::same_as<Unit, char8_t> || std::same_as<Unit, char16_t> ||
    std::same_as<Unit, char32_t>;

template <typename Text>
concept encoded_text = encoded_unit<unit_of<Text>>;

/// The library's code unit of the width of another.
template <encoded_unit Unit>
using code_unit_as_wide = std::conditional_t<sizeof(Unit) == 1, char,
                                             std::conditional_t<sizeof(Unit) == 2, code_unit16, code_unit32>>;

template <encoded_unit Unit>
std::basic_string_view<code_unit_as_wide<Unit>> as_code_units(std::basic_string_view<Unit> text) noexcept {
  if constexpr (code_unit<Unit>) {
    return text;
  } else {
    // A `char` may refer to any type. Where the wider units are not the standard's character types, they have
    // the same size, alignment and values.
    return {reinterpret_cast<const code_unit_as_wide<Unit>*>(text.data()), text.size()};
  }
}

}  // namespace _private

class text_view {
 public:
  template <_private::encoded_text Text>
  text_view(const Text& text) noexcept
      : units_(_private::as_code_units(std::basic_string_view<_private::unit_of<Text>>(text))) {}

  /// Calls `visitor` with the `ustring8::view`, `ustring16::view` or `ustring32::view` of the text, and
  /// returns what it returns.
  template <typename Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), units_);
  }

 private:
  std::variant<ustring8::view, ustring16::view, ustring32::view> units_;
};

}  // namespace ORVA_NAMESPACE::strings
