// The system calls of the streaming parser: a file is open only while it is read, and a read that fails loses
// nothing.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <ios>
#include <string>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/platform/scripted_system_calls.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::describe_node;
using orva_test::describe_state;
using orva_test::read_all;
using orva_test::scripted_calls;
using orva_test::transcript;
using orva_test::xml_stream_file;

std::string large_document() {
  std::string text = "<?xml version='1.0' encoding='UTF-8'?><r>";
  while (text.size() < 300'000) text += "<a name='value'>text</a>";
  return text + "</r>";
}

ssize_t failing_read(int, void*, std::size_t, off_t) {
  errno = EIO;
  return -1;
}

template <typename Call>
void expect_stream_failure(Call call) {
  try {
    call();
    FAIL();
  } catch (const std::ios_base::failure& thrown) {
    EXPECT_STREQ(thrown.what(), "ios_base::failbit set");
  }
}

TEST(xml_stream_parser_calls, no_file_is_open_between_two_calls) {
  const xml_stream_file file(large_document());
  const scripted_calls calls;
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(calls->open_files, 0);
  parser.parse();
  while (!parser.node_queue_empty()) {
    parser.node_queue_pop();
    ASSERT_EQ(calls->open_files, 0);
  }
  parser.file_length();
  EXPECT_EQ(calls->open_files, 0);
  EXPECT_EQ(parser.error(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_calls, read_that_fails_throws_and_can_be_tried_again) {
  const xml_stream_file file(large_document());
  const scripted_calls calls;
  xml_stream_parser parser(file.path(), 1);
  calls->pread = failing_read;
  expect_stream_failure([&] { parser.parse(); });
  expect_stream_failure([&] { parser.parse(); });
  EXPECT_EQ(calls->open_files, 0);
  calls->pread = nullptr;
  transcript seen = read_all(parser);
  xml_stream_parser undisturbed(file.path(), 1);
  EXPECT_EQ(seen, read_all(undisturbed));
}

TEST(xml_stream_parser_calls, pop_whose_read_fails_leaves_the_node_in_the_queue) {
  const xml_stream_file file(large_document());
  const scripted_calls calls;
  xml_stream_parser undisturbed(file.path(), 1);
  const auto expected = read_all(undisturbed);

  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  transcript seen;
  int failures = 0;
  while (!parser.node_queue_empty()) {
    const auto front = describe_node(parser.node_queue_front());
    calls->pread = failing_read;
    try {
      seen.push_back(describe_node(parser.node_queue_pop()));
    } catch (const std::ios_base::failure&) {
      ++failures;
      ASSERT_EQ(front, describe_node(parser.node_queue_front()));
      calls->pread = nullptr;
      seen.push_back(describe_node(parser.node_queue_pop()));
    }
  }
  EXPECT_GT(failures, 4);
  seen.push_back(describe_state(parser));
  EXPECT_EQ(seen, expected);
}

// The node of an open level is taken while half of its attributes, and its text, are not read yet.
TEST(xml_stream_parser_calls, pop_of_an_open_level_whose_read_fails_loses_none_of_its_attributes_and_text) {
  const std::string begin = "<?xml version='1.0' encoding='UTF-8'?><r><s first='1'";
  const xml_stream_file file(begin);
  const scripted_calls calls;
  xml_stream_parser parser(file.path(), 2);
  parser.parse();
  parser.node_queue_pop();
  ASSERT_EQ(parser.node_queue_size(), 1u);
  const auto error_before = parser.error();
  const auto front = describe_node(parser.node_queue_front());

  file.append(" second='2'>text<a/></s></r>");
  calls->pread = failing_read;
  for (int attempt = 0; attempt < 3; ++attempt) {
    expect_stream_failure([&] { parser.node_queue_pop(); });
    EXPECT_EQ(parser.error(), error_before);
    EXPECT_EQ(parser.node_queue_size(), 1u);
    EXPECT_EQ(describe_node(parser.node_queue_front()), front);
  }
  calls->pread = nullptr;
  parser.parse();
  EXPECT_EQ(describe_node(parser.node_queue_pop()), "s #2<1 status 1 line 1 first=\"1\" second=\"2\" [text]");
  EXPECT_EQ(describe_node(parser.node_queue_pop()), "a #3<2 status 0 line 1");
}

TEST(xml_stream_parser_calls, file_that_shrinks_after_it_was_measured_throws) {
  const xml_stream_file file(large_document());
  const scripted_calls calls;
  xml_stream_parser parser(file.path(), 1);
  calls->pread = [&](int handle, void* to, std::size_t count, off_t offset) {
    file.truncate(100);
    return ::pread(handle, to, count, offset);
  };
  expect_stream_failure([&] { parser.parse(); });
}

TEST(xml_stream_parser_calls, recover_whose_read_fails_throws_and_can_be_tried_again) {
  const xml_stream_file file("<?xml version='1.0' encoding='UTF-8'?><r><a></b>" + std::string(70'000, ' ') +
                             "<a/></r>");
  const scripted_calls calls;
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::mismatched_tag);
  calls->pread = failing_read;
  expect_stream_failure([&] { parser.recover({"a"}); });
  calls->pread = nullptr;
  EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::no_error);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

}  // namespace
