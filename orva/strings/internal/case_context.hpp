/// The case mappings that depend on a language or on the characters around: the conditions of SpecialCasing,
/// as chapter 3.13 of the Unicode Standard defines them.
///
/// Internal: not installed. Each search ends at the next character that decides it, so that a text of many
/// letters and marks is searched once in all.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "orva/strings/internal/case_characters.hpp"
#include "orva/strings/internal/case_tables.hpp"
#include "orva/strings/unicode_case.hpp"

namespace ORVA_NAMESPACE::strings::_private::unicode_case {

inline constexpr std::uint32_t dot_above = 0x307;
inline constexpr std::uint32_t dotless_i = 0x131;
inline constexpr std::uint32_t capital_i_with_dot = 0x130;
inline constexpr std::uint32_t capital_sigma = 0x3A3;
inline constexpr std::uint32_t final_sigma = 0x3C2;

/// Goes through the text from its end to its beginning.
template <code_unit Unit>
struct backward {
  std::basic_string_view<Unit> text;
  std::optional<std::uint32_t> next() {
    if (text.empty()) return std::nullopt;
    const text_character found = previous_character(text);
    text.remove_suffix(found.units);
    return found.code_point;
  }
};

template <code_unit Unit>
struct forward {
  std::basic_string_view<Unit> text;
  std::optional<std::uint32_t> next() {
    if (text.empty()) return std::nullopt;
    const text_character found = next_character(text);
    text.remove_prefix(found.units);
    return found.code_point;
  }
};

/// Whether a letter with case follows in this direction, after characters that are ignored.
template <typename Direction>
bool meets_cased(Direction characters) {
  while (const auto found = characters.next()) {
    if (internal::text::is_in(cased, *found)) return true;
    if (!internal::text::is_in(case_ignorable, *found)) return false;
  }
  return false;
}

/// Whether a character for which `is_wanted` is true follows in this direction, after marks that are not
/// above the letter.
template <typename Direction, typename Wanted>
bool meets_over_marks(Direction characters, Wanted is_wanted) {
  while (const auto found = characters.next()) {
    if (is_wanted(*found)) return true;
    if (!internal::text::is_in(other_marks, *found)) return false;
  }
  return false;
}

/// A character of a text, with the text before and after it.
template <code_unit Unit>
struct character_in_text {
  std::uint32_t code_point;
  backward<Unit> before;
  forward<Unit> after;
};

inline mapped_characters mapped_to(std::initializer_list<std::uint32_t> characters) {
  mapped_characters result{{}, characters.size()};
  std::ranges::copy(characters, result.text.begin());
  return result;
}

template <code_unit Unit>
std::optional<mapped_characters> lower_turkic(const character_in_text<Unit>& at) {
  if (at.code_point == capital_i_with_dot) return mapped_to({'i'});
  if (at.code_point == dot_above && meets_over_marks(at.before, [](auto c) { return c == 'I'; }))
    return mapped_to({});
  if (at.code_point == 'I' && !meets_over_marks(at.after, [](auto c) { return c == dot_above; })) {
    return mapped_to({dotless_i});
  }
  return std::nullopt;
}

template <code_unit Unit>
std::optional<mapped_characters> lower_lithuanian(const character_in_text<Unit>& at) {
  constexpr std::uint32_t grave = 0x300, acute = 0x301, tilde = 0x303;
  if (at.code_point == 0xCC) return mapped_to({'i', dot_above, grave});
  if (at.code_point == 0xCD) return mapped_to({'i', dot_above, acute});
  if (at.code_point == 0x128) return mapped_to({'i', dot_above, tilde});
  constexpr std::uint32_t capital_i_with_ogonek = 0x12E;
  if (at.code_point != 'I' && at.code_point != 'J' && at.code_point != capital_i_with_ogonek)
    return std::nullopt;
  if (!meets_over_marks(at.after, [](auto c) { return internal::text::is_in(marks_above, c); }))
    return std::nullopt;
  return mapped_to({case_mapping(lower_table, at.code_point).text[0], dot_above});
}

/// The mapping to small letters, where it is not the one of the table.
template <code_unit Unit>
std::optional<mapped_characters> lower_in_context(const character_in_text<Unit>& at, case_rules rules) {
  if (at.code_point == capital_sigma) {
    if (meets_cased(at.before) && !meets_cased(at.after)) return mapped_to({final_sigma});
    return std::nullopt;
  }
  if (rules == case_rules::turkic) return lower_turkic(at);
  return rules == case_rules::lithuanian ? lower_lithuanian(at) : std::nullopt;
}

/// The same for capital letters.
template <code_unit Unit>
std::optional<mapped_characters> upper_in_context(const character_in_text<Unit>& at, case_rules rules) {
  if (rules == case_rules::turkic && at.code_point == 'i') return mapped_to({capital_i_with_dot});
  const auto is_soft_dotted = [](std::uint32_t c) { return internal::text::is_in(soft_dotted, c); };
  const bool is_dot = rules == case_rules::lithuanian && at.code_point == dot_above;
  if (is_dot && meets_over_marks(at.before, is_soft_dotted)) return mapped_to({});
  return std::nullopt;
}

/// The same for folding, which depends on no context.
inline std::optional<mapped_characters> fold_by_rules(std::uint32_t code_point, case_rules rules) {
  if (rules != case_rules::turkic) return std::nullopt;
  if (code_point == 'I') return mapped_to({dotless_i});
  if (code_point == capital_i_with_dot) return mapped_to({'i'});
  return std::nullopt;
}

}  // namespace ORVA_NAMESPACE::strings::_private::unicode_case
