// The tables beside the conversions of the system: on Windows these are the system's own, elsewhere the same
// tables by way of the platform layer.
#include "orva/internal/code_pages/conversion.hpp"

#include <gtest/gtest.h>

#include <string>

#include "orva/strings/code_page.hpp"

namespace {

namespace code_pages = ORVA_NAMESPACE::internal::code_pages;
using ORVA_NAMESPACE::strings::code_page;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::wide_string;

class code_page_tables : public testing::TestWithParam<int> {
 protected:
  std::string encoded(const wide_string& text) const {
    std::string bytes;
    EXPECT_TRUE(code_pages::encode_into(GetParam(), text, bytes));
    return bytes;
  }

  wide_string decoded(const std::string& bytes) const {
    wide_string text;
    EXPECT_TRUE(code_pages::decode_into(GetParam(), bytes, text));
    return text;
  }

  const code_page system_{static_cast<code_page::encoding_type>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(pages, code_page_tables,
                         testing::Values(932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257,
                                         1258, 20866, 21866, 28591, 28592, 28593, 28594, 28595, 28596, 28597,
                                         28598, 28599, 28605),
                         [](const auto& tested) { return "page_" + std::to_string(tested.param); });

TEST_P(code_page_tables, encode_every_unit_as_the_system_does) {
  for (unsigned value = 1; value < 0x10000; ++value) {
    const wide_string unit(1, static_cast<code_unit16>(value));
    ASSERT_EQ(encoded(unit), system_.encode(unit)) << std::hex << value;
  }
}

TEST_P(code_page_tables, decode_every_byte_and_every_pair_as_the_system_does) {
  for (unsigned pair = 0x100; pair < 0x10000; ++pair) {
    const char first = static_cast<char>(pair / 256);
    const char second = static_cast<char>(pair % 256);
    const std::string bytes = second == '\0' ? std::string{first} : std::string{first, second};
    ASSERT_EQ(decoded(bytes), system_.as_utf16(bytes)) << std::hex << pair;
  }
}

TEST(code_page_conversion, unknown_page_is_refused) {
  for (const int page : {-1, 0, 437, 931, 1249, 1259, 28600, 28604, 65000}) {
    std::string bytes;
    wide_string text;
    EXPECT_FALSE(code_pages::encode_into(page, wide_string(1, code_unit16{'a'}), bytes)) << page;
    EXPECT_FALSE(code_pages::decode_into(page, "a", text)) << page;
  }
}

TEST(code_page_conversion, text_ends_at_its_first_zero) {
  std::string bytes;
  EXPECT_TRUE(
      code_pages::encode_into(1252, wide_string{code_unit16{'a'}, code_unit16{}, code_unit16{'b'}}, bytes));
  EXPECT_EQ(bytes, "a");
  wide_string text;
  EXPECT_TRUE(code_pages::decode_into(code_pages::utf8_number, std::string("a\0b", 3), text));
  EXPECT_EQ(text, wide_string(1, code_unit16{'a'}));
}

TEST(code_page_conversion, malformed_utf8_is_replaced_by_u_fffd) {
  wide_string text;
  EXPECT_TRUE(code_pages::decode_into(code_pages::utf8_number, "\xE2\x82z\xFF", text));
  EXPECT_EQ(text, (wide_string{code_unit16{0xFFFD}, code_unit16{'z'}, code_unit16{0xFFFD}}));
}

}  // namespace
