#include "orva/i18n/plural_rules.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace {

using namespace ORVA_NAMESPACE::i18n;

std::string category(std::string_view language, std::string_view number,
                     plural_kind kind = plural_kind::cardinal) {
  return std::string(name_of(plural_category_of(language, plural_number::read(number).value(), kind)));
}

std::string ordinal(std::string_view language, std::string_view number) {
  return category(language, number, plural_kind::ordinal);
}

std::string categories(std::string_view language, plural_kind kind = plural_kind::cardinal) {
  std::string names;
  for (const plural_category each : plural_categories_of(language, kind)) {
    if (!names.empty()) names += ' ';
    names += name_of(each);
  }
  return names;
}

TEST(plural_rules, documentation_example) {
  EXPECT_EQ(plural_category_of("en", 1), plural_category::one);
  EXPECT_EQ(plural_category_of("pl_PL", 3), plural_category::few);
  EXPECT_EQ(plural_category_of("en", 2, plural_kind::ordinal), plural_category::two);
  EXPECT_EQ(name_of(plural_category::few), "few");
  EXPECT_EQ(categories("pl"), "one few many other");
}

TEST(plural_rules, categories_have_their_names) {
  std::string names;
  for (const plural_category each : all_plural_categories) names.append(name_of(each)).append(" ");
  EXPECT_EQ(names, "zero one two few many other ");
}

TEST(plural_rules, numbers_of_languages) {
  EXPECT_EQ(category("en", "1.0"), "other");
  EXPECT_EQ(category("fr", "0"), "one");
  EXPECT_EQ(category("fr", "1.5"), "one");
  EXPECT_EQ(category("fr", "1c6"), "many");
  EXPECT_EQ(category("ja", "1"), "other");
  EXPECT_EQ(category("ar", "0"), "zero");
  EXPECT_EQ(category("ar", "2"), "two");
  EXPECT_EQ(category("ar", "103"), "few");
  EXPECT_EQ(category("ar", "111"), "many");
  EXPECT_EQ(category("lv", "0.11"), "zero");
  EXPECT_EQ(category("cs", "1.5"), "many");
  EXPECT_EQ(category("ru", "21"), "one");
  EXPECT_EQ(category("ru", "11"), "many");
  EXPECT_EQ(ordinal("en", "1"), "one");
  EXPECT_EQ(ordinal("en", "11"), "other");
  EXPECT_EQ(ordinal("en", "23"), "few");
  EXPECT_EQ(ordinal("it", "8"), "many");
  EXPECT_EQ(ordinal("cy", "0"), "zero");
}

TEST(plural_rules, categories_of_languages) {
  EXPECT_EQ(categories("ja"), "other");
  EXPECT_EQ(categories("en"), "one other");
  EXPECT_EQ(categories("ar"), "zero one two few many other");
  EXPECT_EQ(categories("en", plural_kind::ordinal), "one two few other");
  EXPECT_EQ(categories("de", plural_kind::ordinal), "other");
}

TEST(plural_rules, tag_without_rules_has_those_of_its_language) {
  for (const std::string_view tag :
       {"pl", "pl_PL", "pl-PL", "pl.UTF-8", "PL", "Pl_pl", "pl_Latn_PL", "pl_"}) {
    EXPECT_EQ(category(tag, "3"), "few") << tag;
  }
  EXPECT_EQ(category("pt", "0"), "one");
  for (const std::string_view tag : {"pt_PT", "pt-pt", "PT.PT", "pt_PT_x"}) {
    EXPECT_EQ(category(tag, "0"), "other") << tag;
  }
  EXPECT_EQ(category("pt_PTx", "0"), "one");
}

TEST(plural_rules, unknown_language_has_one_form) {
  for (const std::string_view tag : {"", ".", "_", "xx", "p", "plx", "root", "_pl", "zz_pl"}) {
    EXPECT_EQ(category(tag, "1"), "other") << tag;
    EXPECT_EQ(categories(tag), "other") << tag;
  }
}

}  // namespace
