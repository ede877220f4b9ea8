// Every code has a sentence in the library, a message in each language of the catalog, and a page entry;
// there is nothing more in the catalog and on the page.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "orva/diagnostics/finding.hpp"
#include "orva/i18n/describe.hpp"

namespace {

using orva::diagnostics::finding;
using orva::diagnostics::known_codes;
using orva::i18n::message_catalogs;
using orva::i18n::message_item;

constexpr const char* languages[] = {"en", "de", "fr", "ja"};

message_catalogs catalogs_of(const std::string& language) {
  message_catalogs catalogs;
  const auto result = catalogs.load(ORVA_DIAGNOSTIC_MESSAGES, language);
  EXPECT_EQ(result.type(), message_catalogs::no_error) << result;
  return catalogs;
}

std::multiset<std::string> placeholders_of(std::string_view english) {
  static const std::regex placeholder(R"(\{([^}]*)\})");
  std::multiset<std::string> names;
  const std::string text(english);
  for (std::sregex_iterator found(text.begin(), text.end(), placeholder), end; found != end; ++found) {
    names.insert((*found)[1]);
  }
  return names;
}

std::multiset<std::string> placeholders_of(const orva::i18n::message_t& message) {
  std::multiset<std::string> names;
  for (const message_item& item : message) {
    if (item.type() != message_item::text) names.insert(item.name());
  }
  return names;
}

TEST(describe, documentation_example) {
  const finding found{
      orva::diagnostics::severity::error, "xml.missing_equals", "a.xml", {3, 12}, {{"name", "width"}}};
  EXPECT_EQ(orva::i18n::describe(found, catalogs_of("de")),
            "Nach dem Namen des Attributs width fehlt das =.");
}

/// A finding with each argument that its sentence names.
finding example_of(const orva::diagnostics::code_description& described) {
  finding found;
  found.code = described.code;
  for (const auto& name : placeholders_of(described.english))
    found.arguments.push_back(name, "<" + name + ">");
  return found;
}

class diagnostic_codes : public testing::TestWithParam<const char*> {};

TEST_P(diagnostic_codes, have_messages_with_the_same_arguments_in_each_language) {
  const message_catalogs catalogs = catalogs_of(GetParam());
  for (const auto& described : known_codes()) {
    SCOPED_TRACE(described.code);
    const auto& message = catalogs.message("orva.diagnostics", orva::strings::ustring8(described.code));
    EXPECT_EQ(message._orginal_locale(), GetParam());
    EXPECT_EQ(placeholders_of(message), placeholders_of(described.english));
  }
}

TEST_P(diagnostic_codes, have_no_message_without_a_code) {
  EXPECT_EQ(catalogs_of(GetParam()).count("orva.diagnostics"), known_codes().size());
}

TEST_P(diagnostic_codes, are_described) {
  const message_catalogs catalogs = catalogs_of(GetParam());
  for (const auto& described : known_codes()) {
    const finding found = example_of(described);
    const auto text = orva::i18n::describe(found, catalogs);
    for (const auto& argument : found.arguments) {
      EXPECT_NE(text.find(argument.value().as_utf8()), text.npos) << described.code << ": " << text;
    }
    EXPECT_EQ(text == sentence(found), GetParam() == std::string("en")) << described.code << ": " << text;
  }
}

INSTANTIATE_TEST_SUITE_P(languages, diagnostic_codes, testing::ValuesIn(languages),
                         [](const auto& each) { return std::string(each.param); });

TEST(diagnostic_codes, a_code_without_a_message_is_described_in_english) {
  finding found;
  found.code = "app.own";
  found.arguments.push_back("text", "Too dark.");
  EXPECT_EQ(orva::i18n::describe(found, catalogs_of("de")), "Too dark.");
}

TEST(diagnostic_codes, a_message_whose_argument_is_missing_is_described_in_english) {
  finding found;
  found.code = "diagnostics.not_kept";
  EXPECT_EQ(orva::i18n::describe(found, catalogs_of("de")), "Findings that are not shown: {count}.");
}

TEST(diagnostic_codes, a_language_without_messages_gets_english) {
  finding found;
  found.code = "diagnostics.not_kept";
  found.arguments.push_back("count", 3);
  EXPECT_EQ(orva::i18n::describe(found, catalogs_of("it_IT")), "Findings that are not shown: 3.");
}

TEST(diagnostic_codes, have_a_page_entry_in_the_same_order) {
  std::ifstream page(ORVA_DIAGNOSTIC_PAGE);
  ASSERT_TRUE(page);
  std::vector<std::string> entries;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("### ")) entries.push_back(line.substr(4));
  }
  std::vector<std::string> codes;
  for (const auto& described : known_codes()) codes.emplace_back(described.code);
  EXPECT_EQ(entries, codes);
}

}  // namespace
