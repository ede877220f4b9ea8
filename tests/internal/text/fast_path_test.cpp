/// The fast paths of the transforms alone, at every alignment of the text in memory. They convert as the slow
/// second implementation does, stop between two characters, and write nothing after the end of their output.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "orva/internal/text/fast_path.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/orva.hpp"
#include "tests/support/reference_unicode.hpp"

namespace {

using namespace orva::strings;

/// A text at a given distance from an aligned address, at the end of its memory.
template <typename Unit>
class aligned_text {
 public:
  aligned_text(std::basic_string_view<Unit> text, std::size_t alignment)
      : units_(alignment + text.size()), alignment_(alignment) {
    for (std::size_t i = 0; i < text.size(); ++i) units_[alignment + i] = text[i];
  }
  const Unit* begin() const { return units_.data() + alignment_; }
  const Unit* end() const { return units_.data() + units_.size(); }

 private:
  std::vector<Unit> units_;
  std::size_t alignment_;
};

/// Runs the fast path over `text`, compares its output and returns the number of units that it converted.
template <typename From, typename To, typename Reference>
std::size_t run(std::basic_string_view<From> text, std::size_t alignment, Reference reference_of) {
  const aligned_text<From> input(text, alignment);
  std::vector<To> output(text.size());
  const orva::internal::text::cursor<From, To> at{input.begin(), output.data()};
  const auto reached = orva::internal::text::fast_path(at, input.end());
  const basic_ustring<From> taken(input.begin(), reached.from);
  EXPECT_EQ((basic_ustring<To>(output.data(), reached.to)), reference_of(taken));
  return taken.size();
}

constexpr std::size_t alignments = 64;

TEST(fast_path, utf8_at_every_alignment) {
  ustring8 text;
  for (int i = 0; i < 4; ++i) {
    text +=
        "plain text that is long enough for a block, and \xD0\xB0\xD0\xB1 \xE2\x82\xAC\xE2\x82\xAC "
        "\xF0\x9F\x98\x80";
  }
  for (std::size_t alignment = 0; alignment < alignments; ++alignment) {
    const auto taken16 = run<char, code_unit16>(text, alignment, reference::utf8_to_utf16);
    const auto taken32 = run<char, code_unit32>(text, alignment, reference::utf8_to_utf32);
    EXPECT_GE(taken16 + 4, text.size());
    EXPECT_EQ(taken16, taken32);
  }
}

TEST(fast_path, utf8_stops_before_a_bad_byte_at_every_offset_and_alignment) {
  const std::string_view characters[] = {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"};
  for (const std::string_view character : characters) {
    for (std::size_t count = 0; count < 70; ++count) {
      ustring8 text;
      for (std::size_t i = 0; i < count; ++i) text += character;
      const std::size_t good = text.size();
      text += "\x80plain text after it";
      for (std::size_t alignment = 0; alignment < alignments; alignment += count % 8 + 1) {
        ASSERT_EQ((run<char, code_unit16>(text, alignment, reference::utf8_to_utf16)), good);
        ASSERT_EQ((run<char, code_unit32>(text, alignment, reference::utf8_to_utf32)), good);
      }
    }
  }
}

/// Texts of one kind of unit with another at each offset.
template <typename From, typename To, typename Reference>
void expect_stop_before(const std::vector<From>& kinds, const std::vector<From>& odd_ones,
                        Reference reference_of) {
  constexpr std::size_t size = 3 * orva::internal::text::block + 5;
  for (const From kind : kinds) {
    for (const From odd : odd_ones) {
      for (std::size_t offset = 0; offset < size; ++offset) {
        basic_ustring<From> text(size, kind);
        text[offset] = odd;
        ASSERT_LE((run<From, To>(text, offset % alignments, reference_of)), offset);
      }
    }
    for (std::size_t alignment = 0; alignment < alignments; ++alignment) {
      const basic_ustring<From> text(size, kind);
      ASSERT_EQ((run<From, To>(text, alignment, reference_of)), 3 * orva::internal::text::block);
    }
  }
}

TEST(fast_path, utf16_into_utf32_stops_before_a_surrogate) {
  expect_stop_before<code_unit16, code_unit32>({'a', 0x7F, 0x80, 0x20AC, 0xD7FF, 0xE000, 0xFFFF},
                                               {0xD800, 0xDBFF, 0xDC00, 0xDFFF}, reference::utf16_to_utf32);
}

TEST(fast_path, utf32_into_utf16_stops_before_what_is_no_single_unit) {
  expect_stop_before<code_unit32, code_unit16>(
      {'a', 0x7F, 0x80, 0x20AC, 0xD7FF, 0xE000, 0xFFFE},
      {0xD800, 0xDFFF, 0xFFFF, 0x10000, 0x10FFFF, 0x110000, 0x80000041, 0xFFFFFFFF},
      reference::utf32_to_utf16);
}

}  // namespace
