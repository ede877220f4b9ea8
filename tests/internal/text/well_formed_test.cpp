/// The fast search for the end of well-formed text beside the plain loop: every alignment in memory, length
/// and place of a fault.
#include "orva/internal/text/well_formed.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "orva/orva.hpp"

namespace {

namespace text = orva::internal::text;
using namespace orva::strings;

/// Memory for a text at a given distance from an aligned address, and nothing after it.
template <typename Unit>
class aligned_text {
 public:
  aligned_text(std::basic_string_view<Unit> text, std::size_t distance)
      : units_(std::make_unique<Unit[]>(distance + text.size())),
        begin_(units_.get() + distance),
        end_(begin_ + text.size()) {
    text.copy(units_.get() + distance, text.size());
  }
  const Unit* begin() const { return begin_; }
  const Unit* end() const { return end_; }

 private:
  std::unique_ptr<Unit[]> units_;
  const Unit* begin_;
  const Unit* end_;
};

/// Whether the search ends where the plain loop does, and what is skipped is no more than that.
template <typename Unit>
bool ends_as_the_plain_loop(const Unit* from, const Unit* end) {
  const Unit* const expected = text::plain_well_formed_end(from, end);
  const Unit* const skipped = text::skip_well_formed(from, end);
  return text::well_formed_end(from, end) == expected && skipped <= expected &&
         text::plain_well_formed_end(skipped, end) == expected;
}

/// `filler` repeated to `size` units; the last repetition may be cut.
template <typename Unit>
basic_ustring<Unit> repeated(const basic_ustring<Unit>& filler, std::size_t size) {
  basic_ustring<Unit> result;
  while (result.size() < size) result += filler;
  result.resize(size);
  return result;
}

template <typename Unit>
void expect_same_at_every_length_and_alignment(const std::vector<basic_ustring<Unit>>& fillers) {
  for (const auto& filler : fillers) {
    for (std::size_t size = 0; size < 200; ++size) {
      const auto text = repeated(filler, size);
      for (std::size_t distance = 0; distance < 64; ++distance) {
        const aligned_text<Unit> copy(text, distance);
        ASSERT_TRUE(ends_as_the_plain_loop(copy.begin(), copy.end())) << size << " at " << distance;
      }
    }
  }
}

/// A text of `size` units with a fault written over its units at each offset.
template <typename Unit>
void expect_same_with_a_fault_at_every_offset(const std::vector<basic_ustring<Unit>>& fillers,
                                              const std::vector<basic_ustring<Unit>>& faults) {
  for (const auto& filler : fillers) {
    for (const auto& fault : faults) {
      for (const std::size_t size : {7u,  8u,  9u,  11u, 15u, 16u, 17u, 24u, 31u,  32u,
                                     33u, 34u, 35u, 36u, 63u, 64u, 67u, 99u, 131u, 200u}) {
        const auto good = repeated(filler, size);
        for (std::size_t offset = 0; offset < size; ++offset) {
          auto spoiled = good;
          spoiled.replace(offset, fault.size(), fault).resize(size);
          for (const std::size_t distance : {std::size_t{0}, offset % 32 + 1}) {
            const aligned_text<Unit> copy(spoiled, distance);
            ASSERT_TRUE(ends_as_the_plain_loop(copy.begin(), copy.end()))
                << testing::PrintToString(spoiled) << " at " << distance;
          }
        }
      }
    }
  }
}

template <typename Unit>
basic_ustring<Unit> units(std::initializer_list<std::uint32_t> values) {
  basic_ustring<Unit> result;
  for (const std::uint32_t value : values) result.push_back(static_cast<Unit>(value));
  return result;
}

const std::vector<ustring8> fillers8 = {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
                                        "plain text and then \xD0\xB0\xD0\xB1 \xE2\x82\xAC \xF0\x9F\x98\x80"};
const std::vector<ustring16> fillers16 = {units<code_unit16>({'a'}), units<code_unit16>({0x20AC}),
                                          units<code_unit16>({0xD83D, 0xDE00}),
                                          units<code_unit16>({'a', 0xDBFF, 0xDFFF})};
const std::vector<ustring32> fillers32 = {units<code_unit32>({'a'}),
                                          units<code_unit32>({0xD7FF, 0xE000, 0x10FFFF})};

TEST(well_formed_end, utf8_as_the_plain_loop_at_every_length_and_alignment) {
  expect_same_at_every_length_and_alignment(fillers8);
}

TEST(well_formed_end, utf16_as_the_plain_loop_at_every_length_and_alignment) {
  expect_same_at_every_length_and_alignment(fillers16);
}

TEST(well_formed_end, utf32_as_the_plain_loop_at_every_length_and_alignment) {
  expect_same_at_every_length_and_alignment(fillers32);
}

TEST(well_formed_end, utf8_as_the_plain_loop_with_a_fault_at_every_offset) {
  expect_same_with_a_fault_at_every_offset<char>(
      fillers8, {"\x80", "\xBF", "\xC0", "\xC3", "\xE2", "\xF0", "\xF5", "\xFF", "\xE0\x9F\xBF",
                 "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF0\x9F\x98", "\xE2\x82", "a",
                 "\xC3\xA4", "\xF0\x9F\x98\x80"});
}

TEST(well_formed_end, utf16_as_the_plain_loop_with_a_fault_at_every_offset) {
  expect_same_with_a_fault_at_every_offset(
      fillers16, {units<code_unit16>({'z'}), units<code_unit16>({0xD800}), units<code_unit16>({0xDBFF}),
                  units<code_unit16>({0xDC00}), units<code_unit16>({0xDFFF}),
                  units<code_unit16>({0xDC00, 0xD800}), units<code_unit16>({0xD83D, 0xDE00})});
}

TEST(well_formed_end, utf32_as_the_plain_loop_with_a_fault_at_every_offset) {
  expect_same_with_a_fault_at_every_offset(
      fillers32, {units<code_unit32>({0xD800}), units<code_unit32>({0xDFFF}), units<code_unit32>({0x110000}),
                  units<code_unit32>({0x80000041}), units<code_unit32>({0xFFFFFFFF})});
}

/// Each pair of bytes within text that fits around it, of a block and shorter, so that the tables of the fast
/// search are asked about every pair there is.
TEST(well_formed_end, every_pair_of_bytes_as_the_plain_loop) {
  for (const std::string_view before : {"a", "\xE1", "\xF1\x80"}) {
    for (const std::string_view after : {"a", "\x80", "\x80\x80"}) {
      for (const std::size_t surrounding : {3u, 9u, 40u}) {
        ustring8 text(surrounding, 'a');
        text.append(before).append("pq").append(after).append(surrounding, 'a');
        char* const pair = text.data() + surrounding + before.size();
        for (unsigned int value = 0; value < 0x10000; ++value) {
          pair[0] = static_cast<char>(static_cast<unsigned char>(value >> 8));
          pair[1] = static_cast<char>(static_cast<unsigned char>(value & 0xFF));
          ASSERT_TRUE(ends_as_the_plain_loop<char>(text.data(), text.data() + text.size())) << value;
        }
      }
    }
  }
}

}  // namespace
