#include "orva/types/absolute_unit.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "orva/types/basic_absolute_impl.hpp"

namespace {

using ORVA_NAMESPACE::types::absolute_unit;
using ORVA_NAMESPACE::types::basic_absolute_impl;
using ORVA_NAMESPACE::types::int32;

constexpr int32 lowest = std::numeric_limits<int32>::min();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// A length of unit N with its protected members made public.
template <int N>
struct open_length : basic_absolute_impl<N> {
  using basic_absolute_impl<N>::basic_absolute_impl;
  using basic_absolute_impl<N>::value;
};

template <int N>
open_length<N> length(double value) {
  open_length<N> result;
  result.value(value);
  return result;
}

TEST(basic_absolute_impl, documentation_example) {
  const basic_absolute_impl<absolute_unit::inch> width(254000);
  EXPECT_EQ(width.as_int32(), 3);
  EXPECT_EQ(width.as_double(), 2.54);
  EXPECT_EQ(width.as_md(), 254000);
  EXPECT_EQ(basic_absolute_impl<absolute_unit::centimetre>(width).as_double(), 6.45);
}

template <int N>
void expect_per_inch(double units, absolute_unit::unit_types name) {
  EXPECT_EQ(name, N);
  EXPECT_EQ(length<N>(units).as_md(), 100000) << N;
  EXPECT_EQ(open_length<N>(100000).value(), units) << N;
  EXPECT_EQ(basic_absolute_impl<N>().type(), N);
}

TEST(absolute_unit, each_unit_has_its_number_to_the_inch) {
  EXPECT_EQ(absolute_unit::m_md_per_inch, 100000);
  expect_per_inch<1>(100000, absolute_unit::md);
  expect_per_inch<2>(300, absolute_unit::dot_300);
  expect_per_inch<3>(25.4, absolute_unit::millimetre);
  expect_per_inch<4>(2.54, absolute_unit::centimetre);
  expect_per_inch<5>(1, absolute_unit::inch);
  expect_per_inch<6>(72, absolute_unit::point);
  expect_per_inch<7>(6, absolute_unit::pica);
  expect_per_inch<8>(96, absolute_unit::pixel_96);
}

template <int N>
void expect_multiplied_first(double units) {
  for (const double x : {0.1, 1.0 / 3, 2.54, -7.7, 1234.5678, 1e15}) {
    EXPECT_EQ(length<N>(x).value(), x * 100000 / units * units / 100000) << N << ' ' << x;
    const auto whole = std::trunc(x);
    EXPECT_EQ(open_length<N>(x).value(), whole * units / 100000) << N << ' ' << x;
  }
}

TEST(absolute_unit, multiplies_before_it_divides) {
  expect_multiplied_first<2>(300);
  expect_multiplied_first<3>(25.4);
  expect_multiplied_first<4>(2.54);
  expect_multiplied_first<5>(1);
  expect_multiplied_first<6>(72);
  expect_multiplied_first<7>(6);
  expect_multiplied_first<8>(96);
}

TEST(absolute_unit, md_are_kept_as_they_are) {
  for (const double x : {0.1, 1.0 / 3, 1e300, -5e-324, infinity}) EXPECT_EQ(length<1>(x).value(), x);
}

TEST(absolute_unit, inch_is_100000_md) {
  const auto inch = length<5>(1);
  EXPECT_EQ(inch.as_md(), 100000);
  EXPECT_EQ(inch.as_int32(), 1);
}

TEST(absolute_unit, default_is_0) {
  EXPECT_EQ(basic_absolute_impl<3>().as_md(), 0);
  EXPECT_EQ(basic_absolute_impl<3>().as_double(), 0.0);
}

TEST(absolute_unit, number_is_md_whatever_the_unit) {
  EXPECT_EQ(basic_absolute_impl<5>(100000).as_int32(), 1);
  EXPECT_EQ(basic_absolute_impl<5>(100000L).as_int32(), 1);
  EXPECT_EQ(basic_absolute_impl<5>(100000.0).as_int32(), 1);
  EXPECT_EQ(basic_absolute_impl<4>(0x100000005LL).as_md(), 5);
}

enum margins { narrow = 1000, outside = -1 };
enum wide_margins : long long { beyond_32_bits = 0x100000005 };

TEST(absolute_unit, unscoped_enumeration_converts_as_to_int) {
  EXPECT_EQ(basic_absolute_impl<5>(narrow).as_md(), 1000);
  EXPECT_EQ(basic_absolute_impl<5>(outside).as_md(), -1);
  EXPECT_EQ(basic_absolute_impl<5>(beyond_32_bits).as_md(), 5);
}

TEST(absolute_unit, floating_number_is_truncated_to_whole_md) {
  EXPECT_EQ(open_length<1>(1.9).value(), 1.0);
  EXPECT_EQ(open_length<1>(-1.9).value(), -1.0);
  EXPECT_EQ(open_length<1>(3e9).value(), 3e9);
  EXPECT_EQ(open_length<1>(1e300).value(), 1e300);
  EXPECT_EQ(open_length<1>(infinity).value(), infinity);
  EXPECT_TRUE(std::isnan(open_length<1>(std::numeric_limits<double>::quiet_NaN()).value()));
}

TEST(absolute_unit, value_keeps_fractions_of_an_md) {
  EXPECT_EQ(length<1>(1.9).value(), 1.9);
  EXPECT_EQ(length<1>(1.9).as_md(), 1);
  EXPECT_EQ(length<1>(-1.9).as_md(), -1);
}

TEST(absolute_unit, as_int32_rounds_halves_upward) {
  struct {
    double value;
    int32 rounded;
  } const table[] = {
      {2.5, 3}, {-2.5, -2}, {2.4, 2}, {-2.6, -3}, {0.5, 1}, {-0.5, 0}, {2147483647, 2147483647}};
  for (const auto& row : table) {
    EXPECT_EQ(length<1>(row.value).as_int32(), row.rounded) << row.value;
    EXPECT_EQ(length<5>(row.value).as_int32(), row.rounded) << row.value;
  }
}

TEST(absolute_unit, as_double_rounds_to_two_decimals) {
  struct {
    double value;
    double rounded;
  } const table[] = {{25.404, 25.4}, {25.406, 25.41}, {-25.406, -25.41},
                     {0.125, 0.13},  {-0.125, -0.12}, {1e17, 1e17}};
  for (const auto& row : table) {
    EXPECT_EQ(length<1>(row.value).as_double(), row.rounded) << row.value;
    EXPECT_DOUBLE_EQ(length<3>(row.value).as_double(), row.rounded) << row.value;
  }
}

TEST(absolute_unit, what_32_bits_cannot_hold_gives_the_most_negative_number) {
  for (const double value :
       {2147483648.0, -2147483649.0, 1e300, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(length<1>(value).as_md(), lowest) << value;
    EXPECT_EQ(length<1>(value).as_int32(), lowest) << value;
    EXPECT_EQ(length<5>(value).as_int32(), lowest) << value;
  }
}

TEST(absolute_unit, unit_that_is_none_of_the_eight_is_always_0) {
  const auto below = [] {
    auto result = length<0>(5);
    return result;
  }();
  EXPECT_EQ(below.value(), 0.0);
  EXPECT_EQ(below.as_md(), 0);
  EXPECT_EQ(length<9>(infinity).as_md(), 0);
  EXPECT_EQ(length<-1>(5).as_md(), 0);
  EXPECT_EQ(open_length<9>(100000).value(), 0.0);
  EXPECT_EQ(open_length<9>(infinity).value(), 0.0);
  EXPECT_EQ(open_length<9>(100000).as_int32(), 0);
  EXPECT_EQ(open_length<9>(100000).as_double(), 0.0);
  EXPECT_EQ(open_length<9>(100000).as_md(), 100000);
  EXPECT_EQ(open_length<9>(100000).type(), 9);
}

TEST(absolute_unit, assignment_takes_the_length_and_keeps_the_unit) {
  basic_absolute_impl<4> centimetres;
  const basic_absolute_impl<5> inch(100000);
  centimetres = inch;
  EXPECT_EQ(centimetres.as_double(), 2.54);
  EXPECT_EQ(centimetres.type(), absolute_unit::centimetre);
  absolute_unit& length = centimetres;
  length = basic_absolute_impl<6>(200000);
  EXPECT_EQ(centimetres.as_double(), 5.08);
}

TEST(absolute_unit, copy_into_another_unit_keeps_fractions) {
  const auto third = length<1>(1.0 / 3);
  const open_length<2> dots = static_cast<open_length<2>>(static_cast<const absolute_unit&>(third));
  EXPECT_EQ(dots.value(), 1.0 / 3 * 300 / 100000);
}

TEST(absolute_unit, is_usable_in_constant_expressions) {
  constexpr basic_absolute_impl<absolute_unit::centimetre> width(100000);
  static_assert(width.as_md() == 100000 && width.as_int32() == 3 && width.as_double() == 2.54);
  static_assert(width.type() == absolute_unit::centimetre);
}

}  // namespace
