#include "orva/generic/convert/units.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "tests/support/random_engine.hpp"

namespace {

using ORVA_NAMESPACE::types::absolute_unit;
using ORVA_NAMESPACE::types::basic_absolute_impl;
using ORVA_NAMESPACE::types::device_unit;
using ORVA_NAMESPACE::types::int32;
using namespace ORVA_NAMESPACE::generic::convert;

constexpr int32 lowest = std::numeric_limits<int32>::min();
constexpr double infinity = std::numeric_limits<double>::infinity();

enum flag { seven = 7, all_bits = -1 };

/// The length with the fraction that `as_md` cuts off.
double exact_md(const absolute_unit& length) {
  struct open_length : basic_absolute_impl<absolute_unit::md> {
    explicit open_length(const absolute_unit& other) : basic_absolute_impl(other) {}
    using basic_absolute_impl::value;
  };
  return open_length(length).value();
}

TEST(units, documentation_example) {
  EXPECT_EQ(to_md(2.54, absolute_unit::centimetre).as_md(), 100000);
  EXPECT_EQ(to_device_unit(1, absolute_unit::inch, 300), 300);
  EXPECT_EQ(to_device_unit(25.4, absolute_unit::millimetre, 96), 96);
  EXPECT_EQ(to_md(150.0, device_unit::pixel, 300).as_md(), 50000);
  EXPECT_EQ(to_md(device_unit(150), 300).as_md(), 0);
}

TEST(to_md, number_in_each_unit) {
  struct {
    absolute_unit::unit_types unit;
    double per_inch;
  } const table[] = {
      {absolute_unit::md, 100000},       {absolute_unit::dot_300, 300}, {absolute_unit::millimetre, 25.4},
      {absolute_unit::centimetre, 2.54}, {absolute_unit::inch, 1},      {absolute_unit::point, 72},
      {absolute_unit::pica, 6},          {absolute_unit::pixel_96, 96},
  };
  for (const auto& row : table) {
    EXPECT_EQ(to_md(row.per_inch, row.unit).as_md(), 100000) << row.unit;
    EXPECT_EQ(exact_md(to_md(7, row.unit)), row.unit == absolute_unit::md ? 7 : 7 * 100000 / row.per_inch)
        << row.unit;
    EXPECT_EQ(exact_md(to_md(0.1f, row.unit)),
              row.unit == absolute_unit::md ? double{0.1f} : double{0.1f} * 100000 / row.per_inch);
  }
}

TEST(to_md, unit_that_is_none_of_the_eight_is_md) {
  for (const int unit : {0, 9, -1, 1000}) {
    EXPECT_EQ(exact_md(to_md(1.5, static_cast<absolute_unit::unit_types>(unit))), 1.5) << unit;
    EXPECT_EQ(exact_md(to_md(3, static_cast<absolute_unit::unit_types>(unit))), 3) << unit;
    EXPECT_EQ(to_device_unit(100000, static_cast<absolute_unit::unit_types>(unit), 300), 300) << unit;
  }
}

TEST(to_md, result_is_shown_in_md) {
  EXPECT_EQ(to_md(1.5, absolute_unit::inch).type(), absolute_unit::md);
  EXPECT_EQ(to_md(basic_absolute_impl<5>(7)).type(), absolute_unit::md);
  EXPECT_EQ(to_md(device_unit(1), 1).type(), absolute_unit::md);
}

TEST(to_md, length_of_another_unit_keeps_what_is_stored) {
  const auto third = to_md(1.0 / 3, absolute_unit::md);
  EXPECT_EQ(exact_md(to_md(basic_absolute_impl<5>(third))), 1.0 / 3);
  // Nothing is computed, so also where the unit is unknown.
  EXPECT_EQ(exact_md(to_md(basic_absolute_impl<9>(third))), 1.0 / 3);
}

TEST(to_md, pixels_of_integers_lose_what_is_below_an_inch) {
  EXPECT_EQ(to_md(device_unit(150), 300).as_md(), 0);
  EXPECT_EQ(to_md(150, device_unit::pixel, 300).as_md(), 0);
  EXPECT_EQ(to_md(device_unit(599), 300).as_md(), 100000);
  EXPECT_EQ(to_md(599L, device_unit::pixel, 300).as_md(), 100000);
  EXPECT_EQ(to_md(device_unit(-599), 300).as_md(), -100000);
}

TEST(to_md, pixels_of_a_double_lose_nothing) {
  EXPECT_EQ(to_md(150.0, device_unit::pixel, 300).as_md(), 50000);
  EXPECT_EQ(exact_md(to_md(1.0, device_unit::pixel, 3)), 1.0 / 3 * 100000.0);
  EXPECT_EQ(exact_md(to_md(-0.5f, device_unit::pixel, 100)), -500.0);
}

TEST(to_md, whole_inches_wrap_at_32_bits) {
  EXPECT_EQ(to_md(device_unit(21474), 1).as_md(), 2147400000);
  EXPECT_EQ(to_md(device_unit(21475), 1).as_md(), static_cast<int32>(2147500000u));
  EXPECT_EQ(to_md(device_unit(lowest), -1).as_md(), 0);  // the quotient wraps, and its product
  EXPECT_EQ(to_md(device_unit(5), -1).as_md(), -500000);
}

TEST(to_md, whole_pixels_over_a_resolution_of_0_are_0) {
  EXPECT_EQ(to_md(device_unit(150), 0).as_md(), 0);
  EXPECT_EQ(to_md(150, device_unit::pixel, 0).as_md(), 0);
  EXPECT_EQ(to_md(lowest, device_unit::pixel, 0).as_md(), 0);
}

TEST(to_md, double_of_pixels_over_a_resolution_of_0_is_infinite) {
  EXPECT_EQ(exact_md(to_md(150.0, device_unit::pixel, 0)), infinity);
  EXPECT_EQ(exact_md(to_md(-0.5, device_unit::pixel, 0)), -infinity);
  EXPECT_TRUE(std::isnan(exact_md(to_md(0.0, device_unit::pixel, 0))));
  EXPECT_TRUE(std::isnan(exact_md(to_md(std::nan(""), device_unit::pixel, 0))));
  for (const double pixels : {150.0, -0.5, 0.0}) {
    EXPECT_EQ(to_md(pixels, device_unit::pixel, 0).as_md(), lowest) << pixels;
  }
  static_assert(to_md(150.0, device_unit::pixel, 0).as_md() == lowest);
}

TEST(units, unscoped_enumeration_converts_as_to_int) {
  EXPECT_EQ(to_md(seven, absolute_unit::inch).as_md(), 700000);
  EXPECT_EQ(to_md(seven, device_unit::pixel, 2).as_md(), 300000) << "whole inches, as for an integer";
  EXPECT_EQ(to_md(all_bits, 1).as_md(), -100000);
  EXPECT_EQ(to_device_unit(seven, absolute_unit::inch, 300), 2100);
  EXPECT_EQ(to_device_unit(seven, device_unit::pixel), 7);
  EXPECT_EQ(to_dpx(seven, absolute_unit::inch, 300), 2100);
}

TEST(to_device_unit, length_in_each_unit_at_its_own_resolution) {
  EXPECT_EQ(to_device_unit(1.0, absolute_unit::inch, 300), 300);
  EXPECT_EQ(to_device_unit(25.4, absolute_unit::millimetre, 96), 96);
  EXPECT_EQ(to_device_unit(96, absolute_unit::pixel_96, 96), 96);
  EXPECT_EQ(to_device_unit(300, absolute_unit::dot_300, 300), 300);
  EXPECT_EQ(to_device_unit(72L, absolute_unit::point, 600), 600);
  EXPECT_EQ(to_device_unit(basic_absolute_impl<5>(100000), 300), 300);
}

TEST(to_device_unit, takes_whole_md_and_truncates_toward_zero) {
  EXPECT_EQ(to_device_unit(basic_absolute_impl<1>(99999), 300), 299);
  EXPECT_EQ(to_device_unit(basic_absolute_impl<1>(-99999), 300), -299);
  EXPECT_EQ(to_device_unit(333.9, absolute_unit::md, 300), 0);
  EXPECT_EQ(to_device_unit(334.0, absolute_unit::md, 300), 1);
}

TEST(to_device_unit, product_wraps_at_32_bits) {
  EXPECT_EQ(to_device_unit(71, absolute_unit::inch, 300), 71 * 300);
  const auto wrapped = static_cast<std::int32_t>(7200000u * 300u);
  EXPECT_EQ(to_device_unit(72, absolute_unit::inch, 300), wrapped / 100000);
  EXPECT_LT(to_device_unit(72, absolute_unit::inch, 300).as_int32(), 0);
}

TEST(to_device_unit, length_that_does_not_fit_counts_as_the_most_negative_one) {
  EXPECT_EQ(to_device_unit(1e300, absolute_unit::inch, 1), lowest / 100000);
  EXPECT_EQ(to_device_unit(infinity, absolute_unit::md, 1), lowest / 100000);
  EXPECT_EQ(to_device_unit(infinity, absolute_unit::md, -1), lowest / 100000);
  EXPECT_EQ(to_device_unit(std::numeric_limits<double>::quiet_NaN(), absolute_unit::md, 1), lowest / 100000);
}

TEST(to_device_unit, resolution_of_0_gives_0) {
  EXPECT_EQ(to_device_unit(5, absolute_unit::inch, 0), 0);
  EXPECT_EQ(to_device_unit(basic_absolute_impl<5>(100000), 0), 0);
}

TEST(to_device_unit, pixels_are_copied_and_numbers_truncated) {
  EXPECT_EQ(to_device_unit(device_unit(7)), 7);
  EXPECT_EQ(to_device_unit(7.9, device_unit::pixel), 7);
  EXPECT_EQ(to_device_unit(-7.9, device_unit::pixel), -7);
  EXPECT_EQ(to_device_unit(7, device_unit::pixel), 7);
  EXPECT_EQ(to_device_unit(7L, device_unit::pixel), 7);
}

TEST(to_dpx, does_what_to_device_unit_does) {
  EXPECT_EQ(to_dpx(device_unit(7)), 7);
  EXPECT_EQ(to_dpx(basic_absolute_impl<5>(100000), 300), 300);
  EXPECT_EQ(to_dpx(1.0, absolute_unit::inch, 300), 300);
  EXPECT_EQ(to_dpx(1, absolute_unit::inch, 300), 300);
  EXPECT_EQ(to_dpx(7.9, device_unit::pixel), 7);
  EXPECT_EQ(to_dpx(7L, device_unit::pixel), 7);
}

TEST(units, any_numbers_give_what_wider_arithmetic_cut_to_32_bits_gives) {
  orva_test::random_engine random;
  const auto any = [&] { return static_cast<std::int32_t>(random() >> random() % 33); };
  for (int i = 0; i < 200'000; ++i) {
    const std::int64_t number = any();
    const std::int64_t dpi = any();
    const auto length = basic_absolute_impl<1>(number);
    ASSERT_EQ(to_device_unit(length, static_cast<int32>(dpi)).as_int32(),
              static_cast<std::int32_t>(static_cast<std::int32_t>(number * dpi) / 100000))
        << number << ' ' << dpi;
    const std::int64_t inches = dpi == 0 ? 0 : static_cast<std::int32_t>(number / dpi);
    ASSERT_EQ(to_md(number, device_unit::pixel, static_cast<int32>(dpi)).as_md(),
              static_cast<std::int32_t>(inches * 100000))
        << number << ' ' << dpi;
  }
}

TEST(units, are_usable_in_constant_expressions) {
  static_assert(to_device_unit(25.4, absolute_unit::millimetre, 96) == 96);
  static_assert(to_md(150.0, device_unit::pixel, 300).as_md() == 50000);
  static_assert(to_dpx(to_md(2.54, absolute_unit::centimetre), 300) == 300);
}

}  // namespace
