#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>

#include "orva/i18n/formatters.hpp"
#include "tests/support/attribute_string.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using orva_test::attribute_string;
using types::variant;

struct metric_case {
  variant value;
  std::string attrs;
  std::string text;
  std::string unit;
};

void check(std::initializer_list<metric_case> cases) {
  for (const metric_case& each : cases) {
    SCOPED_TRACE(each.value.as_utf8() + " with " + each.attrs);
    strings::ustring8 unit = "from before";
    EXPECT_EQ(std::string(format_metric(each.value, attribute_string(each.attrs), unit)), each.text);
    EXPECT_EQ(unit, each.unit);
  }
}

struct prefix {
  std::string word;
  std::string short_form;
  std::string long_form;
};

/// The first is that of 1000 to the power of -6.
const prefix prefixes[] = {{"a", "a", "atto"},    {"f", "f", "femto"}, {"p", "p", "pico"}, {"n", "n", "nano"},
                           {"mc", "mc", "micro"}, {"m", "m", "milli"}, {"base", "", ""},   {"k", "k", "kilo"},
                           {"M", "M", "mega"},    {"G", "G", "giga"},  {"T", "T", "tera"}, {"P", "P", "peta"},
                           {"E", "E", "exa"},     {"Z", "Z", "zetta"}, {"Y", "Y", "yotta"}};

TEST(format_metric, documentation_example) {
  check({{1500.0, "", "1.500", "k"},
         {1500.0, "short_form|false", "1", "kilo"},
         {5e15, "", "5000.000", "T"},
         {-5, "base_unit|base", "18446744073709551611", ""}});
}

TEST(format_metric, every_prefix_has_a_short_and_a_long_form) {
  for (const prefix& each : prefixes) {
    const std::string same = "base_unit|" + each.word + "|target_unit|" + each.word;
    check({{7, "base_unit|" + each.word, "7", each.short_form},
           {7, same, "7", each.short_form},
           {7, same + "|short_form|true", "7", each.short_form},
           {7, same + "|short_form|false", "7", each.long_form}});
  }
}

TEST(format_metric, neighbours_are_1000_apart) {
  for (std::size_t i = 1; i < std::size(prefixes); ++i) {
    const prefix& small = prefixes[i - 1];
    const prefix& large = prefixes[i];
    const std::string down = "base_unit|" + large.word + "|target_unit|" + small.word;
    const std::string up = "base_unit|" + small.word + "|target_unit|" + large.word;
    check({{7, down, "7000", small.short_form},
           {7900, up, "7", large.short_form},
           {7, down + "|precision|1", "7000.0", small.short_form},
           {7900, up + "|precision|1", "7.9", large.short_form}});
  }
}

TEST(format_metric, value_without_attributes_has_three_decimals) {
  check({{0, "", "0.000", ""},
         {999, "", "999.000", ""},
         {1000, "", "1.000", "k"},
         {999999.9, "", "1000.000", "k"},
         {-1500, "", "-1500.000", ""},
         {0.0015, "", "0.002", ""}});
}

TEST(format_metric, any_attribute_asks_for_the_precision_again) {
  check({{1500.0, "short_form|true", "1", "k"},
         {1500.0, "fieldsize|9", "1", "k"},
         {1500.0, "base_unit|base", "1", "k"},
         {1500.0, "short_form|true|precision|3", "1.500", "k"},
         {1500.0, "precision|0", "1", "k"}});
}

TEST(format_metric, scaling_without_a_target_stops_at_tera) {
  check({{5e12, "", "5.000", "T"},
         {5e15, "", "5000.000", "T"},
         {5000000000000000, "precision|0", "5000", "T"},
         {std::numeric_limits<std::int64_t>::max(), "short_form|", "-0", ""},
         {std::numeric_limits<std::int64_t>::max(), "short_form|1", "9223372", "T"},
         {5000, "base_unit|P", "5000", "P"},
         {5000, "base_unit|Y|precision|1", "5000.0", "Y"},
         {5000, "base_unit|T", "5000", "T"},
         {5000, "base_unit|G", "5", "T"}});
}

TEST(format_metric, small_bases_scale_up_through_the_base_unit) {
  check({{1500, "base_unit|m|precision|1", "1.5", ""},
         {1500, "base_unit|mc|precision|1", "1.5", "m"},
         {1500, "base_unit|a", "1", "f"},
         {1000000000000000000, "base_unit|a", "1", ""}});
}

TEST(format_metric, negative_value_is_never_scaled_without_a_target) {
  check({{-1500, "precision|1", "-1500.0", ""}, {-1500, "precision|1|target_unit|k", "-1.5", "k"}});
}

TEST(format_metric, negative_integer_shows_as_unsigned) {
  check({{-1, "precision|0", "18446744073709551615", ""},
         {-1500, "target_unit|k", "18446744073709551615", "k"},
         {-1, "target_unit|k", "0", "k"},
         {std::numeric_limits<std::int64_t>::min(), "precision|0", "9223372036854775808", ""}});
}

TEST(format_metric, multiplication_wraps_at_64_bits) {
  check({{1, "base_unit|Y|target_unit|a", "11806718586779598848", "a"},
         {1, "base_unit|Z|target_unit|base", "3875820019684212736", ""},
         {9223372036854775807, "target_unit|m", "18446744073709550616", "m"}});
}

TEST(format_metric, short_form_is_false_only_for_the_beginnings_of_false) {
  for (const char* word : {"", "f", "fa", "fal", "fals", "false"}) {
    check({{1000, std::string("short_form|") + word + "|precision|1", "1.0", "kilo"}});
  }
  for (const char* word : {"true", "t", "0", "no", "False", "FALSE", "falsey", "off", " false"}) {
    check({{1000, std::string("short_form|") + word + "|precision|1", "1.0", "k"}});
  }
}

TEST(format_metric, unknown_unit_is_refused) {
  for (const char* unit : {"any", "K", "u", "mcc", "kk", "bases", "Base", "kilo", "0", " k", "B", "x"}) {
    check(
        {{1, std::string("target_unit|") + unit, "-0", ""}, {1, std::string("base_unit|") + unit, "-0", ""}});
  }
}

TEST(format_metric, unit_words_may_be_shortened_but_a_letter_comes_first) {
  for (const char* word : {"", "b", "ba", "bas", "base"}) {
    check({{1500, std::string("target_unit|") + word + "|precision|1", "1500.0", ""}});
  }
  check({{1500, "target_unit|m|precision|1", "1500000.0", "m"},
         {15, "target_unit|mc|precision|1", "15000000.0", "mc"}});
}

TEST(format_metric, every_beginning_of_a_key_selects_it) {
  const std::string base = "base_unit", target = "target_unit", form = "short_form", precision = "precision";
  const std::string fieldsize = "fieldsize";
  for (std::size_t n = 0; n <= base.size(); ++n) check({{7, base.substr(0, n) + "|k", "7", "k"}});
  for (std::size_t n = 1; n <= target.size(); ++n) check({{7, target.substr(0, n) + "|k", "0", "k"}});
  for (std::size_t n = 1; n <= form.size(); ++n) check({{1000, form.substr(0, n) + "|false", "1", "kilo"}});
  for (std::size_t n = 1; n <= precision.size(); ++n) check({{7, precision.substr(0, n) + "|1", "7.0", ""}});
  for (std::size_t n = 1; n <= fieldsize.size(); ++n) {
    check({{7, "precision|1|" + fieldsize.substr(0, n) + "|5", "  7.0", ""}});
  }
}

TEST(format_metric, unknown_key_or_missing_value_is_refused) {
  check({{1, "precision", "-0", ""},
         {1, "precision|", "-0", ""},
         {1, "|", "-0", ""},
         {1, "unit|k", "-0", ""},
         {1, "base_unit|k|x|1", "-0", ""},
         {1, "precision|-3", "-0", ""}});
}

TEST(format_metric, infinity_and_nan_stop_at_a_unit) {
  check({{std::numeric_limits<double>::infinity(), "", "inf", "T"},
         {-std::numeric_limits<double>::infinity(), "", "-inf", ""},
         {std::numeric_limits<double>::quiet_NaN(), "", "nan", ""}});
}

}  // namespace
