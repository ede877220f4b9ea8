#include "orva/strings/gh2.hpp"

#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "orva/strings/code_page.hpp"
#include "orva/strings/unicode.hpp"

namespace {

namespace gh2 = ORVA_NAMESPACE::strings::gh2;
using ORVA_NAMESPACE::strings::code_page;

bool is_valid(std::string_view text) {
  const auto length = static_cast<unsigned int>(text.size());
  const bool valid = gh2::validate_utf8(text.data(), length);
  EXPECT_EQ(gh2::validate_utf8(reinterpret_cast<const unsigned char*>(text.data()), length), valid);
  return valid;
}

unsigned int expected_length(unsigned int lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF8 ? 4 : 0;
}

TEST(get_utf8_length, every_lead_byte) {
  for (unsigned int lead = 0; lead < 256; ++lead) {
    const auto byte = static_cast<unsigned char>(lead);
    const auto unit = static_cast<char>(byte);
    EXPECT_EQ(gh2::get_utf8_length(&byte, 1), expected_length(lead)) << lead;
    EXPECT_EQ(gh2::get_utf8_length(&unit, 1), expected_length(lead)) << lead;
  }
}

TEST(get_utf8_length, may_be_more_than_the_length) { EXPECT_EQ(gh2::get_utf8_length("\xE0", 1), 3u); }

TEST(get_utf8_length, no_text_is_0) {
  EXPECT_EQ(gh2::get_utf8_length("a", 0), 0u);
  EXPECT_EQ(gh2::get_utf8_length(static_cast<const char*>(nullptr), 1), 0u);
  EXPECT_EQ(gh2::get_utf8_length(static_cast<const unsigned char*>(nullptr), 1), 0u);
}

TEST(validate_utf8, looks_at_the_first_sequence_only) {
  EXPECT_TRUE(is_valid("a\xFF\xFF"));
  EXPECT_TRUE(is_valid("\xE2\x82\xAC\x80"));
  EXPECT_FALSE(
      is_valid("\x80"
               "a"));
}

TEST(validate_utf8, no_text_is_not_valid) {
  EXPECT_FALSE(is_valid(""));
  EXPECT_FALSE(gh2::validate_utf8(static_cast<const char*>(nullptr), 5));
  EXPECT_FALSE(gh2::validate_utf8(static_cast<const unsigned char*>(nullptr), 5));
}

TEST(validate_utf8, overlong_forms_surrogates_and_values_too_large_pass) {
  for (const char* text : {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                           "\xF7\xBF\xBF\xBF"}) {
    EXPECT_TRUE(is_valid(text));
  }
}

TEST(validate_utf8, every_lead_with_every_cut_and_every_bad_byte) {
  for (unsigned int lead = 0; lead < 256; ++lead) {
    const unsigned int size = expected_length(lead);
    std::string text(4, '\x80');
    text[0] = static_cast<char>(lead);
    for (unsigned int length = 1; length <= 4; ++length) {
      // A buffer of the exact size, so that AddressSanitizer finds a read after it.
      const auto bytes = std::make_unique<char[]>(length);
      std::copy_n(text.data(), length, bytes.get());
      EXPECT_EQ(is_valid({bytes.get(), length}), size != 0 && length >= size) << lead << ' ' << length;
    }
    for (unsigned int bad = 1; bad < size; ++bad) {
      for (const char byte : {'\x7F', '\xC0', '\x00', '\xFF'}) {
        std::string broken = text;
        broken[bad] = byte;
        EXPECT_FALSE(is_valid(broken)) << lead << ' ' << bad;
      }
    }
  }
}

TEST(gh2_streams, are_the_standard_wide_streams) {
  EXPECT_EQ(&gh2::ucin, &std::wcin);
  EXPECT_EQ(&gh2::ucout, &std::wcout);
  EXPECT_EQ(&gh2::ucerr, &std::wcerr);
}

TEST(to_ansi, encodes_in_the_code_page_of_type_ansi) {
  const ORVA_NAMESPACE::strings::wide_string text =
      ORVA_NAMESPACE::strings::utf8_to_utf16("a\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(gh2::to_ansi(text), code_page(code_page::ansi).encode(text));
  EXPECT_EQ(gh2::to_ansi({}), "");
}

TEST(from_ansi, decodes_from_the_code_page_of_type_ansi) {
  const std::string bytes = "a\xC3\xA4\xE2\x82\xAC";
  EXPECT_EQ(gh2::from_ansi(bytes), code_page(code_page::ansi).as_ustring(bytes));
  EXPECT_EQ(gh2::from_ansi(""), ORVA_NAMESPACE::strings::wide_string());
}

}  // namespace
