#include "orva/serialization/internal/backward_text_writer.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using ORVA_NAMESPACE::serialization::_private::backward_text_writer;

TEST(backward_text_writer, last_string_comes_first) {
  std::string target = "gone";
  backward_text_writer text(target);
  text.prepend_string("second");
  text.prepend_string("fi", "rst");
  text.finish();
  EXPECT_EQ(target,
            "5\x01"
            "first\x01"
            "6\x01"
            "second\x01");
}

TEST(backward_text_writer, string_is_opened_when_its_length_is_known) {
  std::string target;
  backward_text_writer text(target);
  text.close_string();
  const auto size_after = text.size();
  text.prepend_string("in");
  text.open_string(text.size() - size_after);
  text.finish();
  EXPECT_EQ(target,
            "5\x01"
            "2\x01in\x01"
            "\x01");
}

TEST(backward_text_writer, target_of_any_size_holds_nothing_but_the_text) {
  for (std::size_t size = 0; size < 700; size += 7) {
    for (std::size_t length = 0; length < 700; length += 13) {
      std::string target(size, 'o');
      backward_text_writer text(target);
      const std::string bytes(length, 'b');
      text.prepend_string(bytes);
      EXPECT_EQ(text.size(), std::to_string(length).size() + 1 + length + 1);
      text.finish();
      ASSERT_EQ(target, std::to_string(length) + "\x01" + bytes + "\x01");
    }
  }
}

TEST(backward_text_writer, text_beyond_the_longest_buffer_is_refused) {
  std::string target;
  backward_text_writer text(target);
  const std::string abc = "abc";
  // The view is longer than its text; what does not fit is refused before it is read. Volatile, as the
  // compiler warns of the copy otherwise.
  const volatile std::size_t length = ORVA_NAMESPACE::serialization::stored_buffer::max_size;
  try {
    text.prepend_string(std::string_view(abc.data(), length));
    FAIL() << "nothing was thrown";
  } catch (const std::length_error& failure) {
    EXPECT_STREQ(failure.what(), "string too long");
  }
}

}  // namespace
