// Each text of the library has a message with the same arguments in each language of the catalog, and there
// is nothing more in it.
#include "orva/config/text_lookup.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

#include "orva/i18n/translate.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using config::known_texts;
using i18n::message_catalogs;

message_catalogs catalogs_of(const std::string& language) {
  message_catalogs catalogs;
  const auto result = catalogs.load(CONFIG_MESSAGES, language);
  EXPECT_EQ(result.type(), message_catalogs::no_error) << result;
  return catalogs;
}

std::multiset<std::string> arguments_of(const std::string& text) {
  static const std::regex argument(R"(\{([^}]*)\})");
  std::multiset<std::string> names;
  for (std::sregex_iterator found(text.begin(), text.end(), argument), end; found != end; ++found) {
    names.insert((*found)[1]);
  }
  return names;
}

TEST(known_texts, are_sorted) {
  EXPECT_TRUE(std::ranges::is_sorted(known_texts(), std::ranges::less_equal(), &config::known_text::name));
}

class known_texts_in : public testing::TestWithParam<const char*> {};

TEST_P(known_texts_in, each_language_have_the_same_arguments) {
  const message_catalogs catalogs = catalogs_of(GetParam());
  EXPECT_EQ(catalogs.count("orva.config"), known_texts().size());
  for (const auto& known : known_texts()) {
    SCOPED_TRACE(known.name);
    EXPECT_EQ(catalogs.message("orva.config", strings::ustring8(known.name))._orginal_locale(), GetParam());
    const std::string text = i18n::translate(known.name, "", catalogs, "viewer");
    EXPECT_EQ(arguments_of(text), arguments_of(std::string(known.english)));
    EXPECT_TRUE(GetParam() != std::string("en") || text == known.english) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(languages, known_texts_in, testing::Values("en", "de", "fr", "ja"),
                         [](const auto& each) { return std::string(each.param); });

TEST(translate, takes_the_text_of_the_program_before_that_of_the_library) {
  message_catalogs catalogs = catalogs_of("ja");
  ASSERT_EQ(catalogs.load(HELP_PAGES, "ja"), message_catalogs::no_error);
  EXPECT_EQ(i18n::translate("setting.threads", "Threads.", catalogs, "viewer"), "先に絵を読むスレッドの数。");
  EXPECT_EQ(i18n::translate("help.required", "required", catalogs, "viewer"), "必須");
  EXPECT_EQ(i18n::translate("help.value_choice", "WORD", catalogs, "viewer"), "言葉");
  EXPECT_EQ(i18n::translate("setting.none", "None.", catalogs, "viewer"), "None.");
  EXPECT_EQ(i18n::translate("help.default", "", message_catalogs(), "viewer"), "");
}

}  // namespace
