#include "orva/i18n/plural.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "orva/generic/argument.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE::i18n;
using namespace orva_test;
using ORVA_NAMESPACE::generic::argument;

/// The catalog "app" in some languages: a message is `<msg name='NAME'>TEXT</msg>`.
class catalogs_of {
 public:
  catalogs_of& add(std::string_view language, std::string_view messages) {
    text_.append("<catalog name='app' lang='").append(language).append("'>").append(messages);
    text_ += "</catalog>";
    return *this;
  }
  message_catalogs load(std::string_view language) const {
    const temporary_directory directory;
    message_catalogs catalogs;
    EXPECT_EQ(catalogs.load(directory.write("app.xmc", text_ + "</xmc>"), language),
              message_catalogs::no_error);
    return catalogs;
  }

 private:
  std::string text_ = "<?xml?><xmc version='1.1'>";
};

/// Forms whose texts are language and category.
std::string forms(const std::string& language, std::initializer_list<const char*> categories) {
  std::string messages;
  for (const std::string category : categories) {
    messages += "<msg name='files." + category + "'>" + language + ' ' + category + "</msg>";
  }
  return messages;
}

std::string shown(const message_catalogs& catalogs, const plural_number& number,
                  plural_kind kind = plural_kind::cardinal) {
  return plural(catalogs, "app", "files", number, kind).as_utf8();
}

TEST(plural, documentation_example) {
  const auto catalogs = catalogs_of()
                            .add("en",
                                 "<msg name='files.one'><arg name='n' type='int'/> file</msg>"
                                 "<msg name='files.other'><arg name='n' type='int'/> files</msg>")
                            .load("en");
  EXPECT_EQ(plural(catalogs, "app", "files", 1).as_utf8(argument("n", 1)), "1 file");
  EXPECT_EQ(plural(catalogs, "app", "files", 5).as_utf8(argument("n", 5)), "5 files");
}

TEST(plural, form_is_that_of_the_language) {
  const auto texts = catalogs_of()
                         .add("en", forms("en", {"one", "other"}))
                         .add("pl", forms("pl", {"one", "few", "many", "other"}));
  const auto polish = texts.load("pl_PL");
  EXPECT_EQ(shown(polish, 1), "pl one");
  EXPECT_EQ(shown(polish, 22), "pl few");
  EXPECT_EQ(shown(polish, 25), "pl many");
  EXPECT_EQ(shown(polish, *plural_number::read("1.5")), "pl other");
  const auto english = texts.load("en_GB");
  EXPECT_EQ(shown(english, 1), "en one");
  EXPECT_EQ(shown(english, -1), "en one");
  EXPECT_EQ(shown(english, 22), "en other");
}

TEST(plural, ordinal_forms) {
  const auto catalogs = catalogs_of().add("en", forms("en", {"one", "two", "few", "other"})).load("en");
  EXPECT_EQ(shown(catalogs, 22, plural_kind::ordinal), "en two");
  EXPECT_EQ(shown(catalogs, 22), "en other");
  EXPECT_EQ(shown(catalogs, 13, plural_kind::ordinal), "en other");
}

TEST(plural, form_that_a_translation_lacks_is_english) {
  const auto catalogs = catalogs_of()
                            .add("en", forms("en", {"one", "other"}))
                            .add("pl", forms("pl", {"few", "many"}))
                            .load("pl");
  EXPECT_EQ(shown(catalogs, 1), "en one");
  EXPECT_EQ(shown(catalogs, 3), "pl few");
  EXPECT_EQ(shown(catalogs, 5), "pl many");
  EXPECT_EQ(shown(catalogs, *plural_number::read("1.5")), "en other");
}

/// "files.one" is English here, and by the rules of English 0 is no `one`; in French it is.
TEST(plural, form_of_another_language_is_taken_by_its_own_rules) {
  const auto catalogs =
      catalogs_of().add("en", forms("en", {"one", "other"})).add("fr", forms("fr", {"other"})).load("fr");
  EXPECT_EQ(shown(catalogs, 0), "fr other");
  EXPECT_EQ(shown(catalogs, 1), "en one");
  EXPECT_EQ(shown(catalogs, 2), "fr other");
}

TEST(plural, closest_language_counts) {
  const auto catalogs = catalogs_of()
                            .add(".", forms("neutral", {"other"}))
                            .add("en", forms("en", {"one", "other"}))
                            .add("pt", forms("pt", {"one", "other"}))
                            .add("pt_PT", forms("pt_PT", {"other"}))
                            .load("pt_PT");
  EXPECT_EQ(shown(catalogs, 0), "pt_PT other") << "0 is one in pt, and other in pt_PT";
  EXPECT_EQ(shown(catalogs, 1), "pt one");
  EXPECT_EQ(shown(catalogs, 7), "pt_PT other");
}

TEST(plural, neutral_forms_come_last) {
  const auto catalogs =
      catalogs_of().add(".", forms("neutral", {"other"})).add("en", forms("en", {"one"})).load("en");
  EXPECT_EQ(shown(catalogs, 1), "en one");
  EXPECT_EQ(shown(catalogs, 2), "neutral other");
}

TEST(plural, without_the_form_it_is_other_then_the_message_itself) {
  const auto only_other = catalogs_of().add("pl", forms("pl", {"other"})).load("pl");
  EXPECT_EQ(shown(only_other, 3), "pl other");
  const auto plain =
      catalogs_of().add("pl", "<msg name='files'>plain</msg>" + forms("pl", {"one"})).load("pl");
  EXPECT_EQ(shown(plain, 3), "plain");
  EXPECT_EQ(shown(plain, 1), "pl one");
}

TEST(plural, unknown_message_and_catalog_are_nil) {
  const auto catalogs = catalogs_of().add("en", forms("en", {"one"})).load("en");
  EXPECT_EQ(&plural(catalogs, "app", "folders", 1), &catalog_t::m_nil_message);
  EXPECT_EQ(&plural(catalogs, "other", "files", 1), &message_catalogs::s_nil_message);
}

}  // namespace
