#include "orva/types/device_unit.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

using ORVA_NAMESPACE::types::device_unit;
using ORVA_NAMESPACE::types::int32;

constexpr int32 lowest = std::numeric_limits<int32>::min();

TEST(device_unit, documentation_example) {
  EXPECT_EQ(device_unit(1.9).as_int32(), 1);
  EXPECT_EQ(device_unit(-1.9).as_int32(), -1);
  EXPECT_EQ(device_unit(0x100000005LL).as_int32(), 5);
  EXPECT_EQ(device_unit(1e10).as_int32(), lowest);
}

TEST(device_unit, default_is_0) { EXPECT_EQ(device_unit().as_int32(), 0); }

TEST(device_unit, is_made_from_every_type_of_integer) {
  EXPECT_EQ(device_unit(static_cast<signed char>(-7)).as_int32(), -7);
  EXPECT_EQ(device_unit(static_cast<unsigned char>(200)).as_int32(), 200);
  EXPECT_EQ(device_unit(static_cast<short>(-7)).as_int32(), -7);
  EXPECT_EQ(device_unit(static_cast<unsigned short>(65535)).as_int32(), 65535);
  EXPECT_EQ(device_unit(-7).as_int32(), -7);
  EXPECT_EQ(device_unit(7u).as_int32(), 7);
  EXPECT_EQ(device_unit(-7L).as_int32(), -7);
  EXPECT_EQ(device_unit(7UL).as_int32(), 7);
  EXPECT_EQ(device_unit(-7LL).as_int32(), -7);
  EXPECT_EQ(device_unit(7ULL).as_int32(), 7);
}

enum pixels_of_a_tile { tile_width = 32, no_tile = -1 };
enum wide_flags : long long { beyond_32_bits = 0x100000005 };
enum byte_flags : unsigned char { top_bit = 0x80 };
enum class scoped { value };

TEST(device_unit, unscoped_enumeration_converts_as_to_int) {
  EXPECT_EQ(device_unit(tile_width).as_int32(), 32);
  EXPECT_EQ(device_unit(no_tile).as_int32(), -1);
  EXPECT_EQ(device_unit(beyond_32_bits).as_int32(), 5);
  EXPECT_EQ(device_unit(top_bit).as_int32(), 128);
  device_unit pixels;
  pixels = tile_width;
  EXPECT_TRUE(pixels.equal(tile_width));
  EXPECT_EQ(pixels.assign(no_tile).as_int32(), -1);
  static_assert(!std::is_constructible_v<device_unit, scoped>);
}

TEST(device_unit, wider_integers_are_cut_to_32_bits) {
  EXPECT_EQ(device_unit(0xFFFFFFFFu).as_int32(), -1);
  EXPECT_EQ(device_unit(0x80000000LL).as_int32(), lowest);
  EXPECT_EQ(device_unit(std::numeric_limits<long long>::min()).as_int32(), 0);
  EXPECT_EQ(device_unit(std::numeric_limits<unsigned long long>::max()).as_int32(), -1);
}

TEST(device_unit, floating_values_are_truncated_toward_zero) {
  EXPECT_EQ(device_unit(1.9f).as_int32(), 1);
  EXPECT_EQ(device_unit(-1.9f).as_int32(), -1);
  EXPECT_EQ(device_unit(2147483647.9).as_int32(), 2147483647);
  EXPECT_EQ(device_unit(-2147483648.9).as_int32(), lowest);
}

TEST(device_unit, floating_value_that_does_not_fit_gives_the_most_negative_number) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double value :
       {2147483648.0, -2147483649.0, 1e300, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(device_unit(value).as_int32(), lowest) << value;
    EXPECT_EQ(device_unit(static_cast<float>(value)).as_int32(), lowest) << value;
  }
}

TEST(device_unit, is_read_as_integer_float_and_double) {
  const device_unit pixels(16777217);
  EXPECT_EQ(pixels.as_int32(), 16777217);
  EXPECT_EQ(pixels.as_float(), 16777216.0f);
  EXPECT_EQ(pixels.as_double(), 16777217.0);
}

TEST(device_unit, type_is_1) {
  EXPECT_EQ(device_unit().type(), 1);
  EXPECT_EQ(device_unit().type(), device_unit::pixel);
}

TEST(device_unit, is_assigned_from_pixels_or_a_number) {
  device_unit pixels;
  EXPECT_EQ(pixels.assign(5).as_int32(), 5);
  EXPECT_EQ(pixels.assign(device_unit(6)).as_int32(), 6);
  pixels = 7;
  EXPECT_EQ(pixels.as_int32(), 7);
  pixels = device_unit(8);
  EXPECT_EQ(pixels.as_int32(), 8);
  pixels = -9.9;
  EXPECT_EQ(pixels.as_int32(), -9);
  const device_unit copy = pixels;
  pixels = 0;
  EXPECT_EQ(copy.as_int32(), -9);
}

TEST(device_unit, compares_pixels) {
  EXPECT_TRUE(device_unit(5).equal(5));
  EXPECT_FALSE(device_unit(5).equal(6));
  EXPECT_TRUE(device_unit(5) == device_unit(5.9));
  EXPECT_TRUE(device_unit(5) != 6);
  EXPECT_FALSE(device_unit(5) != 5);
}

/// Pixels of a screen that shows two for one.
class scaled_pixel : public device_unit {
 public:
  using device_unit::device_unit;

 private:
  unit_types do_type() const override { return static_cast<unit_types>(2); }
  int32 do_as_int32() const override { return 2 * device_unit::do_as_int32(); }
  float do_as_float() const override { return 2 * device_unit::do_as_float(); }
  double do_as_double() const override { return 2 * device_unit::do_as_double(); }
};

TEST(device_unit, another_unit_answers_through_the_base) {
  const scaled_pixel scaled(21);
  const device_unit& pixels = scaled;
  EXPECT_EQ(pixels.type(), 2);
  EXPECT_EQ(pixels.as_int32(), 42);
  EXPECT_EQ(pixels.as_float(), 42.0f);
  EXPECT_EQ(pixels.as_double(), 42.0);
  EXPECT_TRUE(pixels.equal(21));
}

TEST(device_unit, is_usable_in_constant_expressions) {
  constexpr device_unit width(640.5);
  static_assert(width.as_int32() == 640 && width == 640 && width.type() == device_unit::pixel);
}

}  // namespace
