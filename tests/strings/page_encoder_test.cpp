#include "orva/strings/page_encoder.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "orva/exceptions/exception.hpp"
#include "orva/strings/page_decoder.hpp"
#include "orva/strings/unicode.hpp"
#include "tests/support/code_page_text.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace std::string_literals;
using orva_test::units16;
using orva_test::units32;
using strings::basic_page_encoder;
using strings::basic_ustring;
using strings::code_page;
using strings::code_unit16;
using strings::code_unit32;
using strings::conversion_error;
using strings::decode_checked;
using strings::encode_checked;
using strings::encoded_text;
using strings::encoding_loss;
using strings::loss_kind;
using strings::max_losses;
using strings::page_encoder;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

/// Encodes in pieces of the sizes that `next_size` returns.
template <typename Unit, typename NextSize>
encoded_text encode_in_pieces(const code_page& page, std::basic_string_view<Unit> text, NextSize next_size) {
  basic_page_encoder<Unit> encoder(page);
  encoded_text result;
  while (!text.empty()) {
    const auto piece = text.substr(0, next_size());
    encoder.encode(piece, result.bytes);
    text.remove_prefix(piece.size());
  }
  encoder.finish(result.bytes);
  result.losses = encoder.take_losses();
  return result;
}

void expect_equal(const encoded_text& found, const encoded_text& expected) {
  ASSERT_TRUE(found.bytes == expected.bytes);
  ASSERT_EQ(found.losses.count, expected.losses.count);
  ASSERT_TRUE(found.losses == expected.losses);
}

TEST(encode_checked, documentation_example) {
  const auto result = encode_checked(code_page::cp_1252, "\xE2\x82\xAC \xD0\x96");
  EXPECT_EQ(result.bytes, "\x80 ?");
  ASSERT_EQ(result.losses.count, 1u);
  EXPECT_EQ(result.losses.first[0], (encoding_loss{loss_kind::missing, 4, 2, 0x416, 2, "?"}));
  EXPECT_FALSE(result.is_lossless());

  const auto nearest = encode_checked(code_page::cp_1252, "\xC4\x80 \xE2\x88\x9E \xD0\x96");
  EXPECT_EQ(nearest.bytes, "A 8 ?");
  ASSERT_EQ(nearest.losses.count, 3u);
  EXPECT_EQ(nearest.losses.first[0], (encoding_loss{loss_kind::best_fit, 0, 2, 0x100, 0, "A"}));

  page_encoder encoder(code_page::cp_932);
  std::string bytes;
  for (const char* const piece : {"\xE3", "\x81\x82", "a\xE3\x81"})
    encoder.encode(std::string_view(piece), bytes);
  encoder.finish(bytes);
  EXPECT_EQ(bytes,
            "\x82\xA0"
            "a?");
  ASSERT_EQ(encoder.losses().count, 1u);
  EXPECT_EQ(encoder.losses().first[0], (encoding_loss{loss_kind::cut, 4, 2, 0xFFFD, 3, "?"}));
}

class encode_checked_to_page : public testing::TestWithParam<code_page::encoding_type> {
 protected:
  const code_page page_{GetParam()};
  bool is_utf8() const { return GetParam() == code_page::utf8; }
};

INSTANTIATE_TEST_SUITE_P(pages, encode_checked_to_page, testing::ValuesIn(orva_test::all_code_pages()),
                         [](const auto& tested) { return "page_" + std::to_string(tested.param); });

loss_kind expected_kind(unsigned unit, const std::string& written) {
  if (unit >= 0xD800 && unit < 0xDC00) return loss_kind::cut;
  if (unit >= 0xDC00 && unit < 0xE000) return loss_kind::malformed;
  return written == "?" && unit != 0xFF1F ? loss_kind::missing : loss_kind::best_fit;
}

TEST_P(encode_checked_to_page, every_unit_is_written_as_unchecked_and_listed_if_it_does_not_come_back) {
  for (unsigned value = 1; value < 0x10000; ++value) {
    const ustring16 unit = units16({value});
    const auto result = encode_checked(page_, unit);
    ASSERT_EQ(result.bytes, page_.encode(unit)) << std::hex << value;
    ASSERT_EQ(result.is_lossless(), page_.as_utf16(result.bytes) == unit) << std::hex << value;
    if (result.is_lossless()) continue;
    const bool is_surrogate = value >= 0xD800 && value < 0xE000;
    const auto character = static_cast<char32_t>(is_surrogate ? 0xFFFD : value);
    ASSERT_EQ(result.losses.first.at(0),
              (encoding_loss{expected_kind(value, result.bytes), 0, 1, character, 0, result.bytes}))
        << std::hex << value;
  }
}

/// All code points from `first` on, as many as a list of losses takes.
ustring32 code_points_from(char32_t first) {
  ustring32 text;
  for (char32_t value = first; value < first + max_losses && value < 0x110000; ++value) {
    if (value < 0xD800 || value > 0xDFFF) text.push_back(static_cast<code_unit32>(value));
  }
  return text;
}

template <typename Unit>
ustring32 character_at(const basic_ustring<Unit>& text, const encoding_loss& loss) {
  const auto part = text.substr(static_cast<std::size_t>(loss.place), loss.size);
  if constexpr (sizeof(Unit) == 1) return strings::utf8_to_utf32(part);
  if constexpr (sizeof(Unit) == 4) return part;
  // Not by `utf16_to_utf32`, which does not return from U+FFFE in front.
  if (part.size() == 1) return units32({static_cast<unsigned>(part[0])});
  return units32({0x10000 + (static_cast<unsigned>(part[0]) & 0x3FF) * 0x400 +
                  (static_cast<unsigned>(part[1]) & 0x3FF)});
}

template <typename Unit>
void expect_places(const basic_ustring<Unit>& text, const encoded_text& result,
                   const encoded_text& of_utf16) {
  ASSERT_EQ(result.bytes, of_utf16.bytes);
  ASSERT_EQ(result.losses.count, of_utf16.losses.count);
  for (std::size_t i = 0; i < result.losses.first.size(); ++i) {
    const auto& loss = result.losses.first[i];
    auto expected = of_utf16.losses.first[i];
    expected.place = loss.place;
    expected.size = loss.size;
    ASSERT_EQ(loss, expected);
    ASSERT_EQ(character_at(text, loss), units32({static_cast<unsigned>(loss.character)}));
    ASSERT_EQ(result.bytes.substr(static_cast<std::size_t>(loss.result_place), loss.written.size()),
              loss.written);
  }
}

TEST_P(encode_checked_to_page, every_code_point_is_written_alike_from_each_width_and_its_place_is_told) {
  for (char32_t first = 1; first < 0x110000; first += max_losses) {
    // No page but UTF-8 has characters beyond the basic plane: one text of each other plane is enough.
    if (first > 0xFFFF && first % 0x10000 >= max_losses) continue;
    const ustring32 in_32 = code_points_from(first);
    const ustring8 in_8 = strings::utf32_to_utf8(in_32);
    const ustring16 in_16 = strings::utf8_to_utf16(in_8);
    const auto of_16 = encode_checked(page_, in_16);
    ASSERT_TRUE(of_16.bytes == page_.encode(in_16));
    expect_places(in_16, of_16, of_16);
    expect_places(in_8, encode_checked(page_, in_8), of_16);
    expect_places(in_32, encode_checked(page_, in_32), of_16);
    if (HasFatalFailure()) return;
  }
}

TEST_P(encode_checked_to_page, text_is_lossless_if_and_only_if_its_bytes_read_back_as_it) {
  orva_test::random_engine random;
  for (int round = 0; round < 300; ++round) {
    ustring16 text = page_.as_utf16(orva_test::random_page_bytes(random, page_, 3));
    if (random() % 2 == 0) text.push_back(static_cast<code_unit16>(random() % 0x10000));
    const auto result = encode_checked(page_, text);
    ASSERT_EQ(result.is_lossless(), decode_checked<code_unit16>(page_, result.bytes).text == text);
  }
}

TEST_P(encode_checked_to_page, zero_is_a_character) {
  EXPECT_EQ(encode_checked(page_, std::string_view("a\0b", 3)).bytes, "a\0b"s);
  EXPECT_EQ(encode_checked(page_, units16({0, 'a', 0})).bytes, "\0a\0"s);
  EXPECT_EQ(encode_checked(page_, units32({0})).bytes, "\0"s);
}

TEST_P(encode_checked_to_page, pair_of_surrogates_is_one_loss) {
  const auto result = encode_checked(page_, "a\xF0\x9F\x98\x80z");
  EXPECT_EQ(result.bytes, page_.encode("a\xF0\x9F\x98\x80z"));
  ASSERT_EQ(result.losses.count, is_utf8() ? 0u : 1u);
  if (is_utf8()) return;
  EXPECT_EQ(result.losses.first[0], (encoding_loss{loss_kind::missing, 1, 4, 0x1F600, 1, "??"}));
}

TEST_P(encode_checked_to_page, malformed_text_costs_its_malformed_part) {
  const std::string instead = is_utf8() ? "\xEF\xBF\xBD" : "?";
  const auto of_8 = encode_checked(page_, "a\x80z\xED\xA0\x80");
  EXPECT_EQ(of_8.bytes, "a" + instead + "z" + instead + instead);
  ASSERT_EQ(of_8.losses.count, 3u);
  const auto first_place_after = 2 + instead.size();
  EXPECT_EQ(of_8.losses.first[0], (encoding_loss{loss_kind::malformed, 1, 1, 0xFFFD, 1, instead}));
  EXPECT_EQ(of_8.losses.first[1],
            (encoding_loss{loss_kind::malformed, 3, 2, 0xFFFD, first_place_after, instead}));

  const auto of_16 = encode_checked(page_, units16({0xD800, 'a', 0xDC00, 0xD800, 0xD800, 0xDC00}));
  EXPECT_EQ(of_16.losses.count, is_utf8() ? 3u : 4u);
  EXPECT_EQ(of_16.losses.first[0], (encoding_loss{loss_kind::malformed, 0, 1, 0xFFFD, 0, instead}));

  const auto of_32 = encode_checked(page_, units32({'a', 0xD800, 0xDC00, 0x110000, 0xFFFFFFFF}));
  EXPECT_EQ(of_32.bytes, "a" + instead + instead + instead + instead);
  ASSERT_EQ(of_32.losses.count, 4u);
  EXPECT_EQ(of_32.losses.first[3].kind, loss_kind::malformed);
  EXPECT_EQ(of_32.losses.first[3].place, 4u);
}

TEST_P(encode_checked_to_page, replacement_characters_of_the_text_are_characters) {
  const auto result = encode_checked(page_, "\xEF\xBF\xBD");
  EXPECT_EQ(result.is_lossless(), is_utf8());
  if (is_utf8()) return;
  EXPECT_EQ(result.losses.first[0], (encoding_loss{loss_kind::missing, 0, 3, 0xFFFD, 0, "?"}));
}

template <typename Unit>
void expect_pieces_give_the_whole(const code_page& page, const basic_ustring<Unit>& text) {
  const std::basic_string_view<Unit> view = text;
  const auto whole = encode_checked(page, view);
  for (std::size_t cut = 1; cut < text.size(); ++cut) {
    bool is_first = true;
    const auto sizes = [&] { return std::exchange(is_first, false) ? cut : text.size(); };
    expect_equal(encode_in_pieces(page, view, sizes), whole);
    if (testing::Test::HasFatalFailure()) return;
  }
  for (std::size_t size = 1; size < 10; ++size) {
    expect_equal(encode_in_pieces(page, view, [=] { return size; }), whole);
    if (testing::Test::HasFatalFailure()) return;
  }
}

/// Characters of the page and of others, and units of a kind that makes text malformed.
ustring16 some_text(orva_test::random_engine& random, const code_page& page) {
  ustring16 text;
  while (text.size() < 80) {
    const auto kind = random() % 6;
    if (kind < 2) text += page.as_utf16(page.encode(units16({static_cast<unsigned>(random() % 0x10000)})));
    if (kind == 2) text.push_back(static_cast<code_unit16>(random() % 0x80));
    if (kind == 3) text.push_back(static_cast<code_unit16>(0xD800 + random() % 0x800));
    if (kind == 4) text += strings::utf8_to_utf16("\xF0\x9F\x98\x80");
    if (kind == 5) text.push_back(static_cast<code_unit16>(random() % 0x10000));
  }
  return text;
}

TEST_P(encode_checked_to_page, every_cut_and_every_size_of_pieces_gives_the_whole) {
  orva_test::random_engine random;
  for (int round = 0; round < 3; ++round) {
    const ustring16 in_16 = some_text(random, page_);
    ustring8 in_8;
    ustring32 in_32;
    for (const auto unit : in_16) {
      in_8 += strings::utf32_to_utf8(units32({static_cast<unsigned>(unit)}));
      in_8.push_back(static_cast<char>(random() % 0x100));
      in_32.push_back(static_cast<code_unit32>(static_cast<unsigned>(unit) + random() % 3 * 0x10000));
    }
    expect_pieces_give_the_whole(page_, in_16);
    expect_pieces_give_the_whole(page_, in_8);
    expect_pieces_give_the_whole(page_, in_32);
    if (HasFatalFailure()) return;
  }
}

TEST_P(encode_checked_to_page, text_of_many_chunks_is_that_of_the_text_unchecked) {
  orva_test::random_engine random;
  ustring16 text;
  while (text.size() < 20'000) text += some_text(random, page_);
  std::erase(text, code_unit16{});
  EXPECT_TRUE(encode_checked(page_, text).bytes == page_.encode(text));
}

TEST(encode_checked, full_width_question_mark_is_a_best_fit) {
  EXPECT_EQ(encode_checked(code_page::cp_1252, units16({0xFF1F})).losses.first.at(0).kind,
            loss_kind::best_fit);
  EXPECT_TRUE(encode_checked(code_page::cp_932, units16({0xFF1F})).is_lossless());
}

TEST(encode_checked, cut_end_is_listed_with_its_size) {
  const auto of_8 = encode_checked(code_page::cp_1252, "a\xF0\x9F\x98");
  ASSERT_EQ(of_8.losses.count, 1u);
  EXPECT_EQ(of_8.losses.first[0], (encoding_loss{loss_kind::cut, 1, 3, 0xFFFD, 1, "?"}));
  const auto of_16 = encode_checked(code_page::utf8, units16({'a', 0xD83D}));
  ASSERT_EQ(of_16.losses.count, 1u);
  EXPECT_EQ(of_16.losses.first[0], (encoding_loss{loss_kind::cut, 1, 1, 0xFFFD, 1, "\xEF\xBF\xBD"}));
}

TEST(encode_checked, nothing_is_lossless) {
  for (const auto type : orva_test::all_code_pages()) {
    EXPECT_TRUE(encode_checked(type, "").is_lossless());
    EXPECT_TRUE(encode_checked(type, ustring16()).bytes.empty());
  }
}

TEST(encode_checked, lists_as_many_losses_as_its_limit_and_counts_all) {
  for (const auto type : {code_page::cp_1252, code_page::cp_932, code_page::utf8}) {
    const auto result =
        encode_checked(type, units16({0xDC00}) + ustring16(10 * max_losses, code_unit16(0xDC00)));
    EXPECT_EQ(result.losses.count, 10 * max_losses + 1);
    EXPECT_EQ(result.losses.first.size(), max_losses);
    EXPECT_EQ(result.losses.first.back().place, max_losses - 1);
  }
}

TEST(encode_checked, invalid_page_is_an_error) {
  for (const auto& page : {code_page(), code_page(static_cast<code_page::encoding_type>(1259))}) {
    EXPECT_EQ(encode_checked(page, "text").error, conversion_error::invalid_page);
    EXPECT_EQ(encode_checked(page, ustring16()).error, conversion_error::invalid_page);
    EXPECT_FALSE(encode_checked(page, ustring32()).is_lossless());
  }
}

TEST(encode_checked, system_encodings_write_ascii) {
  for (const auto type : {code_page::ansi, code_page::oem, code_page::oem_alternate}) {
    EXPECT_EQ(encode_checked(type, "plain\0text"s).bytes, "plain\0text"s);
    EXPECT_EQ(encode_checked(type, units16({0xE9})).bytes, code_page(type).encode(units16({0xE9})));
  }
}

TEST(page_encoder, invalid_page_raises) {
  EXPECT_THROW(page_encoder{code_page()}, exceptions::invalid_argument_value);
}

TEST(page_encoder, begins_again_after_the_end_and_keeps_its_losses) {
  page_encoder encoder(code_page::cp_1252);
  std::string bytes;
  encoder.encode("a\xE2\x82", bytes);
  encoder.finish(bytes);
  encoder.encode("\xAC", bytes);
  encoder.finish(bytes);
  EXPECT_EQ(bytes, "a??");
  ASSERT_EQ(encoder.losses().count, 2u);
  EXPECT_EQ(encoder.losses().first[1], (encoding_loss{loss_kind::malformed, 0, 1, 0xFFFD, 0, "?"}));
}

TEST(page_encoder, taken_losses_make_room_and_places_go_on) {
  page_encoder encoder(code_page::cp_1252);
  std::string piece;
  for (std::size_t i = 0; i < max_losses; ++i) piece += "\xF0\x9F\x98\x80";
  std::string bytes;
  std::uint64_t count = 0;
  for (int round = 0; round < 5; ++round) {
    encoder.encode(piece, bytes);
    const auto losses = encoder.take_losses();
    EXPECT_EQ(losses.first.size(), max_losses);
    EXPECT_EQ(losses.first.front().place, 4 * count);
    EXPECT_EQ(losses.first.front().result_place, 2 * count);
    count += losses.count;
  }
  EXPECT_EQ(encoder.losses().count, 0u);
  EXPECT_EQ(count, 5 * max_losses);
}

TEST(page_encoder, copy_continues_where_the_original_is) {
  page_encoder encoder(code_page::cp_1252);
  std::string bytes;
  encoder.encode("\xE2\x82", bytes);
  page_encoder copy = encoder;
  copy.encode("\xAC", bytes);
  EXPECT_EQ(bytes, "\x80");
  encoder.finish(bytes);
  EXPECT_EQ(encoder.losses().count, 1u);
  EXPECT_EQ(copy.losses().count, 0u);
}

}  // namespace
