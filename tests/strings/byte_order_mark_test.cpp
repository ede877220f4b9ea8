#include "orva/strings/byte_order_mark.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;
using ORVA_NAMESPACE::strings::byte_order_mark_in;
using ORVA_NAMESPACE::strings::byte_order_mark_of;
using ORVA_NAMESPACE::strings::found_byte_order_mark;
using ORVA_NAMESPACE::strings::unicode_encoding;

constexpr unicode_encoding all_encodings[] = {
    unicode_encoding::utf8, unicode_encoding::utf16_little_endian, unicode_encoding::utf16_big_endian,
    unicode_encoding::utf32_little_endian, unicode_encoding::utf32_big_endian};

TEST(byte_order_mark_of, documentation_example) {
  EXPECT_EQ(byte_order_mark_of("\xEF\xBB\xBFtext"), (found_byte_order_mark{unicode_encoding::utf8, 3}));
  EXPECT_EQ(byte_order_mark_of("\xFF\xFEt\0"sv),
            (found_byte_order_mark{unicode_encoding::utf16_little_endian, 2}));
  EXPECT_EQ(byte_order_mark_of("text"), std::nullopt);
}

TEST(byte_order_mark_of, mark_of_each_encoding_is_found_before_any_text) {
  for (const auto encoding : all_encodings) {
    const std::string mark(byte_order_mark_in(encoding));
    const found_byte_order_mark expected{encoding, mark.size()};
    EXPECT_EQ(byte_order_mark_of(mark), expected);
    EXPECT_EQ(byte_order_mark_of(mark + "a"), expected);
    EXPECT_EQ(byte_order_mark_of(mark + mark), expected);
  }
}

TEST(byte_order_mark_of, cut_mark_is_none_or_that_of_the_shorter_encoding) {
  for (const auto encoding : all_encodings) {
    const auto mark = byte_order_mark_in(encoding);
    for (std::size_t size = 0; size < mark.size(); ++size) {
      const auto found = byte_order_mark_of(mark.substr(0, size));
      const bool begins_as_utf16 = encoding == unicode_encoding::utf32_little_endian && size >= 2;
      EXPECT_EQ(found.has_value(), begins_as_utf16) << size;
    }
  }
}

TEST(byte_order_mark_of, utf32_is_found_where_utf16_would_begin_with_a_zero) {
  EXPECT_EQ(byte_order_mark_of("\xFF\xFE\0\0"sv)->encoding, unicode_encoding::utf32_little_endian);
  EXPECT_EQ(byte_order_mark_of("\xFF\xFE\0a"sv)->encoding, unicode_encoding::utf16_little_endian);
}

TEST(byte_order_mark_of, mark_that_is_not_in_front_is_none) {
  EXPECT_EQ(byte_order_mark_of("a\xEF\xBB\xBF"), std::nullopt);
  EXPECT_EQ(byte_order_mark_of("\0\xFE\xFF"sv), std::nullopt);
}

// Every beginning of two bytes: only those of the marks are found.
TEST(byte_order_mark_of, only_marks_are_found) {
  for (unsigned pair = 0; pair < 0x10000; ++pair) {
    const char bytes[] = {static_cast<char>(pair / 256), static_cast<char>(pair % 256), 'a', 'b'};
    EXPECT_EQ(byte_order_mark_of({bytes, 4}).has_value(), pair == 0xFFFE || pair == 0xFEFF)
        << std::hex << pair;
  }
}

}  // namespace
