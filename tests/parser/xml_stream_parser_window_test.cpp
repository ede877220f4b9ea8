// The edge of the window, which has no effect on the nodes: documents are shifted so that the edge is at each
// byte of each construct, and must give the nodes that they give in one piece.
#include <gtest/gtest.h>

#include <cstddef>
#include <list>
#include <string>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/reference_xml_stream.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::read_all;
using orva_test::read_all_recovering;
using orva_test::reference_xml_stream;
using orva_test::transcript;
using orva_test::xml_stream_file;

constexpr std::size_t window = 0x10000;
constexpr std::string_view header = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>";

/// The text after the header in the documents that are shifted.
constexpr std::string_view every_construct =
    "<!-- a - b\n c --><r a=\"1\" b_2='&lt;&#65;&#x4a;&quot;'\n\tc= \"'&quot;\"d='\">'>\n<include x=''/>\n"
    "<a x=\"1\"><b>text &gt;&amp;&apos;&nbsp; end\n </b><!----><b/>again</a >< a\n><\xC3\xA4 _=''/></ a\n>"
    "<s><a>1<b>2</b>3</a>4</s>\n</r\n  >";

/// The last entry of a transcript has the offset in the file, which the padding moves.
transcript without_state(transcript seen) {
  seen.pop_back();
  return seen;
}

transcript nodes_of_reference(const std::string& document, unsigned depth) {
  reference_xml_stream reference(document, depth, reference_xml_stream::in_one_piece);
  return without_state(read_all(reference));
}

/// `size` bytes that the parser skips.
std::string padding(std::size_t size, bool as_comment) {
  if (!as_comment || size < 8) return std::string(size, ' ');
  return "<!--" + std::string(size - 7, '.') + "-->";
}

class xml_stream_parser_window : public ::testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(depths, xml_stream_parser_window, ::testing::Range(0u, 4u));

TEST_P(xml_stream_parser_window, edge_in_each_byte_of_each_construct_gives_the_nodes_of_one_piece) {
  const auto expected = nodes_of_reference(std::string(header).append(every_construct), GetParam());
  xml_stream_file file;
  for (std::size_t cut = 0; cut <= every_construct.size(); ++cut) {
    for (const std::size_t windows : {1u, 2u}) {
      const auto pad = padding(windows * window - header.size() - cut, (cut + windows) % 2 == 0);
      file.write(std::string(header).append(pad).append(every_construct));
      xml_stream_parser parser(file.path(), GetParam());
      ASSERT_EQ(without_state(read_all(parser)), expected)
          << "cut at " << cut << " after windows: " << windows;
    }
  }
}

/// Without the offsets, which the padding moves.
transcript without_offsets(transcript seen) {
  for (auto& entry : seen) {
    const auto offset = entry.find(" offset ");
    if (offset != entry.npos) entry.erase(offset, entry.find(" root ") - offset);
  }
  return seen;
}

TEST_P(xml_stream_parser_window, edge_in_each_byte_gives_the_errors_and_recoveries_of_one_piece) {
  constexpr std::string_view broken =
      "<r><a/><a x='1' x='2'/><a><b></a></b><b/><a y=1/><a z =''/><a>&wrong;</a><a/>text<a/><?pi?><a/>"
      "<!-- <a/> -- --><a></></a><include/><x <a q='<'/>< a/></r>";
  const std::list<std::string> tags{"a", "include"};
  reference_xml_stream reference(std::string(header).append(broken), GetParam());
  const auto expected = without_offsets(read_all_recovering(reference, tags));
  xml_stream_file file;
  for (std::size_t cut = 0; cut <= broken.size(); ++cut) {
    const auto pad = padding(window - header.size() - cut, true);
    file.write(std::string(header).append(pad).append(broken));
    xml_stream_parser parser(file.path(), GetParam());
    ASSERT_EQ(without_offsets(read_all_recovering(parser, tags)), expected) << "cut at " << cut;
  }
}

// Records of many lengths, so that there are edges of windows everywhere, and queues that fill up and pause.
TEST_P(xml_stream_parser_window, edges_within_many_records_give_the_nodes_of_one_piece) {
  std::string document = std::string(header) + "<r>";
  // At depth 0 all of it is one subtree, in which the reference searches for each node.
  for (int i = 0; i < (GetParam() == 0 ? 2500 : 12000); ++i) {
    document += "<a id='" + std::to_string(i) + "'";
    document.append(static_cast<std::size_t>(i % 13), ' ');
    document += i % 7 == 0 ? "><b>t" + std::to_string(i * i % 997) + "</b></a>\n" : "/>";
    if (GetParam() != 1 && i % 1000 == 999) document += "<s k='v'>before<x></x>after<x></x></s>";
  }
  document += "</r>";
  // With more than one open level, only "x" and "s" may be closed by />.
  if (GetParam() > 1) {
    for (std::size_t at = 0; (at = document.find("/>", at)) != document.npos; at += 2)
      document.replace(at, 2, "></a>");
  }
  const auto expected = nodes_of_reference(document, GetParam());
  xml_stream_file file(document);
  xml_stream_parser parser(file.path(), GetParam());
  const auto seen = without_state(read_all(parser));
  ASSERT_EQ(seen.size(), expected.size());
  for (std::size_t i = 0; i < seen.size(); ++i) ASSERT_EQ(seen[i], expected[i]) << i;
}

// Large records: a hundred nodes do not fit into one window, and the edge is in the tags and the text of the
// open levels.
TEST(xml_stream_parser_window, open_level_cut_with_a_full_queue_is_delivered_with_all_its_attributes) {
  for (std::size_t shift = 0; shift < 160; ++shift) {
    std::string document = std::string(header) + "<r>";
    for (int i = 0; i < 99; ++i) document += "<a>" + std::string(600, 'x') + "</a>";
    document.append(window - 60 - document.size() + shift, ' ');
    document += "<s one='1' two='2' three='3'>text that belongs to it<x></x></s><s></s></r>";
    xml_stream_file file(document);
    xml_stream_parser parser(file.path(), 2);
    ASSERT_EQ(without_state(read_all(parser)), nodes_of_reference(document, 2)) << shift;
  }
}

TEST(xml_stream_parser_window, consumed_to_its_last_byte_is_refilled_from_its_start) {
  std::string document = std::string(header) + "<r>";
  document += padding(window - document.size() - 4, true) + "<a/>" + padding(window, true) + "<b/></r>";
  xml_stream_file file(document);
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(without_state(read_all(parser)), nodes_of_reference(document, 1));
  EXPECT_EQ(parser.error(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_window, header_after_more_blanks_than_one_window_holds_is_a_bad_header) {
  for (std::size_t blanks = window - 60; blanks < window + 5; ++blanks) {
    const std::string document = std::string(blanks, '\n').append(header).append("<r><a/></r>");
    xml_stream_file file(document);
    xml_stream_parser parser(file.path(), 1);
    const auto nodes = read_all(parser).size() - 1;
    // At least six bytes of the header must be in the window.
    const bool begins_in_first_window = blanks + 6 <= window;
    ASSERT_EQ(parser.error(),
              begins_in_first_window ? xml_stream_parser::end_of_document : xml_stream_parser::bad_header)
        << blanks;
    ASSERT_EQ(nodes, begins_in_first_window ? 3u : 0u) << blanks;
    if (!begins_in_first_window) {
      ASSERT_EQ(parser.parse_offset(), 0) << blanks;
    }
  }
}

// A hundred nodes and the header fill the window to its last byte, or to some bytes before it.
TEST(xml_stream_parser_window, queue_of_a_hundred_nodes_that_end_at_its_edge_grows_no_longer) {
  for (const std::string_view cut : {"", "<", "<a", "<a x='1"}) {
    std::string document = std::string(header) + "<r>";
    for (int i = 0; i < 99; ++i) document += "<a/>";
    document += std::string(window - cut.size() - document.size(), ' ');
    document += "<a x='1'/>";
    for (int i = 0; i < 99; ++i) document += "<a/>";
    document += "</r>";
    xml_stream_file file(document);
    xml_stream_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), xml_stream_parser::no_error);
    EXPECT_EQ(parser.node_queue_size(), 100u) << cut;
    reference_xml_stream reference(document, 1);
    EXPECT_EQ(read_all(parser), read_all(reference)) << cut;
  }
}

TEST(xml_stream_parser_window, token_that_fills_it_is_parsed_and_a_longer_one_stays_incomplete) {
  // The opener, the filling and the closer, which ends the token, must be in the window at once.
  struct token {
    std::string before, opener, closer, after;
  };
  const token tokens[] = {
      {"<a>", "", "<", "/a>"}, {"<a ", "x='", "'", "/>"}, {"<a ", "", "=''", "/>"}, {"", "<", " ", "/>"}};
  for (const auto& [before, opener, closer, after] : tokens) {
    for (const std::size_t length : {window - 1, window, window + 1, 2 * window}) {
      const std::string filling(length - opener.size() - closer.size(), 'x');
      const std::string record = before + opener + filling + closer + after;
      xml_stream_file file(std::string(header) + "<r>" + record + "</r>");
      xml_stream_parser parser(file.path(), 1);
      read_all(parser);
      EXPECT_EQ(parser.error(),
                length <= window ? xml_stream_parser::end_of_document : xml_stream_parser::incomplete)
          << before << opener << "..." << closer << ", length " << length;
    }
  }
}

TEST(xml_stream_parser_window, recover_gets_past_a_token_that_is_longer) {
  for (const char* const opener : {"<a>", "<a x='", "<a ", "<", "<!DOCTYPE ", "<a>&#", "< "}) {
    for (const char filling : {'0', ' '}) {
      const std::string document =
          std::string(header) + "<r>" + opener + std::string(3 * window, filling) + "<b k='1'/></r>";
      xml_stream_file file(document);
      xml_stream_parser parser(file.path(), 1);
      read_all(parser);
      if (parser.error() != xml_stream_parser::incomplete) continue;
      EXPECT_EQ(parser.recover({"b"}), xml_stream_parser::no_error) << opener << filling;
      EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
      EXPECT_EQ(parser.node_queue_pop().tag(), "b");
    }
  }
}

TEST(xml_stream_parser_window, comment_of_any_length_passes) {
  const std::string document =
      std::string(header) + "<r><!--" + std::string(5 * window + 3, '\n') + "--><a/></r>";
  xml_stream_file file(document);
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  parser.node_queue_pop();
  EXPECT_EQ(parser.node_queue_pop().line(), 5 * window + 4);
}

}  // namespace
