#include "orva/strings/code_page_names.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using namespace ORVA_NAMESPACE;
using strings::code_page;
using strings::code_page_name;
using strings::find_code_page;
using strings::known_code_pages;
using strings::label_meaning;

struct labels_of {
  code_page::encoding_type type;
  const char* labels;
};

// The registry of IANA: names, preferred MIME names and aliases.
constexpr labels_of iana_labels[] = {
    {code_page::utf8, "utf-8 csutf8"},
    {code_page::cp_932, "windows-31j cswindows31j shift_jis ms_kanji csshiftjis"},
    {code_page::cp_936,
     "gbk cp936 ms936 windows-936 csgbk gb2312 csgb2312 gb_2312-80 iso-ir-58 chinese csiso58gb231280"},
    {code_page::cp_949,
     "euc-kr cseuckr ks_c_5601-1987 iso-ir-149 ks_c_5601-1989 ksc_5601 korean csksc56011987"},
    {code_page::cp_950, "big5 csbig5"},
    {code_page::cp_1250, "windows-1250 cswindows1250"},
    {code_page::cp_1251, "windows-1251 cswindows1251"},
    {code_page::cp_1252,
     "windows-1252 cswindows1252 us-ascii iso-ir-6 ansi_x3.4-1968 ansi_x3.4-1986 iso_646.irv:1991 iso646-us "
     "us ibm367 cp367 csascii ascii"},
    {code_page::cp_1253, "windows-1253 cswindows1253"},
    {code_page::cp_1254, "windows-1254 cswindows1254"},
    {code_page::cp_1255, "windows-1255 cswindows1255"},
    {code_page::cp_1256, "windows-1256 cswindows1256"},
    {code_page::cp_1257, "windows-1257 cswindows1257"},
    {code_page::cp_1258, "windows-1258 cswindows1258"},
    {code_page::koi8_r, "koi8-r cskoi8r"},
    {code_page::koi8_u, "koi8-u cskoi8u"},
    {code_page::iso_8859_1,
     "iso_8859-1:1987 iso-ir-100 iso_8859-1 iso-8859-1 latin1 l1 ibm819 cp819 csisolatin1"},
    {code_page::iso_8859_2, "iso_8859-2:1987 iso-ir-101 iso_8859-2 iso-8859-2 latin2 l2 csisolatin2"},
    {code_page::iso_8859_3, "iso_8859-3:1988 iso-ir-109 iso_8859-3 iso-8859-3 latin3 l3 csisolatin3"},
    {code_page::iso_8859_4, "iso_8859-4:1988 iso-ir-110 iso_8859-4 iso-8859-4 latin4 l4 csisolatin4"},
    {code_page::iso_8859_5, "iso_8859-5:1988 iso-ir-144 iso_8859-5 iso-8859-5 cyrillic csisolatincyrillic"},
    {code_page::iso_8859_6,
     "iso_8859-6:1987 iso-ir-127 iso_8859-6 iso-8859-6 ecma-114 asmo-708 arabic csisolatinarabic "
     "iso_8859-6-e csiso88596e iso-8859-6-e iso_8859-6-i csiso88596i iso-8859-6-i"},
    {code_page::iso_8859_7,
     "iso_8859-7:1987 iso-ir-126 iso_8859-7 iso-8859-7 elot_928 ecma-118 greek greek8 csisolatingreek"},
    {code_page::iso_8859_8,
     "iso_8859-8:1988 iso-ir-138 iso_8859-8 iso-8859-8 hebrew csisolatinhebrew iso_8859-8-e csiso88598e "
     "iso-8859-8-e iso_8859-8-i csiso88598i iso-8859-8-i"},
    {code_page::iso_8859_9, "iso_8859-9:1989 iso-ir-148 iso_8859-9 iso-8859-9 latin5 l5 csisolatin5"},
    {code_page::iso_8859_15, "iso-8859-15 iso_8859-15 latin-9 csiso885915"},
};

// The WHATWG Encoding Standard, for the encodings that the library has.
constexpr labels_of web_labels[] = {
    {code_page::utf8, "unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf-8 utf8 x-unicode20utf8"},
    {code_page::cp_932, "csshiftjis ms932 ms_kanji shift-jis shift_jis sjis windows-31j x-sjis"},
    {code_page::cp_936, "chinese csgb2312 csiso58gb231280 gb2312 gb_2312 gb_2312-80 gbk iso-ir-58 x-gbk"},
    {code_page::cp_949,
     "cseuckr csksc56011987 euc-kr iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 "
     "windows-949"},
    {code_page::cp_950, "big5 cn-big5 csbig5 x-x-big5"},
    {code_page::koi8_r, "cskoi8r koi koi8 koi8-r koi8_r"},
    {code_page::koi8_u, "koi8-ru koi8-u"},
    {code_page::iso_8859_15, "csisolatin9 iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9"},
    {code_page::iso_8859_8, "csiso88598i iso-8859-8-i logical"},
    {code_page::cp_1250, "cp1250 windows-1250 x-cp1250"},
    {code_page::cp_1251, "cp1251 windows-1251 x-cp1251"},
    {code_page::cp_1252,
     "ansi_x3.4-1968 ascii cp1252 cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 iso88591 "
     "iso_8859-1 iso_8859-1:1987 l1 latin1 us-ascii windows-1252 x-cp1252"},
    {code_page::cp_1253, "cp1253 windows-1253 x-cp1253"},
    {code_page::cp_1254,
     "cp1254 csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 l5 latin5 "
     "windows-1254 x-cp1254"},
    {code_page::cp_1255, "cp1255 windows-1255 x-cp1255"},
    {code_page::cp_1256, "cp1256 windows-1256 x-cp1256"},
    {code_page::cp_1257, "cp1257 windows-1257 x-cp1257"},
    {code_page::cp_1258, "cp1258 windows-1258 x-cp1258"},
    {code_page::iso_8859_2,
     "csisolatin2 iso-8859-2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 latin2"},
    {code_page::iso_8859_3,
     "csisolatin3 iso-8859-3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 latin3"},
    {code_page::iso_8859_4,
     "csisolatin4 iso-8859-4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 latin4"},
    {code_page::iso_8859_5,
     "csisolatincyrillic cyrillic iso-8859-5 iso-ir-144 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988"},
    {code_page::iso_8859_6,
     "arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6 iso-8859-6-e iso-8859-6-i "
     "iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987"},
    {code_page::iso_8859_7,
     "csisolatingreek ecma-118 elot_928 greek greek8 iso-8859-7 iso-ir-126 iso8859-7 iso88597 iso_8859-7 "
     "iso_8859-7:1987 sun_eu_greek"},
    {code_page::iso_8859_8,
     "csiso88598e csisolatinhebrew hebrew iso-8859-8 iso-8859-8-e iso-ir-138 iso8859-8 iso88598 iso_8859-8 "
     "iso_8859-8:1988 visual"},
};

void expect_labels(const labels_of& expected, label_meaning meaning) {
  std::istringstream labels(expected.labels);
  for (std::string label; labels >> label;) {
    EXPECT_EQ(find_code_page(label, meaning), code_page(expected.type)) << label;
  }
}

std::string in_upper_case(std::string_view text) {
  std::string result;
  for (const char c : text) result += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return result;
}

TEST(find_code_page, documentation_example) {
  EXPECT_EQ(find_code_page("Shift_JIS"), code_page::cp_932);
  EXPECT_EQ(find_code_page(" CP1252 "), code_page::cp_1252);
  EXPECT_EQ(find_code_page("latin1"), code_page::iso_8859_1);
  EXPECT_EQ(find_code_page("latin1", label_meaning::web), code_page::cp_1252);
  EXPECT_FALSE(find_code_page("klingon"));
  EXPECT_EQ(code_page_name(code_page::cp_1252), "windows-1252");
}

TEST(find_code_page, every_label_of_iana_is_found) {
  for (const auto& expected : iana_labels) expect_labels(expected, label_meaning::iana);
}

TEST(find_code_page, every_label_of_the_web_is_found) {
  for (const auto& expected : web_labels) expect_labels(expected, label_meaning::web);
}

TEST(find_code_page, meanings_differ_only_in_iso_8859_1_and_9) {
  for (const auto& page : known_code_pages()) {
    auto web_page = page.type;
    if (page.type == code_page::iso_8859_1) web_page = code_page::cp_1252;
    if (page.type == code_page::iso_8859_9) web_page = code_page::cp_1254;
    for (const auto label : page.labels) {
      EXPECT_EQ(find_code_page(label), code_page(page.type)) << label;
      EXPECT_EQ(find_code_page(label, label_meaning::web), code_page(web_page)) << label;
    }
  }
}

TEST(find_code_page, case_of_ascii_letters_does_not_count) {
  for (const auto& page : known_code_pages()) {
    for (const auto label : page.labels) EXPECT_EQ(find_code_page(in_upper_case(label)), page.type) << label;
  }
}

TEST(find_code_page, blanks_around_a_label_do_not_count) {
  EXPECT_EQ(find_code_page(" \t\n\f\rkoi8-r \t\n\f\r"), code_page::koi8_r);
  EXPECT_FALSE(find_code_page("koi8 -r"));
  EXPECT_FALSE(find_code_page("\vkoi8-r"));
  EXPECT_FALSE(find_code_page("\xA0koi8-r"));
}

TEST(find_code_page, anything_else_is_not_found) {
  using namespace std::string_view_literals;
  for (const auto label : {""sv, " "sv, "utf"sv, "utf-88"sv, "utf_8"sv, "utf-8\0"sv, "utf-16"sv, "utf-7"sv,
                           "cp437"sv, "euc-jp"sv, "gb18030"sv, "big5-hkscs"sv, "iso-8859-16"sv,
                           "ISO-8859-\xE0"sv, "\xC4\xB0SO-8859-1"sv, "1252"sv, "ansi"sv}) {
    EXPECT_FALSE(find_code_page(label)) << label;
  }
}

TEST(find_code_page, label_with_another_byte_is_found_only_if_that_is_a_blank_around_it) {
  for (unsigned value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const bool is_blank = std::string_view(" \t\n\f\r").find(byte) != std::string_view::npos;
    EXPECT_EQ(find_code_page(std::string("cp125") + byte + '1').has_value(), false) << value;
    EXPECT_EQ(find_code_page(byte + std::string("windows-1251")).has_value(), is_blank) << value;
    EXPECT_EQ(find_code_page(std::string("windows-1251") + byte).has_value(), is_blank) << value;
  }
}

TEST(code_page_name, is_a_label_of_its_page) {
  std::size_t count = 0;
  for (types::int32 value = -1; value < 30000; ++value) {
    const code_page page(static_cast<code_page::encoding_type>(value));
    const auto name = code_page_name(page);
    if (name.empty() || value < 4) continue;
    ++count;
    EXPECT_EQ(find_code_page(name), page) << name;
  }
  EXPECT_EQ(count, 26u);
}

TEST(code_page_name, is_empty_for_an_invalid_type) {
  EXPECT_EQ(code_page_name(code_page()), "");
  EXPECT_EQ(code_page_name(static_cast<code_page::encoding_type>(-1)), "");
  EXPECT_EQ(code_page_name(static_cast<code_page::encoding_type>(1259)), "");
}

TEST(code_page_name, of_the_encodings_of_the_system_is_that_of_the_page_they_are) {
  const bool is_windows = strings::wchar_is_utf16;
  if (!is_windows) {
    EXPECT_EQ(code_page_name(code_page::ansi), "UTF-8");
  }
  EXPECT_EQ(code_page_name(code_page::oem), code_page_name(code_page::oem_alternate));
}

TEST(known_code_pages, name_each_page_once_and_each_label_once) {
  std::set<std::string_view> names;
  std::set<std::string_view> labels;
  for (const auto& page : known_code_pages()) {
    EXPECT_TRUE(names.insert(page.name).second) << page.name;
    EXPECT_EQ(code_page_name(page.type), page.name);
    EXPECT_EQ(in_upper_case(page.labels.front()), in_upper_case(page.name));
    for (const auto label : page.labels) {
      EXPECT_TRUE(labels.insert(label).second) << label;
      EXPECT_TRUE(std::ranges::none_of(label, [](char c) { return c >= 'A' && c <= 'Z'; })) << label;
    }
  }
  EXPECT_EQ(names.size(), 26u);
}

}  // namespace
