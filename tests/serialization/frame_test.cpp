#include "orva/serialization/frame.hpp"

#include <gtest/gtest.h>

#include <string>

#include "orva/exceptions/exception.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "tests/support/random_bytes.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_frame.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;

TEST(frame, documentation_example) {
  labeled_text_buffer settings;
  settings.add_value("width", 800);
  const std::string stored = write_frame("example.settings", 3, settings.as_str());

  const whole_frame read = read_frame(stored);
  EXPECT_EQ(read.failure.error, frame_error::none);
  EXPECT_EQ(read.format_name, "example.settings");
  EXPECT_EQ(read.version, 3U);
  labeled_text_buffer copy(read.content);
  EXPECT_EQ(copy.retrieve_value("width").as_int32(), 800);
}

TEST(frame, reads_what_it_has_written) {
  orva_test::random_engine random;
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 200'000U}) {
    const std::string content = orva_test::random_bytes(random, size);
    const auto version = static_cast<types::uint32>(random());
    const std::string frame = write_frame("x", version, content);
    const whole_frame read = read_frame(frame);
    EXPECT_EQ(read.failure, frame_failure()) << size;
    EXPECT_EQ(read.version, version);
    EXPECT_TRUE(read.content == content);
    const auto second = orva_test::read_reference_frame(frame);
    ASSERT_TRUE(second);
    EXPECT_TRUE(second->content == content);
    EXPECT_EQ(second->version, version);
  }
}

TEST(frame, frame_without_content_has_84_bytes) { EXPECT_EQ(write_frame("x", 0, "").size(), 84U); }

TEST(frame, data_after_the_end_is_a_failure) {
  const whole_frame read = read_frame(write_frame("x", 1, "abc") + '\0');
  EXPECT_EQ(read.failure, (frame_failure{frame_error::data_after_end, 107}));
  EXPECT_EQ(read.content, "");
}

TEST(frame, content_of_a_damaged_frame_is_withheld_and_its_name_known) {
  std::string frame = write_frame("x", 1, std::string(100'000, 'a'));
  frame.back() = static_cast<char>(frame.back() ^ 1);
  const whole_frame read = read_frame(frame);
  EXPECT_EQ(read.failure, (frame_failure{frame_error::damaged, 64 + 20 + 65536 + 20 + 34464}));
  EXPECT_EQ(read.format_name, "x");
  EXPECT_EQ(read.version, 1U);
  EXPECT_EQ(read.content, "");
}

TEST(frame, name_that_is_not_valid_throws) {
  EXPECT_THROW(static_cast<void>(write_frame("", 0, "")), exceptions::invalid_argument_value);
}

}  // namespace
