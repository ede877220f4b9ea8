#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>

#include "orva/i18n/formatters.hpp"
#include "tests/support/attribute_string.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_formatters.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using orva_test::attribute_string;
namespace reference = orva_test::reference;

using limits = std::numeric_limits<double>;

struct double_case {
  double value;
  const char* attrs;
  std::string text;
};

void check(std::initializer_list<double_case> cases) {
  for (const double_case& each : cases) {
    EXPECT_EQ(std::string(format_double(each.value, attribute_string(each.attrs))), each.text)
        << each.value << " with " << each.attrs;
  }
}

TEST(format_double, documentation_example) {
  check({{1.5, "", "1.50"},
         {1.5, "precision|0", "2"},
         {1.5, "fieldsize|6", "  1.50"},
         {1234567.0, "fieldsize|5", "1.23e+06"},
         {1e100, "fieldsize|5", "1.00e+00"}});
}

TEST(format_double, precision_is_the_number_of_decimals) {
  check({{3.14159, "precision|0", "3"},
         {3.14159, "precision|1", "3.1"},
         {3.14159, "precision|5", "3.14159"},
         {-3.14159, "precision|3", "-3.142"},
         {0.0, "precision|3", "0.000"},
         {-0.0, "precision|1", "-0.0"},
         {0.125, "precision|2", "0.12"},
         {0.375, "precision|2", "0.38"},
         {1e20, "precision|0", "100000000000000000000"}});
}

TEST(format_double, negative_zero_without_decimals_reads_like_a_refusal) {
  check({{-0.0, "precision|0", "-0"}, {-0.4, "precision|0", "-0"}});
}

TEST(format_double, number_within_its_field_is_padded_on_the_left) {
  check({{1.5, "fieldsize|4", "1.50"}, {1.5, "fieldsize|5", " 1.50"}, {-1.5, "fieldsize|10", "     -1.50"}});
}

TEST(format_double, number_wider_than_its_field_has_an_exponent) {
  check({{1234567.0, "fieldsize|8", "1.23e+06"},
         {12345.0, "fieldsize|1", "1.23e+04"},
         {-1234567.0, "fieldsize|3|precision|0", "-1e+06"},
         {0.5, "fieldsize|3", "5.00e-01"}});
  // If the number is too short without the exponent's first digit, one blank is added.
  check({{12345678.0, "fieldsize|9", " 1.23e+07"},
         {12345678.0, "fieldsize|8", "1.23e+07"},
         {1234567890.0, "fieldsize|10", "  1.23e+09"}});
}

TEST(format_double, exponent_of_three_digits_loses_its_hundreds) {
  check({{1e100, "fieldsize|5", "1.00e+00"},
         {1.5e-123, "fieldsize|3", "1.50e-23"},
         {1e308, "fieldsize|12|precision|1", "     1.0e+08"}});
}

TEST(format_double, field_below_zero_always_has_an_exponent_and_trailing_blanks) {
  check({{1.5, "fieldsize|-1", "1.50e+00"},
         {1.5, "fieldsize|-12", "1.50e+00   "},
         {12.0, "fieldsize|-9", "1.20e+01"}});
}

TEST(format_double, text_is_cut_where_the_buffer_ends) {
  const std::string zeros(100, '0');
  check({{1.0, "precision|100", "1." + zeros.substr(0, max_double_length - 2)},
         {1.0, "precision|2147483647", "1." + zeros.substr(0, max_double_length - 2)},
         {1.0, "precision|99999999999", "1." + zeros.substr(0, max_double_length - 2)},
         {1e70, "", "100000000000000007253143638152923512615837440964652195551821015"}});
  check({{1e70, "fieldsize|60|precision|57",
          "1.000000000000000072531436381529235126158374409646521955518e+07"}});
}

TEST(format_double, field_wider_than_the_buffer_shows_blanks_only) {
  const std::string blanks(max_double_length, ' ');
  check({{1.5, "fieldsize|66", blanks.substr(1) + "1"},
         {1.5, "fieldsize|67", blanks},
         {1.5, "fieldsize|100", blanks},
         {1.5, "fieldsize|2147483647", blanks},
         {1.5, "fieldsize|-2147483648", "1.50e+00" + blanks.substr(9)}});
}

TEST(format_double, negative_precision_is_refused) {
  check({{1.5, "precision|-1", "-0"},
         {1.5, "precision|-2147483648", "-0"},
         {1.5, "precision|-1|precision|1", "1.5"}});
}

TEST(format_double, infinity_and_nan_have_their_names) {
  check({{limits::infinity(), "", "inf"},
         {-limits::infinity(), "", "-inf"},
         {limits::quiet_NaN(), "", "nan"},
         {limits::infinity(), "fieldsize|5", "  inf"},
         {limits::infinity(), "fieldsize|2", "inf"},
         {-limits::infinity(), "fieldsize|-6", "-inf  "},
         {limits::quiet_NaN(), "precision|10", "nan"}});
}

TEST(format_double, every_beginning_of_a_key_selects_it) {
  const std::string precision = "precision";
  for (std::size_t length = 0; length <= precision.size(); ++length) {
    EXPECT_EQ(format_double(1, attribute_string(precision.substr(0, length) + "|1")), "1.0") << length;
  }
  const std::string fieldsize = "fieldsize";
  for (std::size_t length = 1; length <= fieldsize.size(); ++length) {
    EXPECT_EQ(format_double(1, attribute_string(fieldsize.substr(0, length) + "|5")), " 1.00") << length;
  }
}

TEST(format_double, unknown_key_or_missing_value_is_refused) {
  check({{1.5, "precision", "-0"},
         {1.5, "precision|", "-0"},
         {1.5, "precision|1|fieldsize|", "-0"},
         {1.5, "base|hex", "-0"},
         {1.5, "precisions|1", "-0"},
         {1.5, "precision|1|x|1", "-0"}});
}

TEST(format_double, number_that_is_none_reads_as_zero) {
  check({{1.5, "precision|x", "2"}, {1.5, "precision||fieldsize|3", "  2"}, {1.5, "fieldsize|x", "1.50"}});
}

// --- compared with the reference ---

void expect_as_reference(double value, int precision, int fieldsize) {
  const auto attrs =
      attribute_string("precision|" + std::to_string(precision) + "|fieldsize|" + std::to_string(fieldsize));
  ASSERT_EQ(format_double(value, attrs), reference::format_double(value, precision, fieldsize))
      << value << " " << precision << " " << fieldsize;
}

TEST(format_double, special_values_are_printed_as_the_c_runtime_does) {
  for (const double magnitude : {0.0,
                                 limits::denorm_min(),
                                 limits::min(),
                                 limits::epsilon(),
                                 0.5,
                                 0.999999,
                                 1.0,
                                 9.995,
                                 9.5,
                                 99.5,
                                 1e15,
                                 1e16,
                                 1e22,
                                 1e23,
                                 0x1p52,
                                 0x1p53,
                                 0x1p63,
                                 0x1p64,
                                 1e99,
                                 1e100,
                                 limits::max(),
                                 limits::infinity(),
                                 limits::quiet_NaN()}) {
    for (const double value : {magnitude, -magnitude}) {
      for (const int precision :
           {0, 1, 2, 3, 17, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 300, 1073, 1074, 1075, 1500}) {
        for (const int fieldsize :
             {0, 1, 5, 8, 9, 10, 11, 32, 61, 62, 63, 64, 65, 100, -1, -9, -20, -63, -64, -100}) {
          ASSERT_NO_FATAL_FAILURE(expect_as_reference(value, precision, fieldsize));
        }
      }
    }
  }
}

TEST(format_double, random_values_are_printed_as_the_c_runtime_does) {
  orva_test::random_engine random;
  std::uniform_real_distribution<double> everyday(-1e9, 1e9);
  for (int i = 0; i < 50000; ++i) {
    const auto precision = static_cast<int>(random() % (i % 8 == 0 ? 70 : 6));
    const auto fieldsize = static_cast<int>(random() % 40) - 10;
    ASSERT_NO_FATAL_FAILURE(expect_as_reference(everyday(random), precision, fieldsize));
    ASSERT_NO_FATAL_FAILURE(
        expect_as_reference(std::bit_cast<double>(random.bits64()), precision, fieldsize));
  }
}

/// Values that are neither small nor large, with few decimals, are computed in integers.
TEST(format_double, values_around_the_borders_of_integer_reckoning_are_printed_as_the_c_runtime_does) {
  for (int exponent = -14; exponent <= 54; ++exponent) {
    const double power = std::ldexp(1.0, exponent);
    for (const double value : {power, std::nextafter(power, 0.0), std::nextafter(power, 1e300), power * 1.5,
                               power * 1.0625, power - 0.5, power - 0.25, power - 0.0625}) {
      for (int precision = 0; precision <= 4; ++precision) {
        ASSERT_NO_FATAL_FAILURE(expect_as_reference(value, precision, 0));
        ASSERT_NO_FATAL_FAILURE(expect_as_reference(-value, precision, 12));
      }
    }
  }
}

TEST(format_double, decimal_ties_are_printed_as_the_c_runtime_does) {
  for (int eighths = -4000; eighths <= 4000; ++eighths) {
    for (int precision = 0; precision <= 3; ++precision) {
      ASSERT_NO_FATAL_FAILURE(expect_as_reference(eighths / 8.0, precision, 0));
      ASSERT_NO_FATAL_FAILURE(expect_as_reference(eighths / 8.0, precision, 4));
    }
  }
}

TEST(format_double, decimal_point_is_the_locale_s) {
  const orva_test::single_byte_locale locale("ISO-8859-1", "de_DE");
  if (!locale.made()) GTEST_SKIP() << "no locale with another decimal point can be built";
  EXPECT_EQ(format_double(1.5, ""), "1,50");
  EXPECT_EQ(format_double(1.5, ""), reference::format_double(1.5, 2, 0));
  expect_as_reference(-123456.789, 3, 5);
  expect_as_reference(-123456.789, 3, 20);
  expect_as_reference(0.1, 70, 40);
  expect_as_reference(limits::infinity(), 3, 20);
}

}  // namespace
