/// `ustring8`, `ustring16`, `ustring32`: text in UTF-8, UTF-16 and UTF-32.
///
/// Each is the standard string of its code unit under a type of its own, with nothing stored beside it, and
/// converts to and from that string implicitly. The encoding is the caller's promise: nothing here validates,
/// and text of any bytes is stored, compared, sorted and joined without complaint. Order is by code unit
/// value, so it is case-sensitive and knows no locale; a `ustring8` works as a key of maps and sets.
///
/// There is no conversion between the three: crossing widths always goes through `strings/unicode.hpp`.
///
/// Failures are the standard string's own (`std::out_of_range`, `std::length_error`). Values are as safe to
/// share between threads as standard strings are.
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::strings {

template <code_unit Unit>
class basic_ustring : public std::basic_string<Unit> {
 public:
  /// The standard string of the same code unit.
  using standard_string = std::basic_string<Unit>;
  using view = std::basic_string_view<Unit>;
  using standard_string::npos;
  using standard_string::standard_string;
  using typename standard_string::size_type;

  basic_ustring() noexcept = default;
  basic_ustring(const standard_string& units) : standard_string(units) {}
  basic_ustring(standard_string&& units) noexcept : standard_string(std::move(units)) {}
  using standard_string::operator=;

  /// A position behind the end throws `std::out_of_range` with the words "invalid string position" on every
  /// platform.
  basic_ustring substr(size_type position = 0, size_type count = npos) const {
    if (position > this->size()) throw std::out_of_range("invalid string position");
    return basic_ustring(view(*this).substr(position, count));
  }
};

using ustring8 = basic_ustring<char>;
using ustring16 = basic_ustring<code_unit16>;
using ustring32 = basic_ustring<code_unit32>;

static_assert(sizeof(ustring8) == sizeof(std::string));

namespace _private {

template <typename T>
inline constexpr bool is_basic_ustring = false;
template <code_unit Unit>
inline constexpr bool is_basic_ustring<basic_ustring<Unit>> = true;

template <typename T>
concept ustring = is_basic_ustring<std::remove_cvref_t<T>>;

/// What can stand beside a string of the library in a sum: text of the same width, or one code unit.
template <typename T, typename Ustring>
concept addend_to = ustring<Ustring> &&
    (std::convertible_to<T, typename std::remove_cvref_t<Ustring>::view> ||
     std::same_as<std::remove_cvref_t<T>, typename std::remove_cvref_t<Ustring>::value_type>);

template <typename T, typename Ustring>
concept plain_addend_to = addend_to<T, Ustring> && !ustring<T>;

template <typename Ustring, typename T>
typename Ustring::view view_of(const T& piece) {
  if constexpr (std::same_as<T, typename Ustring::value_type>) {
    return {&piece, 1};
  } else {
    return piece;
  }
}

template <typename Ustring, typename Left, typename Right>
Ustring sum(Left&& left, const Right& right) {
  if constexpr (std::same_as<Left, Ustring>) {
    // The left side is a temporary: a sum of many pieces grows one string instead of copying it at every
    // step. It grows before it is moved, since the right side may be a part of it.
    left.append(view_of<Ustring>(right));
    return std::move(left);
  } else {
    const auto begin = view_of<Ustring>(left);
    const auto end = view_of<Ustring>(right);
    Ustring result;
    result.reserve(begin.size() + end.size());
    result.append(begin).append(end);
    return result;
  }
}

}  // namespace _private

/// Joining keeps the class: a `ustring8` and anything of its width give a `ustring8`. Both sides are taken as
/// they come, so that these are a better match than the standard string's own operators.
template <_private::ustring Left, _private::addend_to<Left> Right>
std::remove_cvref_t<Left> operator+(Left&& left, Right&& right) {
  return _private::sum<std::remove_cvref_t<Left>>(std::forward<Left>(left), right);
}

template <typename Left, _private::ustring Right>
std::remove_cvref_t<Right> operator+(Left&& left,
                                     Right&& right) requires _private::plain_addend_to<Left, Right> {
  return _private::sum<std::remove_cvref_t<Right>>(left, right);
}

}  // namespace ORVA_NAMESPACE::strings

template <ORVA_NAMESPACE::strings::code_unit Unit>
struct std::hash<ORVA_NAMESPACE::strings::basic_ustring<Unit>> {
  std::size_t operator()(const ORVA_NAMESPACE::strings::basic_ustring<Unit>& text) const noexcept {
    // The standard hashes the texts of its own character types; `unsigned long` is none of them.
    if constexpr (std::is_default_constructible_v<std::hash<std::basic_string_view<Unit>>>) {
      return std::hash<std::basic_string_view<Unit>>()(text);
    } else {
      const auto* const bytes = reinterpret_cast<const char*>(text.data());
      return std::hash<std::string_view>()({bytes, text.size() * sizeof(Unit)});
    }
  }
};
