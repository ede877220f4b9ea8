#include "orva/internal/checksum/crc32c.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tests/support/random_bytes.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_crc32c.hpp"

namespace {

using namespace ORVA_NAMESPACE::internal;
using orva_test::random_bytes;
using orva_test::reference_crc32c;

void expect_checksum(std::string_view bytes, std::uint32_t expected) {
  EXPECT_EQ(crc32c(0, bytes), expected);
  EXPECT_EQ(crc32c_by_tables(0, bytes), expected);
  EXPECT_EQ(reference_crc32c(0, bytes), expected);
}

TEST(crc32c, documentation_example) {
  expect_checksum("123456789", 0xE3069283);
  EXPECT_EQ(crc32c(crc32c(0, "1234"), "56789"), 0xE3069283);
}

TEST(crc32c, nothing_has_the_checksum_zero) { expect_checksum("", 0); }

TEST(crc32c, gives_the_values_of_rfc_3720) {
  std::string increasing;
  for (char byte = 0; byte < 32; ++byte) increasing += byte;
  expect_checksum(std::string(32, '\0'), 0x8A9136AA);
  expect_checksum(std::string(32, '\xFF'), 0x62A8AB43);
  expect_checksum(increasing, 0x46DD794E);
  expect_checksum(std::string(increasing.rbegin(), increasing.rend()), 0x113FDB5C);
}

TEST(crc32c, fast_ways_agree_with_the_definition_at_every_alignment_and_length) {
  const std::string bytes = random_bytes(160);
  for (std::size_t begin = 0; begin < 16; ++begin) {
    for (std::size_t length = 0; length <= 128; ++length) {
      const std::string_view part = std::string_view(bytes).substr(begin, length);
      ASSERT_EQ(crc32c(0x12345678, part), reference_crc32c(0x12345678, part)) << begin << '+' << length;
      ASSERT_EQ(crc32c_by_tables(0x12345678, part), reference_crc32c(0x12345678, part));
    }
  }
}

TEST(crc32c, continues_at_every_position) {
  const std::string bytes = random_bytes(200);
  const std::uint32_t whole = crc32c(0, bytes);
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    const std::string_view text = bytes;
    EXPECT_EQ(crc32c(crc32c(0, text.substr(0, cut)), text.substr(cut)), whole) << cut;
    EXPECT_EQ(crc32c_by_tables(crc32c_by_tables(0, text.substr(0, cut)), text.substr(cut)), whole) << cut;
  }
}

}  // namespace
