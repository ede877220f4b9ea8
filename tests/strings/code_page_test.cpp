#include "orva/strings/code_page.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/strings/unicode.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using strings::code_page;
using strings::code_unit16;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;

using encoding_type = code_page::encoding_type;

encoding_type type_of(types::int32 value) { return static_cast<encoding_type>(value); }

/// Makes the protected mapping public.
struct open_code_page : code_page {
  using code_page::to_system_type;
};

int system_type(types::int32 value) { return open_code_page().to_system_type(type_of(value)); }

ustring16 units(std::initializer_list<unsigned> values) {
  ustring16 text;
  for (const unsigned value : values) text.push_back(static_cast<code_unit16>(value));
  return text;
}

template <typename Convert>
void expect_invalid(Convert convert) {
  try {
    convert();
    ADD_FAILURE() << "nothing was raised";
  } catch (const exceptions::invalid_argument_value& raised) {
    EXPECT_EQ(std::string(raised.message()), "Not valid code_page type");
    EXPECT_EQ(std::string(raised.error_state().function()),
              ORVA_QUALIFIED("strings::code_page::to_system_type"));
    EXPECT_EQ(std::string(raised.error_state().file()), "strings/code_page");
  }
}

TEST(code_page, documentation_example) {
  EXPECT_EQ(code_page(code_page::cp_1252).encode("\xE2\x82\xAC"), "\x80");
  EXPECT_EQ(code_page(code_page::cp_1252).as_utf8("\x80"), "\xE2\x82\xAC");
  EXPECT_EQ(code_page(code_page::cp_932).as_utf16("\x82\xA0"), units({0x3042}));
}

TEST(code_page, is_a_plain_value_of_32_bits) {
  EXPECT_TRUE(std::is_trivially_copyable_v<code_page>);
  EXPECT_EQ(sizeof(code_page), 4u);
  EXPECT_EQ(sizeof(encoding_type), 4u);
}

TEST(code_page, default_and_nil_have_type_0) {
  EXPECT_EQ(code_page().type(), type_of(0));
  EXPECT_EQ(code_page(types::nil).type(), type_of(0));
  code_page page(code_page::koi8_r);
  EXPECT_EQ(&(page = types::nil), &page);
  EXPECT_EQ(page.type(), type_of(0));
  page.type(code_page::koi8_r);
  EXPECT_EQ(&page.assign(types::nil), &page);
  EXPECT_EQ(page.type(), type_of(0));
}

TEST(code_page, assignment_takes_the_type_and_gives_the_object) {
  const code_page other(code_page::cp_1251);
  code_page page;
  EXPECT_EQ(&page.assign(other), &page);
  EXPECT_EQ(page, code_page::cp_1251);
  EXPECT_EQ(&page.assign(code_page::cp_932), &page);
  EXPECT_EQ(page, code_page::cp_932);
  EXPECT_EQ(&(page = other), &page);
  EXPECT_EQ(page, code_page::cp_1251);
  EXPECT_EQ(&(page = code_page::utf8), &page);
  EXPECT_EQ(page, code_page::utf8);
  EXPECT_EQ(code_page(page), code_page::utf8);
}

TEST(code_page, type_is_read_written_and_set) {
  code_page page(code_page::oem);
  page.type() = code_page::ansi;
  EXPECT_EQ(page.type(), code_page::ansi);
  encoding_type& set = page.type(code_page::iso_8859_2);
  EXPECT_EQ(set, code_page::iso_8859_2);
  EXPECT_EQ(&set, &page.type());
  const code_page& constant = page;
  EXPECT_TRUE((std::is_same_v<decltype(constant.type()), const encoding_type&>));
  EXPECT_EQ(constant.type(), code_page::iso_8859_2);
}

TEST(code_page, compares_by_type) {
  const code_page page(code_page::cp_1252);
  EXPECT_TRUE(page.equal(code_page(code_page::cp_1252)) && page.equal(code_page::cp_1252));
  EXPECT_TRUE(page == code_page(code_page::cp_1252) && page == code_page::cp_1252);
  EXPECT_FALSE(page != code_page(code_page::cp_1252) || page != code_page::cp_1252);
  EXPECT_FALSE(page.equal(code_page(code_page::cp_1250)) || page.equal(code_page::cp_1250));
  EXPECT_TRUE(page != code_page(code_page::cp_1250) && page != code_page::cp_1250);
}

TEST(code_page, types_of_one_system_code_page_do_not_compare_equal) {
  EXPECT_EQ(system_type(code_page::oem), system_type(code_page::oem_alternate));
  EXPECT_NE(code_page(code_page::oem), code_page(code_page::oem_alternate));
}

TEST(code_page, made_from_nil_equals_the_default_and_not_nil) {
  EXPECT_TRUE(code_page(types::nil) == code_page());
  EXPECT_FALSE(code_page(types::nil) == types::nil);
  EXPECT_FALSE(code_page(types::nil).equal(types::nil));
}

TEST(code_page, equals_nil_where_the_type_is_negative) {
  const types::int32 least = std::numeric_limits<types::int32>::min();
  EXPECT_TRUE(code_page(type_of(-1)) == types::nil);
  EXPECT_TRUE(code_page(type_of(least)).equal(types::nil));
  EXPECT_FALSE(code_page(type_of(1)) == types::nil);
  EXPECT_FALSE(code_page(type_of(std::numeric_limits<types::int32>::max())) == types::nil);
}

struct mapped {
  encoding_type type;
  types::int32 value;
  int system;
};

const mapped valid_types[] = {{code_page::ansi, 1, 0},
                              {code_page::oem, 2, 1},
                              {code_page::oem_alternate, 3, 1},
                              {code_page::utf8, 4, 65001},
                              {code_page::cp_932, 932, 932},
                              {code_page::cp_936, 936, 936},
                              {code_page::cp_949, 949, 949},
                              {code_page::cp_950, 950, 950},
                              {code_page::cp_1250, 1250, 1250},
                              {code_page::cp_1251, 1251, 1251},
                              {code_page::cp_1252, 1252, 1252},
                              {code_page::cp_1253, 1253, 1253},
                              {code_page::cp_1254, 1254, 1254},
                              {code_page::cp_1255, 1255, 1255},
                              {code_page::cp_1256, 1256, 1256},
                              {code_page::cp_1257, 1257, 1257},
                              {code_page::cp_1258, 1258, 1258},
                              {code_page::koi8_r, 20866, 20866},
                              {code_page::koi8_u, 21866, 21866},
                              {code_page::iso_8859_1, 28591, 28591},
                              {code_page::iso_8859_2, 28592, 28592},
                              {code_page::iso_8859_3, 28593, 28593},
                              {code_page::iso_8859_4, 28594, 28594},
                              {code_page::iso_8859_5, 28595, 28595},
                              {code_page::iso_8859_6, 28596, 28596},
                              {code_page::iso_8859_7, 28597, 28597},
                              {code_page::iso_8859_8, 28598, 28598},
                              {code_page::iso_8859_9, 28599, 28599},
                              {code_page::iso_8859_15, 28605, 28605}};

TEST(code_page, every_type_has_its_value_and_its_system_code_page) {
  for (const auto& valid : valid_types) {
    EXPECT_EQ(static_cast<types::int32>(valid.type), valid.value);
    EXPECT_EQ(system_type(valid.value), valid.system);
    EXPECT_EQ(code_page(valid.type).encode("plain"), "plain") << valid.value;
    EXPECT_EQ(code_page(valid.type).as_utf8("plain"), "plain") << valid.value;
  }
}

TEST(code_page, every_other_value_raises) {
  std::vector<types::int32> values = {-1, std::numeric_limits<types::int32>::min(), 65001,
                                      std::numeric_limits<types::int32>::max()};
  for (types::int32 value = 0; value < 30000; ++value) values.push_back(value);
  std::size_t raised = 0;
  for (const auto value : values) {
    try {
      system_type(value);
    } catch (const exceptions::invalid_argument_value&) {
      ++raised;
    }
  }
  EXPECT_EQ(raised, values.size() - std::size(valid_types));
  for (types::int32 value = 28600; value < 28605; ++value) expect_invalid([=] { system_type(value); });
}

TEST(code_page, invalid_type_fails_when_something_is_converted) {
  const code_page page;
  expect_invalid([&] { page.encode(ustring8("text")); });
  expect_invalid([&] { page.encode(ustring16()); });
  expect_invalid([&] { page.encode(ustring32()); });
  expect_invalid([&] { page.as_utf8("text"); });
  expect_invalid([&] { page.as_utf16(""); });
  expect_invalid([&] { page.as_utf32(""); });
  expect_invalid([&] { page.as_ustring(""); });
  expect_invalid([] { code_page(type_of(28600)).encode("text"); });
}

TEST(code_page, invalid_type_fails_for_an_empty_text_too) {
  expect_invalid([] { code_page().encode(ustring8()); });
  expect_invalid([] { code_page(types::nil).as_utf8(std::string()); });
}

TEST(code_page, empty_text_gives_an_empty_result) {
  for (const auto& valid : valid_types) {
    const code_page page(valid.type);
    EXPECT_TRUE(page.encode(ustring8()).empty() && page.encode(ustring16()).empty() &&
                page.encode(ustring32()).empty());
    EXPECT_TRUE(page.as_utf8("").empty() && page.as_utf16("").empty() && page.as_utf32("").empty() &&
                page.as_ustring("").empty());
  }
}

TEST(code_page, text_ends_at_its_first_zero) {
  for (const auto& valid : valid_types) {
    const code_page page(valid.type);
    EXPECT_EQ(page.encode(ustring8("ab\0cd", 5)), "ab");
    EXPECT_EQ(page.encode(ustring16(1, code_unit16{}) + ustring16(1, code_unit16{'a'})), "");
    EXPECT_EQ(page.as_utf8(std::string("ab\0cd", 5)), "ab");
    EXPECT_EQ(page.as_utf16(std::string(3, '\0')), ustring16());
  }
}

TEST(code_page, a_zero_at_any_place_of_a_long_text_ends_it) {
  const code_page page(code_page::cp_1251);
  for (std::size_t zero = 0; zero < 100; ++zero) {
    ustring16 text(100, static_cast<code_unit16>(0x0416));
    std::string bytes(100, '\xC6');
    text[zero] = code_unit16{};
    bytes[zero] = '\0';
    ASSERT_EQ(page.encode(text), std::string(zero, '\xC6'));
    ASSERT_EQ(page.as_utf16(bytes), ustring16(zero, static_cast<code_unit16>(0x0416)));
  }
}

TEST(code_page, result_has_no_terminator_in_its_size) {
  for (const auto& valid : valid_types) EXPECT_EQ(code_page(valid.type).encode("abc").size(), 3u);
}

TEST(code_page, all_widths_meet_in_utf_16) {
  const code_page page(code_page::cp_932);
  const ustring16 text = units({0x3042, 'a', 0x6F22});
  const std::string bytes =
      "\x82\xA0"
      "a"
      "\x8A\xBF";
  EXPECT_EQ(page.encode(text), bytes);
  EXPECT_EQ(page.encode(strings::utf16_to_utf8(text)), bytes);
  EXPECT_EQ(page.encode(strings::utf16_to_utf32(text)), bytes);
  EXPECT_EQ(page.as_utf16(bytes), text);
  EXPECT_EQ(page.as_utf8(bytes), strings::utf16_to_utf8(text));
  EXPECT_EQ(page.as_utf32(bytes), strings::utf16_to_utf32(text));
  EXPECT_EQ(page.as_ustring(bytes), static_cast<const wide_string&>(text));
}

TEST(code_page, text_that_no_transform_takes_is_encoded_as_minus_one) {
  EXPECT_EQ(code_page(code_page::cp_1252).encode("abc\x80"), "-1");
  EXPECT_EQ(code_page(code_page::cp_1252).encode(ustring32(1, static_cast<strings::code_unit32>(0xD800))),
            "-1");
}

TEST(code_page, utf_32_beyond_the_basic_plane_becomes_what_its_transform_makes) {
  const ustring32 text(1, static_cast<strings::code_unit32>(0x10000));
  EXPECT_EQ(code_page(code_page::utf8).encode(text), "\xF0\xA0\x80\x80");  // U+20000
}

TEST(code_page, best_fit_replaces_what_a_page_lacks) {
  const code_page western(code_page::cp_1252);
  EXPECT_EQ(western.encode(units({0x100})), "A");
  EXPECT_EQ(western.encode(units({0x221E})), "8");
  EXPECT_EQ(western.encode(units({0xFF21})), "A");
  EXPECT_EQ(western.encode(units({0x416})), "?");
}

TEST(code_page, each_unit_of_a_pair_gives_a_question_mark) {
  for (const auto& valid : valid_types) {
    if (valid.system < 932 || valid.system == 65001) continue;
    EXPECT_EQ(code_page(valid.type).encode("a\xF0\x9F\x98\x80z"), "a??z");
    EXPECT_EQ(code_page(valid.type).encode(units({0xDC00, 'a', 0xD800})), "?a?");
  }
}

struct reading {
  encoding_type type;
  const char* bytes;
  ustring16 text;
};

/// For the names of the tests.
void PrintTo(const reading& read, std::ostream* to) {
  *to << static_cast<int>(read.type) << ' ' << testing::PrintToString(std::string(read.bytes));
}

class code_page_reads : public testing::TestWithParam<reading> {};

TEST_P(code_page_reads, as) {
  EXPECT_EQ(code_page(GetParam().type).as_utf16(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(undefined_byte, code_page_reads,
                         testing::Values(reading{code_page::cp_1252, "\x81", units({0x81})},
                                         reading{code_page::cp_1253, "\xAA", units({0xF8F9})},
                                         reading{code_page::cp_1255, "\xCA", units({0x5BA})},
                                         reading{code_page::cp_932, "\xA0", units({0xF8F0})},
                                         reading{code_page::cp_936, "\x80", units({0x20AC})},
                                         reading{code_page::cp_936, "\xFF", units({0xF8F5})}));

INSTANTIATE_TEST_SUITE_P(undefined_pair_takes_its_second_byte, code_page_reads,
                         testing::Values(reading{code_page::cp_932, "\x81\x01z", units({0x30FB, 'z'})},
                                         reading{code_page::cp_936, "\x81\x7Fz", units({'?', 'z'})},
                                         reading{code_page::cp_949, "\x81\x01z", units({'?', 'z'})},
                                         reading{code_page::cp_950, "\x81\x01z", units({'?', 'z'})}));

INSTANTIATE_TEST_SUITE_P(lead_byte_at_the_end, code_page_reads,
                         testing::Values(reading{code_page::cp_932, "a\x81", units({'a', 0x30FB})},
                                         reading{code_page::cp_936, "a\x81", units({'a', '?'})},
                                         reading{code_page::cp_949, "\x81", units({'?'})},
                                         reading{code_page::cp_950, "\x81", units({'?'})}));

INSTANTIATE_TEST_SUITE_P(vietnamese_accents_stand_alone, code_page_reads,
                         testing::Values(reading{code_page::cp_1258, "a\xEC", units({'a', 0x301})}));

TEST(code_page, bytes_of_the_swapped_mark_in_front_are_a_character) {
  const std::string bytes =
      "\xEF\xBF\xBE"
      "a";
  EXPECT_EQ(code_page(code_page::utf8).as_utf16(bytes), units({0xFFFE, 'a'}));
  EXPECT_EQ(code_page(code_page::utf8).as_utf8(bytes), bytes);
  EXPECT_EQ(code_page(code_page::utf8).as_utf32(bytes).size(), 2u);
}

TEST(code_page, ten_megabytes_convert_both_ways) {
  const ustring16 line = units({'l', 'i', 'n', 'e', ' ', 0x416, 0x42F, 0x430, 0x44F, '\n'});
  for (const auto type :
       {code_page::cp_1251, code_page::koi8_r, code_page::cp_932, code_page::cp_936, code_page::utf8}) {
    const code_page page(type);
    const std::string bytes_of_line = page.encode(line);
    ustring16 text;
    std::string bytes;
    while (bytes.size() < 10'000'000) {
      text += line;
      bytes += bytes_of_line;
    }
    EXPECT_TRUE(page.encode(text) == bytes) << type;
    EXPECT_TRUE(page.as_utf16(bytes) == text) << type;
  }
}

}  // namespace
