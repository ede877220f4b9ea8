#include "orva/serialization/frame_writer.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ios>
#include <sstream>
#include <string>
#include <string_view>

#include "orva/exceptions/exception.hpp"
#include "tests/support/hex.hpp"
#include "tests/support/random_bytes.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_frame.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using serialization::frame_writer;

std::string content_of(const std::string& frame) {
  const auto read = orva_test::read_reference_frame(frame);
  EXPECT_TRUE(read && read->size == frame.size());
  return read ? read->content : "no frame";
}

TEST(frame_writer, documentation_example) {
  std::ostringstream file;
  frame_writer frame(file, "example.settings", 3);
  frame.write("piece");
  EXPECT_TRUE(frame.finish());
  const auto read = orva_test::read_reference_frame(file.str());
  ASSERT_TRUE(read);
  EXPECT_EQ(read->format_name, "example.settings");
  EXPECT_EQ(read->version, 3U);
  EXPECT_EQ(read->content, "piece");
}

TEST(frame_writer, writes_these_bytes) {
  std::string output;
  frame_writer frame(output, "a.b", 0x01020304);
  frame.write("xyz");
  EXPECT_TRUE(frame.finish());
  std::string padding;
  for (int i = 0; i < 45; ++i) padding += "00 ";
  EXPECT_EQ(orva_test::to_hex(output),
            "8F 6F 72 76 61 31 0D 0A 04 03 02 01 61 2E 62 " + padding +
                "AD 70 03 E8 "
                "00 00 00 00 00 00 00 00 03 00 00 00 85 68 23 25 A6 DB A3 2D 78 79 7A "
                "03 00 00 00 00 00 00 00 00 00 00 00 85 68 23 25 3C 3C 1F E5");
}

TEST(frame_writer, content_is_the_same_for_pieces_of_any_size) {
  orva_test::random_engine random;
  const std::string content = orva_test::random_bytes(random, 200'000);
  for (const std::size_t most : {1U, 7U, 1000U, 65535U, 65536U, 65537U, 200'000U}) {
    std::string output;
    frame_writer frame(output, "x", 0);
    for (std::string_view rest = content; !rest.empty();) {
      const std::size_t size = 1 + static_cast<std::size_t>(random() % most);
      frame.write(rest.substr(0, size));
      rest.remove_prefix(std::min(size, rest.size()));
    }
    EXPECT_TRUE(frame.finish());
    EXPECT_TRUE(content_of(output) == content) << "pieces of up to " << most << " bytes";
    EXPECT_EQ(output.size(), 64 + 5 * 20 + content.size()) << "four chunks, the last record";
  }
}

TEST(frame_writer, appends_to_a_string) {
  std::string output = "before";
  frame_writer frame(output, "x", 0);
  EXPECT_TRUE(frame.finish());
  EXPECT_EQ(output.substr(0, 6), "before");
  EXPECT_EQ(content_of(output.substr(6)), "");
}

TEST(frame_writer, flush_writes_what_is_stored_as_a_chunk) {
  std::ostringstream output;
  frame_writer frame(output, "x", 0);
  frame.write("abc");
  EXPECT_EQ(output.str().size(), 64U);
  frame.flush();
  EXPECT_EQ(output.str().size(), 64U + 20 + 3);
  frame.flush();
  EXPECT_EQ(output.str().size(), 64U + 20 + 3) << "an empty chunk would end the frame";
  frame.write("def");
  EXPECT_TRUE(frame.finish());
  EXPECT_EQ(content_of(output.str()), "abcdef");
}

TEST(frame_writer, frame_that_is_not_finished_has_no_end) {
  std::string output;
  { frame_writer(output, "x", 0).write("abc"); }
  EXPECT_FALSE(orva_test::read_reference_frame(output));
}

TEST(frame_writer, content_after_the_end_is_not_written_and_reported) {
  std::string output;
  frame_writer frame(output, "x", 0);
  EXPECT_TRUE(frame.finish());
  EXPECT_TRUE(frame.finish()) << "once is enough";
  frame.write("");
  EXPECT_TRUE(frame.finish());
  const std::string before = output;
  frame.write("late");
  frame.flush();
  EXPECT_FALSE(frame.finish());
  EXPECT_EQ(output, before);
}

TEST(frame_writer, stream_that_fails_is_reported) {
  std::ostringstream output;
  frame_writer frame(output, "x", 0);
  frame.write(std::string(100'000, 'a'));
  output.setstate(std::ios::badbit);
  frame.write(std::string(100'000, 'b'));
  EXPECT_FALSE(frame.finish());
}

TEST(frame_writer, format_names_are_visible_ascii) {
  EXPECT_TRUE(frame_writer::is_format_name("!"));
  EXPECT_TRUE(frame_writer::is_format_name("example.settings/~"));
  EXPECT_TRUE(frame_writer::is_format_name(std::string(48, 'x')));
  EXPECT_FALSE(frame_writer::is_format_name(""));
  EXPECT_FALSE(frame_writer::is_format_name(std::string(49, 'x')));
  for (int unit = -128; unit < 128; ++unit) {
    const char name[] = {'a', static_cast<char>(unit)};
    EXPECT_EQ(frame_writer::is_format_name({name, 2}), unit > ' ' && unit < 127) << unit;
  }
}

TEST(frame_writer, other_names_are_refused_before_anything_is_written) {
  std::string output;
  try {
    frame_writer frame(output, "two words", 0);
    FAIL() << "nothing was thrown";
  } catch (const exceptions::invalid_argument_value& failure) {
    EXPECT_STREQ(failure.message(), "Not a valid format name of a frame");
  }
  EXPECT_EQ(output, "");
}

}  // namespace
