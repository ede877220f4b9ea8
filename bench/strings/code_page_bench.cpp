/// Code pages beside ICU and iconv: long text, and calls of 16 characters with the peers' converters kept
/// open.
///
/// Each produces an owned string, as a user would with any of them; the peers write into a string of the
/// largest size, which is cut afterwards. Rates are bytes of the encoded text per second. "Long" is 64 KB of
/// words in the page's own letters, every fourth one in Latin letters; "Best_fit" are letters that are not in
/// the page; "Western" are words of Latin letters, every twelfth letter of them the page's own.
///
/// "Checked" conversions list what they lose, as iconv stops there: here they lose nothing, except in
/// "Best_fit" and "Undefined", where each character is lost. "Pieces" are 4 KB each.
#include <benchmark/benchmark.h>
#include <iconv.h>
#include <unicode/ucnv.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "orva/orva.hpp"

namespace {

using orva::strings::code_page;
using orva::strings::ustring16;

/// A converter of ICU, made once.
class icu_peer {
 public:
  explicit icu_peer(const char* name) {
    UErrorCode error = U_ZERO_ERROR;
    converter_.reset(ucnv_open(name, &error));
  }

  ustring16 decode(const std::string& bytes) const {
    UErrorCode error = U_ZERO_ERROR;
    std::u16string result(bytes.size(), u'\0');
    const auto size = ucnv_toUChars(converter_.get(), result.data(), static_cast<std::int32_t>(result.size()),
                                    bytes.data(), static_cast<std::int32_t>(bytes.size()), &error);
    result.resize(static_cast<std::size_t>(size));
    return result;
  }

  std::string to_utf8(const std::string& bytes) const {
    UErrorCode error = U_ZERO_ERROR;
    std::string result(bytes.size() * 3, '\0');
    const auto size = ucnv_toAlgorithmic(UCNV_UTF8, converter_.get(), result.data(),
                                         static_cast<std::int32_t>(result.size()), bytes.data(),
                                         static_cast<std::int32_t>(bytes.size()), &error);
    result.resize(static_cast<std::size_t>(size));
    return result;
  }

  std::string encode(const ustring16& text) const {
    UErrorCode error = U_ZERO_ERROR;
    std::string result(text.size() * 2, '\0');
    const auto size =
        ucnv_fromUChars(converter_.get(), result.data(), static_cast<std::int32_t>(result.size()),
                        text.data(), static_cast<std::int32_t>(text.size()), &error);
    result.resize(static_cast<std::size_t>(size));
    return result;
  }

 private:
  struct close {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
  };
  std::unique_ptr<UConverter, close> converter_;
};

/// Both directions of iconv, opened once.
class iconv_peer {
 public:
  explicit iconv_peer(const char* name)
      : to_(iconv_open(name, "UTF-16LE")), from_(iconv_open("UTF-16LE", name)) {}
  ~iconv_peer() {
    iconv_close(to_);
    iconv_close(from_);
  }
  iconv_peer(const iconv_peer&) = delete;
  iconv_peer& operator=(const iconv_peer&) = delete;

  ustring16 decode(const std::string& bytes) const {
    std::u16string result(bytes.size(), u'\0');
    const auto left = convert(from_, bytes.data(), bytes.size(), result.data(), result.size() * 2);
    result.resize(result.size() - left / 2);
    return result;
  }

  std::string encode(const ustring16& text) const {
    std::string result(text.size() * 2, '\0');
    const auto left = convert(to_, text.data(), text.size() * 2, result.data(), result.size());
    result.resize(result.size() - left);
    return result;
  }

 private:
  static std::size_t convert(iconv_t with, const void* from, std::size_t size, void* to, std::size_t room) {
    auto* in = static_cast<char*>(const_cast<void*>(from));
    auto* out = static_cast<char*>(to);
    iconv(with, &in, &size, &out, &room);
    return room;
  }

  iconv_t to_;
  iconv_t from_;
};

struct subject {
  code_page::encoding_type type;
  const char* name;
  const char* icu_name;
  const char* iconv_name;
  char16_t first;
  char16_t last;
  unsigned longest_word;
};

constexpr subject subjects[] = {
    {code_page::cp_1252, "1252", "ibm-5348_P100-1997", "CP1252", 0xE0, 0xF6, 9},
    {code_page::cp_1251, "1251", "ibm-5347_P100-1998", "CP1251", 0x410, 0x44F, 9},
    {code_page::koi8_r, "koi8_r", "ibm-878_P100-1996", "KOI8-R", 0x410, 0x44F, 9},
    {code_page::cp_932, "932", "ibm-943_P15A-2003", "CP932", 0x3041, 0x3093, 20},
    {code_page::cp_936, "936", "ibm-1386_P100-2001", "CP936", 0x4E00, 0x9FA5, 20},
    {code_page::utf8, "utf8", "UTF-8", "UTF-8", 0x410, 0x44F, 9},
};

/// Words in Latin letters, every twelfth letter of them of the page's own.
ustring16 western_words(const subject& of, std::size_t units) {
  std::mt19937 random(20261121);
  std::uniform_int_distribution<unsigned> own(of.first, of.last);
  std::uniform_int_distribution<unsigned> latin('a', 'z');
  ustring16 text;
  for (std::size_t i = 0; i < units; ++i) {
    const unsigned letter = random() % 12 == 0 ? own(random) : latin(random);
    text.push_back(i % 6 == 5 ? u' ' : static_cast<char16_t>(letter));
  }
  return text;
}

ustring16 words_of(const subject& of, std::size_t units) {
  std::mt19937 random(20261121);
  std::uniform_int_distribution<unsigned> own(of.first, of.last);
  std::uniform_int_distribution<unsigned> latin('a', 'z');
  std::uniform_int_distribution<unsigned> length(1, of.longest_word);
  ustring16 text;
  for (unsigned word = 0; text.size() < units; ++word) {
    for (unsigned left = length(random); left > 0; --left) {
      const unsigned letter = word % 4 == 3 ? latin(random) : own(random);
      text.push_back(static_cast<char16_t>(letter));
    }
    text.push_back(u' ');
  }
  text.resize(units);
  return text;
}

template <typename Convert, typename Source>
void add(const std::string& name, const Source& source, std::size_t bytes, Convert convert) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(convert(source));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  });
}

ustring16 decode_in_pieces(const code_page& page, std::string_view bytes) {
  constexpr std::size_t piece = 4096;
  orva::strings::basic_page_decoder<orva::strings::code_unit16> decoder(page);
  ustring16 text;
  for (std::size_t at = 0; at < bytes.size(); at += piece) decoder.decode(bytes.substr(at, piece), text);
  decoder.finish(text);
  return text;
}

void add_text(const subject& of, const std::string& length, const ustring16& text) {
  const code_page page(of.type);
  const std::string bytes = page.encode(text);
  const auto icu = std::make_shared<icu_peer>(of.icu_name);
  const auto iconv = std::make_shared<iconv_peer>(of.iconv_name);
  const std::string decode = std::string("decode/") + of.name + "/" + length;
  add(decode + "/orva", bytes, bytes.size(),
      [=](const std::string& source) { return page.as_utf16(source); });
  add(decode + "/orva_checked", bytes, bytes.size(), [=](const std::string& source) {
    return orva::strings::decode_checked<orva::strings::code_unit16>(page, source);
  });
  add(decode + "/orva_pieces", bytes, bytes.size(),
      [=](const std::string& source) { return decode_in_pieces(page, source); });
  add(decode + "/icu", bytes, bytes.size(), [=](const std::string& source) { return icu->decode(source); });
  add(decode + "/iconv", bytes, bytes.size(),
      [=](const std::string& source) { return iconv->decode(source); });
  const std::string to_utf8 = std::string("to_utf8/") + of.name + "/" + length;
  add(to_utf8 + "/orva_checked", bytes, bytes.size(),
      [=](const std::string& source) { return orva::strings::decode_checked(page, source); });
  add(to_utf8 + "/icu", bytes, bytes.size(), [=](const std::string& source) { return icu->to_utf8(source); });
  const std::string encode = std::string("encode/") + of.name + "/" + length;
  add(encode + "/orva", text, bytes.size(), [=](const ustring16& source) { return page.encode(source); });
  add(encode + "/orva_checked", text, bytes.size(),
      [=](const ustring16& source) { return orva::strings::encode_checked(page, source); });
  add(encode + "/icu", text, bytes.size(), [=](const ustring16& source) { return icu->encode(source); });
  add(encode + "/iconv", text, bytes.size(), [=](const ustring16& source) { return iconv->encode(source); });
}

const bool all_added = [] {
  for (const subject& of : subjects) {
    add_text(of, "Long", words_of(of, 65536));
    add_text(of, "16_characters", words_of(of, 16));
  }
  add_text(subjects[0], "Western", western_words(subjects[0], 65536));
  add_text(subjects[0], "Ascii", ustring16(65536, u'a'));
  const code_page page(code_page::cp_1252);
  const ustring16 best_fit = words_of({{}, "", "", "", 0x100, 0x17F, 9}, 65536);
  add("encode/1252/Best_fit/orva", best_fit, 65536,
      [=](const ustring16& source) { return page.encode(source); });
  add("encode/1252/Best_fit/orva_checked", best_fit, 65536,
      [=](const ustring16& source) { return orva::strings::encode_checked(page, source); });
  add("decode/1252/Undefined/orva_checked", std::string(65536, '\x81'), 65536,
      [=](const std::string& source) { return orva::strings::decode_checked(page, source); });
  return true;
}();

}  // namespace
