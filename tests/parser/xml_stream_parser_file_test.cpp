// The file that the streaming parser reads: what it may be, and how it may change between two calls.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "orva/parser/xml_stream_parser.hpp"
#include "orva/strings/unicode.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::read_all;
using orva_test::temporary_directory;
using orva_test::xml_stream_file;
namespace strings = ORVA_NAMESPACE::strings;

constexpr std::string_view small = "<?xml version='1.0' encoding='UTF-8'?><r><a/><a/></r>";

/// Some windows of records.
std::string large_document() {
  std::string text = "<?xml version='1.0' encoding='UTF-8'?><r>";
  while (text.size() < 300'000) text += "<a name='value'>text</a>";
  return text + "</r>";
}

std::size_t count_nodes(xml_stream_parser& parser) {
  std::size_t nodes = 0;
  parser.parse();
  for (; !parser.node_queue_empty(); ++nodes) parser.node_queue_pop();
  return nodes;
}

TEST(xml_stream_parser_file, that_is_missing_cannot_be_opened) {
  const temporary_directory directory;
  xml_stream_parser parser(directory.file("missing.xml"), 1);
  EXPECT_EQ(parser.error(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(parser.parse(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(parser.file_length(), -1);
  EXPECT_EQ(parser.parse_offset(), 0);
  EXPECT_TRUE(parser.node_queue_empty());
}

TEST(xml_stream_parser_file, that_is_a_directory_or_has_no_name_cannot_be_opened) {
  const temporary_directory directory;
  EXPECT_EQ(xml_stream_parser(directory.name(), 1).error(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(xml_stream_parser("", 1).error(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(xml_stream_parser(directory.file(std::string(5000, 'x')), 1).error(),
            xml_stream_parser::cannot_open_file);
  const std::string with_zero = directory.write("name", small) + std::string(1, '\0');
  EXPECT_EQ(xml_stream_parser(with_zero, 1).error(), xml_stream_parser::cannot_open_file);
}

// The system does not give its status, which is no reason to throw.
TEST(xml_stream_parser_file, below_a_circle_of_links_cannot_be_opened) {
  const temporary_directory directory;
  if (!orva_test::make_link("circle", directory.file("circle"))) GTEST_SKIP() << orva_test::no_links;
  xml_stream_parser parser(directory.file("circle/feed.xml"), 1);
  EXPECT_EQ(parser.error(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(parser.file_length(), -1);
}

TEST(xml_stream_parser_file, that_is_a_symbolic_link_is_a_fatal_error) {
  const xml_stream_file file(small);
  if (!file.swap_for_link()) GTEST_SKIP() << orva_test::no_links;
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.error(), xml_stream_parser::fatal_error);
  EXPECT_EQ(parser.parse(), xml_stream_parser::fatal_error);
  EXPECT_EQ(parser.file_length(), -1);
}

TEST(xml_stream_parser_file, below_a_linked_directory_is_read) {
  const temporary_directory directory;
  directory.write("real/feed.xml", small);
  if (!orva_test::make_link("real", directory.file("linked"))) GTEST_SKIP() << orva_test::no_links;
  xml_stream_parser parser(directory.file("linked/feed.xml"), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_file, is_named_in_any_width) {
  const temporary_directory directory;
  const strings::ustring8 path = directory.write("\xC3\xA4\xE2\x82\xAC.xml", small);
  EXPECT_EQ(xml_stream_parser(path, 1).error(), xml_stream_parser::no_error);
  EXPECT_EQ(xml_stream_parser(path.c_str(), 1).error(), xml_stream_parser::no_error);
  EXPECT_EQ(xml_stream_parser(std::string(path), 1).error(), xml_stream_parser::no_error);
  EXPECT_EQ(xml_stream_parser(strings::utf8_to_utf16(path), 1).error(), xml_stream_parser::no_error);
  EXPECT_EQ(xml_stream_parser(strings::utf8_to_utf32(path), 1).error(), xml_stream_parser::no_error);
  const strings::wide_string wide = strings::utf8_to_utf16(path);
  EXPECT_EQ(xml_stream_parser(wide, 1).error(), xml_stream_parser::no_error);
}

TEST(xml_stream_parser_file, length_is_that_of_the_moment_and_offset_reaches_it) {
  const xml_stream_file file(small);
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.file_length(), static_cast<long long>(small.size()));
  EXPECT_EQ(parser.parse_offset(), 0);
  parser.parse();
  EXPECT_EQ(parser.parse_offset(), parser.file_length());
  file.append("after.");
  EXPECT_EQ(parser.file_length(), static_cast<long long>(small.size()) + 6);
}

TEST(xml_stream_parser_file, offset_never_goes_back) {
  const xml_stream_file file(large_document());
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  long long last = 0;
  while (!parser.node_queue_empty()) {
    parser.node_queue_pop();
    ASSERT_GE(parser.parse_offset(), last);
    last = parser.parse_offset();
  }
  EXPECT_EQ(last, parser.file_length());
}

TEST(xml_stream_parser_file, larger_than_32_bits_can_count_is_read_by_the_window) {
  const temporary_directory directory;
  const std::string path = directory.write("feed.xml", small);
  for (const std::uintmax_t size : {0x1'0000'0000U, 0x1'0000'0001U, 0x2'0000'0000U}) {
    std::error_code refused;
    std::filesystem::resize_file(path, size, refused);
    if (refused) GTEST_SKIP() << "no room for a file with a hole";
    xml_stream_parser parser(path, 1);
    EXPECT_EQ(parser.file_length(), static_cast<long long>(size));
    EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document) << size;
    EXPECT_FALSE(parser.node_queue_empty()) << size;
  }
}

TEST(xml_stream_parser_file, replaced_by_a_link_between_two_reads_is_a_fatal_error) {
  const xml_stream_file file(small);
  xml_stream_parser fresh(file.path(), 1);
  if (!file.swap_for_link()) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(fresh.parse(), xml_stream_parser::fatal_error);

  const xml_stream_file longer(large_document());
  xml_stream_parser parser(longer.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::no_error);
  ASSERT_TRUE(longer.swap_for_link());
  // The nodes in the queue can be taken, and those of one more round through the window; then the next read
  // is refused.
  EXPECT_EQ(count_nodes(parser), 202u);
  EXPECT_EQ(parser.error(), xml_stream_parser::fatal_error);
  EXPECT_EQ(parser.parse(), xml_stream_parser::fatal_error);
}

/// The record that `recover` looks for is not in the first window.
const std::string damaged_with_a_record_far_away =
    "<?xml version='1.0' encoding='UTF-8'?><r><a></b>" + std::string(70'000, ' ') + "<a/></r>";

TEST(xml_stream_parser_file, replaced_by_a_link_before_recover_is_not_read_and_can_be_recovered_later) {
  const xml_stream_file file(damaged_with_a_record_far_away);
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::mismatched_tag);
  if (!file.swap_for_link()) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::not_synchronized);
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::not_synchronized);
  file.remove();
  file.write(damaged_with_a_record_far_away);
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::no_error);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_file, deleted_before_recover_can_be_recovered_when_it_is_back) {
  const xml_stream_file file(damaged_with_a_record_far_away);
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::mismatched_tag);
  file.remove();
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::not_synchronized);
  EXPECT_EQ(parser.parse(), xml_stream_parser::not_synchronized);
  file.write(damaged_with_a_record_far_away);
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::no_error);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_file, deleted_between_two_reads_cannot_be_opened) {
  const xml_stream_file file(large_document());
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::no_error);
  file.remove();
  count_nodes(parser);
  EXPECT_EQ(parser.error(), xml_stream_parser::cannot_open_file);
  EXPECT_EQ(parser.file_length(), -1);
}

TEST(xml_stream_parser_file, cut_between_two_reads_ends_where_the_window_ends) {
  const xml_stream_file file(large_document());
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  file.truncate(1000);
  EXPECT_GT(count_nodes(parser), 2000u);
  EXPECT_LE(parser.error(), xml_stream_parser::incomplete);
  EXPECT_LE(parser.parse_offset(), 0x10000 + 0x1000);
  EXPECT_EQ(parser.file_length(), 1000);
  EXPECT_LE(parser.parse(), xml_stream_parser::incomplete);
}

TEST(xml_stream_parser_file, grown_between_two_reads_is_read_on) {
  const std::string document = large_document();
  for (const std::size_t size : {20u, 60u, 100u, 65'536u, 65'537u, 200'001u}) {
    const xml_stream_file file(std::string_view(document).substr(0, size));
    xml_stream_parser parser(file.path(), 1);
    auto nodes = count_nodes(parser);
    EXPECT_LE(parser.error(), xml_stream_parser::incomplete);
    file.append(std::string_view(document).substr(size));
    nodes += count_nodes(parser);
    EXPECT_EQ(parser.error(), xml_stream_parser::end_of_document);
    const xml_stream_file whole(document);
    xml_stream_parser at_once(whole.path(), 1);
    EXPECT_EQ(nodes, count_nodes(at_once));
  }
}

TEST(xml_stream_parser_file, grown_byte_by_byte_ends_with_its_root) {
  const std::string document =
      "<?xml version='1.0' encoding='UTF-8'?><r x='&amp;'><!-- c --><a>t&#65;</a ><b></b></r >";
  const xml_stream_file file;
  xml_stream_parser parser(file.path(), 1);
  for (const char byte : document) {
    EXPECT_LE(parser.parse(), xml_stream_parser::incomplete);
    file.append(std::string(1, byte));
  }
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
  EXPECT_EQ(parser.node_queue_size(), 4u);
}

}  // namespace
