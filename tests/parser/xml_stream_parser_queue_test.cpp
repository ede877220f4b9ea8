// The queue of the streaming parser: what can be taken, and when it pauses.
#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/xml_stream_feed.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::describe_node;
using orva_test::transcript;
using orva_test::xml_stream_header;
using feed = orva_test::xml_stream_feed;

TEST(xml_stream_parser, front_and_pop_of_an_empty_queue_throw) {
  feed empty("<r><a>");
  EXPECT_THROW(empty.parser.node_queue_front(), xml_stream_parser::EmptyNodeQueue);
  try {
    empty.parser.node_queue_pop();
    FAIL();
  } catch (const std::exception& thrown) {
    EXPECT_STREQ(thrown.what(), "empty node queue");
  }
  static_assert(std::is_same_v<ORVA_NAMESPACE::parser::EmptyNodeQueue, xml_stream_parser::EmptyNodeQueue>);
}

TEST(xml_stream_parser, front_that_is_still_open_throws_and_stays) {
  feed open("<r><a>");
  open.parser.parse();
  open.parser.node_queue_pop();
  EXPECT_TRUE(open.parser.node_queue_empty());
  EXPECT_EQ(open.parser.node_queue_size(), 0u);
  EXPECT_THROW(open.parser.node_queue_front(), xml_stream_parser::EmptyNodeQueue);
  open.file.append("<b/></a></r>");
  open.parser.parse();
  EXPECT_EQ(open.parser.node_queue_pop().tag(), "a");
}

TEST(xml_stream_parser, pop_of_a_node_that_is_still_open_throws_and_loses_it) {
  feed open("<r><a>");
  open.parser.parse();
  open.parser.node_queue_pop();
  EXPECT_THROW(open.parser.node_queue_pop(), xml_stream_parser::EmptyNodeQueue);
  open.file.append("text<b/></a></r>");
  EXPECT_EQ(open.nodes(), (transcript{"b #3<2 status 0 line 1", "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser, front_is_what_pop_takes) {
  feed nodes("<r><a/></r>");
  nodes.parser.parse();
  const auto& front = nodes.parser.node_queue_front();
  EXPECT_EQ(&front, &nodes.parser.node_queue_front());
  const auto described = describe_node(front);
  EXPECT_EQ(describe_node(nodes.parser.node_queue_pop()), described);
}

TEST(xml_stream_parser, popped_node_is_a_value_that_outlives_the_parser) {
  xml_stream_parser::node copy;
  EXPECT_EQ(copy.status(), xml_stream_parser::incomplete);
  EXPECT_FALSE(copy.available());
  {
    feed nodes("<r><a x='1'>t</a></r>");
    nodes.parser.parse();
    nodes.parser.node_queue_pop();
    const auto node = nodes.parser.node_queue_pop();
    copy = node;
  }
  EXPECT_EQ(describe_node(copy), "a #2<1 status 0 line 1 x=\"1\" [t]");
}

std::string records(int count) {
  std::string text = "<r>";
  for (int i = 0; i < count; ++i) text += "<a/>";
  return text + "</r>";
}

TEST(xml_stream_parser, parse_pauses_after_a_hundred_nodes) {
  feed many(records(1000));
  EXPECT_EQ(many.parser.parse(), xml_stream_parser::no_error);
  EXPECT_EQ(many.parser.node_queue_size(), 101u);
  const auto offset = many.parser.parse_offset();
  EXPECT_EQ(offset, static_cast<long long>(xml_stream_header.size() + 3 + 100 * 4));
  EXPECT_EQ(many.parser.parse(), xml_stream_parser::no_error);
  EXPECT_EQ(many.parser.parse_offset(), offset);
}

TEST(xml_stream_parser, popping_alone_goes_through_the_whole_document) {
  feed many(records(1000));
  EXPECT_EQ(many.nodes().size(), 1002u);
  EXPECT_EQ(many.parser.error(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser, subtree_of_any_size_waits_until_it_is_closed) {
  std::string text = "<r><a>";
  for (int i = 0; i < 5000; ++i) text += "<b/>";
  feed large(text + "</a><a/><a/></r>");
  large.parser.parse();
  EXPECT_EQ(large.parser.node_queue_size(), 5002u);
  EXPECT_EQ(large.nodes().size(), 5005u);
}

TEST(xml_stream_parser, nodes_before_an_error_can_be_taken) {
  feed wrong("<r><a/><a/><b></wrong>");
  EXPECT_EQ(wrong.nodes().size(), 3u);
  EXPECT_EQ(wrong.parser.error(), xml_stream_parser::mismatched_tag);
  EXPECT_EQ(wrong.parser.parse_offset(), static_cast<long long>(xml_stream_header.size() + 14));
}

// Attributes and text that come after a node was taken are dropped; freed memory is not touched.
TEST(xml_stream_parser, late_attributes_and_text_of_a_taken_node_are_dropped) {
  feed late("<r><s a='1' ", 2);
  late.parser.parse();
  EXPECT_EQ(late.parser.node_queue_pop().tag(), "r");
  EXPECT_EQ(late.parser.node_queue_pop().attribs().size(), 1u);
  late.file.append("b='2' c='3'>text<x></x>");
  EXPECT_EQ(late.nodes(), (transcript{"x #3<2 status 0 line 1"}));
  late.file.append("more</s></r>");
  EXPECT_EQ(late.nodes(), (transcript{"s #2<0 status 0 line 1", "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser, late_attribute_of_a_taken_node_may_still_come_twice) {
  feed late("<r a='1' ");
  late.parser.parse();
  late.parser.node_queue_pop();
  late.file.append("a='2'>");
  EXPECT_EQ(late.parser.parse(), xml_stream_parser::duplicate_attribute);
}

}  // namespace
