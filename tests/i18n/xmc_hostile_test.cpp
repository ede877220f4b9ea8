// Truncated, damaged, deeply nested, long and endless input.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "orva/i18n/message_catalogs.hpp"
#include "tests/i18n/xmc_reading.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::i18n::message_catalogs;

const ustring8& document() {
  static const ustring8 text =
      "<?xml version='1.0'?>\n<xmc version='1.1'><!-- a -->\n<catalog name='app' lang='de'>\n<msg name='m' "
      "meta='x'>a &lt; <br/>  <arg name='n' type='int' base='hex'/></msg></catalog>\n<catalog "
      "lang='fr'><foo/></catalog></xmc>\n";
  return text;
}

std::string repeated(std::size_t count, std::string_view text) {
  std::string result;
  result.reserve(count * text.size());
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

TEST(xmc_hostile, every_truncation_is_reported) {
  ASSERT_EQ(words(read(document()).error), "No Error");
  const std::size_t whole = document().rfind('>') + 1;
  for (std::size_t size = 0; size < whole; ++size) {
    const reading result = read(document().substr(0, size));
    EXPECT_NE(result.error.type(), load_error::no_error) << size;
    EXPECT_EQ(result.stored, 0u) << size;
  }
}

TEST(xmc_hostile, every_damaged_byte_gives_a_result) {
  for (std::size_t place = 0; place < document().size(); ++place) {
    for (const char byte :
         {'\0', '\1', ' ', '\n', '"', '\'', '&', ';', '<', '>', '/', '!', '-', '=', 'a', '\x80', '\xFF'}) {
      ustring8 text = document();
      text[place] = byte;
      const reading result = read(text);
      EXPECT_FALSE(result.error.message().empty());
      EXPECT_LE(result.stored, 1u);
    }
  }
}

TEST(xmc_hostile, deep_nesting_in_an_unwanted_catalog) {
  constexpr std::size_t depth = 100000;
  const reading result = read(xmc(app("fr", repeated(depth, "<catalog>") + repeated(depth, "</catalog>")) +
                                  app("de", "<msg name='m'/>")));
  EXPECT_EQ(words(result.error), "No Error");
  EXPECT_EQ(result.stored, 1u);
}

TEST(xmc_hostile, deep_nesting_in_a_message) {
  constexpr std::size_t depth = 100000;
  const reading result =
      read(xmc(app("de", "<msg>" + repeated(depth, "<i>") + repeated(depth, "</i>") + "</msg>")));
  EXPECT_EQ(result.error.type(), load_error::invalid_element);
}

TEST(xmc_hostile, hundred_thousand_catalogs) {
  ustring8 content;
  for (int i = 0; i < 100000; ++i) content += "<catalog name='" + std::to_string(i) + "' lang='de'/>";
  EXPECT_EQ(read(xmc(content)).catalogs.size(), 100000u);
  content = ustring8(repeated(20000, app("de", "<msg name='m'>x</msg>")));
  EXPECT_EQ(read(xmc(content)).stored, 1u);
}

TEST(xmc_hostile, one_name_many_times) {
  const reading result =
      read(xmc(app("de", "<msg name='m'>first</msg>" + repeated(100000, "<msg name='m'/>"))));
  EXPECT_EQ(result.stored, 1u);
  EXPECT_EQ(result.message("m").as_utf8(), "first");
}

TEST(xmc_hostile, long_attributes_and_texts) {
  const std::string megabyte(1 << 20, 'x');
  const reading result = read(xmc("<catalog name='" + megabyte + "' lang='de'><msg name='" + megabyte +
                                  "' meta='" + megabyte + "'>" + megabyte + "<arg name='" + megabyte +
                                  "' type='" + megabyte + "' a='" + megabyte + "'/></msg></catalog>"));
  EXPECT_EQ(words(result.error), "No Error");
  const message_t& message = result.message(megabyte, megabyte);
  EXPECT_EQ(message.size(), 2u);
  EXPECT_EQ(message.meta(), megabyte);
  EXPECT_EQ((message.begin() + 1)->data().size(), 2 * megabyte.size() + 3);
}

TEST(xmc_hostile, many_pieces_and_attributes) {
  ustring8 attributes;
  for (int i = 0; i < 20000; ++i) attributes += " a" + std::to_string(i) + "='x'";
  const reading result = read(xmc(
      app("de", "<msg name='m'>" + repeated(50000, "<arg/>x<br/>  ") + "<arg" + attributes + "/></msg>")));
  EXPECT_EQ(words(result.error), "No Error");
  EXPECT_EQ(result.message("m").argument_count(), 50001u);
}

TEST(xmc_hostile, directory_links_that_lead_back_up_end) {
  const temporary_directory directory;
  directory.write("app.xmc", xmc(app("de", "<msg name='m'>x</msg>")));
  if (!make_link(".", directory.file("again"))) GTEST_SKIP() << no_links;
  message_catalogs catalogs;
  // A single link is followed until the system refuses the path.
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::no_error);
  // With two links the number of paths is a power of two.
  ASSERT_TRUE(make_link(".", directory.file("once_more")));
  std::filesystem::remove(directory.file("app.xmc"));
  const auto result = catalogs.load(directory.name(), "de");
  EXPECT_EQ(result, message_catalogs::unexpected_error);
  EXPECT_EQ(result.message().find(
                "message_catalogs::result_type - Unexpected error happened during "
                "loading\nxmc_file_loader::load_error - Unexpected parse error happen!\n in file: \"" +
                directory.name() + "/again"),
            0u);
}

TEST(xmc_hostile, link_to_a_file_reads_as_empty) {
  const temporary_directory directory;
  const std::string file = directory.write("app.txt", xmc(app("de", "<msg name='m'>x</msg>")));
  if (!make_link(file, directory.file("link.xmc"))) GTEST_SKIP() << no_links;
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(file, "de"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.load(directory.file("link.xmc"), "de"), message_catalogs::xml_parse_error);
  EXPECT_EQ(catalogs.load(directory.name(), "de"), message_catalogs::xml_parse_error);
}

TEST(xmc_hostile, file_larger_than_a_string_is_a_result) {
  const temporary_directory directory;
  const std::string file = directory.write("huge.xmc", "");
  std::error_code failure;
  std::filesystem::resize_file(file, 0x80000000, failure);  // sparse
  if (failure) GTEST_SKIP() << failure.message();
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(file, "de"), message_catalogs::unexpected_error);
}

}  // namespace
