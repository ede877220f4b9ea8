// Plural rules compared with those of ICU, for all languages.
#include <gtest/gtest.h>
#include <unicode/numberformatter.h>
#include <unicode/plurrule.h>
#include <unicode/uloc.h>
#include <unicode/ulocdata.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "orva/i18n/plural_rules.hpp"

namespace {

using namespace ORVA_NAMESPACE::i18n;

struct sample {
  std::string text;
  plural_number number;
  icu::number::FormattedNumber shown;
};

sample sample_of(const std::string& text, int digits) {
  UErrorCode error = U_ZERO_ERROR;
  auto shown = icu::number::NumberFormatter::withLocale(icu::Locale::getRoot())
                   .precision(icu::number::Precision::fixedFraction(digits))
                   .formatDecimal(text, error);
  EXPECT_TRUE(U_SUCCESS(error)) << text;
  return {text, plural_number::read(text).value(), std::move(shown)};
}

const std::vector<sample>& samples() {
  static const std::vector<sample> all = [] {
    std::vector<sample> made;
    for (int number = 0; number <= 320; ++number) made.push_back(sample_of(std::to_string(number), 0));
    for (const char* const number : {"999", "1000", "1001", "1100", "2000", "20000", "40000", "100000",
                                     "100002", "1000000", "1000001", "2000000", "1100000", "1000000000"}) {
      made.push_back(sample_of(number, 0));
    }
    for (int number = 0; number <= 320; ++number) {
      const std::string digits = std::to_string(number);
      made.push_back(sample_of(digits + ".0", 1));
      made.push_back(sample_of(std::to_string(number / 10) + '.' + std::to_string(number % 10), 1));
      const std::string hundredths = (number % 100 < 10 ? "0" : "") + std::to_string(number % 100);
      made.push_back(sample_of(std::to_string(number / 100) + '.' + hundredths, 2));
    }
    return made;
  }();
  return all;
}

std::string category_by_icu(const icu::PluralRules& rules, const sample& number) {
  UErrorCode error = U_ZERO_ERROR;
  std::string name;
  rules.select(number.shown, error).toUTF8String(name);
  EXPECT_TRUE(U_SUCCESS(error));
  return name;
}

/// Names of those that differ, so that a failure shows all of them.
std::set<std::string> languages_that_differ(UPluralType type, plural_kind kind) {
  std::vector<std::string> languages;
  for (auto each = uloc_getISOLanguages(); *each; ++each) languages.push_back(*each);
  languages.insert(languages.end(), {"pt_PT", "pt_BR", "en_GB", "de_AT", "sr_Latn_RS"});
  std::set<std::string> differing;
  for (const std::string& language : languages) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::PluralRules> rules(
        icu::PluralRules::forLocale(icu::Locale(language.c_str()), type, error));
    EXPECT_TRUE(U_SUCCESS(error)) << language;
    for (const sample& number : samples()) {
      const auto ours = name_of(plural_category_of(language, number.number, kind));
      if (ours == category_by_icu(*rules, number)) continue;
      differing.insert(language);
      break;
    }
  }
  return differing;
}

int version_of_icu_data() {
  UVersionInfo version;
  UErrorCode error = U_ZERO_ERROR;
  ulocdata_getCLDRVersion(version, &error);
  EXPECT_TRUE(U_SUCCESS(error));
  return version[0];
}

// The library has the rules of version 41 of the data. Version 42 changed those of the languages below.

TEST(plural_rules_icu, cardinal_forms_are_those_of_icu) {
  if (version_of_icu_data() > 42) GTEST_SKIP() << "ICU has a later version of the data";
  std::set<std::string> changed;
  if (version_of_icu_data() == 42) changed = {"ca", "he", "is", "mt", "ro", "vec"};
  EXPECT_EQ(languages_that_differ(UPLURAL_TYPE_CARDINAL, plural_kind::cardinal), changed);
}

TEST(plural_rules_icu, ordinal_forms_are_those_of_icu) {
  if (version_of_icu_data() > 42) GTEST_SKIP() << "ICU has a later version of the data";
  std::set<std::string> changed;
  if (version_of_icu_data() == 42) changed = {"vec"};
  EXPECT_EQ(languages_that_differ(UPLURAL_TYPE_ORDINAL, plural_kind::ordinal), changed);
}

}  // namespace
