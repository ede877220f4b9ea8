#include "orva/parser/internal/stream_window.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/strings/unicode.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/xml_stream_file.hpp"

namespace {

using ORVA_NAMESPACE::parser::_private::stream_window;
using file_state = stream_window::file_state;
using orva_test::xml_stream_file;

constexpr std::size_t size = stream_window::size;

ORVA_NAMESPACE::strings::ustring16 path_of(const xml_stream_file& file) {
  return ORVA_NAMESPACE::strings::utf8_to_utf16(file.path());
}

std::string_view contents(const stream_window& window) {
  return {window.first(), static_cast<std::size_t>(window.last() - window.first())};
}

/// No two windows of it are equal.
std::string text_of(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; text.size() < length; ++i) text += std::to_string(i) + ' ';
  text.resize(length);
  return text;
}

TEST(stream_window, holds_nothing_before_the_first_load) {
  const xml_stream_file file("text");
  stream_window window;
  EXPECT_EQ(window.open(path_of(file)), file_state::readable);
  EXPECT_EQ(contents(window), "");
  EXPECT_EQ(window.offset(), 0);
  EXPECT_EQ(window.file_length(), 4);
}

TEST(stream_window, gives_the_file_byte_by_byte_whatever_is_consumed) {
  const std::string text = text_of(3 * size + 17);
  const xml_stream_file file(text);
  for (const std::size_t consumed : {std::size_t{1000}, size / 2, size - 1, size}) {
    stream_window window;
    window.open(path_of(file));
    while (window.load().count > 0) {
      const auto offset = static_cast<std::size_t>(window.offset());
      ASSERT_EQ(contents(window), std::string_view(text).substr(offset, size)) << offset;
      window.consume_up_to(window.first() + std::min(consumed, contents(window).size()));
    }
    EXPECT_EQ(window.bytes_read(), static_cast<long long>(text.size()));
  }
}

TEST(stream_window, is_full_until_something_is_consumed) {
  const xml_stream_file file(text_of(2 * size));
  stream_window window;
  window.open(path_of(file));
  EXPECT_FALSE(window.is_full());
  EXPECT_EQ(window.load().count, size);
  EXPECT_TRUE(window.is_full());
  EXPECT_EQ(window.load().count, 0u);
  window.consume_up_to(window.first() + 1);
  EXPECT_FALSE(window.is_full());
  EXPECT_EQ(window.load().count, 1u);
  EXPECT_EQ(window.offset(), 1);
}

TEST(stream_window, continues_where_the_file_has_grown) {
  const xml_stream_file file("begin");
  stream_window window;
  window.open(path_of(file));
  window.load();
  EXPECT_EQ(window.load().count, 0u);
  file.append(" end");
  EXPECT_EQ(window.load().count, 4u);
  EXPECT_EQ(contents(window), "begin end");
}

TEST(stream_window, reports_a_file_that_is_missing_each_time) {
  const xml_stream_file file(text_of(2 * size));
  stream_window window;
  window.open(path_of(file));
  window.load();
  window.consume_up_to(window.last());
  file.remove();
  EXPECT_EQ(window.load().file, file_state::cannot_be_opened);
  EXPECT_EQ(window.file_length(), -1);
  EXPECT_EQ(stream_window().open(path_of(file)), file_state::cannot_be_opened);
  file.write(text_of(2 * size));
  EXPECT_EQ(window.load().count, size);
}

TEST(stream_window, refuses_a_link_that_takes_the_place_of_the_file) {
  const xml_stream_file file(text_of(2 * size));
  stream_window window;
  window.open(path_of(file));
  if (!file.swap_for_link()) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(window.load().file, file_state::symbolic_link);
  EXPECT_EQ(window.file_length(), -1);
  EXPECT_EQ(stream_window().open(path_of(file)), file_state::symbolic_link);
}

}  // namespace
