#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <string>

#include "orva/i18n/formatters.hpp"
#include "tests/support/attribute_string.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_formatters.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using orva_test::attribute_string;
namespace reference = orva_test::reference;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

struct int_case {
  std::int64_t value;
  const char* attrs;
  const char* text;
};

void check(std::initializer_list<int_case> cases) {
  for (const int_case& each : cases) {
    EXPECT_EQ(std::string(format_int(each.value, attribute_string(each.attrs))), each.text)
        << each.value << " with " << each.attrs;
  }
}

TEST(format_int, documentation_example) {
  check({{255, "base|hex", "0x00ff"},
         {-1, "base|hex", "0xffff"},
         {-1, "base|hex|fieldsize|4", "0xff"},
         {-1, "base|hex|fieldsize|18", "0x-1"},
         {1234567, "base|spaced_dec", "1 234 567"},
         {5, "base|bin|fieldsize|8", "0000101b"},
         {5, "base|bin|fieldsize|1", "-0"},
         {255, "fieldsize|8|base|hex", "0x0000ff"},
         {255, "f|8|b|h", "0x0000ff"}});
}

TEST(format_int, no_attributes_gives_decimal) {
  check({{0, "", "0"},
         {42, "", "42"},
         {-42, "", "-42"},
         {highest, "", "9223372036854775807"},
         {lowest, "", "-9223372036854775808"}});
}

TEST(format_int, each_base_has_its_marks) {
  check({{10, "base|dec", "10"},
         {10, "base|default", "10"},
         {10, "base|spaced_dec", "10"},
         {10, "base|hex", "0x000a"},
         {10, "base|oct", "o12"},
         {10, "base|bin", "1010b"},
         {0, "base|dec", "0"},
         {0, "base|spaced_dec", "0"},
         {0, "base|hex", "0x0000"},
         {0, "base|oct", "o0"},
         {0, "base|bin", "0b"}});
}

TEST(format_int, unknown_base_is_refused) {
  check({{10, "base|decimal", "-0"},
         {10, "base|Dec", "-0"},
         {10, "base|x", "-0"},
         {10, "base|hexa", "-0"},
         {10, "base|10", "-0"},
         {10, "base| dec", "-0"},
         {10, "base|x|base|dec", "-0"}});
}

TEST(format_int, every_beginning_of_a_base_selects_it) {
  for (const std::string word : {"dec", "default", "spaced_dec", "hex", "oct", "bin"}) {
    for (std::size_t length = 1; length <= word.size(); ++length) {
      EXPECT_EQ(format_int(-654321, attribute_string("base|" + word.substr(0, length))),
                format_int(-654321, attribute_string("base|" + word)))
          << word.substr(0, length);
    }
  }
}

TEST(format_int, empty_base_is_the_first) { check({{1000, "base||fieldsize|0", "1000"}}); }

TEST(format_int, every_beginning_of_a_key_selects_it) {
  for (const std::string key : {"b", "ba", "bas", "base", ""}) {
    EXPECT_EQ(format_int(8, attribute_string(key + "|oct")), "o10") << key;
  }
  for (const std::string key :
       {"f", "fi", "fie", "fiel", "field", "fields", "fieldsi", "fieldsiz", "fieldsize"}) {
    EXPECT_EQ(format_int(8, attribute_string("base|oct|" + key + "|5")), "o0010") << key;
  }
}

TEST(format_int, unknown_key_is_refused) {
  check({{1, "x|1", "-0"},
         {1, "bases|dec", "-0"},
         {1, "Base|dec", "-0"},
         {1, "precision|1", "-0"},
         {1, "base|dec|fieldsize2|1", "-0"}});
}

TEST(format_int, odd_number_of_fields_is_refused) {
  check({{1, "base", "-0"},
         {1, "base|dec|fieldsize", "-0"},
         {1, "base|dec|fieldsize|", "-0"},
         {1, "|", "-0"},
         {1, "base|dec|", "1"}});
}

TEST(format_int, later_key_overrides_an_earlier_one) {
  check({{8, "base|hex|base|oct", "o10"},
         {8, "base|spaced_dec|base|dec", "8"},
         {1234, "fieldsize|1|fieldsize|4", "1234"},
         {1234, "fieldsize|4|fieldsize|1", "-0"},
         {1234, "fieldsize|-4|fieldsize|0", "1234"}});
}

TEST(format_int, digits_are_in_groups_of_three) {
  check({{1, "base|spaced_dec", "1"},
         {12, "base|spaced_dec", "12"},
         {123, "base|spaced_dec", "123"},
         {1234, "base|spaced_dec", "1 234"},
         {12345, "base|spaced_dec", "12 345"},
         {123456, "base|spaced_dec", "123 456"},
         {-1, "base|spaced_dec", "-1"},
         {-123, "base|spaced_dec", "-123"},
         {-1234, "base|spaced_dec", "-1 234"},
         {-123456, "base|spaced_dec", "-123 456"},
         {-1234567, "base|spaced_dec", "-1 234 567"},
         {highest, "base|spaced_dec", "9 223 372 036 854 775 807"},
         {lowest, "base|spaced_dec", "-9 223 372 036 854 775 808"}});
}

TEST(format_int, blanks_between_groups_count_for_the_field) {
  check({{1234567, "base|spaced_dec|fieldsize|9", "1 234 567"},
         {1234567, "base|spaced_dec|fieldsize|8", "-0"},
         {-123456, "base|spaced_dec|fieldsize|8", "-123 456"},
         {-123456, "base|spaced_dec|fieldsize|7", "-0"}});
}

TEST(format_int, decimal_is_held_against_its_field_but_never_padded) {
  check({{42, "fieldsize|1", "-0"},
         {42, "fieldsize|2", "42"},
         {42, "fieldsize|20", "42"},
         {-42, "fieldsize|2", "-0"},
         {-42, "fieldsize|3", "-42"},
         {42, "fieldsize|2000000000", "42"},
         {42, "base|spaced_dec|fieldsize|2000000000", "42"}});
}

TEST(format_int, hex_fills_groups_of_four_digits) {
  check({{1, "base|hex", "0x0001"},
         {0xffff, "base|hex", "0xffff"},
         {0x10000, "base|hex", "0x00010000"},
         {0x123456789, "base|hex", "0x000123456789"},
         {highest, "base|hex", "0x7fffffffffffffff"}});
}

TEST(format_int, field_is_filled_with_zeros_between_the_marks) {
  check({{5, "base|hex|fieldsize|2", "-0"},
         {5, "base|hex|fieldsize|3", "0x5"},
         {5, "base|hex|fieldsize|6", "0x0005"},
         {5, "base|hex|fieldsize|7", "0x00005"},
         {5, "base|oct|fieldsize|1", "-0"},
         {5, "base|oct|fieldsize|2", "o5"},
         {5, "base|oct|fieldsize|4", "o005"},
         {5, "base|bin|fieldsize|3", "-0"},
         {5, "base|bin|fieldsize|4", "101b"},
         {0, "base|bin|fieldsize|4", "000b"}});
}

TEST(format_int, negative_value_shows_its_complement) {
  check({{-1, "base|hex", "0xffff"},
         {-8, "base|hex", "0xfff8"},
         {-9, "base|hex", "0xfff7"},
         {-255, "base|hex", "0xff01"},
         {-32768, "base|hex", "0x8000"},
         {-32769, "base|hex", "0xffff7fff"},
         {-65536, "base|hex", "0xffff0000"},
         {-1, "base|oct", "o7"},
         {-4, "base|oct", "o4"},
         {-5, "base|oct", "o73"},
         {-8, "base|oct", "o70"},
         {-1, "base|bin", "1b"},
         {-2, "base|bin", "10b"},
         {-3, "base|bin", "101b"},
         {-4, "base|bin", "100b"},
         {-5, "base|bin", "1011b"}});
}

TEST(format_int, complement_fills_the_field) {
  check({{-1, "base|hex|fieldsize|3", "0xf"},
         {-1, "base|hex|fieldsize|6", "0xffff"},
         {-1, "base|hex|fieldsize|7", "0xfffff"},
         {-1, "base|hex|fieldsize|2", "-0"},
         {-200, "base|hex|fieldsize|4", "0x38"},
         {-255, "base|hex|fieldsize|4", "0x01"},
         {-255, "base|hex|fieldsize|3", "0x1"},
         {-1, "base|oct|fieldsize|4", "o777"},
         {-1, "base|bin|fieldsize|9", "11111111b"}});
}

TEST(format_int, complement_of_64_bits_keeps_its_sign) {
  check({{lowest, "base|hex", "0x-8000000000000000"},
         {lowest, "base|oct", "o-1000000000000000000000"},
         {lowest + 1, "base|bin", "-111111111111111111111111111111111111111111111111111111111111111b"},
         {-(std::int64_t{1} << 47), "base|hex", "0x800000000000"},
         {-(std::int64_t{1} << 47) - 1, "base|hex", "0x-800000000001"},
         {-1, "base|hex|fieldsize|17", "0xfffffffffffffff"},
         {-1, "base|hex|fieldsize|18", "0x-1"},
         {-1, "base|hex|fieldsize|2000000000", "0x-1"}});
}

TEST(format_int, field_below_zero_holds_nothing) {
  check({{1, "fieldsize|-1", "-0"},
         {-1, "base|hex|fieldsize|-1", "-0"},
         {-1, "base|bin|fieldsize|-2147483648", "-0"},
         {-1, "base|bin|fieldsize|-99999999999", "-0"},
         {1, "base|oct|fieldsize|-5", "-0"}});
}

TEST(format_int, field_is_read_as_a_number_with_trailing_text) {
  check({{8, "base|oct|fieldsize| 5x", "o0010"},
         {8, "base|oct|fieldsize|+5", "o0010"},
         {8, "base|oct|fieldsize|05", "o0010"},
         {8, "base|oct|fieldsize|0x5", "o10"},
         {8, "base|oct|fieldsize|five", "o10"}});
}

TEST(format_int, padding_is_bounded) {
  const auto padded =
      format_int(1, attribute_string("base|bin|fieldsize|" + std::to_string(max_padding + 2)));
  EXPECT_EQ(padded, std::string(max_padding, '0') + "1b");
  check({{1, "base|bin|fieldsize|1027", "-0"},
         {1, "base|hex|fieldsize|2147483647", "-0"},
         {1, "base|oct|fieldsize|99999999999999999999", "-0"}});
}

// --- compared with the reference ---

constexpr struct {
  reference::int_style style;
  const char* word;
} styles[] = {{reference::int_style::decimal, "dec"},
              {reference::int_style::spaced, "spaced_dec"},
              {reference::int_style::hexadecimal, "hex"},
              {reference::int_style::octal, "oct"},
              {reference::int_style::binary, "bin"}};

/// All styles with the same width.
class styles_in_field {
 public:
  explicit styles_in_field(int fieldsize) : fieldsize_(fieldsize) {
    for (std::size_t i = 0; i < std::size(styles); ++i) {
      attrs_[i] =
          attribute_string(std::string("base|") + styles[i].word + "|fieldsize|" + std::to_string(fieldsize));
    }
  }

  void expect_as_reference(std::int64_t value) const {
    for (std::size_t i = 0; i < std::size(styles); ++i) {
      ASSERT_EQ(format_int(value, attrs_[i]), reference::format_int(value, styles[i].style, fieldsize_))
          << value << " " << styles[i].word << " " << fieldsize_;
    }
  }

 private:
  int fieldsize_;
  strings::ustring8 attrs_[std::size(styles)];
};

TEST(format_int, small_values_are_those_of_the_reference) {
  const styles_in_field no_field(0);
  for (std::int64_t value = -70000; value <= 70000; ++value) {
    ASSERT_NO_FATAL_FAILURE(no_field.expect_as_reference(value));
  }
}

TEST(format_int, small_values_in_fields_are_those_of_the_reference) {
  for (int fieldsize = -2; fieldsize <= 20; ++fieldsize) {
    const styles_in_field field(fieldsize);
    for (std::int64_t value = -600; value <= 600; ++value) {
      ASSERT_NO_FATAL_FAILURE(field.expect_as_reference(value));
    }
  }
}

TEST(format_int, values_around_powers_are_those_of_the_reference) {
  for (const int fieldsize : {0, 17, 18, 19, 23, 24, 65, 66, 67}) {
    const styles_in_field field(fieldsize);
    for (int bit = 0; bit < 64; ++bit) {
      const std::uint64_t power = std::uint64_t{1} << bit;
      for (std::uint64_t offset = 0; offset < 3; ++offset) {
        for (const std::uint64_t bits :
             {power + offset, power - offset, 0 - power + offset, 0 - power - offset}) {
          ASSERT_NO_FATAL_FAILURE(field.expect_as_reference(static_cast<std::int64_t>(bits)));
        }
      }
    }
  }
}

TEST(format_int, random_values_are_those_of_the_reference) {
  orva_test::random_engine random;
  for (int fieldsize = 0; fieldsize < 90; ++fieldsize) {
    const styles_in_field field(fieldsize);
    for (int i = 0; i < 300; ++i) {
      const auto value = static_cast<std::int64_t>(random.bits64()) >> random() % 64;
      ASSERT_NO_FATAL_FAILURE(field.expect_as_reference(value));
    }
  }
}

}  // namespace
