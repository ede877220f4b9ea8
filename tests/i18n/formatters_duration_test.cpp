#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>

#include "orva/i18n/formatters.hpp"
#include "tests/support/attribute_string.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using orva_test::attribute_string;

struct duration_case {
  double seconds;
  std::string attrs;
  std::string text;
};

void check(std::initializer_list<duration_case> cases) {
  for (const duration_case& each : cases) {
    EXPECT_EQ(std::string(format_duration(each.seconds, attribute_string(each.attrs))), each.text)
        << each.seconds << " with " << each.attrs;
  }
}

TEST(format_duration, documentation_example) {
  check({{3661.5, "", "1 hr 1 min 1.50 sec"},
         {3661.5, "short_form|true", "1h 1m 1.50s"},
         {86400, "precision|0", "1 dy 0 hr 0 min 0 sec"},
         {59, "", "59.00 sec"},
         {-61, "", "-1 min -1.00 sec"}});
}

TEST(format_duration, leading_parts_that_are_zero_are_left_out) {
  check({{0, "", "0.00 sec"},
         {60, "", "1 min 0.00 sec"},
         {3599, "", "59 min 59.00 sec"},
         {3600, "", "1 hr 0 min 0.00 sec"},
         {86399, "", "23 hr 59 min 59.00 sec"},
         {86400, "", "1 dy 0 hr 0 min 0.00 sec"},
         {90061, "", "1 dy 1 hr 1 min 1.00 sec"},
         {864000, "", "10 dy 0 hr 0 min 0.00 sec"}});
}

TEST(format_duration, short_form_has_letters) {
  check({{90061.25, "short_form|true", "1d 1h 1m 1.25s"},
         {59, "short_form|true", "59.00s"},
         {60, "short_form|true", "1m 0.00s"}});
}

TEST(format_duration, short_form_is_false_only_for_the_beginnings_of_false) {
  for (const char* word : {"f", "fa", "fal", "fals", "false"}) {
    check({{1, std::string("short_form|") + word, "1.00 sec"}});
  }
  check({{1, "short_form||precision|2", "1.00 sec"}});
  for (const char* word : {"true", "t", "0", "no", "False", "falsey"}) {
    check({{1, std::string("short_form|") + word, "1.00s"}});
  }
}

TEST(format_duration, precision_is_that_of_the_seconds) {
  check({{61.5, "precision|0", "1 min 2 sec"},
         {61.25, "precision|1", "1 min 1.2 sec"},
         {61.25, "precision|4", "1 min 1.2500 sec"},
         {59.999, "", "60.00 sec"},
         {1, "precision|x", "1 sec"}});
}

TEST(format_duration, refused_precision_shows_in_place_of_the_seconds_alone) {
  check({{61, "precision||short_form|true", "1m -0s"},
         {61, "precision|-1", "1 min -0 sec"},
         {3, "precision|-1", "-0 sec"},
         {-90061, "precision|-1|short_form|true", "-1d -1h -1m -0s"}});
}

TEST(format_duration, negative_parts_each_have_their_sign) {
  check({{-0.25, "", "-0.25 sec"},
         {-3661.5, "", "-1 hr -1 min -1.50 sec"},
         {-90000, "", "-1 dy -1 hr 0 min 0.00 sec"},
         {-0.25, "precision|0", "-0 sec"}});
}

TEST(format_duration, long_durations_keep_their_days) {
  check({{2147483648.0, "", "24855 dy 3 hr 14 min 8.00 sec"},
         {1e10, "", "115740 dy 17 hr 46 min 40.00 sec"},
         {2147483647 * 86400.0, "", "2147483647 dy 0 hr 0 min 0.00 sec"}});
}

TEST(format_duration, number_of_days_has_32_bits) {
  check({{2147483648 * 86400.0, "", "-2147483648 dy 0 hr 0 min 0.00 sec"},
         {4294967297 * 86400.0 + 3661, "", "1 dy 1 hr 1 min 1.00 sec"},
         {4294967296 * 86400.0, "", "0 dy 0 hr 0 min 0.00 sec"},
         {-4294967297 * 86400.0, "", "-1 dy 0 hr 0 min 0.00 sec"},
         {0x1p53, "", "1170776270 dy 7 hr 36 min 32.00 sec"}});
}

TEST(format_duration, what_fits_no_integer_is_split_as_the_most_negative_one) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  check({{0x1p63, "", "-579025220 dy -15 hr -30 min -8.00 sec"},
         {-0x1p63, "", "-579025220 dy -15 hr -30 min -8.00 sec"},
         {1e300, "", "-579025220 dy -15 hr -30 min -8.00 sec"},
         {infinity, "", "-579025220 dy -15 hr -30 min -8.00 sec"},
         {-infinity, "", "-579025220 dy -15 hr -30 min -8.00 sec"},
         {std::numeric_limits<double>::quiet_NaN(), "", "-579025220 dy -15 hr -30 min nan sec"}});
}

TEST(format_duration, every_beginning_of_a_key_selects_it) {
  const std::string precision = "precision", form = "short_form";
  for (std::size_t n = 0; n <= precision.size(); ++n) check({{1, precision.substr(0, n) + "|1", "1.0 sec"}});
  for (std::size_t n = 1; n <= form.size(); ++n) check({{1, form.substr(0, n) + "|true", "1.00s"}});
}

TEST(format_duration, unknown_key_or_missing_value_is_refused) {
  check({{1, "precision", "-0"},
         {1, "short_form|", "-0"},
         {1, "fieldsize|5", "-0"},
         {1, "precision|1|base|dec", "-0"}});
}

TEST(format_duration, parts_add_up_to_the_duration) {
  orva_test::random_engine random;
  for (int i = 0; i < 20000; ++i) {
    // Quarters of a second are exact in a double. The days stay below 2^31.
    const double seconds =
        static_cast<double>(static_cast<std::int64_t>(random.bits64()) >> (15 + random() % 48)) / 4;
    const std::string text = format_duration(seconds, attribute_string("short_form|true"));
    double sum = 0;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t length = 0;
      const double number = std::stod(text.substr(at), &length);
      const char label = text.at(at + length);
      sum += number * (label == 'd' ? 86400 : label == 'h' ? 3600 : label == 'm' ? 60 : 1);
      at += length + 2;
    }
    ASSERT_EQ(sum, seconds) << text;
  }
}

}  // namespace
