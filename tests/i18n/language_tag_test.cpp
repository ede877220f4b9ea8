#include "orva/i18n/internal/language_tag.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/i18n/xmc_reading.hpp"

namespace {

using namespace orva_test;

TEST(language_tag, list_grows_from_neutral_to_specific) {
  const struct {
    const char* language;
    std::vector<const char*> accepted;
  } rows[] = {
      {"", {".", "en"}},
      {"de", {".", "en", "de"}},
      {"de_DE", {".", "en", "de", "de_DE"}},
      {"de-DE", {".", "en", "de", "de_DE"}},
      {"de_DE.UTF-8", {".", "en", "de", "de_DE", "de_DE_UTF", "de_DE_UTF_8"}},
      {"en", {".", "en"}},
      {"en_US", {".", "en", "en_US"}},
      {"en_en", {".", "en", "en_en"}},
      {"de_en", {".", "en", "de", "de_en"}},
      {"english", {".", "en", "english"}},
      {"de__DE", {".", "en", "de", "de_", "de__DE"}},
      {"de_", {".", "en", "de"}},
      {"de__", {".", "en", "de", "de_"}},
      {"_", {".", "en", ""}},
      {"__", {".", "en", "", "_"}},
      {"_de", {".", "en", "", "_de"}},
      {"-", {".", "en", "-"}},
      {"--", {".", "en", "", "_"}},
      {"..", {".", "en", "", "_"}},
  };
  for (const auto& row : rows) {
    xmc_file_loader loader;
    loader.handle_language(row.language);
    ORVA_NAMESPACE::types::uint32 weight = 0;
    for (const char* tag : row.accepted) {
      EXPECT_EQ(loader.get_locale_weight(tag), ++weight) << row.language << " weighs " << tag;
      EXPECT_TRUE(loader.is_lang_id_good(tag));
    }
    for (const char* tag : {"fr", "d", "de_D", "de_DE_", "DE", "en_G", "."}) {
      if (std::find(row.accepted.begin(), row.accepted.end(), std::string(tag)) != row.accepted.end())
        continue;
      EXPECT_EQ(loader.get_locale_weight(tag), 0u) << row.language << " weighs " << tag;
      EXPECT_FALSE(loader.is_lang_id_good(tag));
    }
  }
}

TEST(language_tag, none_is_accepted_before_one_was_set) {
  const xmc_file_loader loader;
  for (const char* tag : {".", "en", "", "de"}) {
    EXPECT_EQ(loader.get_locale_weight(tag), 0u) << tag;
    EXPECT_FALSE(loader.is_lang_id_good(tag)) << tag;
  }
}

TEST(language_tag, neutral_tag_as_language_counts_at_its_first_position) {
  xmc_file_loader loader;
  loader.handle_language(".");
  EXPECT_EQ(loader.get_locale_weight("."), 1u);
  EXPECT_EQ(loader.get_locale_weight("en"), 2u);
}

TEST(language_tag, tag_is_looked_up_unchanged_and_then_normalized) {
  xmc_file_loader loader;
  loader.handle_language("de_DE");
  EXPECT_EQ(loader.get_locale_weight("de-DE"), 4u);
  EXPECT_EQ(loader.get_locale_weight("de.DE"), 4u);
  // Only a tag of one character is not normalized.
  EXPECT_EQ(loader.get_locale_weight("-"), 0u);
  loader.handle_language("-");
  EXPECT_EQ(loader.get_locale_weight("-"), 3u);
  EXPECT_EQ(loader.get_locale_weight("_"), 0u);
}

TEST(language_tag, each_call_starts_a_new_list) {
  xmc_file_loader loader;
  loader.handle_language("de_DE");
  loader.handle_language("fr");
  EXPECT_EQ(loader.get_locale_weight("de"), 0u);
  EXPECT_EQ(loader.get_locale_weight("fr"), 3u);
}

TEST(language_tag, texts_of_every_width) {
  xmc_file_loader loader;
  loader.handle_language(ORVA_NAMESPACE::strings::ustring16({'d', 'e'}));
  EXPECT_EQ(loader.get_locale_weight(ORVA_NAMESPACE::strings::ustring32({'d', 'e'})), 3u);
}

TEST(language_tag, catalog_without_language_is_wanted_by_a_tag_with_an_empty_part) {
  const ustring8 text = xmc("<catalog name='app'><msg name='m'>x</msg></catalog>");
  EXPECT_EQ(read(text, "de").error.type(), load_error::no_catalog);
  EXPECT_EQ(read(text, "_de").error.type(), load_error::no_error);
}

TEST(language_tag, file_is_read_for_parents_english_and_neutral) {
  const ustring8 text = xmc(
      app(".", "<msg name='a'>.</msg><msg name='b'>.</msg><msg name='c'>.</msg><msg name='d'>.</msg>") +
      app("de_DE", "<msg name='d'>de_DE</msg>") + app("de", "<msg name='c'>de</msg><msg name='d'>de</msg>") +
      app("en", "<msg name='b'>en</msg><msg name='c'>en</msg>") + app("de_AT", "<msg name='a'>de_AT</msg>"));
  const reading result = read(text, "de_DE");
  EXPECT_EQ(result.message("a").as_utf8(), ".");
  EXPECT_EQ(result.message("b").as_utf8(), "en");
  EXPECT_EQ(result.message("c").as_utf8(), "de");
  EXPECT_EQ(result.message("d").as_utf8(), "de_DE");
}

TEST(language_tag, tag_of_a_million_parts_costs_no_square) {
  xmc_file_loader loader;
  const ustring8 tag(1000000, '_');
  loader.handle_language(tag);
  EXPECT_EQ(loader.get_locale_weight(tag.substr(1)), 2u + 1000000u);
  EXPECT_EQ(loader.get_locale_weight("de"), 0u);
}

}  // namespace
