// UTF-8 as a code page, and the types that are UTF-8 on systems whose files, terminals and names are.
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>

#include "orva/strings/code_page.hpp"
#include "orva/strings/gh2.hpp"
#include "orva/strings/unicode.hpp"
#include "tests/support/code_page_answers.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_utf8_page.hpp"
#include "tests/support/runs_of_text.hpp"

namespace {

using namespace ORVA_NAMESPACE::strings;

ustring16 units(std::initializer_list<unsigned> values) {
  ustring16 text;
  for (const unsigned value : values) text.push_back(static_cast<code_unit16>(value));
  return text;
}

struct reading {
  const char* bytes;
  ustring16 text;
};

TEST(utf8_page, a_fault_is_one_replacement_for_the_bytes_up_to_it) {
  const reading readings[] = {
      {"\xED\xA0\x80", units({0xFFFD, 0xFFFD})},
      {"\xE2\x82", units({0xFFFD})},
      {"\xE2", units({0xFFFD})},
      {"\xF0"
       "A",
       units({0xFFFD, 'A'})},
      {"\xE2\x82\xE2\x82\xAC", units({0xFFFD, 0x20AC})},
      {"\xC0\x80", units({0xFFFD, 0xFFFD})},
      {"\xF4\x90\x80\x80", units({0xFFFD, 0xFFFD, 0xFFFD})},
      {"\xF0\x9F\x98\x80\xFF", units({0xD83D, 0xDE00, 0xFFFD})},
  };
  for (const auto& read : readings) EXPECT_EQ(code_page(code_page::utf8).as_utf16(read.bytes), read.text);
}

TEST(utf8_page, every_unit_encodes_as_the_platform_does) {
  const reference::code_page_answers platform(65001);
  for (unsigned value = 1; value < 0x10000; ++value) {
    const auto unit = static_cast<code_unit16>(value);
    ASSERT_EQ(code_page(code_page::utf8).encode(ustring16(1, unit)), platform.encoded(unit))
        << std::hex << value;
  }
}

TEST(utf8_page, every_byte_and_every_pair_decodes_as_the_platform_does) {
  const reference::code_page_answers platform(65001);
  for (unsigned pair = 0x100; pair < 0x10000; ++pair) {
    const char first = static_cast<char>(pair / 256);
    const char second = static_cast<char>(pair % 256);
    const std::string bytes = second == '\0' ? std::string{first} : std::string{first, second};
    ASSERT_EQ(code_page(code_page::utf8).as_utf16(bytes), platform.decoded(first, second))
        << std::hex << pair;
  }
}

TEST(utf8_page, sequences_of_every_kind_of_bytes_decode_as_the_platform_does) {
  const std::string sequences = reference::answers_in("65001.sequences");
  const code_page page(code_page::utf8);
  ASSERT_EQ(sequences.size() % 12, 0u);
  for (std::size_t at = 0; at < sequences.size(); at += 12) {
    const std::string bytes(sequences.c_str() + at, sequences[at + 3] == '\0' ? 3 : 4);
    ustring16 expected;
    reference::append_units(expected, sequences, at + 4, 4);
    ASSERT_EQ(page.as_utf16(bytes), expected) << at;
    ASSERT_EQ(reference::utf8_page_decoded(bytes), expected) << at;
  }
}

TEST(utf8_page, runs_of_bytes_and_every_cut_of_them_decode_as_the_plain_reading) {
  orva_test::random_engine random;
  const code_page page(code_page::utf8);
  for (int round = 0; round < 100; ++round) {
    const auto bytes = round % 2 == 0 ? reference::runs<std::string>(random, 0x100)
                                      : page.encode(reference::runs<ustring16>(random, 0x10000));
    for (std::size_t size = round < 20 ? 0 : bytes.size(); size <= bytes.size(); ++size) {
      const std::string cut = bytes.substr(0, size);
      ASSERT_EQ(page.as_utf16(cut), reference::utf8_page_decoded(cut))
          << "round " << round << ", size " << size;
    }
  }
}

TEST(utf8_page, writes_a_lone_surrogate_as_the_replacement) {
  const code_page page(code_page::utf8);
  EXPECT_EQ(page.encode(units({0xD83D, 0xDE00, 0xD800, 'a', 0xDC00})),
            "\xF0\x9F\x98\x80\xEF\xBF\xBD"
            "a"
            "\xEF\xBF\xBD");
  for (unsigned unit = 0xD800; unit < 0xE000; ++unit) {
    ASSERT_EQ(page.encode(units({unit})), "\xEF\xBF\xBD");
    ASSERT_EQ(page.encode(units({'a', unit, 'b'})),
              "a\xEF\xBF\xBD"
              "b");
  }
}

TEST(utf8_page, keeps_every_code_point) {
  const code_page page(code_page::utf8);
  for (unsigned code_point = 1; code_point < 0x110000; ++code_point) {
    if (code_point / 0x800 == 0x1B) continue;
    ustring16 text = units({code_point});
    if (code_point > 0xFFFF) text = units({0xD7C0 + (code_point >> 10), 0xDC00 + (code_point & 0x3FF)});
    const std::string bytes = page.encode(text);
    ASSERT_EQ(page.as_utf16(bytes), text) << code_point;
  }
}

TEST(ansi_and_oem, are_utf8) {
  const ustring16 text = utf8_to_utf16("a\xC3\xA4\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80");
  for (const auto type : {code_page::ansi, code_page::oem, code_page::oem_alternate}) {
    EXPECT_EQ(code_page(type).encode(text), utf16_to_utf8(text));
    EXPECT_EQ(code_page(type).as_utf16(utf16_to_utf8(text)), text);
    EXPECT_EQ(code_page(type).as_utf8("\xFF"), "\xEF\xBF\xBD");
  }
}

TEST(from_ansi, gives_back_what_to_ansi_was_given) {
  const wide_string text = utf8_to_utf16("\xD0\x96 \xE6\xBC\xA2 \xF0\x9F\x98\x80");
  EXPECT_EQ(gh2::from_ansi(gh2::to_ansi(text)), text);
}
}  // namespace
