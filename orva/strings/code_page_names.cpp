#include "orva/strings/code_page_names.hpp"

#include <algorithm>

#include "orva/platform/code_page_conversion.hpp"
#include "orva/strings/internal/system_type.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

// The labels of the IANA registry and of the WHATWG Encoding Standard, each under the page that the registry
// means, and "cp" with the number of a page. The name comes first.

constexpr std::string_view labels_of_utf8[] = {
    "utf-8", "csutf8", "unicode-1-1-utf-8", "unicode11utf8", "unicode20utf8", "utf8", "x-unicode20utf8"};
constexpr std::string_view labels_of_cp_932[] = {"shift_jis",   "cp932",    "csshiftjis", "cswindows31j",
                                                 "ms932",       "ms_kanji", "shift-jis",  "sjis",
                                                 "windows-31j", "x-sjis"};
constexpr std::string_view labels_of_cp_936[] = {
    "gbk",        "chinese",   "cp936", "csgb2312",    "csgbk", "csiso58gb231280", "gb2312", "gb_2312",
    "gb_2312-80", "iso-ir-58", "ms936", "windows-936", "x-gbk"};
constexpr std::string_view labels_of_cp_949[] = {"euc-kr",     "cp949",    "cseuckr",        "csksc56011987",
                                                 "iso-ir-149", "korean",   "ks_c_5601-1987", "ks_c_5601-1989",
                                                 "ksc5601",    "ksc_5601", "windows-949"};
constexpr std::string_view labels_of_cp_950[] = {"big5", "cn-big5", "cp950", "csbig5", "x-x-big5"};
constexpr std::string_view labels_of_cp_1250[] = {"windows-1250", "cp1250", "cswindows1250", "x-cp1250"};
constexpr std::string_view labels_of_cp_1251[] = {"windows-1251", "cp1251", "cswindows1251", "x-cp1251"};
constexpr std::string_view labels_of_cp_1252[] = {
    "windows-1252", "ansi_x3.4-1968", "ansi_x3.4-1986", "ascii",    "cp1252",    "cp367",
    "csascii",      "cswindows1252",  "ibm367",         "iso-ir-6", "iso646-us", "iso_646.irv:1991",
    "us",           "us-ascii",       "x-cp1252"};
constexpr std::string_view labels_of_cp_1253[] = {"windows-1253", "cp1253", "cswindows1253", "x-cp1253"};
constexpr std::string_view labels_of_cp_1254[] = {"windows-1254", "cp1254", "cswindows1254", "x-cp1254"};
constexpr std::string_view labels_of_cp_1255[] = {"windows-1255", "cp1255", "cswindows1255", "x-cp1255"};
constexpr std::string_view labels_of_cp_1256[] = {"windows-1256", "cp1256", "cswindows1256", "x-cp1256"};
constexpr std::string_view labels_of_cp_1257[] = {"windows-1257", "cp1257", "cswindows1257", "x-cp1257"};
constexpr std::string_view labels_of_cp_1258[] = {"windows-1258", "cp1258", "cswindows1258", "x-cp1258"};
constexpr std::string_view labels_of_koi8_r[] = {"koi8-r", "cskoi8r", "koi", "koi8", "koi8_r"};
constexpr std::string_view labels_of_koi8_u[] = {"koi8-u", "cskoi8u", "koi8-ru"};
constexpr std::string_view labels_of_iso_8859_1[] = {
    "iso-8859-1", "cp819",      "csisolatin1",     "ibm819", "iso-ir-100", "iso8859-1",
    "iso88591",   "iso_8859-1", "iso_8859-1:1987", "l1",     "latin1"};
constexpr std::string_view labels_of_iso_8859_2[] = {"iso-8859-2",      "csisolatin2", "iso-ir-101",
                                                     "iso8859-2",       "iso88592",    "iso_8859-2",
                                                     "iso_8859-2:1987", "l2",          "latin2"};
constexpr std::string_view labels_of_iso_8859_3[] = {"iso-8859-3",      "csisolatin3", "iso-ir-109",
                                                     "iso8859-3",       "iso88593",    "iso_8859-3",
                                                     "iso_8859-3:1988", "l3",          "latin3"};
constexpr std::string_view labels_of_iso_8859_4[] = {"iso-8859-4",      "csisolatin4", "iso-ir-110",
                                                     "iso8859-4",       "iso88594",    "iso_8859-4",
                                                     "iso_8859-4:1988", "l4",          "latin4"};
constexpr std::string_view labels_of_iso_8859_5[] = {"iso-8859-5", "csisolatincyrillic", "cyrillic",
                                                     "iso-ir-144", "iso8859-5",          "iso88595",
                                                     "iso_8859-5", "iso_8859-5:1988"};
constexpr std::string_view labels_of_iso_8859_6[] = {
    "iso-8859-6", "arabic",       "asmo-708",     "csiso88596e",    "csiso88596i", "csisolatinarabic",
    "ecma-114",   "iso-8859-6-e", "iso-8859-6-i", "iso-ir-127",     "iso8859-6",   "iso88596",
    "iso_8859-6", "iso_8859-6-e", "iso_8859-6-i", "iso_8859-6:1987"};
constexpr std::string_view labels_of_iso_8859_7[] = {
    "iso-8859-7", "csisolatingreek", "ecma-118", "elot_928",   "greek",           "greek8",
    "iso-ir-126", "iso8859-7",       "iso88597", "iso_8859-7", "iso_8859-7:1987", "sun_eu_greek"};
constexpr std::string_view labels_of_iso_8859_8[] = {
    "iso-8859-8",   "csiso88598e",     "csiso88598i",  "csisolatinhebrew",
    "hebrew",       "iso-8859-8-e",    "iso-8859-8-i", "iso-ir-138",
    "iso8859-8",    "iso88598",        "iso_8859-8",   "iso_8859-8-e",
    "iso_8859-8-i", "iso_8859-8:1988", "logical",      "visual"};
constexpr std::string_view labels_of_iso_8859_9[] = {"iso-8859-9",      "csisolatin5", "iso-ir-148",
                                                     "iso8859-9",       "iso88599",    "iso_8859-9",
                                                     "iso_8859-9:1989", "l5",          "latin5"};
constexpr std::string_view labels_of_iso_8859_15[] = {
    "iso-8859-15", "csiso885915", "csisolatin9", "iso8859-15", "iso885915", "iso_8859-15", "l9", "latin-9"};

constexpr known_code_page pages[] = {
    {code_page::utf8, "UTF-8", labels_of_utf8},
    {code_page::cp_932, "Shift_JIS", labels_of_cp_932},
    {code_page::cp_936, "GBK", labels_of_cp_936},
    {code_page::cp_949, "EUC-KR", labels_of_cp_949},
    {code_page::cp_950, "Big5", labels_of_cp_950},
    {code_page::cp_1250, "windows-1250", labels_of_cp_1250},
    {code_page::cp_1251, "windows-1251", labels_of_cp_1251},
    {code_page::cp_1252, "windows-1252", labels_of_cp_1252},
    {code_page::cp_1253, "windows-1253", labels_of_cp_1253},
    {code_page::cp_1254, "windows-1254", labels_of_cp_1254},
    {code_page::cp_1255, "windows-1255", labels_of_cp_1255},
    {code_page::cp_1256, "windows-1256", labels_of_cp_1256},
    {code_page::cp_1257, "windows-1257", labels_of_cp_1257},
    {code_page::cp_1258, "windows-1258", labels_of_cp_1258},
    {code_page::koi8_r, "KOI8-R", labels_of_koi8_r},
    {code_page::koi8_u, "KOI8-U", labels_of_koi8_u},
    {code_page::iso_8859_1, "ISO-8859-1", labels_of_iso_8859_1},
    {code_page::iso_8859_2, "ISO-8859-2", labels_of_iso_8859_2},
    {code_page::iso_8859_3, "ISO-8859-3", labels_of_iso_8859_3},
    {code_page::iso_8859_4, "ISO-8859-4", labels_of_iso_8859_4},
    {code_page::iso_8859_5, "ISO-8859-5", labels_of_iso_8859_5},
    {code_page::iso_8859_6, "ISO-8859-6", labels_of_iso_8859_6},
    {code_page::iso_8859_7, "ISO-8859-7", labels_of_iso_8859_7},
    {code_page::iso_8859_8, "ISO-8859-8", labels_of_iso_8859_8},
    {code_page::iso_8859_9, "ISO-8859-9", labels_of_iso_8859_9},
    {code_page::iso_8859_15, "ISO-8859-15", labels_of_iso_8859_15},
};

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

std::string_view without_blanks_around(std::string_view label) {
  constexpr std::string_view blanks = " \t\n\f\r";
  const auto first = label.find_first_not_of(blanks);
  if (first == label.npos) return {};
  return label.substr(first, label.find_last_not_of(blanks) - first + 1);
}

/// `lower_case` has no upper-case letters.
bool equal_labels(std::string_view label, std::string_view lower_case) {
  return std::equal(label.begin(), label.end(), lower_case.begin(), lower_case.end(),
                    [](char left, char right) { return lower(left) == right; });
}

const known_code_page* find_page(std::string_view label) {
  for (const known_code_page& page : pages) {
    for (const std::string_view known : page.labels) {
      if (equal_labels(label, known)) return &page;
    }
  }
  return nullptr;
}

code_page::encoding_type web_page_of(code_page::encoding_type type) {
  if (type == code_page::iso_8859_1) return code_page::cp_1252;
  if (type == code_page::iso_8859_9) return code_page::cp_1254;
  return type;
}

}  // namespace

std::optional<code_page> find_code_page(std::string_view label, label_meaning meaning) noexcept {
  const known_code_page* const page = find_page(without_blanks_around(label));
  if (page == nullptr) return std::nullopt;
  return code_page(meaning == label_meaning::web ? web_page_of(page->type) : page->type);
}

std::string_view code_page_name(const code_page& page) noexcept {
  const auto system_type = _private::system_type_of(page.type());
  if (!system_type) return {};
  const int number = platform::page_number(*system_type);
  for (const known_code_page& known : pages) {
    if (platform::page_number(*_private::system_type_of(known.type)) == number) return known.name;
  }
  return {};
}

std::span<const known_code_page> known_code_pages() noexcept { return pages; }

}  // namespace ORVA_NAMESPACE::strings
