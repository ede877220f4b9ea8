#include "orva/i18n/message_catalogs.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/strings/unicode.hpp"
#include "tests/i18n/xmc_reading.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::i18n::catalog_t;
using ORVA_NAMESPACE::i18n::message_catalogs;
using ORVA_NAMESPACE::strings::ustring16;
using ORVA_NAMESPACE::strings::ustring32;
using ORVA_NAMESPACE::strings::utf8_to_utf16;
using ORVA_NAMESPACE::strings::utf8_to_utf32;
using ORVA_NAMESPACE::strings::wide_string;
using ORVA_NAMESPACE::types::nil;

/// A file with the message "m" in catalog `name`.
std::string file_of(std::string_view name, std::string_view text, std::string_view language = "de") {
  std::string result = "<?xml?><xmc version='1.1'><catalog name='";
  result.append(name).append("' lang='").append(language).append("'><msg name='m'>").append(text);
  return result + "</msg></catalog></xmc>";
}

TEST(message_catalogs, starts_without_catalogs) {
  const message_catalogs catalogs;
  EXPECT_EQ(catalogs.count(), 0u);
  EXPECT_EQ(catalogs.size(), 0u);
  EXPECT_TRUE(catalogs.begin() == catalogs.end());
  EXPECT_TRUE(catalogs == nil);
  EXPECT_FALSE(catalogs != nil);
  EXPECT_TRUE(catalogs.equal(nil));
}

TEST(message_catalogs, loads_a_file_and_renders) {
  const temporary_directory directory;
  const std::string file = directory.write(
      "app.xmc",
      xmc(app("de", "<msg name='free'>Frei: <arg name='n'/></msg>") + app("en", "<msg name='x'>y</msg>")));
  message_catalogs catalogs;
  const message_catalogs::result_type result = catalogs.load(file, "de_DE");
  EXPECT_EQ(result, message_catalogs::no_error);
  EXPECT_EQ(result.message(),
            "message_catalogs::result_type - No Error\nxmc_file_loader::load_error - No Error");
  ORVA_NAMESPACE::generic::varg_list args;
  args.push_back("n", 7);
  EXPECT_EQ(catalogs.message("app", "free").as_utf8(args), "Frei: 7");
  EXPECT_EQ(catalogs.count("app"), 2u);
  EXPECT_EQ(catalogs.size("app"), 2u);
}

TEST(message_catalogs, unknown_names_give_nil_objects) {
  const temporary_directory directory;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.write("app.xmc", file_of("app", "x")), "de"), message_catalogs::no_error);
  EXPECT_EQ(&catalogs.message("unknown", "x"), &message_catalogs::s_nil_message);
  EXPECT_EQ(catalogs.message("unknown", "x").as_utf8(), "");
  EXPECT_FALSE(catalogs.has_message("unknown", "x"));
  EXPECT_EQ(&catalogs.message("app", "x"), &catalog_t::m_nil_message);
  EXPECT_FALSE(catalogs.has_message("app", "x"));
  EXPECT_TRUE(catalogs.has_message("app", "m"));
  EXPECT_EQ(&catalogs.catalog("unknown"), &message_catalogs::s_nil_catalog);
  EXPECT_EQ(catalogs.count("unknown"), 0u);
  EXPECT_EQ(catalogs.size("unknown"), 0u);
  EXPECT_TRUE(catalogs.begin("unknown") == message_catalogs::s_nil_catalog.begin());
  EXPECT_TRUE(catalogs.begin("unknown") == catalogs.end("unknown"));
  EXPECT_EQ(catalogs.begin("app")->first, "m");
  EXPECT_TRUE(++catalogs.begin("app") == catalogs.end("app"));
}

TEST(message_catalogs, entry_emptied_from_outside_counts_as_unknown) {
  const temporary_directory directory;
  const std::string file = directory.write("app.xmc", file_of("app", "x"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(file, "de"), message_catalogs::no_error);
  catalogs.begin()->second = nullptr;
  EXPECT_TRUE(catalogs.has_catalog("app"));
  EXPECT_EQ(&catalogs.catalog("app"), &message_catalogs::s_nil_catalog);
  EXPECT_EQ(&catalogs.message("app", "m"), &message_catalogs::s_nil_message);
  // A merge into it is a mistake of the program.
  try {
    static_cast<void>(catalogs.load(file, "de"));
    FAIL() << "nothing thrown";
  } catch (const char* text) {
    EXPECT_STREQ(text, "unreferanced object");
  }
}

TEST(message_catalogs, missing_path_is_no_entity_and_missing_file_no_file) {
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load("missing", "en"), message_catalogs::entity_not_found);
  EXPECT_EQ(catalogs.load("missing", "en").message(),
            "message_catalogs::result_type - Entity (file or directory) \"missing\" was not found on disk");
  EXPECT_EQ(catalogs.load_file("missing", "en"), message_catalogs::file_not_found);
  EXPECT_EQ(catalogs.load_file("missing", "en").message(),
            "message_catalogs::result_type - File was not found on disk\nxmc_file_loader::load_error - File "
            "\"missing\" was not found on disk");
  EXPECT_EQ(catalogs.load_directory("missing", "en"), message_catalogs::directory_not_found);
  EXPECT_EQ(catalogs.load_directory("missing", "en").message(),
            "message_catalogs::result_type - Directory \"missing\" was not found on disk");
}

TEST(message_catalogs, empty_language_is_not_supported) {
  const temporary_directory directory;
  const std::string file = directory.write("app.xmc", file_of("app", "x"));
  message_catalogs catalogs;
  for (const auto& result : {catalogs.load(file, ""), catalogs.load_file("missing", ""),
                             catalogs.load_directory(directory.name(), "")}) {
    EXPECT_EQ(result, message_catalogs::no_default_locale);
    EXPECT_EQ(result.message(),
              "message_catalogs::result_type - Default locale lookup not supported "
              "yet\nxmc_file_loader::load_error "
              "- Default locale lookup not supported yet");
  }
  EXPECT_TRUE(catalogs == nil);
}

TEST(message_catalogs, directory_loads_xmc_and_xml_files_of_either_case) {
  const temporary_directory directory;
  directory.write("A.XMC", file_of("a", "1"));
  directory.write("b.xml", file_of("b", "2"));
  directory.write("c.txt", file_of("c", "3"));
  directory.write("xmc", file_of("d", "4"));
  directory.write("e.xmc.bak", file_of("e", "5"));
  directory.write(".xmc", file_of("f", "6"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::no_error);
  EXPECT_TRUE(catalogs.has_catalog("a"));
  EXPECT_TRUE(catalogs.has_catalog("b"));
  EXPECT_TRUE(catalogs.has_catalog("f"));
  EXPECT_EQ(catalogs.count(), 3u);
}

TEST(message_catalogs, directories_are_loaded_recursively_in_listing_order) {
  const temporary_directory directory;
  directory.write("a.xmc", file_of("app", "a"));
  directory.write("b/deep/x.xmc", file_of("app", "b/deep/x"));
  directory.write("b/z.xmc", file_of("app", "b/z"));
  directory.write("c.xmc", file_of("app", "c"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load_directory(directory.name(), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "c");
  std::filesystem::remove(directory.file("c.xmc"));
  EXPECT_EQ(catalogs.load_directory(directory.name(), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "b/z");
  std::filesystem::remove(directory.file("b/z.xmc"));
  EXPECT_EQ(catalogs.load_directory(directory.name(), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "b/deep/x");
}

TEST(message_catalogs, directory_walk_ends_at_the_first_failure) {
  const temporary_directory directory;
  directory.write("a.xmc", file_of("a", "1"));
  directory.write("b/c.xmc", file_of("c", "2", "fr"));
  directory.write("d.xmc", file_of("d", "3"));
  message_catalogs catalogs;
  const auto result = catalogs.load(directory.name(), "de");
  EXPECT_EQ(result, message_catalogs::no_catalog);
  EXPECT_EQ(
      result.message(),
      "message_catalogs::result_type - No catalog was loaded\nxmc_file_loader::load_error - No catalog was "
      "loaded in file: \"" +
          directory.file("b/c.xmc") + "\"");
  EXPECT_TRUE(catalogs.has_catalog("a"));
  EXPECT_FALSE(catalogs.has_catalog("c"));
  EXPECT_FALSE(catalogs.has_catalog("d"));
}

TEST(message_catalogs, directory_load_returns_its_last_result) {
  const temporary_directory directory;
  directory.write("b.xmc", file_of("b", "1"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load_directory(directory.name(), "de").message(),
            "message_catalogs::result_type - No Error\nxmc_file_loader::load_error - No Error");
  directory.make_directory("c");
  EXPECT_EQ(catalogs.load_directory(directory.name(), "de").message(),
            "message_catalogs::result_type - No Error");
}

TEST(message_catalogs, empty_directory_is_no_catalog_only_while_the_set_is_empty) {
  const temporary_directory directory;
  const std::string empty = directory.make_directory("empty");
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load_directory(empty, "de"), message_catalogs::no_error);
  const auto result = catalogs.load(empty, "de");
  EXPECT_EQ(result, message_catalogs::no_catalog);
  EXPECT_EQ(result.message(),
            "message_catalogs::result_type - No catalog was loaded in file: \"" + empty + "\"");
  EXPECT_EQ(catalogs.load(std::vector<std::string>{empty, empty}, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(directory.write("app.xmc", file_of("app", "x")), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(empty, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load_directory(empty, "de"), message_catalogs::no_error);
}

TEST(message_catalogs, list_stops_at_the_first_failure_and_keeps_what_it_has) {
  const temporary_directory directory;
  const std::string a = directory.write("a.xmc", file_of("a", "1"));
  const std::string b = directory.write("sub/b.xmc", file_of("b", "2"));
  const std::string c = directory.write("c.xmc", file_of("c", "3"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(std::vector<std::string>{}, "de").message(),
            "message_catalogs::result_type - No Error");
  const auto result = catalogs.load(std::vector<std::string>{a, directory.file("sub"), "missing", c}, "de");
  EXPECT_EQ(result, message_catalogs::entity_not_found);
  EXPECT_EQ(result.message(),
            "message_catalogs::result_type - Entity (file or directory) \"missing\" was not found on disk");
  EXPECT_TRUE(catalogs.has_catalog("a"));
  EXPECT_TRUE(catalogs.has_catalog("b"));
  EXPECT_FALSE(catalogs.has_catalog("c"));
}

TEST(message_catalogs, paths_and_lists_of_every_width) {
  const temporary_directory directory;
  const ustring8 file = directory.write("sm\xC3\xB6rg\xC3\xA5s.xmc", file_of("app", "x"));
  const ustring16 file16 = utf8_to_utf16(file);
  const ustring32 file32 = utf8_to_utf32(file);
  message_catalogs catalogs;
  const auto loaded = [&](const message_catalogs::result_type& result) {
    const bool good = result == message_catalogs::no_error && catalogs.has_catalog("app");
    catalogs.erase();
    return good;
  };
  EXPECT_TRUE(loaded(catalogs.load(file, "de")));
  EXPECT_TRUE(loaded(catalogs.load(file16, "de")));
  EXPECT_TRUE(loaded(catalogs.load(file32, "de")));
  EXPECT_TRUE(loaded(catalogs.load(std::string(file), std::string("de"))));
  EXPECT_TRUE(loaded(catalogs.load(wide_string(file16), ustring16({'d', 'e'}), ustring32({'a', 'p', 'p'}))));
  EXPECT_TRUE(loaded(catalogs.load_file(file16, "de", "app")));
  EXPECT_TRUE(loaded(catalogs.load_directory(utf8_to_utf32(ustring8(directory.name())), "de", "app")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<ustring8>{file}, "de")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<ustring16>{file16}, "de")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<ustring32>{file32}, "de")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<std::string>{file}, "de")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<wide_string>{file16}, "de", "app")));
  EXPECT_TRUE(loaded(catalogs.load(std::vector<const char*>{file.c_str()}, "de")));
}

TEST(message_catalogs, loads_only_the_given_catalog) {
  const temporary_directory directory;
  directory.write("a.xmc", file_of("a", "1"));
  const std::string b = directory.write("b.xmc", file_of("b", "2"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(b, "de", "a"), message_catalogs::no_catalog);
  EXPECT_EQ(catalogs.load(b, "de", "b"), message_catalogs::no_error);
  // The load ends at b.xmc, which has no catalog of that name.
  EXPECT_EQ(catalogs.load(directory.name(), "de", "a"), message_catalogs::no_catalog);
  EXPECT_TRUE(catalogs.has_catalog("a"));
}

TEST(message_catalogs, failing_file_adds_nothing) {
  const temporary_directory directory;
  const std::string good = directory.write("good.xmc", file_of("app", "x"));
  const std::string bad = directory.write(
      "bad.xmc",
      xmc("<catalog name='other' lang='de'><msg name='m'>y</msg></catalog>" + app("de", "<foo/>")));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(good, "de"), message_catalogs::no_error);
  const auto result = catalogs.load(bad, "de");
  EXPECT_EQ(result, message_catalogs::xmc_invalid);
  EXPECT_EQ(
      result.message(),
      "message_catalogs::result_type - XMC file is not valid\nxmc_file_loader::load_error - Expected catalog "
      "end tag not found for catalog \"app\"\n in catalog element: \"app\"\n in file: \"" +
          bad + "\"");
  EXPECT_FALSE(catalogs.has_catalog("other"));
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "x");
}

TEST(message_catalogs, bad_file_never_throws) {
  const temporary_directory directory;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.write("reference.xmc", file_of("app", "&#8364;")), "de"),
            message_catalogs::unexpected_error);
  EXPECT_EQ(catalogs.load(directory.write("cut.xmc", "<?xml?><xmc"), "de"),
            message_catalogs::xml_parse_error);
  EXPECT_EQ(catalogs.load(directory.write("empty.xmc", ""), "de"), message_catalogs::xml_parse_error);
  EXPECT_EQ(catalogs.load_file(directory.name(), "de"), message_catalogs::xml_parse_error);
}

TEST(message_catalogs, equal_language_takes_the_later_text) {
  const temporary_directory directory;
  const std::string one = directory.write("one.xmc", file_of("app", "1"));
  const std::string two = directory.write("two.xmc", file_of("app", "2"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(one, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(two, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "2");
  EXPECT_EQ(catalogs.load(one, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "1");
}

TEST(message_catalogs, more_specific_language_stays) {
  const temporary_directory directory;
  const std::string special = directory.write("special.xmc", file_of("app", "special", "de_DE"));
  const std::string german = directory.write("german.xmc", file_of("app", "german", "de"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(german, "de_DE"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(special, "de_DE"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "special");
  EXPECT_EQ(catalogs.load(german, "de_DE"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "special");
}

TEST(message_catalogs, load_for_another_language_overwrites) {
  const temporary_directory directory;
  const std::string french = directory.write("fr.xmc", file_of("app", "oui", "fr_FR"));
  const std::string english = directory.write("en.xmc", file_of("app", "yes", "en"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(french, "fr_FR"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(english, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "yes");
}

TEST(message_catalogs, erases_one_or_all) {
  const temporary_directory directory;
  directory.write("a.xmc", file_of("a", "1"));
  directory.write("b.xmc", file_of("b", "2"));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::no_error);
  catalogs.erase("unknown");
  EXPECT_EQ(catalogs.count(), 2u);
  catalogs.erase("a");
  EXPECT_FALSE(catalogs.has_catalog("a"));
  EXPECT_EQ(catalogs.count(), 1u);
  catalogs.remove();
  EXPECT_TRUE(catalogs == nil);
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::no_error);
  catalogs.erase();
  EXPECT_TRUE(catalogs == nil);
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::no_error);
  catalogs = nil;
  EXPECT_TRUE(catalogs == nil);
}

TEST(message_catalogs, knows_the_languages_of_a_catalog) {
  const temporary_directory directory;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.write("app.xmc", file_of("app", "x", "de_DE")), "de_DE"),
            message_catalogs::no_error);
  EXPECT_TRUE(catalogs.has_catalog("app", "de-DE"));
  EXPECT_TRUE(catalogs.has_catalog("app", "de_DE"));
  EXPECT_FALSE(catalogs.has_catalog("app", "de"));
  EXPECT_FALSE(catalogs.has_catalog("app", ""));
  EXPECT_FALSE(catalogs.has_catalog("unknown", "de_DE"));
}

TEST(message_catalogs, has_no_empty_language_even_if_messages_have_none) {
  const temporary_directory directory;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.write("app.xmc", file_of("app", "x", "")), "_"),
            message_catalogs::no_error);
  EXPECT_TRUE(catalogs.catalog("app").is_language_loaded(""));
  EXPECT_FALSE(catalogs.has_catalog("app", ""));
}

TEST(message_catalogs, copies_share_their_catalogs) {
  const temporary_directory directory;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(directory.write("one.xmc", file_of("app", "1")), "de"), message_catalogs::no_error);
  message_catalogs copy(catalogs);
  message_catalogs assigned;
  assigned.assign(catalogs);
  EXPECT_EQ(copy.load(directory.write("two.xmc", file_of("app", "2")), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "2");
  EXPECT_EQ(assigned.message("app", "m").as_utf8(), "2");
  EXPECT_EQ(copy.load(directory.write("three.xmc", file_of("new", "3")), "de"), message_catalogs::no_error);
  EXPECT_FALSE(catalogs.has_catalog("new"));
  copy.erase();
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "2");
}

TEST(message_catalogs, merge_counts_only_what_it_stores) {
  const auto load = [](const ustring8& content, xmc_file_loader::catalog_map& target) {
    xmc_file_loader loader;
    loader.handle_language("de_DE");
    EXPECT_EQ(loader.parse_string(xmc(content), "test.xmc").type(), load_error::no_error);
    return loader.combine_data(target);
  };
  xmc_file_loader::catalog_map target;
  EXPECT_EQ(load(app("de", "<msg name='a'>1</msg><msg name='b'>1</msg><msg name='c'>1</msg>"), target), 3u);
  // a is less specific and is dropped, b is equal and replaces, d is new.
  EXPECT_EQ(load(app("en", "<msg name='a'>2</msg>") + app("de", "<msg name='b'>2</msg><msg name='d'>2</msg>"),
                 target),
            2u);
  EXPECT_EQ(target.at("app")->message("a").as_utf8(), "1");
  EXPECT_EQ(target.at("app")->message("b").as_utf8(), "2");
  EXPECT_EQ(target.at("app")->message("c").as_utf8(), "1");
  EXPECT_EQ(target.at("app")->message("d").as_utf8(), "2");
}

TEST(message_catalogs, merge_copies_or_moves_the_messages_of_the_loader) {
  xmc_file_loader loader;
  loader.handle_language("de");
  EXPECT_EQ(loader.parse_string(xmc(app("de", "<msg name='m'>x</msg>")), "test.xmc").type(),
            load_error::no_error);
  xmc_file_loader::catalog_map first;
  xmc_file_loader::catalog_map second;
  EXPECT_EQ(loader.combine_data(first), 1u);
  EXPECT_EQ(loader.combine_data(first), 1u);
  EXPECT_EQ(loader.move_data(second), 1u);
  EXPECT_EQ(loader.combine_data(second), 0u);
  EXPECT_EQ(first.at("app")->message("m").as_utf8(), "x");
  EXPECT_EQ(second.at("app")->message("m").as_utf8(), "x");
}

TEST(message_catalogs, resolve_container_changes_no_message) {
  const temporary_directory directory;
  message_catalogs catalogs;
  catalogs.set_resolve_container({{"x", "y"}});
  EXPECT_EQ(catalogs.load(directory.write("app.xmc", file_of("app", "x")), "de"), message_catalogs::no_error);
  catalogs.set_resolve_container({});
  EXPECT_EQ(catalogs.message("app", "m").as_utf8(), "x");
}

TEST(message_catalogs, loads_paths_of_the_standard_and_views) {
  const temporary_directory directory;
  const std::filesystem::path path = directory.path() / u8"\u00E4.xmc";
  const std::string name = directory.write("\xC3\xA4.xmc", file_of("app", "x"));
  const std::string_view view = name;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(path, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(view, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load_file(path, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load_directory(directory.path(), "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(std::vector<std::filesystem::path>{path, directory.path()}, "de"),
            message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(std::vector<std::string_view>{view}, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(path / "missing", "de"), message_catalogs::entity_not_found);

  ORVA_NAMESPACE::i18n::_private::xmc_file_loader loader;
  using ORVA_NAMESPACE::i18n::_private::load_error;
  EXPECT_EQ(loader.parse(path, "de").type(), load_error::no_error);
  EXPECT_EQ(loader.parse_file(path).type(), load_error::no_error);
  EXPECT_EQ(loader.parse_file(view).type(), load_error::no_error);
}

TEST(message_catalogs, result_takes_a_file_in_each_form) {
  using result_type = message_catalogs::result_type;
  const result_type from_text(message_catalogs::file_not_found, "a.xmc");
  EXPECT_EQ(result_type(message_catalogs::file_not_found, std::filesystem::path("a.xmc")).message(),
            from_text.message());
  EXPECT_EQ(result_type(message_catalogs::file_not_found, std::string_view("a.xmc")).message(),
            from_text.message());
}

TEST(message_catalogs, path_that_is_not_well_formed_loads_nothing) {
  const temporary_directory directory;
  const working_directory inside(directory.path());
  directory.write("-1", file_of("app", "x"));
  const std::filesystem::path malformed(
      std::filesystem::path::string_type(1, static_cast<std::filesystem::path::value_type>(0xDC80)));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(malformed, "de"), message_catalogs::entity_not_found);
  EXPECT_TRUE(catalogs == nil);
}

}  // namespace
