#include "orva/i18n/plural_rules.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "orva/i18n/internal/packed_tag.hpp"

namespace ORVA_NAMESPACE::i18n {

using _private::packed;

namespace {

/// Named as in the rules.
struct operands {
  std::uint64_t i;
  std::uint64_t v;
  std::uint64_t f;
  std::uint64_t t;
  std::uint64_t e;
};

constexpr bool is_in(std::uint64_t value, std::uint64_t first, std::uint64_t last) {
  return value >= first && value <= last;
}

struct rule_set {
  plural_category (*category)(const operands&);
  unsigned int categories;  // a bit for each
};

struct language_rules {
  std::uint64_t tag;
  rule_set rules;
};

#include "orva/i18n/internal/plural_rules.inc"

constexpr rule_set only_other = {[](const operands&) { return plural_category::other; },
                                 1U << static_cast<unsigned int>(plural_category::other)};

const rule_set* find_rules(std::span<const language_rules> all, std::string_view tag) {
  const std::uint64_t wanted = packed(tag);
  const auto found =
      std::lower_bound(all.begin(), all.end(), wanted,
                       [](const language_rules& entry, std::uint64_t number) { return entry.tag < number; });
  return found != all.end() && found->tag == wanted ? &found->rules : nullptr;
}

/// Of the tags with rules none has more parts than two.
const rule_set& rules_of(std::string_view language, plural_kind kind) {
  const std::span<const language_rules> all =
      kind == plural_kind::cardinal ? std::span<const language_rules>(cardinal_rules) : ordinal_rules;
  const std::size_t first_end = language.find_first_of(_private::tag_separators);
  if (first_end != language.npos) {
    const std::size_t second_end = language.find_first_of(_private::tag_separators, first_end + 1);
    if (const rule_set* found = find_rules(all, language.substr(0, second_end))) return *found;
  }
  const rule_set* const found = find_rules(all, language.substr(0, first_end));
  return found ? *found : only_other;
}

constexpr std::string_view names[] = {"zero", "one", "two", "few", "many", "other"};

}  // namespace

std::string_view name_of(plural_category category) noexcept {
  return names[static_cast<std::size_t>(category)];
}

plural_category plural_category_of(std::string_view language, const plural_number& number,
                                   plural_kind kind) noexcept {
  return rules_of(language, kind)
      .category({number.integer(), number.fraction_length(), number.fraction(), number.trimmed_fraction(),
                 number.exponent()});
}

std::vector<plural_category> plural_categories_of(std::string_view language, plural_kind kind) {
  const unsigned int set = rules_of(language, kind).categories;
  std::vector<plural_category> categories;
  std::copy_if(std::begin(all_plural_categories), std::end(all_plural_categories),
               std::back_inserter(categories),
               [set](plural_category each) { return (set >> static_cast<unsigned int>(each) & 1U) != 0; });
  return categories;
}

}  // namespace ORVA_NAMESPACE::i18n
