#include "orva/strings/page_decoder.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/strings/unicode.hpp"
#include "tests/support/code_page_text.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace std::string_literals;
using strings::basic_page_decoder;
using strings::code_page;
using strings::code_unit16;
using strings::code_unit32;
using strings::conversion_error;
using strings::decode_checked;
using strings::decoded_text;
using strings::decoding_loss;
using strings::loss_kind;
using strings::max_losses;
using strings::page_decoder;
using strings::ustring16;
using strings::ustring8;

/// Decodes in two or more pieces, of the sizes that `next_size` returns.
template <typename Unit = char, typename NextSize>
decoded_text<Unit> decode_in_pieces(const code_page& page, std::string_view bytes, NextSize next_size) {
  basic_page_decoder<Unit> decoder(page);
  decoded_text<Unit> result;
  while (!bytes.empty()) {
    const auto piece = bytes.substr(0, next_size());
    decoder.decode(piece, result.text);
    bytes.remove_prefix(piece.size());
  }
  decoder.finish(result.text);
  result.losses = decoder.take_losses();
  return result;
}

template <typename Unit>
void expect_equal(const decoded_text<Unit>& found, const decoded_text<Unit>& expected) {
  ASSERT_TRUE(found.text == expected.text);
  ASSERT_EQ(found.losses.count, expected.losses.count);
  ASSERT_TRUE(found.losses == expected.losses);
}

TEST(decode_checked, documentation_example) {
  const auto result = decode_checked(code_page::cp_1252, "\x80 \x81");
  EXPECT_EQ(result.text, "\xE2\x82\xAC \xC2\x81");
  ASSERT_EQ(result.losses.count, 1u);
  EXPECT_EQ(result.losses.first[0], (decoding_loss{loss_kind::undefined, 2, "\x81", 4, 0x81}));

  page_decoder decoder(code_page::cp_932);
  std::string text;
  for (const char* const piece : {"\x82", "\xA0\x82", "\xA2\x81"}) decoder.decode(piece, text);
  decoder.finish(text);
  EXPECT_EQ(text, "\xE3\x81\x82\xE3\x81\x84\xE3\x83\xBB");
  ASSERT_EQ(decoder.losses().count, 1u);
  EXPECT_EQ(decoder.losses().first[0], (decoding_loss{loss_kind::cut, 4, "\x81", 6, 0x30FB}));
}

/// On Windows, malformed UTF-8 is converted by the system where no losses are wanted.
bool is_left_to_the_system(code_page::encoding_type type) {
  return type == code_page::utf8 && std::is_same_v<code_unit16, wchar_t>;
}

class decode_checked_of_page : public testing::TestWithParam<code_page::encoding_type> {
 protected:
  const code_page page_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(pages, decode_checked_of_page, testing::ValuesIn(orva_test::all_code_pages()),
                         [](const auto& tested) { return "page_" + std::to_string(tested.param); });

/// The bytes of single-byte pages, and the single bytes of the others, that are no characters: the gaps in
/// the published tables of the pages.
const std::map<code_page::encoding_type, std::string> undefined_bytes = {
    {code_page::cp_932, "\x80\xA0\xFD\xFE\xFF"s},
    {code_page::cp_936, "\xFF"s},
    {code_page::cp_949, "\x80\xFF"s},
    {code_page::cp_950, "\x80\xFF"s},
    {code_page::cp_1250, "\x81\x83\x88\x90\x98"s},
    {code_page::cp_1251, "\x98"s},
    {code_page::cp_1252, "\x81\x8D\x8F\x90\x9D"s},
    {code_page::cp_1253, "\x81\x88\x8A\x8C\x8D\x8E\x8F\x90\x98\x9A\x9C\x9D\x9E\x9F\xAA\xD2\xFF"s},
    {code_page::cp_1254, "\x81\x8D\x8E\x8F\x90\x9D\x9E"s},
    {code_page::cp_1255,
     "\x81\x8A\x8C\x8D\x8E\x8F\x90\x9A\x9C\x9D\x9E\x9F\xD9\xDA\xDB\xDC\xDD\xDE\xDF\xFB\xFC\xFF"s},
    {code_page::cp_1256, ""s},
    {code_page::cp_1257, "\x81\x83\x88\x8A\x8C\x90\x98\x9A\x9C\x9F\xA1\xA5"s},
    {code_page::cp_1258, "\x81\x8A\x8D\x8E\x8F\x90\x9A\x9D\x9E"s},
    {code_page::koi8_r, ""s},
    {code_page::koi8_u, ""s},
    {code_page::iso_8859_1, ""s},
    {code_page::iso_8859_2, ""s},
    {code_page::iso_8859_3, "\xA5\xAE\xBE\xC3\xD0\xE3\xF0"s},
    {code_page::iso_8859_4, ""s},
    {code_page::iso_8859_5, ""s},
    {code_page::iso_8859_6,
     "\xA1\xA2\xA3\xA5\xA6\xA7\xA8\xA9\xAA\xAB\xAE\xAF\xB0\xB1\xB2\xB3\xB4\xB5\xB6\xB7\xB8\xB9\xBA\xBC\xBD"
     "\xBE"
     "\xC0\xDB\xDC\xDD\xDE\xDF\xF3\xF4\xF5\xF6\xF7\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF"s},
    {code_page::iso_8859_7, "\xA4\xA5\xAA\xAE\xD2\xFF"s},
    {code_page::iso_8859_8,
     "\xA1\xBF\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF\xD0\xD1\xD2\xD3\xD4\xD5\xD6"
     "\xD7"
     "\xD8\xD9\xDA\xDB\xDC\xDD\xDE\xFB\xFC\xFD\xFE\xFF"s},
    {code_page::iso_8859_9, ""s},
    {code_page::iso_8859_15, ""s}};

bool is_double_byte(code_page::encoding_type type) { return type >= 932 && type <= 950; }

TEST_P(decode_checked_of_page, every_byte_reads_as_it_does_unchecked_and_the_undefined_ones_are_listed) {
  if (GetParam() == code_page::utf8) return;
  for (unsigned value = 1; value < 0x100; ++value) {
    const std::string byte(1, static_cast<char>(value));
    const auto result = decode_checked<code_unit16>(page_, byte);
    ASSERT_EQ(result.text, page_.as_utf16(byte));
    const bool is_undefined = undefined_bytes.at(GetParam()).find(byte) != std::string::npos;
    if (is_undefined) {
      ASSERT_EQ(result.losses.count, 1u) << value;
      const auto read_as = static_cast<char32_t>(result.text.front());
      EXPECT_EQ(result.losses.first[0], (decoding_loss{loss_kind::undefined, 0, byte, 0, read_as}));
    } else if (!result.is_lossless()) {
      EXPECT_TRUE(is_double_byte(GetParam())) << value;
      EXPECT_EQ(result.losses.first[0].kind, loss_kind::cut) << value;
    }
  }
}

/// The slow way to decode a single-byte page: each byte on its own, one after the other.
template <typename Unit>
class byte_by_byte {
 public:
  explicit byte_by_byte(const code_page& page) {
    for (unsigned value = 0; value < 0x100; ++value) {
      alone_.push_back(decode_checked<Unit>(page, std::string(1, static_cast<char>(value))));
    }
  }

  decoded_text<Unit> decode(std::string_view bytes) const {
    decoded_text<Unit> result;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
      const auto& alone = alone_[static_cast<unsigned char>(bytes[place])];
      for (decoding_loss loss : alone.losses.first) {
        loss.place = place;
        loss.result_place = result.text.size();
        result.losses.first.push_back(loss);
      }
      result.losses.count += alone.losses.count;
      result.text += alone.text;
    }
    return result;
  }

 private:
  std::vector<decoded_text<Unit>> alone_;
};

TEST_P(decode_checked_of_page, every_byte_reads_the_same_at_every_place_of_a_text) {
  if (GetParam() == code_page::utf8 || is_double_byte(GetParam())) return;
  const byte_by_byte<char> slow(page_);
  const byte_by_byte<code_unit16> slow_16(page_);
  for (const char filler : {'a', '\xE4'}) {
    std::string bytes(41, filler);
    for (char& byte : bytes) {
      for (unsigned value = 0; value < 0x100; value += value < 0x78 ? 0x3C : 1) {
        byte = static_cast<char>(value);
        expect_equal(decode_checked(page_, bytes), slow.decode(bytes));
        expect_equal(decode_checked<code_unit16>(page_, bytes), slow_16.decode(bytes));
        if (HasFatalFailure()) return;
      }
      byte = filler;
    }
  }
}

TEST_P(decode_checked_of_page, text_of_every_size_and_alignment_reads_as_its_bytes_do) {
  if (GetParam() == code_page::utf8 || is_double_byte(GetParam())) return;
  const byte_by_byte<char> slow(page_);
  const byte_by_byte<code_unit16> slow_16(page_);
  const byte_by_byte<code_unit32> slow_32(page_);
  orva_test::random_engine random;
  std::string bytes;
  while (bytes.size() < 100) bytes += orva_test::random_page_bytes(random, page_, 4);
  for (std::size_t begin = 0; begin < 16; ++begin) {
    for (std::size_t size = 0; size <= 80; ++size) {
      const auto part = std::string_view(bytes).substr(begin, size);
      expect_equal(decode_checked(page_, part), slow.decode(part));
      expect_equal(decode_checked<code_unit16>(page_, part), slow_16.decode(part));
      expect_equal(decode_checked<code_unit32>(page_, part), slow_32.decode(part));
      if (HasFatalFailure()) return;
    }
  }
}

TEST_P(decode_checked_of_page, each_byte_is_the_same_character_in_every_width) {
  if (GetParam() == code_page::utf8 || is_double_byte(GetParam())) return;
  for (unsigned value = 0; value < 0x100; ++value) {
    const std::string byte(1, static_cast<char>(value));
    const auto in_16 = decode_checked<code_unit16>(page_, byte).text;
    EXPECT_EQ(decode_checked(page_, byte).text, strings::utf16_to_utf8(in_16));
    EXPECT_TRUE(decode_checked<code_unit32>(page_, byte).text == strings::utf16_to_utf32(in_16));
  }
}

TEST_P(decode_checked_of_page, every_pair_reads_as_it_does_unchecked) {
  if (is_left_to_the_system(GetParam())) GTEST_SKIP();
  for (unsigned pair = 0x101; pair < 0x10000; ++pair) {
    if (pair % 0x100 == 0) continue;
    const char bytes[] = {static_cast<char>(pair / 0x100), static_cast<char>(pair % 0x100), '\0'};
    ASSERT_EQ(decode_checked<code_unit16>(page_, bytes).text, page_.as_utf16(bytes)) << std::hex << pair;
  }
}

// What is listed cannot be told from the text alone: U+30FB and '?' are characters, too.
TEST_P(decode_checked_of_page, pair_is_listed_where_no_character_has_it) {
  if (!is_double_byte(GetParam())) return;
  for (unsigned lead = 0x80; lead < 0x100; ++lead) {
    const ustring16 alone = page_.as_utf16(std::string(1, static_cast<char>(lead)));
    for (unsigned second = 1; second < 0x100; ++second) {
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(second)};
      const auto result = decode_checked<code_unit16>(page_, bytes);
      if (result.text.size() != 1) continue;
      const bool has_character = result.text != alone || page_.encode(result.text) == bytes;
      ASSERT_EQ(result.is_lossless(), has_character) << std::hex << lead << second;
      if (has_character) continue;
      ASSERT_EQ(result.losses.first[0].kind, loss_kind::undefined);
      ASSERT_EQ(result.losses.first[0].bytes, bytes);
    }
  }
}

TEST_P(decode_checked_of_page, lossless_text_comes_back_when_it_is_encoded) {
  if (GetParam() == code_page::utf8) return;
  for (unsigned pair = 1; pair < 0x10000; ++pair) {
    const std::string bytes = pair < 0x100
                                  ? std::string{static_cast<char>(pair)}
                                  : std::string{static_cast<char>(pair / 256), static_cast<char>(pair)};
    const auto result = decode_checked<code_unit16>(page_, bytes);
    if (!result.is_lossless()) continue;
    // The unchecked functions end at a zero.
    if (result.text.find(code_unit16{}) != ustring16::npos) continue;
    ASSERT_EQ(page_.as_utf16(page_.encode(result.text)), result.text) << pair;
  }
}

TEST_P(decode_checked_of_page, zeros_are_characters_and_separate_texts) {
  if (is_left_to_the_system(GetParam())) GTEST_SKIP();
  orva_test::random_engine random;
  for (int round = 0; round < 200; ++round) {
    const std::string bytes = orva_test::random_page_bytes(random, page_, 6);
    ustring16 expected;
    for (std::size_t begin = 0;;) {
      const auto zero = std::min(bytes.find('\0', begin), bytes.size());
      expected += page_.as_utf16(std::string_view(bytes).substr(begin, zero - begin));
      if (zero == bytes.size()) break;
      expected.push_back(code_unit16{});
      begin = zero + 1;
    }
    ASSERT_TRUE(decode_checked<code_unit16>(page_, bytes).text == expected);
  }
}

template <typename Unit>
void expect_losses_where_they_are(const decoded_text<Unit>& result, std::string_view bytes) {
  std::uint64_t end = 0;
  for (const auto& loss : result.losses.first) {
    ASSERT_GE(loss.place, end);
    end = loss.place + loss.bytes.size();
    ASSERT_EQ(bytes.substr(static_cast<std::size_t>(loss.place), loss.bytes.size()), loss.bytes);
    const auto at = static_cast<std::size_t>(loss.result_place);
    ASSERT_LT(at, result.text.size());
    if constexpr (sizeof(Unit) > 1) {
      ASSERT_EQ(static_cast<char32_t>(result.text[at]), loss.read_as);
    } else {
      const strings::ustring32 character(1, static_cast<code_unit32>(loss.read_as));
      ASSERT_TRUE(std::string_view(result.text).substr(at).starts_with(strings::utf32_to_utf8(character)));
    }
  }
}

TEST_P(decode_checked_of_page, losses_say_where_in_bytes_and_text_they_are_in_each_width) {
  orva_test::random_engine random;
  for (int round = 0; round < 100; ++round) {
    const std::string bytes = orva_test::random_page_bytes(random, page_, 8);
    const auto in_8 = decode_checked(page_, bytes);
    const auto in_16 = decode_checked<code_unit16>(page_, bytes);
    const auto in_32 = decode_checked<code_unit32>(page_, bytes);
    expect_losses_where_they_are(in_8, bytes);
    expect_losses_where_they_are(in_16, bytes);
    expect_losses_where_they_are(in_32, bytes);
    ASSERT_EQ(in_8.text, strings::utf32_to_utf8(in_32.text));
    ASSERT_EQ(in_16.text, strings::utf8_to_utf16(in_8.text));
    ASSERT_EQ(in_8.losses.count, in_32.losses.count);
  }
}

TEST_P(decode_checked_of_page, every_cut_into_two_pieces_gives_the_whole) {
  orva_test::random_engine random;
  for (int round = 0; round < 8; ++round) {
    const std::string bytes = orva_test::random_page_bytes(random, page_, 6);
    const auto whole = decode_checked(page_, bytes);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
      bool is_first = true;
      const auto sizes = [&] { return std::exchange(is_first, false) && cut > 0 ? cut : bytes.size(); };
      expect_equal(decode_in_pieces(page_, bytes, sizes), whole);
      if (HasFatalFailure()) return;
    }
  }
}

TEST_P(decode_checked_of_page, pieces_of_every_size_give_the_whole) {
  orva_test::random_engine random;
  const std::string bytes = orva_test::random_page_bytes(random, page_, 60);
  const auto whole = decode_checked(page_, bytes);
  const auto whole_in_32 = decode_checked<code_unit32>(page_, bytes);
  for (std::size_t size = 1; size < 40; ++size) {
    expect_equal(decode_in_pieces(page_, bytes, [=] { return size; }), whole);
    expect_equal(decode_in_pieces<code_unit32>(page_, bytes, [=] { return size; }), whole_in_32);
    if (HasFatalFailure()) return;
  }
  expect_equal(decode_in_pieces(page_, bytes, [&] { return random() % 5; }), whole);
}

TEST_P(decode_checked_of_page, every_shorter_end_is_that_of_the_text_unchecked) {
  if (is_left_to_the_system(GetParam())) GTEST_SKIP();
  orva_test::random_engine random;
  std::string bytes = orva_test::random_page_bytes(random, page_, 6);
  std::erase(bytes, '\0');
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const auto begin = std::string_view(bytes).substr(0, size);
    ASSERT_EQ(decode_checked<code_unit16>(page_, begin).text, page_.as_utf16(begin)) << size;
  }
}

TEST_P(decode_checked_of_page, text_of_many_chunks_is_whole) {
  orva_test::random_engine random;
  std::string bytes;
  while (bytes.size() < 50'000) bytes += orva_test::random_page_bytes(random, page_, 20);
  std::erase(bytes, '\0');
  EXPECT_TRUE(decode_checked<code_unit16>(page_, bytes).text == page_.as_utf16(bytes));
}

struct cut_end {
  code_page::encoding_type type;
  std::string bytes;
  std::string lost;
  char32_t read_as;
};

TEST(decode_checked, cut_end_is_listed_with_the_bytes_that_are_left) {
  const cut_end ends[] = {{code_page::utf8, "a\xC3", "\xC3", 0xFFFD},
                          {code_page::utf8, "a\xE2\x82", "\xE2\x82", 0xFFFD},
                          {code_page::utf8, "a\xF0\x9F\x98", "\xF0\x9F\x98", 0xFFFD},
                          {code_page::cp_932, "\x82\xA0\x82", "\x82", 0x30FB},
                          {code_page::cp_936, "\x81\x81\x81", "\x81", '?'},
                          {code_page::cp_949, "a\x81", "\x81", '?'},
                          {code_page::cp_950, "a\xFE", "\xFE", '?'}};
  for (const auto& end : ends) {
    const auto result = decode_checked<code_unit32>(end.type, end.bytes);
    ASSERT_EQ(result.losses.count, 1u) << end.type;
    const auto place = end.bytes.size() - end.lost.size();
    EXPECT_EQ(result.losses.first[0],
              (decoding_loss{loss_kind::cut, place, end.lost, result.text.size() - 1, end.read_as}));
  }
}

TEST(decode_checked, malformed_utf8_is_listed_sequence_by_sequence) {
  const auto result = decode_checked(code_page::utf8, "a\x80\xE2\x82z\xED\xA0\x80\xEF\xBF\xBD");
  EXPECT_EQ(result.text, "a\xEF\xBF\xBD\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
  ASSERT_EQ(result.losses.count, 4u);
  EXPECT_EQ(result.losses.first[0], (decoding_loss{loss_kind::malformed, 1, "\x80", 1, 0xFFFD}));
  EXPECT_EQ(result.losses.first[1], (decoding_loss{loss_kind::malformed, 2, "\xE2\x82", 4, 0xFFFD}));
  EXPECT_EQ(result.losses.first[2], (decoding_loss{loss_kind::malformed, 5, "\xED\xA0", 8, 0xFFFD}));
  EXPECT_EQ(result.losses.first[3], (decoding_loss{loss_kind::malformed, 7, "\x80", 11, 0xFFFD}));
}

TEST(decode_checked, lead_byte_before_a_zero_leaves_the_zero) {
  const auto result = decode_checked(code_page::cp_936, "\x81\0a"s);
  EXPECT_EQ(result.text, "?\0a"s);
  ASSERT_EQ(result.losses.count, 1u);
  EXPECT_EQ(result.losses.first[0], (decoding_loss{loss_kind::undefined, 0, "\x81", 0, '?'}));
}

TEST(decode_checked, nothing_is_lossless) {
  for (const auto type : orva_test::all_code_pages()) {
    const auto result = decode_checked(type, "");
    EXPECT_TRUE(result.is_lossless() && result.text.empty());
  }
}

TEST(decode_checked, lists_as_many_losses_as_its_limit_and_counts_all) {
  for (const auto type : {code_page::cp_1252, code_page::cp_932, code_page::utf8}) {
    const char undefined = type == code_page::cp_932 ? '\xFF' : '\x81';
    const auto result = decode_checked(type, std::string(10 * max_losses, undefined));
    EXPECT_EQ(result.losses.count, 10 * max_losses);
    EXPECT_EQ(result.losses.first.size(), max_losses);
    EXPECT_EQ(result.losses.first.back().place, max_losses - 1);
  }
}

TEST(decode_checked, invalid_page_is_an_error) {
  for (const auto& page : {code_page(), code_page(static_cast<code_page::encoding_type>(-1))}) {
    const auto result = decode_checked(page, "text");
    EXPECT_EQ(result.error, conversion_error::invalid_page);
    EXPECT_TRUE(result.text.empty());
    EXPECT_FALSE(result.is_lossless());
    EXPECT_FALSE(decode_checked<code_unit16>(page, "").is_lossless());
  }
}

TEST(decode_checked, system_encodings_read_ascii) {
  for (const auto type : {code_page::ansi, code_page::oem, code_page::oem_alternate}) {
    EXPECT_EQ(decode_checked(type, "plain\0text"s).text, "plain\0text"s);
    EXPECT_EQ(decode_checked<code_unit16>(type, "\xC3\xA9").text, code_page(type).as_utf16("\xC3\xA9"));
  }
}

TEST(page_decoder, invalid_page_raises) {
  EXPECT_THROW(page_decoder{code_page()}, exceptions::invalid_argument_value);
}

TEST(page_decoder, begins_again_after_the_end_and_keeps_its_losses) {
  page_decoder decoder(code_page::utf8);
  std::string text;
  decoder.decode("a\xE2\x82", text);
  decoder.finish(text);
  decoder.decode("\xAC", text);
  decoder.finish(text);
  EXPECT_EQ(text, "a\xEF\xBF\xBD\xEF\xBF\xBD");
  ASSERT_EQ(decoder.losses().count, 2u);
  EXPECT_EQ(decoder.losses().first[0], (decoding_loss{loss_kind::cut, 1, "\xE2\x82", 1, 0xFFFD}));
  EXPECT_EQ(decoder.losses().first[1], (decoding_loss{loss_kind::malformed, 0, "\xAC", 0, 0xFFFD}));
  decoder.finish(text);
  EXPECT_EQ(decoder.losses().count, 2u);
}

TEST(page_decoder, taken_losses_make_room_and_places_go_on) {
  page_decoder decoder(code_page::cp_1252);
  std::string text;
  std::uint64_t count = 0;
  for (int piece = 0; piece < 5; ++piece) {
    decoder.decode(std::string(max_losses, '\x81'), text);
    const auto losses = decoder.take_losses();
    EXPECT_EQ(losses.first.size(), max_losses);
    EXPECT_EQ(losses.first.front().place, count);
    EXPECT_EQ(losses.first.front().result_place, 2 * count);
    count += losses.count;
  }
  EXPECT_EQ(decoder.losses().count, 0u);
  EXPECT_EQ(count, 5 * max_losses);
}

TEST(page_decoder, copy_continues_where_the_original_is) {
  page_decoder decoder(code_page::cp_932);
  std::string text;
  decoder.decode("\x82", text);
  page_decoder copy = decoder;
  copy.decode("\xA0", text);
  EXPECT_EQ(text, "\xE3\x81\x82");
  decoder.finish(text);
  EXPECT_EQ(decoder.losses().count, 1u);
  EXPECT_EQ(copy.losses().count, 0u);
}

}  // namespace
