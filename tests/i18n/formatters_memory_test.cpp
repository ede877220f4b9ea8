#include <gtest/gtest.h>

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

struct memory_case {
  variant value;
  std::string attrs;
  std::string text;
  std::string unit;
};

void check(std::initializer_list<memory_case> cases) {
  for (const memory_case& each : cases) {
    SCOPED_TRACE(each.value.as_utf8() + " with " + each.attrs);
    strings::ustring8 unit = "from before";
    EXPECT_EQ(std::string(format_memory(each.value, attribute_string(each.attrs), unit)), each.text);
    EXPECT_EQ(unit, each.unit);
  }
}

TEST(format_memory, documentation_example) {
  check({{1500, "", "1", "KB"},
         {1500, "precision|1", "1.5", "KB"},
         {3, "base_unit|MB|target_unit|KB", "3000", "KB"},
         {1, "target_unit|any", "-0", ""}});
}

TEST(format_memory, integer_is_divided_until_it_is_below_1000) {
  check({{0, "", "0", "B"},
         {999, "", "999", "B"},
         {1000, "", "1", "KB"},
         {1999, "", "1", "KB"},
         {999999, "", "999", "KB"},
         {1000000, "", "1", "MB"},
         {1000000000, "", "1", "GB"},
         {1000000000000, "", "1", "TB"},
         {1000000000000000, "", "1", "PB"},
         {1000000000000000000, "", "1", "EB"},
         {std::numeric_limits<std::uint64_t>::max(), "", "18", "EB"}});
}

TEST(format_memory, decimals_keep_the_fraction) {
  check({{999, "precision|2", "999.00", "B"},
         {1999, "precision|2", "2.00", "KB"},
         {1234567, "precision|3", "1.235", "MB"},
         {1e24, "precision|1", "1.0", "YB"},
         {"1500", "precision|1", "1.5", "KB"}});
}

TEST(format_memory, scaling_stops_at_the_last_unit) {
  check({{1e27, "precision|1", "1000.0", "YB"},
         {1500, "base_unit|YB", "1500", "YB"},
         {1e300, "precision|1", "100000000000000017507229652338606431985663276297462856038195984", "YB"},
         {std::numeric_limits<double>::infinity(), "precision|1", "inf", "YB"}});
}

TEST(format_memory, every_unit_is_a_base_and_a_target) {
  const std::string units[] = {"B", "KB", "MB", "GB", "TB", "PB", "EB", "ZB", "YB"};
  for (const std::string& unit : units) {
    check(
        {{7, "base_unit|" + unit, "7", unit}, {7, "base_unit|" + unit + "|target_unit|" + unit, "7", unit}});
  }
  for (std::size_t i = 1; i < std::size(units); ++i) {
    const std::string down = "base_unit|" + units[i] + "|target_unit|" + units[i - 1];
    const std::string up = "base_unit|" + units[i - 1] + "|target_unit|" + units[i];
    check({{7, down, "7000", units[i - 1]},
           {7900, up, "7", units[i]},
           {7, down + "|precision|1", "7000.0", units[i - 1]},
           {7900, up + "|precision|1", "7.9", units[i]}});
  }
}

TEST(format_memory, target_is_reached_for_each_value) {
  check({{5, "target_unit|YB", "0", "YB"},
         {5, "target_unit|KB|precision|4", "0.0050", "KB"},
         {123456789, "target_unit|B", "123456789", "B"},
         {0, "base_unit|YB|target_unit|B", "0", "B"}});
}

TEST(format_memory, multiplication_wraps_at_64_bits) {
  check({{1, "base_unit|ZB|target_unit|B", "3875820019684212736", "B"},
         {1, "base_unit|YB|target_unit|B", "2003764205206896640", "B"}});
}

TEST(format_memory, negative_value_is_read_as_unsigned_without_decimals) {
  check({{-1, "", "18", "EB"},
         {"-1", "", "0", "B"},
         {-1500, "precision|1", "-1500.0", "B"},
         {-1500, "precision|1|target_unit|KB", "-1.5", "KB"}});
}

TEST(format_memory, unknown_unit_is_refused) {
  for (const char* unit :
       {"any", "default", "b", "K", "kB", "Kb", "KiB", "KBB", "BB", "XB", "aB", "0", " B", "B "}) {
    check(
        {{1, std::string("target_unit|") + unit, "-0", ""}, {1, std::string("base_unit|") + unit, "-0", ""}});
  }
  check({{1, "target_unit||precision|1", "-0", ""}, {1, "base_unit|any|base_unit|B", "-0", ""}});
}

TEST(format_memory, unit_with_a_zero_byte_is_refused) {
  strings::ustring8 unit;
  EXPECT_EQ(format_memory(1, std::string("target_unit\x01\0B", 14), unit), "-0");
}

TEST(format_memory, every_beginning_of_a_key_selects_it) {
  const std::string target = "target_unit", base = "base_unit", precision = "precision",
                    fieldsize = "fieldsize";
  for (std::size_t n = 0; n <= target.size(); ++n) check({{7, target.substr(0, n) + "|KB", "0", "KB"}});
  for (std::size_t n = 1; n <= base.size(); ++n) check({{7, base.substr(0, n) + "|KB", "7", "KB"}});
  for (std::size_t n = 1; n <= precision.size(); ++n) check({{7, precision.substr(0, n) + "|1", "7.0", "B"}});
  for (std::size_t n = 1; n <= fieldsize.size(); ++n) {
    check({{7, "precision|1|" + fieldsize.substr(0, n) + "|5", "  7.0", "B"}});
  }
}

TEST(format_memory, unknown_key_or_missing_value_is_refused) {
  check({{1, "precision", "-0", ""},
         {1, "precision|", "-0", ""},
         {1, "short_form|true", "-0", ""},
         {1, "target_units|B", "-0", ""},
         {1, "target_unit|B|x|1", "-0", ""}});
}

TEST(format_memory, precision_of_zero_or_no_number_is_none) {
  check({{1999, "precision|0", "1", "KB"},
         {1999, "precision|x", "1", "KB"},
         {1999, "precision||fieldsize|0", "1", "KB"}});
}

TEST(format_memory, number_form_that_is_refused_leaves_no_unit) {
  check({{1, "precision|-1", "-0", ""}, {1, "fieldsize||precision|1", "-0", ""}});
}

TEST(format_memory, semicolon_in_a_number_splits_it) {
  check({{1, "precision|1;2", "-0", ""},
         {1, "precision|1;p;3", "1.000", "B"},
         {1, "precision|1|fieldsize|9;f;6", "   1.0", "B"},
         {1, "precision|1|fieldsize|6;", "   1.0", "B"}});
}

TEST(format_memory, negative_zero_that_reads_as_a_refusal_has_no_unit) {
  check({{-0.25, "precision|1;;", "-0", ""},
         {-2.5, "precision|1;;", "-2", "B"},
         {2.5, "precision|1;;", "2", "B"}});
}

TEST(format_memory, field_has_no_effect_on_integers) {
  check({{1500, "fieldsize|20", "1", "KB"},
         {1500, "fieldsize|x", "1", "KB"},
         {123, "fieldsize|1", "123", "B"}});
}

TEST(format_memory, field_of_decimals_is_that_of_format_double) {
  check(
      {{1500, "precision|1|fieldsize|6", "   1.5", "KB"}, {999, "precision|2|fieldsize|3", "9.99e+02", "B"}});
}

TEST(format_memory, value_without_content_is_zero) {
  check({{variant(), "", "0", "B"}, {"text", "", "0", "B"}, {"text", "precision|1", "0.0", "B"}});
}

}  // namespace
