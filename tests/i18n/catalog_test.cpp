#include "orva/i18n/catalog.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "orva/memory/pointers/shared_pointer.hpp"

namespace {

using ORVA_NAMESPACE::generic::abilities::create_dynamic;
using ORVA_NAMESPACE::i18n::catalog_t;
using ORVA_NAMESPACE::i18n::message_item;
using ORVA_NAMESPACE::i18n::message_t;
using ORVA_NAMESPACE::memory::pointers::shared_pointer;
using ORVA_NAMESPACE::strings::ustring16;
using ORVA_NAMESPACE::strings::ustring32;
using ORVA_NAMESPACE::strings::ustring8;
using ORVA_NAMESPACE::types::nil;

message_t message_of(const ustring8& name, const ustring8& text, const ustring8& locale) {
  message_t message(name, {message_item(text)});
  message._orginal_locale(locale);
  return message;
}

std::vector<ustring8> languages_of(const catalog_t& catalog) {
  return {catalog.languages_begin(), catalog.languages_end()};
}

/// Messages from "de" and "en".
catalog_t bilingual() {
  catalog_t catalog;
  catalog._name("app");
  catalog.message("yes", message_of("yes", "ja", "de"));
  catalog.message("no", message_of("no", "no", "en"));
  return catalog;
}

TEST(catalog, starts_empty) {
  const catalog_t catalog;
  EXPECT_EQ(catalog.size(), 0u);
  EXPECT_EQ(catalog.name(), "");
  EXPECT_TRUE(catalog.begin() == catalog.end());
  EXPECT_TRUE(catalog.languages_begin() == catalog.languages_end());
  EXPECT_TRUE(catalog == nil);
  EXPECT_FALSE(catalog != nil);
  EXPECT_TRUE(catalog.equal(nil));
}

TEST(catalog, returns_nil_for_an_unknown_message) {
  const catalog_t catalog = bilingual();
  EXPECT_TRUE(catalog.message("x") == nil);
  EXPECT_EQ(&catalog.message("x"), &catalog_t::m_nil_message);
  EXPECT_FALSE(catalog.has_message("x"));
  EXPECT_EQ(catalog.message("x").as_utf8(), "");
}

TEST(catalog, finds_messages_by_names_of_every_width) {
  const catalog_t catalog = bilingual();
  EXPECT_TRUE(catalog.has_message("yes"));
  EXPECT_TRUE(catalog.has_message(std::string("yes")));
  EXPECT_TRUE(catalog.has_message(ustring8("yes")));
  EXPECT_TRUE(catalog.has_message(ustring16({'y', 'e', 's'})));
  EXPECT_TRUE(catalog.has_message(ustring32({'y', 'e', 's'})));
  EXPECT_EQ(catalog.message(ustring16({'y', 'e', 's'})).as_utf8(), "ja");
  EXPECT_EQ(catalog.message(ustring32({'y', 'e', 's'})).as_utf8(), "ja");
  EXPECT_FALSE(catalog.has_message("YES"));
}

TEST(catalog, replaces_a_message_and_returns_the_stored_one) {
  catalog_t catalog = bilingual();
  const message_t& stored = catalog.message("yes", message_of("yes", "oui", "fr"));
  EXPECT_EQ(stored.as_utf8(), "oui");
  EXPECT_EQ(&stored, &catalog.message("yes"));
  EXPECT_EQ(catalog.size(), 2u);
}

TEST(catalog, stores_under_the_given_name_not_under_that_of_the_message) {
  catalog_t catalog;
  catalog.message("key", message_of("other", "text", "en"));
  EXPECT_TRUE(catalog.has_message("key"));
  EXPECT_FALSE(catalog.has_message("other"));
  EXPECT_EQ(catalog.message("key").name(), "other");
}

TEST(catalog, walks_its_messages_sorted_by_name) {
  const catalog_t catalog = bilingual();
  std::vector<ustring8> names;
  for (const auto& [name, message] : catalog) names.push_back(name);
  EXPECT_EQ(names, (std::vector<ustring8>{"no", "yes"}));
}

TEST(catalog, reports_the_languages_of_its_messages) {
  EXPECT_EQ(languages_of(bilingual()), (std::vector<ustring8>{"de", "en"}));
}

TEST(catalog, keeps_the_languages_that_the_first_lookup_found) {
  catalog_t catalog = bilingual();
  EXPECT_TRUE(catalog.is_language_loaded("de"));
  catalog.message("maybe", message_of("maybe", "peut-etre", "fr"));
  EXPECT_EQ(languages_of(catalog), (std::vector<ustring8>{"de", "en"}));
  EXPECT_FALSE(catalog.is_language_loaded("fr"));
  catalog.gen_lang_set();
  EXPECT_TRUE(catalog.is_language_loaded("fr"));
}

/// Runs `read` on several threads at once.
template <typename Read>
void on_many_threads(Read read) {
  constexpr int count = 4;
  std::barrier start(count);
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      read();
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(catalog, first_lookups_of_a_language_may_run_on_many_threads) {
  std::atomic<int> wrong = 0;
  for (int round = 0; round < 200; ++round) {
    catalog_t filled;
    for (int i = 0; i < 20; ++i) {
      const ustring8 number = std::to_string(i);
      filled.message("m" + number, message_of("m" + number, "text", "l" + number));
    }
    const catalog_t& catalog = filled;
    on_many_threads([&] {
      bool right = catalog.is_language_loaded("l7") && !catalog.is_language_loaded("l20");
      right = right && languages_of(catalog).size() == 20 && !(catalog == nil);
      const catalog_t copy(catalog);
      right = right && copy.is_language_loaded("l19") && catalog.has_message("m3");
      catalog.gen_lang_set();
      if (!right) ++wrong;
    });
  }
  EXPECT_EQ(wrong, 0);
}

TEST(catalog, keeps_a_language_whose_messages_were_replaced) {
  catalog_t catalog = bilingual();
  catalog.gen_lang_set();
  catalog.message("yes", message_of("yes", "yes", "en"));
  EXPECT_TRUE(catalog.is_language_loaded("de"));
}

TEST(catalog, takes_languages_given_at_construction_unchanged) {
  const catalog_t catalog("app", {"sv", "fi"}, {{"yes", message_of("yes", "ja", "de")}});
  EXPECT_EQ(catalog.name(), "app");
  EXPECT_EQ(languages_of(catalog), (std::vector<ustring8>{"fi", "sv"}));
  EXPECT_FALSE(catalog.is_language_loaded("de"));
  EXPECT_EQ(catalog.size(), 1u);
}

TEST(catalog, compares_languages_normalized_and_without_parents) {
  const struct {
    const char* loaded;
    const char* argument;
    bool result;
  } rows[] = {
      {"de_DE", "de-DE", true},
      {"de_DE", "de.DE", true},
      {"de_DE", "de_DE", true},
      {"de_DE_UTF_8", "de-DE.UTF-8", true},
      {"de", "de-DE", false},
      {"de", "de_DE", false},
      {"de_DE", "de", false},
      {"de_DE", "DE_de", false},
      // The spelling of the file is kept; only the argument is normalized.
      {"de-DE", "de-DE", false},
      {"de-DE", "de_DE", false},
      // A tag of one character is not changed.
      {".", ".", true},
      {"_", ".", false},
      {"en", "", false},
  };
  for (const auto& row : rows) {
    catalog_t catalog;
    catalog.message("m", message_of("m", "text", row.loaded));
    EXPECT_EQ(catalog.is_language_loaded(row.argument), row.result) << row.loaded << " for " << row.argument;
  }
  catalog_t catalog;
  catalog.message("m", message_of("m", "text", "de"));
  EXPECT_TRUE(catalog.is_language_loaded(ustring16({'d', 'e'})));
  EXPECT_TRUE(catalog.is_language_loaded(ustring32({'d', 'e'})));
}

TEST(catalog, is_nil_only_without_name_languages_and_messages) {
  catalog_t named;
  named._name("app");
  EXPECT_TRUE(named != nil);
  EXPECT_TRUE(catalog_t("", {"de"}, {}) != nil);
  EXPECT_TRUE(catalog_t("", {}, {{"m", message_t()}}) != nil);
  EXPECT_TRUE(catalog_t("", {}, {}) == nil);
}

TEST(catalog, is_emptied_by_nil) {
  catalog_t catalog = bilingual();
  catalog.gen_lang_set();
  catalog = nil;
  EXPECT_TRUE(catalog == nil);
  catalog_t other = bilingual();
  EXPECT_EQ(&other.assign(nil), &other);
  EXPECT_TRUE(other == nil);
}

TEST(catalog, copies_deeply) {
  const catalog_t source = bilingual();
  catalog_t copy(source);
  catalog_t assigned;
  EXPECT_EQ(&assigned.assign(source), &assigned);
  copy.message("yes", message_of("yes", "si", "it"));
  assigned = copy;
  EXPECT_EQ(source.message("yes").as_utf8(), "ja");
  EXPECT_EQ(assigned.message("yes").as_utf8(), "si");
  EXPECT_EQ(assigned.name(), "app");
  assigned = *&assigned;
  EXPECT_EQ(assigned.size(), 2u);
}

TEST(catalog, assignment_leaves_the_count_of_pointers_alone) {
  shared_pointer<catalog_t> held(create_dynamic<catalog_t>());
  {
    const shared_pointer<catalog_t> second = held;
    *held = bilingual();
    EXPECT_TRUE(held->is_created_dynamic());
  }
  EXPECT_EQ(held->size(), 2u);
}

/// Names that have the same slot in a hash table with the standard hash.
std::vector<ustring8> names_of_one_slot(std::size_t count) {
  std::vector<ustring8> names;
  for (int i = 0; names.size() < count; ++i) {
    const ustring8 name = "name_" + std::to_string(i);
    if (std::hash<ustring8>()(name) % 4096 == 0) names.push_back(name);
  }
  return names;
}

void expect_to_find_all(const catalog_t& catalog, const std::vector<ustring8>& names) {
  for (const ustring8& name : names) {
    ASSERT_TRUE(catalog.has_message(name)) << name;
    ASSERT_EQ(catalog.message(name).name(), name);
  }
}

TEST(catalog, finds_messages_whose_names_share_a_slot) {
  const auto names = names_of_one_slot(60);
  catalog_t catalog;
  for (std::size_t i = 0; i < names.size(); ++i) {
    catalog.message(names[i], message_of(names[i], "text", "de"));
    expect_to_find_all(catalog, {names.begin(), names.begin() + static_cast<std::ptrdiff_t>(i) + 1});
    for (std::size_t later = i + 1; later < names.size(); ++later) {
      ASSERT_FALSE(catalog.has_message(names[later]));
    }
  }
}

TEST(catalog, finds_each_of_many_messages_also_in_copies) {
  std::vector<ustring8> names;
  catalog_t catalog;
  for (int i = 0; i < 5000; ++i) {
    names.push_back("settings.page.item_" + std::to_string(i * 7919 % 5000));
    catalog.message(names.back(), message_of(names.back(), "text", "de"));
  }
  expect_to_find_all(catalog, names);
  EXPECT_FALSE(catalog.has_message("settings.page.item_"));

  catalog_t copy(catalog);
  catalog_t assigned = bilingual();
  assigned = catalog;
  const catalog_t made("app", {}, {catalog.begin(), catalog.end()});
  catalog = nil;
  EXPECT_FALSE(catalog.has_message(names.front()));
  for (const catalog_t* each : std::initializer_list<const catalog_t*>{&copy, &assigned, &made}) {
    expect_to_find_all(*each, names);
  }
  EXPECT_FALSE(assigned.has_message("yes"));
}

TEST(catalog, replaced_message_is_found_in_its_new_form) {
  catalog_t catalog = bilingual();
  const message_t& stored = catalog.message("yes", message_of("yes", "oui", "fr"));
  EXPECT_EQ(&catalog.message("yes"), &stored);
  EXPECT_EQ(catalog.message("yes").as_utf8(), "oui");
  EXPECT_EQ(catalog.size(), 2u);
}

TEST(catalog, takes_its_name_as_a_view) {
  catalog_t catalog(std::string_view("app"), {}, {});
  EXPECT_EQ(catalog.name(), "app");
  catalog._name(std::string_view("other"));
  EXPECT_EQ(catalog.name(), "other");
  catalog._name(catalog_t("third", {}, {}).name());
  EXPECT_EQ(catalog.name(), "third");
}

}  // namespace
