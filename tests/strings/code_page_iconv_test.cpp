// Labels, characters and losses beside iconv, an independent implementation of the same encodings.
#include <gtest/gtest.h>
#include <iconv.h>

#include <bit>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "orva/strings/code_page_names.hpp"
#include "orva/strings/page_decoder.hpp"
#include "orva/strings/page_encoder.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using strings::code_page;
using strings::code_unit32;
using strings::decode_checked;
using strings::encode_checked;
using strings::ustring32;

/// One direction of iconv, between an encoding and UTF-32 without a mark.
class iconv_converter {
 public:
  iconv_converter(const std::string& to, const std::string& from)
      : converter_(iconv_open(to.c_str(), from.c_str())) {}
  iconv_converter(const iconv_converter&) = delete;
  iconv_converter& operator=(const iconv_converter&) = delete;
  ~iconv_converter() {
    if (is_open()) iconv_close(converter_);
  }

  bool is_open() const { return converter_ != reinterpret_cast<iconv_t>(-1); }

  /// Nothing where iconv refuses a part of `source`, or its end.
  std::optional<std::string> convert(std::string_view source) const {
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    std::string result(4 * source.size() + 16, '\0');
    char* from = const_cast<char*>(source.data());
    std::size_t left = source.size();
    char* to = result.data();
    std::size_t room = result.size();
    if (iconv(converter_, &from, &left, &to, &room) != 0 || left > 0) return std::nullopt;
    iconv(converter_, nullptr, nullptr, &to, &room);
    result.resize(result.size() - room);
    return result;
  }

 private:
  iconv_t converter_;
};

/// iconv writes UTF-32 in the order of the machine, as the library holds it.
const char* const utf32_of_machine = std::endian::native == std::endian::little ? "UTF-32LE" : "UTF-32BE";

std::string_view bytes_of(const ustring32& text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(code_unit32)};
}

bool is_single_byte(code_page::encoding_type type) { return type > 1000; }

/// Every byte, and for pages of pairs some of these.
template <typename Check>
void for_each_short_text(code_page::encoding_type type, Check check) {
  for (unsigned byte = 0; byte < 0x100; ++byte) check(std::string(1, static_cast<char>(byte)));
  if (is_single_byte(type)) return;
  for (unsigned pair = 0x8000; pair < 0x10000; pair += 7) {
    check(std::string{static_cast<char>(pair / 0x100), static_cast<char>(pair % 0x100)});
  }
}

struct comparison {
  std::size_t equal = 0;
  std::size_t different = 0;
};

/// The bytes and pairs that both read without a loss.
comparison compare_readings(code_page::encoding_type type, const iconv_converter& iconv) {
  comparison result;
  for_each_short_text(type, [&](const std::string& bytes) {
    const auto peer = iconv.convert(bytes);
    const auto own = decode_checked<code_unit32>(type, bytes);
    if (!peer || !own.is_lossless()) return;
    ++(bytes_of(own.text) == *peer ? result.equal : result.different);
  });
  return result;
}

/// Labels of encodings that the page contains or nearly contains, which iconv has as encodings of their own.
bool names_part_of_page(std::string_view label) {
  return label == "euc-kr" || label == "cseuckr" || label == "koi8-ru";
}

// Editions and vendors differ in a few characters; another encoding differs in most.
TEST(labels_beside_iconv, name_the_encoding_that_iconv_calls_so) {
  std::size_t known = 0;
  for (const auto& page : strings::known_code_pages()) {
    for (const auto label : page.labels) {
      const iconv_converter iconv(utf32_of_machine, std::string(label));
      if (!iconv.is_open() || names_part_of_page(label)) continue;
      ++known;
      const auto found = compare_readings(page.type, iconv);
      EXPECT_GT(found.equal, 90u) << label;
      EXPECT_LE(found.different * 30, found.equal) << label << ": " << found.different;
    }
  }
  EXPECT_GT(known, 80u);
}

/// Bytes of which the platform that defined the pages has another character than iconv: of another edition of
/// the standard (ISO 8859-7, ISO 8859-8), of KOI8-RU, and the one that windows-1255 has from ISO 8859-8.
bool is_known_difference(code_page::encoding_type type, const std::string& bytes) {
  static const std::map<code_page::encoding_type, std::string> known = {
      {code_page::cp_1255, "\xCA"},
      {code_page::koi8_u, "\xAE\xBE"},
      {code_page::iso_8859_7, "\xA1\xA2\xA4\xA5\xAA"},
      {code_page::iso_8859_8, "\xAF\xFD\xFE"}};
  const auto bytes_of_page = known.find(type);
  return bytes_of_page != known.end() && bytes_of_page->second.find(bytes) != std::string::npos;
}

std::string iconv_name(code_page::encoding_type type) {
  const std::string name(strings::code_page_name(type));
  return name.starts_with("windows-") ? "CP" + name.substr(8) : name;
}

TEST(single_byte_pages_beside_iconv, read_and_refuse_the_same_bytes) {
  for (const auto& page : strings::known_code_pages()) {
    if (!is_single_byte(page.type)) continue;
    const iconv_converter iconv(utf32_of_machine, iconv_name(page.type));
    ASSERT_TRUE(iconv.is_open()) << page.name;
    for (unsigned value = 0; value < 0x100; ++value) {
      const std::string byte(1, static_cast<char>(value));
      if (is_known_difference(page.type, byte)) continue;
      const auto peer = iconv.convert(byte);
      const auto own = decode_checked<code_unit32>(page.type, byte);
      ASSERT_EQ(own.is_lossless(), peer.has_value()) << page.name << ' ' << value;
      if (peer) {
        ASSERT_EQ(bytes_of(own.text), *peer) << page.name << ' ' << value;
      }
    }
  }
}

/// The rest of the basic plane, mostly Chinese and Korean, is tried here and there.
bool has_letters_of_pages(unsigned value) { return value < 0x2700 || value >= 0xF800; }

TEST(single_byte_pages_beside_iconv, write_and_lack_the_same_characters) {
  for (const auto& page : strings::known_code_pages()) {
    if (!is_single_byte(page.type)) continue;
    const iconv_converter iconv(iconv_name(page.type), utf32_of_machine);
    ASSERT_TRUE(iconv.is_open()) << page.name;
    for (unsigned value = 0; value < 0x10000; value += has_letters_of_pages(value) ? 1 : 17) {
      if (value >= 0xD800 && value < 0xE000) continue;
      const ustring32 text(1, static_cast<code_unit32>(value));
      const auto own = encode_checked(page.type, text);
      const auto peer = iconv.convert(bytes_of(text));
      // Placeholders of undefined bytes are written as these bytes. iconv writes some characters as others
      // that are equivalent by the Unicode standard.
      const bool is_placeholder = !decode_checked(page.type, own.bytes).is_lossless();
      const bool is_equivalent = peer && decode_checked<code_unit32>(page.type, *peer).text != text;
      if (is_placeholder || is_equivalent || is_known_difference(page.type, own.bytes)) continue;
      if (peer && is_known_difference(page.type, *peer)) continue;
      if (own.is_lossless()) {
        ASSERT_EQ(own.bytes, peer.value_or("refused")) << page.name << ' ' << value;
      }
      if (!own.is_lossless()) {
        ASSERT_FALSE(peer.has_value()) << page.name << ' ' << value;
      }
    }
  }
}

TEST(utf8_beside_iconv, refuses_the_same_sequences) {
  const iconv_converter iconv(utf32_of_machine, "UTF-8");
  for (unsigned lead = 0; lead < 0x100; ++lead) {
    for (unsigned second = 0; second < 0x100; ++second) {
      for (const char* const end : {"", "\x80", "\xBF", "\x80\x80", "\xBF\xBF", "a"}) {
        const std::string bytes = std::string{static_cast<char>(lead), static_cast<char>(second)} + end;
        const auto peer = iconv.convert(bytes);
        const auto own = decode_checked<code_unit32>(code_page::utf8, bytes);
        ASSERT_EQ(own.is_lossless(), peer.has_value()) << lead << ' ' << second << ' ' << end;
        if (peer) {
          ASSERT_EQ(bytes_of(own.text), *peer);
        }
      }
    }
  }
}

}  // namespace
