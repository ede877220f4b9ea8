/// The conversions of `variant`: from each group of stored types to numbers, to `bool`, to text, to a stream.
///
/// Internal: not installed. `to_number`, `to_bool`, `to_text` and `write` are overloaded for five groups of
/// stored types: nil, `bool`, integers, floating values, text.
#pragma once

#include <cmath>
#include <concepts>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/internal/floating_truncation.hpp"
#include "orva/internal/number_text/floating_text.hpp"
#include "orva/internal/number_text/integer_text.hpp"
#include "orva/internal/number_text/stream_text.hpp"
#include "orva/internal/text/character_class.hpp"
#include "orva/internal/transforms/transforms.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::types::_private {

template <typename T>
concept number = std::integral<T> || std::floating_point<T>;

template <typename T>
concept integer = std::integral<T> && !std::same_as<T, bool>;

using strings::basic_ustring;
using strings::code_unit;

// Nil.

template <number Number>
Number to_number(nil_t) {
  return 0;
}

inline bool to_bool(nil_t) { return false; }

template <code_unit Unit>
basic_ustring<Unit> to_text(nil_t) {
  return {Unit{'0'}};
}

inline std::ostream& write(std::ostream& stream, nil_t) { return stream << 0; }

// bool.

template <number Number>
Number to_number(bool value) {
  return value ? Number{1} : Number{0};
}

inline bool to_bool(bool value) { return value; }

template <code_unit Unit>
basic_ustring<Unit> to_text(bool value) {
  return {value ? Unit{'1'} : Unit{'0'}};
}

inline std::ostream& write(std::ostream& stream, bool value) { return stream << value; }

// Integers.

template <number Number, integer Integer>
Number to_number(Integer value) {
  return static_cast<Number>(value);
}

template <integer Integer>
bool to_bool(Integer value) {
  return value != 0;
}

template <code_unit Unit, integer Integer>
basic_ustring<Unit> to_text(Integer value) {
  Unit digits[internal::integer_text_size];
  return basic_ustring<Unit>(digits, internal::write_integer(value, digits));
}

/// A stream writes the two types of one byte as characters.
template <integer Integer>
std::ostream& write(std::ostream& stream, Integer value) {
  return stream << value;
}

// Floating values.

template <number Number, std::floating_point Floating>
Number to_number(Floating value) {
  if constexpr (std::floating_point<Number>) return static_cast<Number>(value);
  if constexpr (std::integral<Number>) return internal::truncate<Number>(value);
}

template <std::floating_point Floating>
bool to_bool(Floating value) {
  return value != 0;
}

/// The text that a string stream with default flags writes.
template <std::floating_point Floating>
std::string floating_text(Floating value) {
  if constexpr (std::same_as<Floating, long double>) {
    // Some runtimes leave out the sign of a nan.
    if (std::isnan(value)) return floating_text(static_cast<double>(value));
  } else if (internal::streams_write_general_form()) {
    char digits[internal::general_text_size(internal::default_stream_precision)];
    return {digits, internal::write_general(value, internal::default_stream_precision, digits)};
  }
  return internal::stream_text(value);
}

/// Each byte becomes one unit, since the separators of a locale need not be UTF-8.
template <code_unit Unit, std::floating_point Floating>
basic_ustring<Unit> to_text(Floating value) {
  auto narrow = floating_text(value);
  if constexpr (std::same_as<Unit, char>) {
    return narrow;
  } else {
    const auto* bytes = reinterpret_cast<const unsigned char*>(narrow.data());
    return basic_ustring<Unit>(bytes, bytes + narrow.size());
  }
}

template <std::floating_point Floating>
std::ostream& write(std::ostream& stream, Floating value) {
  return stream << value;
}

// Text.

/// Converts between widths.
template <code_unit Target, code_unit Unit>
basic_ustring<Target> to_text(const basic_ustring<Unit>& text) {
  return internal::transforms::convert<Target>(typename basic_ustring<Unit>::view(text));
}

template <std::floating_point Number>
Number read_floating(std::string_view text) {
  if constexpr (std::same_as<Number, float>) return generic::convert::str_to_float(text);
  if constexpr (std::same_as<Number, double>) return generic::convert::str_to_double(text);
  if constexpr (std::same_as<Number, long double>) return generic::convert::str_to_long_double(text);
}

template <number Number, code_unit Unit>
Number to_number(const basic_ustring<Unit>& text) {
  if constexpr (std::signed_integral<Number>) {
    return generic::convert::strtointx<Number>(text.data(), text.size(), radix_t::prefix, false);
  } else if constexpr (std::unsigned_integral<Number>) {
    return generic::convert::strtouintx<Number>(text.data(), text.size(), radix_t::prefix, false);
  } else if constexpr (std::same_as<Unit, char>) {
    return read_floating<Number>(text);
  } else {
    return read_floating<Number>(to_text<char>(text));
  }
}

/// Returns whether `text` is `word` in any case. REQUIRES: `word` is in lower case.
template <code_unit Unit>
bool is_word(const basic_ustring<Unit>& text, std::string_view word) {
  if (text.size() != word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (internal::character_class::tolower(text[i]) != static_cast<Unit>(word[i])) return false;
  }
  return true;
}

template <code_unit Unit>
bool to_bool(const basic_ustring<Unit>& text) {
  return is_word(text, "yes") || is_word(text, "on") || is_word(text, "true") || to_number<int32>(text) != 0;
}

}  // namespace ORVA_NAMESPACE::types::_private
