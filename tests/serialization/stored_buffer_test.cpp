#include "orva/serialization/stored_buffer.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;

static_assert(stored_buffer::past_end == 4294967295U);
static_assert(stored_buffer::max_size == (sizeof(void*) == 4 ? 0x7FFFFFFFU : 4294967294U));

/// Makes the protected members public.
struct open_buffer : serialize_text_buf {
  using stored_buffer::append;
  using stored_buffer::position;
};

template <typename Action>
void expect_too_long(Action action) {
  try {
    action();
    FAIL() << "nothing was thrown";
  } catch (const std::length_error& failure) {
    EXPECT_STREQ(failure.what(), "string too long");
  }
}

template <typename Buffer>
class stored_buffer_forms : public testing::Test {};
using forms = testing::Types<serialize_binary_buf, serialize_text_buf>;
TYPED_TEST_SUITE(stored_buffer_forms, forms);

TYPED_TEST(stored_buffer_forms, negative_length_is_too_long) {
  TypeParam buffer("data");
  expect_too_long([&] { buffer.assign("abc", -1); });
  expect_too_long([&] { buffer.assign("abc", std::numeric_limits<int>::min()); });
  EXPECT_EQ(buffer.as_str(), "data");
}

TYPED_TEST(stored_buffer_forms, assign_takes_the_length_in_bytes) {
  TypeParam buffer;
  EXPECT_EQ(&buffer.assign("a\0b\0c", 4), &buffer);
  EXPECT_EQ(buffer.as_str(), std::string("a\0b\0", 4));
  buffer.assign("abc", 0);
  EXPECT_EQ(buffer.as_str(), "");
}

TYPED_TEST(stored_buffer_forms, assign_of_the_own_data_changes_nothing) {
  TypeParam buffer("data");
  buffer.read_int8();
  buffer.assign(buffer);
  EXPECT_EQ(buffer.as_str(), "data");
  buffer.assign(buffer.as_str());
  EXPECT_EQ(buffer.as_str(), "data");
  buffer.assign(buffer.as_str().data() + 1, 2);
  EXPECT_EQ(buffer.as_str(), "at");
}

TYPED_TEST(stored_buffer_forms, moved_from_buffer_is_empty_at_its_beginning) {
  TypeParam source;
  source.append_string(std::string(100, 'x'));
  source.append_int32(7);
  source.read_string();
  TypeParam target(std::move(source));
  EXPECT_EQ(target.read_int32(), 7);
  EXPECT_EQ(source.as_str(), "");
  source.append_int32(8);
  EXPECT_EQ(source.read_int32(), 8);
  source = std::move(target);
  EXPECT_TRUE(source.at_end());
  source.reset_read();
  EXPECT_EQ(source.read_string(), std::string(100, 'x'));
}

// These views are longer than their text; data that does not fit is refused before it is read.
TEST(stored_buffer, data_beyond_the_mark_is_refused_and_the_data_stays) {
  const std::string abc = "abc";
  for (const std::size_t length : {stored_buffer::max_size - 2, stored_buffer::max_size,
                                   stored_buffer::max_size + 1, std::string().max_size()}) {
    open_buffer buffer;
    buffer.assign(abc);
    expect_too_long([&] { buffer.append(std::string_view(abc.data(), length)); });
    expect_too_long([&] { buffer.append(std::string_view(abc.data(), length), "", ""); });
    EXPECT_EQ(buffer.as_str(), abc);
  }
}

TEST(stored_buffer, three_pieces_appended_at_once_are_whole) {
  for (std::size_t length = 0; length < 300; ++length) {
    open_buffer buffer;
    const std::string bytes(length, 'b');
    buffer.append("head", bytes, "tail");
    buffer.append("", bytes, "!");
    ASSERT_EQ(buffer.as_str(), "head" + bytes + "tail" + bytes + "!");
  }
}

TEST(stored_buffer, item_may_be_the_data_itself_at_every_length) {
  for (std::size_t length = 0; length < 300; ++length) {
    open_buffer buffer;
    const std::string bytes(length, 'b');
    buffer.assign(bytes);
    buffer.append("<", buffer.as_str(), ">");
    ASSERT_EQ(buffer.as_str(), bytes + "<" + bytes + ">");
  }
}

TEST(stored_buffer, mark_is_the_end_of_any_data) {
  open_buffer buffer;
  buffer.assign("data");
  buffer.position() = stored_buffer::past_end;
  EXPECT_TRUE(buffer.at_end());
  buffer.reset_read();
  EXPECT_FALSE(buffer.at_end());
}

}  // namespace
