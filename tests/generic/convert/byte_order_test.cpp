#include "orva/generic/convert/byte_order.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/strings/ustring.hpp"
#include "tests/support/hex.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/returned_bits.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace big_endian = convert::big_endian;
namespace little_endian = convert::little_endian;
using ORVA_NAMESPACE::types::int32;
using ORVA_NAMESPACE::types::uint32;
using orva_test::from_hex;
using orva_test::has_bits;
using orva_test::to_hex;

constexpr bool little_endian_host = std::endian::native == std::endian::little;

/// The bytes by arithmetic on the bit pattern, without a look into memory.
std::string reference_bytes(std::uint64_t bits, std::size_t width, bool most_significant_first) {
  std::string bytes;
  for (std::size_t i = 0; i < width; ++i) {
    const std::size_t significance = most_significant_first ? width - 1 - i : i;
    bytes += static_cast<char>(bits >> (8 * significance));
  }
  return bytes;
}

template <std::size_t width>
using bits_of_width = std::conditional_t<width == 2, std::uint16_t,
                                         std::conditional_t<width == 4, std::uint32_t, std::uint64_t>>;

template <typename Number>
bool is_read_as(const Number& value, std::uint64_t pattern) {
  const auto bits = static_cast<bits_of_width<sizeof(Number)>>(pattern);
  if constexpr (std::is_floating_point_v<Number>) return has_bits(value, bits);
  return std::bit_cast<bits_of_width<sizeof(Number)>>(value) == bits;
}

/// One row of the table of operations.
template <typename Number>
struct operations {
  std::string (*write)(const Number&);
  Number (*read)(const convert::bin_str_argument&);
  bool most_significant_first;
  std::size_t required = sizeof(Number);
};

/// Calls `check` with the row of every type in each of the three namespaces.
template <typename Check>
void for_each_operation(Check check) {
#define ORVA_ROWS(where, first)                                                                 \
  check(operations<short>{where::int16_to_bin_str, where::bin_str_to_int16, first});            \
  check(operations<int32>{where::int32_to_bin_str, where::bin_str_to_int32, first});            \
  check(operations<long long>{where::int64_to_bin_str, where::bin_str_to_int64, first});        \
  check(operations<unsigned short>{where::uint16_to_bin_str, where::bin_str_to_uint16, first}); \
  check(operations<uint32>{where::uint32_to_bin_str, where::bin_str_to_uint32, first});         \
  check(operations<unsigned long long>{where::uint64_to_bin_str, where::bin_str_to_uint64, first})
#define ORVA_FLOATING_ROWS(where, first, float_size, double_size)                                \
  check(operations<float>{where::float_to_bin_str, where::bin_str_to_float, first, float_size}); \
  check(operations<double>{where::double_to_bin_str, where::bin_str_to_double, first, double_size})
  ORVA_ROWS(convert, !little_endian_host);
  ORVA_ROWS(big_endian, true);
  ORVA_ROWS(little_endian, false);
  ORVA_FLOATING_ROWS(convert, !little_endian_host, 8, 4);
  ORVA_FLOATING_ROWS(big_endian, true, 4, 8);
  ORVA_FLOATING_ROWS(little_endian, false, 4, 8);
#undef ORVA_ROWS
#undef ORVA_FLOATING_ROWS
}

/// Writes the value of these bits and reads it again by both overloads.
template <typename Number>
void expect_written_and_read(const operations<Number>& row, std::uint64_t pattern) {
  const auto bits = static_cast<bits_of_width<sizeof(Number)>>(pattern);
  Number value;
  std::memcpy(&value, &bits, sizeof value);
  const std::string bytes = row.write(value);
  ASSERT_EQ(to_hex(bytes), to_hex(reference_bytes(pattern, sizeof(Number), row.most_significant_first)));
  ASSERT_TRUE(is_read_as(row.read(bytes.data()), pattern)) << to_hex(bytes);
  ASSERT_TRUE(is_read_as(row.read(bytes + "12345678"), pattern)) << to_hex(bytes) << ", more after it";
  if (row.required <= bytes.size()) {
    ASSERT_TRUE(is_read_as(row.read(bytes), pattern)) << to_hex(bytes);
  }
}

TEST(byte_order, documentation_example) {
  EXPECT_EQ(to_hex(big_endian::uint32_to_bin_str(0x01020304)), "01 02 03 04");
  EXPECT_EQ(to_hex(little_endian::uint32_to_bin_str(0x01020304)), "04 03 02 01");
  EXPECT_EQ(to_hex(convert::uint32_to_bin_str(0x01020304)),
            little_endian_host ? "04 03 02 01" : "01 02 03 04");
  EXPECT_EQ(to_hex(big_endian::double_to_bin_str(1.0)), "3F F0 00 00 00 00 00 00");
  EXPECT_EQ(big_endian::bin_str_to_int32(from_hex("00 00 01")), 0);
  EXPECT_EQ(big_endian::bin_str_to_int32(from_hex("00 00 00 07 FF")), 7);
}

TEST(byte_order, sign_comes_from_the_top_bit) {
  EXPECT_EQ(big_endian::bin_str_to_int16(from_hex("FF FE")), -2);
  EXPECT_EQ(little_endian::bin_str_to_int16(from_hex("FF FE")), -257);
  EXPECT_EQ(big_endian::bin_str_to_uint16(from_hex("FF FE")), 0xFFFE);
}

TEST(byte_order, zero_bytes_are_data) {
  EXPECT_EQ(convert::uint16_to_bin_str(0), std::string(2, '\0'));
  EXPECT_EQ(big_endian::double_to_bin_str(0.0), std::string(8, '\0'));
}

TEST(byte_order, results_have_the_types_of_their_names) {
  const std::string none;
  static_assert(std::is_same_v<decltype(convert::bin_str_to_int16(none)), short>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_int32(none)), int32>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_int64(none)), long long>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_uint16(none)), unsigned short>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_uint32(none)), uint32>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_uint64(none)), unsigned long long>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_float(none)), float>);
  static_assert(std::is_same_v<decltype(convert::bin_str_to_double(none)), double>);
}

TEST(byte_order, short_strings_read_as_zero_and_longer_ones_by_their_beginning) {
  for_each_operation([]<typename Number>(const operations<Number>& row) {
    const std::string ones(16, '\xFF');
    for (std::size_t size = 0; size <= ones.size(); ++size) {
      const bool is_zero = row.read(ones.substr(0, size)) == 0;
      EXPECT_EQ(is_zero, size < row.required) << sizeof(Number) << " bytes wide, string of " << size;
    }
  });
}

TEST(byte_order, host_order_float_wants_a_string_of_eight_bytes) {
  const std::string one = convert::float_to_bin_str(1.0F);
  EXPECT_EQ(one.size(), 4U);
  EXPECT_EQ(convert::bin_str_to_float(one), 0.0F);
  EXPECT_EQ(convert::bin_str_to_float(one + "123"), 0.0F);
  EXPECT_EQ(convert::bin_str_to_float(one + "1234"), 1.0F);
  EXPECT_EQ(convert::bin_str_to_float(one.data()), 1.0F) << "a pointer is not tested";
  EXPECT_EQ(little_endian::bin_str_to_float(from_hex("00 00 80 3F")), 1.0F);
}

TEST(byte_order, host_order_double_takes_four_bytes_and_zero_for_the_rest) {
  const std::string bytes = from_hex("01 02 03 04 05 06 07 08");
  for (std::size_t size = 4; size <= 8; ++size) {
    std::string filled = bytes.substr(0, size);
    const double value = convert::bin_str_to_double(filled);
    filled.resize(8, '\0');
    EXPECT_EQ(convert::double_to_bin_str(value), filled) << size;
  }
  EXPECT_EQ(convert::bin_str_to_double(bytes.substr(0, 3)), 0.0);
}

TEST(byte_order, readers_take_every_kind_of_byte_string) {
  EXPECT_EQ(big_endian::bin_str_to_int16("ab"), 0x6162);
  EXPECT_EQ(big_endian::bin_str_to_int16(ORVA_NAMESPACE::strings::ustring8("ab")), 0x6162);
  EXPECT_EQ(big_endian::bin_str_to_int16(ORVA_NAMESPACE::strings::ustring8("a")), 0);
}

TEST(byte_order, pointer_is_read_by_the_width_of_the_number) {
  const std::string bytes = from_hex("01 00 02 00 03 00 04 00 FF");
  EXPECT_EQ(big_endian::bin_str_to_uint16(bytes.data()), 0x0100u);
  EXPECT_EQ(big_endian::bin_str_to_uint32(bytes.data()), 0x01000200u);
  EXPECT_EQ(big_endian::bin_str_to_uint64(bytes.data()), 0x0100020003000400u);
}

TEST(byte_order, names_are_functions) {
  const auto write = &big_endian::uint16_to_bin_str;
  const auto read = &little_endian::bin_str_to_uint16;
  static_assert(std::is_function_v<std::remove_pointer_t<decltype(write)>>);
  EXPECT_EQ(read(write(0x1234)), 0x3412u);
}

TEST(byte_order, pointer_needs_no_alignment) {
  std::string bytes = "x";
  bytes += big_endian::uint64_to_bin_str(0x0102030405060708);
  EXPECT_EQ(big_endian::bin_str_to_uint64(bytes.data() + 1), 0x0102030405060708U);
}

TEST(byte_order, every_16_bit_pattern_is_written_and_read) {
  for_each_operation([]<typename Number>(const operations<Number>& row) {
    if constexpr (sizeof(Number) == 2) {
      for (std::uint64_t bits = 0; bits <= 0xFFFF; ++bits) {
        ASSERT_NO_FATAL_FAILURE(expect_written_and_read(row, bits));
      }
    }
  });
}

TEST(byte_order, every_bit_of_every_type_is_written_and_read) {
  for_each_operation([]<typename Number>(const operations<Number>& row) {
    for (std::size_t bit = 0; bit < 8 * sizeof(Number); ++bit) {
      const std::uint64_t all =
          sizeof(Number) == 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << 8 * sizeof(Number)) - 1;
      ASSERT_NO_FATAL_FAILURE(expect_written_and_read(row, std::uint64_t{1} << bit));
      ASSERT_NO_FATAL_FAILURE(expect_written_and_read(row, all ^ std::uint64_t{1} << bit));
    }
  });
}

TEST(byte_order, random_patterns_are_written_and_read) {
  orva_test::random_engine random;
  for_each_operation([&]<typename Number>(const operations<Number>& row) {
    for (int run = 0; run < 5000; ++run) {
      const std::uint64_t bits = random.bits64() >> (64 - 8 * sizeof(Number));
      ASSERT_NO_FATAL_FAILURE(expect_written_and_read(row, bits));
    }
  });
}

TEST(byte_order, nan_keeps_its_bits) {
  for (const std::uint64_t bits : {0x7FF8000000000001U, 0xFFF0DEADBEEF0001U, 0x7FF0000000000001U}) {
    const auto bytes = big_endian::uint64_to_bin_str(bits);
    EXPECT_TRUE(has_bits(big_endian::bin_str_to_double(bytes), bits)) << to_hex(bytes);
  }
  for (const std::uint32_t bits : {0x7FC00001U, 0xFF80BEEFU, 0x7F800001U}) {
    const auto bytes = little_endian::uint32_to_bin_str(bits);
    EXPECT_TRUE(has_bits(little_endian::bin_str_to_float(bytes), bits)) << to_hex(bytes);
  }
}

}  // namespace
