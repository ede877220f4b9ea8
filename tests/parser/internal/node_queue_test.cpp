#include "orva/parser/internal/node_queue.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using ORVA_NAMESPACE::parser::EmptyNodeQueue;
using ORVA_NAMESPACE::parser::xml_stream_parser;
using ORVA_NAMESPACE::parser::_private::node_queue;

void open_record(node_queue& queue, const char* name) {
  queue.open_element(name, xml_stream_parser::incomplete, false, 1);
}
void open_level(node_queue& queue, const char* name) {
  queue.open_element(name, xml_stream_parser::incomplete, true, 1);
}
void add_record(node_queue& queue) {
  open_record(queue, "a");
  queue.close_element();
}

TEST(node_queue, element_can_be_taken_when_it_is_closed) {
  node_queue queue;
  open_record(queue, "a");
  queue.add_attribute("x", "1");
  queue.set_text("text");
  EXPECT_EQ(queue.innermost_name(), "a");
  EXPECT_EQ(queue.size(), 0u);
  EXPECT_THROW(queue.front(), EmptyNodeQueue);
  queue.close_element();
  EXPECT_EQ(queue.size(), 1u);
  EXPECT_EQ(queue.front().status(), xml_stream_parser::no_error);
  EXPECT_EQ(queue.front().attribs().front().second, "1");
  EXPECT_EQ(queue.front().data(), "text");
}

TEST(node_queue, nodes_are_numbered_and_have_the_number_of_their_parent) {
  node_queue queue;
  open_level(queue, "r");
  open_record(queue, "a");
  open_record(queue, "b");
  queue.close_element();
  queue.close_element();
  open_record(queue, "c");
  queue.close_element();
  queue.add_end("r", xml_stream_parser::end_of_document, 7, 1);
  const unsigned expected[][2] = {{1, 0}, {2, 1}, {3, 2}, {4, 1}, {1, 0}};
  for (const auto& [id, parent] : expected) {
    const auto taken = queue.take_first();
    EXPECT_EQ(taken.front().id(), id);
    EXPECT_EQ(taken.front().parent_id(), parent);
  }
}

TEST(node_queue, first_element_that_is_open_holds_back_those_after_it) {
  node_queue queue;
  open_record(queue, "a");
  add_record(queue);
  EXPECT_TRUE(queue.has_less_than(1));
  queue.close_element();
  EXPECT_EQ(queue.size(), 2u);
  EXPECT_FALSE(queue.has_less_than(2));
  EXPECT_TRUE(queue.has_less_than(3));
}

TEST(node_queue, is_full_at_a_hundred_nodes_if_two_can_be_taken) {
  node_queue queue;
  for (int i = 0; i < 99; ++i) add_record(queue);
  EXPECT_FALSE(queue.is_full());
  add_record(queue);
  EXPECT_TRUE(queue.is_full());
  EXPECT_FALSE(queue.is_overfull());
  add_record(queue);
  EXPECT_TRUE(queue.is_overfull());
  node_queue one_large_record;
  open_record(one_large_record, "a");
  for (int i = 0; i < 200; ++i) add_record(one_large_record);
  EXPECT_FALSE(one_large_record.is_full());
}

TEST(node_queue, node_that_was_let_go_gets_nothing_more) {
  node_queue queue;
  open_level(queue, "r");
  EXPECT_TRUE(queue.ends_with_an_open_level());
  auto taken = queue.take_first();
  queue.let_go(taken.front());
  queue.add_attribute("x", "1");
  queue.set_text("text");
  queue.close_element();
  EXPECT_TRUE(taken.front().attribs().empty());
  EXPECT_EQ(taken.front().data(), "");
  EXPECT_EQ(taken.front().status(), xml_stream_parser::incomplete);
}

TEST(node_queue, node_that_was_put_back_has_what_was_read_in_the_meantime) {
  node_queue queue;
  open_level(queue, "r");
  add_record(queue);
  ASSERT_EQ(queue.size(), 2u);
  auto taken = queue.take_first();
  queue.add_attribute("x", "1");
  queue.put_back(taken);
  EXPECT_EQ(queue.size(), 2u);
  EXPECT_EQ(queue.front().tag(), "r");
  EXPECT_EQ(queue.front().attribs().size(), 1u);
}

TEST(node_queue, gives_up_its_nodes_and_the_inner_elements) {
  node_queue queue;
  open_level(queue, "r");
  open_record(queue, "a");
  open_record(queue, "b");
  queue.give_up(1);
  EXPECT_EQ(queue.open_elements(), 1u);
  EXPECT_EQ(queue.innermost_name(), "r");
  EXPECT_EQ(queue.size(), 0u);
  EXPECT_THROW(queue.take_first(), EmptyNodeQueue);
  queue.set_text("for a node that is gone");
  add_record(queue);
  EXPECT_EQ(queue.front().id(), 4u);
  EXPECT_EQ(queue.front().parent_id(), 0u);
}

TEST(node_queue, more_ends_than_elements_do_no_harm) {
  node_queue queue;
  queue.add_end("r", xml_stream_parser::no_error, 1, 1);
  queue.forget_element();
  add_record(queue);
  EXPECT_EQ(queue.size(), 2u);
}

}  // namespace
