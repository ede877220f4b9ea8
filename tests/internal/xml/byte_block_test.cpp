#include "orva/internal/xml/byte_block.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/random_engine.hpp"

namespace {

using ORVA_NAMESPACE::internal::xml::byte_block;

/// The length of the text if there are none.
std::size_t plainly_two_blanks(const std::string& bytes) {
  for (std::size_t i = 1; i < bytes.size(); ++i) {
    const auto before = static_cast<unsigned char>(bytes[i - 1]);
    const auto here = static_cast<unsigned char>(bytes[i]);
    if (before <= ' ' && here <= ' ') return i - 1;
  }
  return bytes.size();
}

std::size_t plainly_first(const std::string& bytes, char wanted) {
  return std::min(bytes.find(wanted), bytes.size());
}

void expect_as_plainly(const std::string& bytes, const std::string& wanted) {
  const byte_block block(bytes.data());
  const auto tags = block.of('<');
  const std::size_t first_tag = plainly_first(bytes, '<');
  for (const char c : wanted) {
    const auto places = block.of(c);
    const std::size_t first = plainly_first(bytes, c);
    const bool right = places.first() == first && places.empty() == (first == bytes.size()) &&
                       (places | tags).first() == std::min(first, first_tag);
    ASSERT_TRUE(right) << testing::PrintToString(bytes) << " " << int{c};
  }
  ASSERT_EQ(block.of_two_blanks_in_a_row().first(), plainly_two_blanks(bytes))
      << testing::PrintToString(bytes);
}

std::string every_byte() {
  std::string bytes;
  for (int value = 0; value <= 0xFF; ++value) bytes += static_cast<char>(value);
  return bytes;
}

TEST(byte_block, every_byte_is_found_in_every_place) {
  for (const char background : {'x', '\0', '\xFF', '\x80', '\x7F', '!', ' '}) {
    for (std::size_t at = 0; at < byte_block::size; ++at) {
      for (const char byte : every_byte()) {
        std::string bytes(byte_block::size, background);
        bytes[at] = byte;
        expect_as_plainly(bytes, every_byte());
      }
    }
  }
}

TEST(byte_block, blanks_are_distinguished_from_every_other_pair_in_every_place) {
  for (std::size_t at = 1; at < byte_block::size; ++at) {
    for (const char first : every_byte()) {
      for (const char second : every_byte()) {
        std::string bytes(byte_block::size, 'x');
        bytes[at - 1] = first;
        bytes[at] = second;
        expect_as_plainly(bytes, "<");
      }
    }
  }
}

TEST(byte_block, random_blocks_are_as_the_plain_loop_says) {
  orva_test::random_engine random;
  for (int run = 0; run < 100000; ++run) {
    std::string bytes(byte_block::size, '\0');
    // Few different bytes, so that equal neighbours are frequent.
    for (auto& byte : bytes) byte = " \n!<&;=\x1F\x21\x80\xA0\xBC\xFFx"[random() % 15];
    ASSERT_NO_FATAL_FAILURE(expect_as_plainly(bytes, "<&'\"="));
  }
}

}  // namespace
