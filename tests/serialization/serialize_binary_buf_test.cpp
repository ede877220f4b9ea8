#include "orva/serialization/serialize_binary_buf.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>

#include "orva/memory/pointers/rc_pointer.hpp"
#include "tests/support/hex.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_serialization.hpp"
#include "tests/support/returned_bits.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using orva_test::from_hex;
using orva_test::has_bits;
using orva_test::reference_binary_reader;
using orva_test::to_hex;

template <typename Append>
std::string bytes_of(Append append) {
  serialize_binary_buf buffer;
  append(buffer);
  return to_hex(buffer.as_str());
}

TEST(serialize_binary_buf, documentation_example) {
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_int16(0x1234); }), "34 12");
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_uint32(1); }), "01 00 00 00");
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_float(1.5F, 2); }), "00 00 C0 3F");
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_double(1.0, 6); }), "00 00 00 00 00 00 F0 3F");
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_string("abc"); }), "03 00 00 00 61 62 63");
}

TEST(serialize_binary_buf, precision_is_ignored) {
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_float(1.5F, 2); }),
            bytes_of([](auto& buffer) { buffer.append_float(1.5F, 6); }));
  EXPECT_EQ(bytes_of([](auto& buffer) { buffer.append_double(0.1, 0); }),
            bytes_of([](auto& buffer) { buffer.append_double(0.1, 4294967295U); }));
}

TEST(serialize_binary_buf, every_bit_of_a_nan_survives) {
  serialize_binary_buf buffer;
  buffer.append_double(std::bit_cast<double>(std::uint64_t{0xFFF0DEADBEEF0001}), 6);
  buffer.append_float(std::bit_cast<float>(std::uint32_t{0x7F800001}), 6);
  EXPECT_TRUE(has_bits(buffer.read_double(), 0xFFF0DEADBEEF0001));
  EXPECT_TRUE(has_bits(buffer.read_float(), 0x7F800001U));
}

TEST(serialize_binary_buf, read_buffer_of_an_empty_buffer_is_null) {
  EXPECT_EQ(serialize_binary_buf().read_buffer(), nullptr);
}

/// Reads a number of each type of `width` bytes.
void expect_missing_bytes_are_zero(const std::string& bytes, std::size_t width) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bits |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  }
  const auto read = [&](auto reader) {
    const serialize_binary_buf buffer(std::string(bytes.begin(), bytes.end()));
    const auto value = reader(buffer);
    EXPECT_TRUE(buffer.at_end()) << bytes.size() << " of " << width;
    return value;
  };
  if (width == 2) {
    EXPECT_EQ(read([](auto& buffer) { return buffer.read_uint16(); }), bits);
    EXPECT_EQ(read([](auto& buffer) { return buffer.read_int16(); }), static_cast<short>(bits));
  }
  if (width == 4) {
    EXPECT_EQ(read([](auto& buffer) { return buffer.read_uint32(); }), bits);
    EXPECT_TRUE(
        has_bits(read([](auto& buffer) { return buffer.read_float(); }), static_cast<std::uint32_t>(bits)))
        << bits;
  }
  if (width == 8) {
    EXPECT_EQ(read([](auto& buffer) { return buffer.read_uint64(); }), bits);
    EXPECT_TRUE(has_bits(read([](auto& buffer) { return buffer.read_double(); }), bits)) << bits;
  }
}

TEST(serialize_binary_buf, number_cut_by_the_end_of_the_data_has_zeros_for_missing_bytes) {
  const std::string bytes = from_hex("F1 F2 F3 F4 F5 F6 F7 F8");
  for (const std::size_t width : {2U, 4U, 8U}) {
    for (std::size_t size = 1; size < width; ++size)
      expect_missing_bytes_are_zero(bytes.substr(0, size), width);
  }
}

TEST(serialize_binary_buf, number_cut_by_the_end_of_the_data_leaves_the_end) {
  const serialize_binary_buf buffer(from_hex("07 00 00 00 09"));
  EXPECT_EQ(buffer.read_int32(), 7);
  EXPECT_EQ(buffer.read_int32(), 9);
  EXPECT_TRUE(buffer.at_end());
  EXPECT_EQ(buffer.read_uint8(), 0);
}

TEST(serialize_binary_buf, length_that_overstates_is_cut_at_the_end) {
  serialize_binary_buf buffer(from_hex("64 00 00 00 61 62 63"));
  EXPECT_EQ(buffer.read_string(), "abc");
  EXPECT_TRUE(buffer.at_end());
  buffer.reset_read();
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  ASSERT_TRUE(nested);
  EXPECT_EQ(nested->as_str(), "abc");
  EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_binary_buf, position_goes_by_the_stored_length) {
  serialize_binary_buf buffer(from_hex("64 00 00 00 61 62 63"));
  buffer.read_string();
  buffer.assign(std::string(104, 'x') + "y");
  EXPECT_EQ(buffer.read_int8(), 'y');
}

TEST(serialize_binary_buf, empty_string_at_the_very_end_is_empty) {
  serialize_binary_buf buffer(from_hex("00 00 00 00"));
  EXPECT_EQ(buffer.read_string(), "");
  EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_binary_buf, empty_buffer_at_the_very_end_is_null_and_anywhere_else_a_buffer) {
  serialize_binary_buf buffer;
  buffer.append_buffer(serialize_binary_buf());
  EXPECT_EQ(buffer.read_buffer(), nullptr);
  EXPECT_TRUE(buffer.at_end());
  buffer.reset_read();
  buffer.append_buffer(serialize_binary_buf());
  const rc_pointer<serialize_buffer> first(buffer.read_buffer());
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->at_end());
  EXPECT_EQ(buffer.read_buffer(), nullptr);
}

TEST(serialize_binary_buf, length_without_bytes_leaves_the_position_after_it) {
  serialize_binary_buf buffer(from_hex("05 00 00 00"));
  EXPECT_EQ(buffer.read_string(), "");
  EXPECT_TRUE(buffer.at_end());
  buffer.append_int8(3);
  EXPECT_EQ(buffer.read_int8(), 3);
}

TEST(serialize_binary_buf, length_cut_by_the_end_of_the_data_reads_as_nothing) {
  for (const char* bytes : {"01", "01 02", "01 02 03"}) {
    serialize_binary_buf buffer(from_hex(bytes));
    EXPECT_EQ(buffer.read_string(), "");
    EXPECT_TRUE(buffer.at_end());
    buffer.reset_read();
    EXPECT_EQ(buffer.read_buffer(), nullptr);
  }
}

TEST(serialize_binary_buf, length_near_4_gib_leads_back) {
  serialize_binary_buf buffer(from_hex("FC FF FF FF 61 62"));
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(buffer.read_string(), "ab");
    EXPECT_FALSE(buffer.at_end());
  }
  EXPECT_EQ(buffer.read_uint8(), 0xFC);
}

TEST(serialize_binary_buf, appended_while_at_the_end_is_read_next) {
  serialize_binary_buf buffer;
  EXPECT_EQ(buffer.read_int32(), 0);
  buffer.append_int32(5);
  EXPECT_FALSE(buffer.at_end());
  EXPECT_EQ(buffer.read_int32(), 5);
}

TEST(serialize_binary_buf, any_reads_of_any_bytes_agree_with_the_reference) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) {
    std::string data(random() % 24, '\0');
    for (char& byte : data) byte = static_cast<char>(random() % 4 == 0 ? random() : random() % 3);
    serialize_binary_buf buffer(data);
    reference_binary_reader reference(data);
    for (int step = 0; step < 8; ++step) {
      switch (random() % 6) {
        case 0:
          ASSERT_EQ(buffer.read_uint8(), reference.read_bits(1)) << to_hex(data);
          break;
        case 1:
          ASSERT_EQ(buffer.read_uint16(), reference.read_bits(2)) << to_hex(data);
          break;
        case 2:
          ASSERT_EQ(buffer.read_uint32(), reference.read_bits(4)) << to_hex(data);
          break;
        case 3:
          ASSERT_EQ(buffer.read_uint64(), reference.read_bits(8)) << to_hex(data);
          break;
        case 4:
          ASSERT_EQ(buffer.read_string(), reference.read_bytes().value_or("")) << to_hex(data);
          break;
        default: {
          const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
          const auto expected = reference.read_bytes();
          ASSERT_EQ(static_cast<bool>(nested), expected.has_value()) << to_hex(data);
          if (nested) {
            ASSERT_EQ(nested->as_str(), *expected);
          }
        }
      }
      ASSERT_EQ(buffer.at_end(), reference.at_end()) << to_hex(data);
    }
  }
}

}  // namespace
