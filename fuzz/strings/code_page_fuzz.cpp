/// Every code page in both directions on any bytes and units: a text is compared with its characters
/// converted one at a time, which reach no fast path, and UTF-8 with the slow second implementation.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/require.hpp"
#include "orva/orva.hpp"
#include "tests/support/reference_utf8_page.hpp"

namespace {

using namespace orva::strings;
using orva_fuzz::require;

constexpr code_page::encoding_type single_byte_types[] = {
    code_page::cp_1250,    code_page::cp_1251,    code_page::cp_1252,    code_page::cp_1253,
    code_page::cp_1254,    code_page::cp_1255,    code_page::cp_1256,    code_page::cp_1257,
    code_page::cp_1258,    code_page::koi8_r,     code_page::koi8_u,     code_page::iso_8859_1,
    code_page::iso_8859_2, code_page::iso_8859_3, code_page::iso_8859_4, code_page::iso_8859_5,
    code_page::iso_8859_6, code_page::iso_8859_7, code_page::iso_8859_8, code_page::iso_8859_9,
    code_page::iso_8859_15};
constexpr code_page::encoding_type double_byte_types[] = {code_page::cp_932, code_page::cp_936,
                                                          code_page::cp_949, code_page::cp_950};
constexpr code_page::encoding_type utf8_types[] = {code_page::utf8, code_page::ansi, code_page::oem,
                                                   code_page::oem_alternate};

std::string encode_each(const code_page& page, const ustring16& text) {
  std::string bytes;
  for (const auto unit : text) bytes += page.encode(ustring16(1, unit));
  return bytes;
}

/// Takes a second byte where the first one does not form a character of its own.
ustring16 decode_each(const code_page& page, const std::string& bytes) {
  ustring16 text;
  for (std::size_t i = 0; i < bytes.size();) {
    const auto pair = page.as_utf16(bytes.substr(i, 2));
    const std::size_t taken = pair.size() == 1 ? 2 : 1;
    text += pair[0];
    i += taken;
  }
  return text;
}

void check_double_byte(const code_page& page, const std::string& bytes, const ustring16& text) {
  require(page.encode(text) == encode_each(page, text));
  require(page.as_utf16(bytes) == decode_each(page, bytes));
}

void check_single_byte(const code_page& page, const std::string& bytes, const ustring16& text) {
  check_double_byte(page, bytes, text);
  require(page.encode(text).size() == text.size());
  require(page.as_utf16(bytes).size() == bytes.size());
}

void check_utf8(const code_page& page, const std::string& bytes, const ustring16& text) {
  const auto decoded = page.as_utf16(bytes);
  require(decoded == reference::utf8_page_decoded(bytes));
  require(page.as_utf16(page.encode(decoded)) == decoded);
  require(page.as_utf16(page.encode(text)).size() == text.size());
}

/// The widths that are converted by the transforms first.
void check_other_widths(const code_page& page, const std::string& bytes) {
  const auto text = page.as_utf16(bytes);
  require(page.as_ustring(bytes) == text);
  require(page.as_utf8(bytes).empty() == text.empty());
  require(page.as_utf32(bytes).size() <= text.size());
  page.encode(ustring8(bytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string whole(reinterpret_cast<const char*>(data), size);
  const std::string bytes = whole.substr(0, whole.find('\0'));
  ustring16 all_units(size / 2, code_unit16{});
  if (!all_units.empty()) std::memcpy(all_units.data(), data, all_units.size() * 2);
  const ustring16 units = all_units.substr(0, all_units.find(code_unit16{}));

  for (const auto type : single_byte_types) check_single_byte(type, bytes, units);
  for (const auto type : double_byte_types) check_double_byte(type, bytes, units);
  for (const auto type : utf8_types) check_utf8(type, bytes, units);
  check_other_widths(code_page::cp_932, bytes);
  check_other_widths(code_page::utf8, bytes);

  // Text after a zero is ignored.
  require(code_page(code_page::cp_936).as_utf16(whole) == code_page(code_page::cp_936).as_utf16(bytes));
  require(code_page(code_page::cp_936).encode(all_units) == code_page(code_page::cp_936).encode(units));
  return 0;
}
