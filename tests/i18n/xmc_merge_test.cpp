// Random documents, compared with a simple model of which message stays.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "tests/i18n/xmc_reading.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace orva_test;

struct entry {
  std::string catalog;
  std::string name;
  std::string language;
  std::string text;
};

/// The languages that the loads accept, from the least to the most specific.
const std::vector<std::string> accepted = {".", "en", "de", "de_DE"};

int weight(std::string language) {
  if (language.size() > 1) std::replace(language.begin(), language.end(), '-', '_');
  const auto found = std::find(accepted.begin(), accepted.end(), language);
  return found == accepted.end() ? 0 : static_cast<int>(found - accepted.begin()) + 1;
}

using model = std::map<std::string, std::map<std::string, entry>>;

std::vector<entry> random_entries(random_engine& random) {
  const std::vector<std::string> languages = {".", "en", "de", "de_DE", "de-DE", "fr", "", "de_AT"};
  std::vector<entry> entries(random() % 40);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    entries[i] = {"c" + std::to_string(random() % 3), "m" + std::to_string(random() % 6),
                  languages[random() % languages.size()], "t" + std::to_string(random())};
  }
  return entries;
}

/// Entries in a row that have the same catalog and language sometimes share an element.
ustring8 document_of(const std::vector<entry>& entries, random_engine& random) {
  ustring8 content;
  const entry* open = nullptr;
  for (const entry& next : entries) {
    const bool joins = open != nullptr && open->catalog == next.catalog && open->language == next.language &&
                       random() % 4 != 0;
    if (!joins) {
      if (open != nullptr) content += "</catalog>\n";
      content += "<catalog lang='" + next.language + "' name='" + next.catalog + "'>";
    }
    content += "<msg name='" + next.name + "'>" + next.text + "</msg> ";
    open = &next;
  }
  return xmc(content + (open != nullptr ? "</catalog>" : ""));
}

/// Within a load the first of equal messages stays.
model read_model(const std::vector<entry>& entries) {
  model result;
  for (const entry& next : entries) {
    if (weight(next.language) == 0) continue;
    auto& messages = result[next.catalog];
    const auto found = messages.find(next.name);
    if (found == messages.end() || weight(found->second.language) < weight(next.language))
      messages[next.name] = next;
  }
  return result;
}

/// In a merge the new one of two equal messages replaces the old one.
unsigned merge_model(const model& loaded, model& target) {
  unsigned stored = 0;
  for (const auto& [catalog, messages] : loaded) {
    for (const auto& [name, next] : messages) {
      auto& held = target[catalog];
      const auto found = held.find(name);
      if (found != held.end() && weight(found->second.language) > weight(next.language)) continue;
      held[name] = next;
      ++stored;
    }
  }
  return stored;
}

void expect_same(const xmc_file_loader::catalog_map& catalogs, const model& expected) {
  ASSERT_EQ(catalogs.size(), expected.size());
  for (const auto& [catalog, messages] : expected) {
    const auto& found = *catalogs.at(catalog);
    ASSERT_EQ(found.size(), messages.size());
    for (const auto& [name, message] : messages) {
      EXPECT_EQ(found.message(name).as_utf8(), message.text);
      EXPECT_EQ(found.message(name)._orginal_locale(), message.language);
      EXPECT_EQ(found.message(name).name(), name);
    }
  }
}

TEST(xmc_merge, random_loads_leave_what_the_model_leaves) {
  orva_test::random_engine random;
  for (int round = 0; round < 300; ++round) {
    xmc_file_loader::catalog_map catalogs;
    model expected;
    for (int load = 0; load < 3; ++load) {
      const std::vector<entry> entries = random_entries(random);
      xmc_file_loader loader;
      loader.handle_language("de-DE");
      const model loaded = read_model(entries);
      const load_error error = loader.parse_string(document_of(entries, random), "random.xmc");
      ASSERT_EQ(error.type(), loaded.empty() ? load_error::no_catalog : load_error::no_error);
      const bool moves = random() % 2 == 0;
      const auto stored = moves ? loader.move_data(catalogs) : loader.combine_data(catalogs);
      ASSERT_EQ(stored, merge_model(loaded, expected));
      expect_same(catalogs, expected);
    }
    if (HasFailure()) return;
  }
}

}  // namespace
