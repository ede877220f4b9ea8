/// The plural rules of languages: which form of a sentence goes with a number.
///
///     plural_category_of("en", 1)                            =>  plural_category::one
///     plural_category_of("pl_PL", 3)                         =>  plural_category::few
///     plural_category_of("en", 2, plural_kind::ordinal)      =>  plural_category::two       "2nd"
///     name_of(plural_category::few)                          =>  "few"
///     plural_categories_of("pl")                             =>  one, few, many, other
///
/// The rules are those of the Unicode Common Locale Data Repository, UTS #35, part 3, "Language Plural
/// Rules". A language is a tag with `_`, `-` or `.` between its parts, in small or capital letters. If there
/// are no rules for a tag, those for its first parts count: "de_AT" has the rules of "de". All numbers of an
/// unknown language, and of the neutral language ".", are in `other`.
#pragma once

#include <string_view>
#include <vector>

#include "orva/export.hpp"
#include "orva/i18n/plural_number.hpp"

namespace ORVA_NAMESPACE::i18n {

/// What a language does with numbers. Each language has `other`.
enum class plural_category { zero, one, two, few, many, other };

enum class plural_kind {
  cardinal,  ///< how many: "1 file", "2 files"
  ordinal,   ///< which one: "1st", "2nd"
};

/// All categories, in their order.
inline constexpr plural_category all_plural_categories[] = {plural_category::zero, plural_category::one,
                                                            plural_category::two,  plural_category::few,
                                                            plural_category::many, plural_category::other};

/// "zero", "one", "two", "few", "many" or "other".
[[nodiscard]] ORVA_API std::string_view name_of(plural_category category) noexcept;

[[nodiscard]] ORVA_API plural_category plural_category_of(std::string_view language,
                                                          const plural_number& number,
                                                          plural_kind kind = plural_kind::cardinal) noexcept;

/// The categories that the language has, in their order.
[[nodiscard]] ORVA_API std::vector<plural_category> plural_categories_of(
    std::string_view language, plural_kind kind = plural_kind::cardinal);

}  // namespace ORVA_NAMESPACE::i18n
