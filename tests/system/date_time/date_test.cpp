#include "orva/system/date_time/date.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "tests/system/date_time/raised.hpp"

namespace ORVA_NAMESPACE::system::date_time {

static bool operator==(const date& left, const date& right) {
  return left.year() == right.year() && left.month() == right.month() && left.day() == right.day();
}

}  // namespace ORVA_NAMESPACE::system::date_time

namespace {

using ORVA_NAMESPACE::system::date_time::basic_date;
using ORVA_NAMESPACE::system::date_time::date;
using ORVA_NAMESPACE::system::date_time::date_duration;
using orva_test::bad_date;
using orva_test::bad_day;
using orva_test::bad_month;
using orva_test::raised;

constexpr unsigned int max_unsigned = std::numeric_limits<unsigned int>::max();
constexpr int max_int = std::numeric_limits<int>::max();
constexpr int min_int = std::numeric_limits<int>::min();

struct open_date : date {
  using date::date;
  using date::get_days;
  using date::is_valid_day;
  using date::is_valid_month;
  using date::pJulian_day_number;
};

TEST(date, documentation_example) {
  date d(28, 2, 2000);
  d += 1;
  EXPECT_EQ(d, date(1, 3, 2000));
  d -= date_duration(60);
  EXPECT_EQ(d, date(1, 1, 2000));
  date end(31, 2, 2001);
  EXPECT_EQ(end.day(), 28u);
  EXPECT_TRUE(end.is_day_constrained());
  end.month(3);
  EXPECT_EQ(end.day(), 31u);
  EXPECT_EQ(date(31, 2, 2001) += 1, date(4, 3, 2001));
}

TEST(basic_date, stores_anything) {
  basic_date fields;
  EXPECT_EQ(fields.year(), 0u);
  EXPECT_EQ(fields.month(), 0u);
  EXPECT_EQ(fields.day(), 0u);
  EXPECT_EQ(fields.year(max_unsigned), max_unsigned);
  EXPECT_EQ(fields.month(13), 13u);
  EXPECT_EQ(fields.day(99), 99u);
  const basic_date copy = fields;
  EXPECT_EQ(copy.year(), max_unsigned);
  EXPECT_EQ(copy.month(), 13u);
  EXPECT_EQ(copy.day(), 99u);
}

TEST(date, has_the_layout_of_basic_date) {
  static_assert(sizeof(basic_date) == 12 && sizeof(date) == 12);
  static_assert(std::is_trivially_copyable_v<date> && std::is_standard_layout_v<date>);
  static_assert(std::is_trivially_copyable_v<basic_date> && std::is_standard_layout_v<basic_date>);
}

TEST(date, constants) {
  static_assert(std::is_same_v<decltype(date::max_months_in_year), const unsigned int>);
  EXPECT_EQ(date::max_months_in_year, 12u);
  EXPECT_EQ(date::max_weeks_in_year, 52u);
  EXPECT_EQ(date::max_days_in_month, 31u);
}

TEST(date, default_is_zero_and_no_day) {
  const open_date none;
  EXPECT_EQ(none.year(), 0u);
  EXPECT_EQ(none.month(), 0u);
  EXPECT_EQ(none.day(), 0u);
  EXPECT_EQ(none.get_days(), 0u);
  EXPECT_FALSE(none.is_day_constrained());
  EXPECT_TRUE(none.is_leap_year());
}

TEST(date, day_of_the_default_is_0_whatever_is_stored) {
  date none;
  EXPECT_EQ(none.day(31), 31u);
  EXPECT_EQ(none.day(), 0u);
  EXPECT_TRUE(none.is_day_constrained());
}

TEST(date, constructor_takes_day_month_year) {
  const date d(17, 5, 2024);
  EXPECT_EQ(d.day(), 17u);
  EXPECT_EQ(d.month(), 5u);
  EXPECT_EQ(d.year(), 2024u);
}

TEST(date, constructor_checks_the_day_before_the_month_and_no_year) {
  EXPECT_EQ(raised([] { date(0, 1, 2000); }), bad_day);
  EXPECT_EQ(raised([] { date(32, 1, 2000); }), bad_day);
  EXPECT_EQ(raised([] { date(1, 0, 2000); }), bad_month);
  EXPECT_EQ(raised([] { date(1, 13, 2000); }), bad_month);
  EXPECT_EQ(raised([] { date(0, 13, 2000); }), bad_day);
  EXPECT_EQ(raised([] { date(max_unsigned, 1, 2000); }), bad_day);
  EXPECT_EQ(raised([] { date(31, 2, 0); }), "nothing");
  EXPECT_EQ(raised([] { date(1, 1, max_unsigned); }), "nothing");
}

TEST(date, setters_return_the_value) {
  date d(1, 1, 2000);
  EXPECT_EQ(d.year(max_unsigned), max_unsigned);
  EXPECT_EQ(d.month(12), 12u);
  EXPECT_EQ(d.day(31), 31u);
  EXPECT_EQ(d, date(31, 12, max_unsigned));
}

TEST(date, setter_returns_the_value_and_not_the_constrained_day) {
  date d(1, 2, 2001);
  EXPECT_EQ(d.day(31), 31u);
  EXPECT_EQ(d.day(), 28u);
}

TEST(date, refused_setter_leaves_the_field) {
  date d(17, 5, 2024);
  for (const unsigned int value : {0u, 13u, 0x80000000u, max_unsigned})
    EXPECT_EQ(raised([&] { d.month(value); }), bad_month) << value;
  for (const unsigned int value : {0u, 32u, 0x80000000u, max_unsigned})
    EXPECT_EQ(raised([&] { d.day(value); }), bad_day) << value;
  EXPECT_EQ(d, date(17, 5, 2024));
}

TEST(date, day_is_constrained_by_the_month_and_kept) {
  date d(31, 2, 2001);
  EXPECT_EQ(d.day(), 28u);
  EXPECT_TRUE(d.is_day_constrained());
  d.month(3);
  EXPECT_EQ(d.day(), 31u);
  EXPECT_FALSE(d.is_day_constrained());
}

TEST(date, february_29_is_constrained_in_common_years) {
  EXPECT_TRUE(date(29, 2, 2000).is_leap_year());
  EXPECT_EQ(date(29, 2, 2000).day(), 29u);
  EXPECT_FALSE(date(29, 2, 1900).is_leap_year());
  EXPECT_EQ(date(29, 2, 1900).day(), 28u);
  EXPECT_TRUE(date(29, 2, 2024).is_leap_year());
  EXPECT_FALSE(date(29, 2, 2023).is_leap_year());
}

TEST(date, every_month_has_its_length) {
  const unsigned int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (unsigned int month = 1; month <= 12; ++month) {
    for (unsigned int day = 1; day <= 31; ++day) {
      const date d(day, month, 2001);
      EXPECT_EQ(d.day(), day < lengths[month - 1] ? day : lengths[month - 1]);
      EXPECT_EQ(d.is_day_constrained(), day > lengths[month - 1]);
    }
  }
}

TEST(date, protected_checks) {
  const open_date d;
  for (unsigned int value = 0; value < 40; ++value) {
    EXPECT_EQ(d.is_valid_day(value), value >= 1 && value <= 31);
    EXPECT_EQ(d.is_valid_month(value), value >= 1 && value <= 12);
  }
  EXPECT_FALSE(d.is_valid_day(max_unsigned));
  EXPECT_FALSE(d.is_valid_month(max_unsigned));
}

TEST(date, day_numbers) {
  EXPECT_EQ(open_date(1, 1, 1970).pJulian_day_number(), 719469u);
  EXPECT_EQ(open_date(1, 3, 2000).pJulian_day_number(), 730486u);
  EXPECT_EQ(open_date(29, 2, 2000).pJulian_day_number(), 730485u);
  EXPECT_EQ(open_date(1, 3, 0).pJulian_day_number(), 1u);
}

TEST(date, day_number_counts_the_stored_day) {
  EXPECT_EQ(open_date(31, 2, 2001).pJulian_day_number(), open_date(3, 3, 2001).pJulian_day_number());
}

TEST(date, day_of_number_730485_is_march_1) {
  open_date d;
  d.pJulian_day_number(730485);
  EXPECT_EQ(d, date(1, 3, 2000));
  d.pJulian_day_number(730486);
  EXPECT_EQ(d, date(1, 3, 2000));
  d.pJulian_day_number(730484);
  EXPECT_EQ(d, date(28, 2, 2000));
}

TEST(date, february_29_is_never_reached_by_a_move) {
  EXPECT_EQ(date(28, 2, 2000) += date_duration(1), date(1, 3, 2000));
  EXPECT_EQ(date(28, 2, 2000) += date_duration(2), date(1, 3, 2000));
  EXPECT_EQ(date(1, 3, 2000) -= date_duration(1), date(1, 3, 2000));
  EXPECT_EQ(date(1, 3, 2000) -= date_duration(2), date(28, 2, 2000));
  EXPECT_EQ(date(29, 2, 2000) += date_duration(0), date(1, 3, 2000));
  EXPECT_EQ(date(29, 2, 2024) -= date_duration(0), date(1, 3, 2024));
}

TEST(date, moves_across_the_end_of_a_year) {
  EXPECT_EQ(date(31, 12, 1999) += date_duration(1), date(1, 1, 2000));
  EXPECT_EQ(date(1, 1, 2000) -= date_duration(1), date(31, 12, 1999));
  EXPECT_EQ(date(1, 1, 1970) += date_duration(20000), date(4, 10, 2024));
}

TEST(date, moves_from_the_stored_day) {
  EXPECT_EQ(date(31, 2, 2001) += date_duration(0), date(3, 3, 2001));
  EXPECT_EQ(date(31, 4, 2001) -= date_duration(1), date(30, 4, 2001));
}

TEST(date, negative_durations_move_the_other_way) {
  EXPECT_EQ(date(1, 1, 2000) += date_duration(-1), date(31, 12, 1999));
  EXPECT_EQ(date(31, 12, 1999) -= date_duration(-1), date(1, 1, 2000));
}

TEST(date, functions_do_what_the_operators_do) {
  date d(1, 1, 2000);
  EXPECT_EQ(&d.plus_assign(5), &d);
  EXPECT_EQ(d, date(6, 1, 2000));
  EXPECT_EQ(&d.minus_assign(5), &d);
  EXPECT_EQ(d, date(1, 1, 2000));
  EXPECT_EQ(&d.assign(date(2, 3, 4)), &d);
  EXPECT_EQ(d, date(2, 3, 4));
  const date& self = d;
  d.assign(self);
  d = self;
  EXPECT_EQ(d, date(2, 3, 4));
}

TEST(date, subtraction_past_the_first_day_raises_and_changes_nothing) {
  date d(1, 1, 1);
  EXPECT_EQ(raised([&] { d -= date_duration(400); }), bad_date);
  EXPECT_EQ(d, date(1, 1, 1));
  EXPECT_EQ(raised([&] { d -= date_duration(307); }), bad_date);
  EXPECT_EQ(raised([&] { d -= date_duration(max_int); }), bad_date);
  EXPECT_EQ(d, date(1, 1, 1));
  EXPECT_EQ(d -= date_duration(306), date(1, 3, 0));
  EXPECT_EQ(raised([&] { d -= date_duration(1); }), bad_date);
  EXPECT_EQ(d -= date_duration(0), date(1, 3, 0));
}

TEST(date, addition_of_a_negative_duration_wraps_where_subtraction_raises) {
  EXPECT_EQ(date(1, 3, 0) += date_duration(-1), date(20, 3, 11759221));
}

TEST(date, subtraction_compares_signed_numbers) {
  date far(1, 1, 6000000);  // its number is negative as a signed one
  EXPECT_EQ(raised([&] { far -= date_duration(0); }), bad_date);
  EXPECT_EQ(raised([&] { far -= date_duration(1); }), bad_date);
  EXPECT_EQ(far, date(1, 1, 6000000));
  EXPECT_EQ(raised([&] { far -= date_duration(min_int); }), "nothing");
}

TEST(date, subtraction_before_march_of_year_0_raises_only_from_march_on) {
  date march(1, 3, 0);
  EXPECT_EQ(raised([&] { march -= date_duration(1); }), bad_date);
  date february(28, 2, 0);
  EXPECT_EQ(raised([&] { february -= date_duration(1); }), "nothing") << "its number has wrapped";
}

TEST(date, subtraction_raises_from_the_year_5879611_on) {
  date before(1, 1, 5879610);
  EXPECT_EQ(raised([&] { before -= date_duration(1); }), "nothing");
  date after(1, 12, 5879611);
  EXPECT_EQ(raised([&] { after -= date_duration(1); }), bad_date);
}

TEST(date, default_date_has_a_far_number_and_moves_from_there) {
  // It counts as December 0 of the year before 0, which has wrapped.
  EXPECT_EQ(open_date().pJulian_day_number(), 1041529479u);
  EXPECT_EQ(date() += date_duration(-1041529478), date(1, 3, 0));
  EXPECT_EQ(date() -= date_duration(1041529478), date(1, 3, 0));
}

TEST(date, is_usable_in_constant_expressions) {
  constexpr date d(31, 2, 2001);
  static_assert(d.day() == 28 && d.is_day_constrained() && !d.is_leap_year());
  constexpr auto moved = [] {
    date result(31, 12, 1999);
    result += 1;
    result -= 366;
    return result;
  }();
  static_assert(moved.day() == 31 && moved.month() == 12 && moved.year() == 1998);
}

}  // namespace
