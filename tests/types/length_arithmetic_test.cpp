/// Lengths in a program that is compiled for other floating arithmetic than the library.
///
/// This source is compiled with the flags of such a program, for which std::floor and the like would be
/// affected too. Expected values are literals, or come from length_reference.cpp.
#include <gtest/gtest.h>

#include <cstdint>

#include "orva/generic/convert/units.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/types/length_reference.hpp"

namespace {

using ORVA_NAMESPACE::generic::convert::to_md;
using ORVA_NAMESPACE::types::absolute_unit;
using ORVA_NAMESPACE::types::basic_absolute_impl;
using ORVA_NAMESPACE::types::device_unit;

/// A length of unit N with its protected members made public.
template <int N>
struct open_length : basic_absolute_impl<N> {
  using basic_absolute_impl<N>::basic_absolute_impl;
  using basic_absolute_impl<N>::value;
};

template <int N>
open_length<N> open(const absolute_unit& length) {
  return open_length<N>(length);
}

/// A number that the compiler does not know, so that it does not compute the result itself.
template <typename Number>
Number at_run_time(Number value) {
  volatile Number unknown = value;
  return unknown;
}

TEST(length_arithmetic, half_a_hundredth_below_0_is_0) {
  // The product with 100 is a little more than 0.5 before it is rounded, so that a fused sum is below 0.
  EXPECT_EQ(basic_absolute_impl<absolute_unit::inch>(at_run_time(-500)).as_double(), 0.0);
}

TEST(length_arithmetic, number_next_to_a_half_is_rounded_after_the_sum) {
  // The sum with 0.5 is 1 as a `double`, and a little less in 80 bits.
  EXPECT_EQ(to_md(at_run_time(0.49999999999999994), absolute_unit::md).as_int32(), 1);
}

template <int N>
void expect_as_reference(std::int32_t md, double units_per_inch) {
  const open_length<N> length(md);
  const double value = orva_test::reference_scaled(md, units_per_inch, 100000);
  ASSERT_EQ(length.value(), value) << md << " md in unit " << N;
  ASSERT_EQ(length.as_double(), orva_test::reference_rounded_to_hundredths(value))
      << md << " md in unit " << N;
  ASSERT_EQ(length.as_int32(), orva_test::reference_rounded(value)) << md << " md in unit " << N;
}

TEST(length_arithmetic, lengths_are_shown_as_by_plain_arithmetic) {
  for (std::int32_t md = -250'000; md <= 250'000; ++md) {
    expect_as_reference<absolute_unit::dot_300>(md, 300);
    expect_as_reference<absolute_unit::millimetre>(md, 25.4);
    expect_as_reference<absolute_unit::centimetre>(md, 2.54);
    expect_as_reference<absolute_unit::inch>(md, 1);
    expect_as_reference<absolute_unit::point>(md, 72);
    expect_as_reference<absolute_unit::pica>(md, 6);
    expect_as_reference<absolute_unit::pixel_96>(md, 96);
    if (HasFatalFailure()) return;
  }
}

TEST(length_arithmetic, random_numbers_become_lengths_as_by_plain_arithmetic) {
  orva_test::random_engine random;
  for (int run = 0; run < 200'000; ++run) {
    const double number = static_cast<double>(static_cast<std::int64_t>(random.bits64())) * 0x1p-40;
    const auto dpi = static_cast<std::int32_t>(random() % 2400 + 1);
    ASSERT_EQ(open<1>(to_md(number, absolute_unit::millimetre)).value(),
              orva_test::reference_scaled(number, 100000, 25.4))
        << number;
    ASSERT_EQ(open<1>(to_md(number, absolute_unit::pica)).value(),
              orva_test::reference_scaled(number, 100000, 6))
        << number;
    ASSERT_EQ(open<1>(to_md(number, device_unit::pixel, dpi)).value(),
              orva_test::reference_md_of_pixels(number, dpi))
        << number << " pixels, " << dpi << " per inch";
  }
}

}  // namespace
