#include "orva/types/color_t.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

using ORVA_NAMESPACE::types::color_t;
using ORVA_NAMESPACE::types::int32;

constexpr int32 bits(std::uint32_t value) { return static_cast<int32>(value); }

TEST(color, documentation_example) {
  EXPECT_EQ(color_t(1, 2, 3).as_int32(), bits(0xFF030201));
  EXPECT_EQ(color_t(1, 2, 3).as_rgb(), 0x030201);
  EXPECT_EQ(color_t().alpha(), 0);
  EXPECT_EQ(color_t::rgb(0x33, 0x22, 0x11).alpha(), 255);
  EXPECT_EQ(color_t::rgb(0x112233).alpha(), 0);
}

TEST(color, is_red_green_blue_alpha_in_memory) {
  static_assert(sizeof(color_t) == 4 && alignof(color_t) == alignof(int32));
  static_assert(std::is_trivially_copyable_v<color_t> && std::is_standard_layout_v<color_t>);
  const auto bytes = std::bit_cast<std::array<unsigned char, 4>>(color_t(1, 2, 3, 4));
  EXPECT_EQ(bytes, (std::array<unsigned char, 4>{1, 2, 3, 4}));
}

TEST(color, is_a_number_with_red_lowest) {
  EXPECT_EQ(color_t(1, 2, 3, 4).as_int32(), 1 + 2 * 256 + 3 * 65536 + 4 * 16777216);
  EXPECT_EQ(color_t(1, 2, 3, 128).as_int32(), bits(0x80030201));
}

TEST(color, default_is_transparent_black) {
  const color_t none;
  EXPECT_EQ(none.as_int32(), 0);
  EXPECT_EQ(none.red(), 0);
  EXPECT_EQ(none.green(), 0);
  EXPECT_EQ(none.blue(), 0);
  EXPECT_EQ(none.alpha(), 0);
}

TEST(color, of_three_bytes_is_opaque) { EXPECT_EQ(color_t(0, 0, 0).alpha(), 255); }

TEST(color, packed_number_gives_all_four_bytes_back) {
  for (const std::uint32_t packed : {0u, 1u, 0x00112233u, 0x80000000u, 0xFF030201u, 0xFFFFFFFFu}) {
    const color_t color(packed);
    EXPECT_EQ(color.as_int32(), bits(packed));
    EXPECT_EQ(color.red(), packed & 0xFF);
    EXPECT_EQ(color.green(), packed >> 8 & 0xFF);
    EXPECT_EQ(color.blue(), packed >> 16 & 0xFF);
    EXPECT_EQ(color.alpha(), packed >> 24);
    EXPECT_EQ(color.as_rgb(), bits(packed & 0xFFFFFF));
    EXPECT_TRUE(color_t::rgba(packed) == color);
    EXPECT_TRUE(color_t::rgb(packed) == color);
  }
}

TEST(color, packed_number_may_have_any_integer_type) {
  EXPECT_EQ(color_t(-1).as_int32(), -1);
  EXPECT_EQ(color_t(-1L).as_int32(), -1);
  EXPECT_EQ(color_t(0x1234567889ABCDEFLL).as_int32(), bits(0x89ABCDEF));
  EXPECT_EQ(color_t(static_cast<signed char>(-2)).as_int32(), -2);
}

enum named_color { orange = 0x00A5FF, white = 0xFFFFFFFF };
enum class scoped_color { value };

TEST(color, unscoped_enumeration_is_a_packed_number) {
  EXPECT_EQ(color_t(orange).as_int32(), 0x00A5FF);
  EXPECT_EQ(color_t(white).as_int32(), -1);
  EXPECT_EQ(color_t::rgb(orange).green(), 0xA5);
  EXPECT_EQ(color_t::rgba(orange).alpha(), 0);
  color_t color;
  color = orange;
  EXPECT_TRUE(color.equal(orange));
  EXPECT_EQ(color.assign(white).alpha(), 255);
  static_assert(!std::is_constructible_v<color_t, scoped_color>);
}

TEST(color, floating_value_converts_as_to_32_bits) {
  constexpr int32 lowest = std::numeric_limits<int32>::min();
  EXPECT_EQ(color_t(258.9).as_int32(), 258);
  EXPECT_EQ(color_t(-1.5F).as_int32(), -1);
  EXPECT_EQ(color_t(1e10).as_int32(), lowest);
  EXPECT_EQ(color_t::rgb(258.9).green(), 1);
  EXPECT_EQ(color_t::rgba(258.9L).red(), 2);
  color_t color;
  color = 258.9;
  EXPECT_EQ(color.as_int32(), 258);
  EXPECT_EQ(color.assign(std::numeric_limits<double>::quiet_NaN()).as_int32(), lowest);
}

TEST(color, rgb_of_a_packed_number_keeps_alpha_where_rgb_of_bytes_sets_it) {
  EXPECT_EQ(color_t::rgb(0x00112233).alpha(), 0);
  EXPECT_EQ(color_t::rgb(0x7F112233).alpha(), 0x7F);
  EXPECT_EQ(color_t::rgb(0x33, 0x22, 0x11).alpha(), 255);
  EXPECT_EQ(color_t::rgb(0x33, 0x22, 0x11).as_rgb(), color_t::rgb(0x00112233).as_rgb());
}

TEST(color, rgba_takes_four_bytes) { EXPECT_TRUE(color_t::rgba(1, 2, 3, 4) == color_t(1, 2, 3, 4)); }

TEST(color, setters_set_one_byte_and_return_it) {
  color_t color;
  EXPECT_EQ(color.red(0x11), 0x11);
  EXPECT_EQ(color.as_int32(), 0x11);
  EXPECT_EQ(color.green(0x22), 0x22);
  EXPECT_EQ(color.as_int32(), 0x2211);
  EXPECT_EQ(color.blue(0x33), 0x33);
  EXPECT_EQ(color.as_int32(), 0x332211);
  EXPECT_EQ(color.alpha(0x44), 0x44);
  EXPECT_EQ(color.as_int32(), 0x44332211);
}

TEST(color, each_byte_counts_for_equality) {
  const color_t color(1, 2, 3, 4);
  EXPECT_TRUE(color.equal(color_t(1, 2, 3, 4)));
  for (const color_t& other :
       {color_t(9, 2, 3, 4), color_t(1, 9, 3, 4), color_t(1, 2, 9, 4), color_t(1, 2, 3, 9)}) {
    EXPECT_FALSE(color.equal(other));
    EXPECT_FALSE(color == other);
    EXPECT_TRUE(color != other);
  }
}

TEST(color, is_assigned_from_a_color_or_a_packed_number) {
  color_t color;
  EXPECT_EQ(color.assign(color_t(1, 2, 3)).as_rgb(), 0x030201);
  EXPECT_EQ(color.assign(0x00112233).as_int32(), 0x00112233);
  color = 0x01020304;
  EXPECT_EQ(color.alpha(), 1);
  color = color_t(5, 6, 7, 8);
  EXPECT_EQ(color.as_int32(), 0x08070605);
  color_t copy = color;
  copy.red(0);
  EXPECT_EQ(color.red(), 5);
}

TEST(color, is_usable_in_constant_expressions) {
  constexpr color_t orange(255, 165, 0);
  static_assert(orange.as_rgb() == 0x00A5FF && orange.alpha() == 255);
  static_assert(color_t::rgb(0x00A5FF) != orange);
}

}  // namespace
