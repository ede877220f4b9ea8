/// Case mapping and caseless comparison of whole characters, as the Unicode Standard defines them.
///
///     unicode_upper("Straße")                            =>  "STRASSE"
///     unicode_lower("ΟΔΟΣ")                              =>  "οδος"      with a final sigma
///     unicode_upper("izmir", case_rules::turkic)         =>  "İZMİR"
///     equal_caseless("Straße", "STRASSE")                =>  true
///     unicode_fold("Straße")                             =>  "strasse"
///
/// The mappings are the full ones of Unicode 15 (UnicodeData, SpecialCasing, CaseFolding), so a text may
/// become up to three times as long. They depend neither on a locale nor on the platform. `case_mapping.hpp`
/// has the mapping of single code units by the C runtime.
///
/// Text is a string of the library, a standard string, a view or a literal, of any width; the result has the
/// class of its width. Malformed parts stay as they are. Nothing is normalised: an accent that is a character
/// of its own stays one, and a comparison sees a difference between "é" in one and in two characters.
#pragma once

#include <compare>
#include <concepts>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring_for.hpp"

namespace ORVA_NAMESPACE::strings {

/// Languages that have other rules for a few letters.
enum class case_rules {
  standard,
  turkic,      ///< Turkish and Azerbaijani: i and İ are a pair, and ı and I
  lithuanian,  ///< a small i keeps its dot below an accent
};

namespace _private {

enum class case_form { lower, upper, folded };

template <code_unit Unit>
ORVA_API basic_ustring<Unit> map_case(std::basic_string_view<Unit> text, case_form form, case_rules rules);

template <code_unit Unit>
ORVA_API std::strong_ordering compare_caseless(std::basic_string_view<Unit> left,
                                               std::basic_string_view<Unit> right, case_rules rules);

extern template ustring8 map_case(ustring8::view, case_form, case_rules);
extern template ustring16 map_case(ustring16::view, case_form, case_rules);
extern template ustring32 map_case(ustring32::view, case_form, case_rules);
extern template std::strong_ordering compare_caseless(ustring8::view, ustring8::view, case_rules);
extern template std::strong_ordering compare_caseless(ustring16::view, ustring16::view, case_rules);
extern template std::strong_ordering compare_caseless(ustring32::view, ustring32::view, case_rules);

template <any_text Text>
using view_of_text = typename ustring_for<Text>::view;

}  // namespace _private

template <any_text Text>
[[nodiscard]] ustring_for<Text> unicode_lower(const Text& text, case_rules rules = case_rules::standard) {
  return _private::map_case(_private::view_of_text<Text>(text), _private::case_form::lower, rules);
}

template <any_text Text>
[[nodiscard]] ustring_for<Text> unicode_upper(const Text& text, case_rules rules = case_rules::standard) {
  return _private::map_case(_private::view_of_text<Text>(text), _private::case_form::upper, rules);
}

/// The form in which texts that differ only in case are equal: a key for a map, for example. It is no text
/// for people. Lithuanian has no rules of its own here.
template <any_text Text>
[[nodiscard]] ustring_for<Text> unicode_fold(const Text& text, case_rules rules = case_rules::standard) {
  return _private::map_case(_private::view_of_text<Text>(text), _private::case_form::folded, rules);
}

/// The order of the folded texts, by code point. It is no alphabetical order of any language. A malformed
/// part equals only the same part. Allocates nothing.
template <any_text Left, any_text Right>
[[nodiscard]] std::strong_ordering compare_caseless(
    const Left& left, const Right& right,
    case_rules rules = case_rules::standard) requires std::same_as<ustring_for<Left>, ustring_for<Right>> {
  return _private::compare_caseless(_private::view_of_text<Left>(left), _private::view_of_text<Right>(right),
                                    rules);
}

template <any_text Left, any_text Right>
[[nodiscard]] bool equal_caseless(
    const Left& left, const Right& right,
    case_rules rules = case_rules::standard) requires std::same_as<ustring_for<Left>, ustring_for<Right>> {
  return std::is_eq(compare_caseless(left, right, rules));
}

}  // namespace ORVA_NAMESPACE::strings
