/// `ustring8`, `ustring16`, `ustring32`: text in UTF-8, UTF-16 and UTF-32.
///
///     const ustring8 name = "gr\xC3\xBC\xC3\x9F";
///     const ustring8 line = "Hello, " + name + '!';      // sums and substr keep the class
///     const std::string plain = line;                  // converts implicitly, both ways
///     const ustring16 wide = utf8_to_utf16(line);      // widths only through strings/unicode.hpp
///
/// Each is a class derived from the standard string of its code unit, without further members. The caller is
/// responsible for the encoding: nothing is validated, and text of any units is stored, compared, sorted and
/// joined. Order is by code unit value, so it is case-sensitive and independent of the locale. The strings
/// are keys of maps and sets, hashed ones too.
///
/// `stream << wide` writes a `ustring16` or `ustring32` to a `std::ostream` in UTF-8.
///
/// Failures are those of the standard string (`std::out_of_range`, `std::length_error`). Threads may share
/// values as they may share standard strings.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "orva/export.hpp"
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

  /// A position after the end throws `std::out_of_range` with the words "invalid string position" on every
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

/// The other operand of a sum with a string of the library: text of the same width, or one code unit.
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
    // step. It is moved only afterwards, since the right side may be a part of it.
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

/// A sum keeps the class: a `ustring8` and any text of its width give a `ustring8`. Both sides are forwarding
/// references, so that these are a better match than the standard string's own operators.
template <_private::ustring Left, _private::addend_to<Left> Right>
std::remove_cvref_t<Left> operator+(Left&& left, Right&& right) {
  return _private::sum<std::remove_cvref_t<Left>>(std::forward<Left>(left), right);
}

template <typename Left, _private::ustring Right>
std::remove_cvref_t<Right> operator+(Left&& left,
                                     Right&& right) requires _private::plain_addend_to<Left, Right> {
  return _private::sum<std::remove_cvref_t<Right>>(left, right);
}

namespace _private {

template <typename Unit>
concept wide_unit = code_unit<Unit> && !std::same_as<Unit, char>;

ORVA_API std::ostream& write_utf8(std::ostream& stream, ustring16::view text);
ORVA_API std::ostream& write_utf8(std::ostream& stream, ustring32::view text);
/// The text in quotation marks.
ORVA_API void write_quoted(std::ostream& stream, ustring8::view text);
ORVA_API void write_quoted(std::ostream& stream, ustring16::view text);
ORVA_API void write_quoted(std::ostream& stream, ustring32::view text);

}  // namespace _private

/// Writes wide text as `to_utf8` converts it, with U+FFFD for each malformed part, as one field: the width of
/// the stream counts bytes.
template <_private::wide_unit Unit>
std::ostream& operator<<(std::ostream& stream, const basic_ustring<Unit>& text) {
  return _private::write_utf8(stream, text);
}

/// The same for views. A view is a type of the standard library, so this operator is found only where this
/// namespace is used: after `using orva::strings::operator<<;`. Arrays and pointers of wide units stay
/// refused as the standard library refuses them.
template <_private::wide_unit Unit>
std::ostream& operator<<(std::ostream& stream, std::basic_string_view<Unit> text) {
  return _private::write_utf8(stream, text);
}

/// How GoogleTest shows a string of the library; it would list the units without this.
template <code_unit Unit>
void PrintTo(const basic_ustring<Unit>& text, std::ostream* stream) {
  _private::write_quoted(*stream, text);
}

}  // namespace ORVA_NAMESPACE::strings

template <ORVA_NAMESPACE::strings::code_unit Unit>
struct std::hash<ORVA_NAMESPACE::strings::basic_ustring<Unit>> {
  std::size_t operator()(const ORVA_NAMESPACE::strings::basic_ustring<Unit>& text) const noexcept {
    // The standard library hashes text of its own character types only; `unsigned long` is not one of them.
    if constexpr (std::is_default_constructible_v<std::hash<std::basic_string_view<Unit>>>) {
      return std::hash<std::basic_string_view<Unit>>()(text);
    } else {
      const auto* const bytes = reinterpret_cast<const char*>(text.data());
      return std::hash<std::string_view>()({bytes, text.size() * sizeof(Unit)});
    }
  }
};
