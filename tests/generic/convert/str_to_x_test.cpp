#include "orva/generic/convert/str_to_x.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/generic/convert/x_to_str.hpp"
#include "orva/strings/ustring.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_numbers.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace exceptions = ORVA_NAMESPACE::exceptions;
namespace types = ORVA_NAMESPACE::types;
namespace strings = ORVA_NAMESPACE::strings;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;
using orva_test::read_result;
using orva_test::reading;
using radix = types::radix_t;

constexpr radix::base radix_of(unsigned int value) { return static_cast<radix::base>(value); }

template <typename Unit>
std::basic_string<Unit> widen(std::string_view text) {
  std::basic_string<Unit> result;
  for (const char unit : text) result.push_back(static_cast<Unit>(static_cast<unsigned char>(unit)));
  return result;
}

/// The reader of a type by its name.
template <typename Integer>
struct reader;

#define ORVA_READER(integer, function)                                                                 \
  template <>                                                                                          \
  struct reader<integer> {                                                                             \
    template <typename Unit>                                                                           \
    static integer read(const Unit* text, std::size_t length, radix::base base, bool throw_on_range) { \
      static_assert(                                                                                   \
          std::is_same_v<decltype(convert::function(text, length, base, throw_on_range)), integer>);   \
      return convert::function(text, length, base, throw_on_range);                                    \
    }                                                                                                  \
  }
ORVA_READER(signed char, str_to_int8);
ORVA_READER(short, str_to_int16);
ORVA_READER(int, str_to_int);
ORVA_READER(long long, str_to_int64);
ORVA_READER(unsigned char, str_to_uint8);
ORVA_READER(unsigned short, str_to_uint16);
ORVA_READER(unsigned int, str_to_unsigned);
ORVA_READER(unsigned long long, str_to_uint64);
#undef ORVA_READER

template <typename Read>
reading outcome_of(Read read) {
  try {
    read();
  } catch (const exceptions::invalid_argument_value&) {
    return reading::invalid_radix;
  } catch (const exceptions::overflow_error&) {
    return reading::overflow;
  } catch (const exceptions::underflow_error&) {
    return reading::underflow;
  }
  return reading::number;
}

/// Reads with the library, saturating and throwing, and compares both with the reference. `length` may be 0,
/// which means different things to signed and unsigned readers; `visible` is the text that is then read.
template <typename Integer, typename Unit>
bool reads_as_reference(const Unit* text, std::size_t length, const std::vector<std::uint32_t>& visible,
                        unsigned int base) {
  const auto expected = orva_test::reference_read<Integer>(visible, base);
  Integer value = 0;
  const auto read = [&](bool throw_on_range) {
    value = reader<Integer>::read(text, length, radix_of(base), throw_on_range);
  };
  const bool throws_as_expected = outcome_of([&] { read(true); }) == expected.outcome;
  const reading saturating = outcome_of([&] { read(false); });
  if (expected.outcome == reading::invalid_radix) {
    return throws_as_expected && saturating == reading::invalid_radix;
  }
  return throws_as_expected && saturating == reading::number && value == expected.value;
}

template <typename Integer, typename Unit>
void expect_as_reference(const std::basic_string<Unit>& text, unsigned int base) {
  // A buffer of the exact size, without a terminator, so that sanitizers detect a read outside it.
  const auto units = std::make_unique<Unit[]>(text.size());
  std::copy(text.begin(), text.end(), units.get());
  std::vector<std::uint32_t> visible;
  for (const Unit unit : text) visible.push_back(static_cast<std::make_unsigned_t<Unit>>(unit));
  if (!reads_as_reference<Integer>(units.get(), text.size(), visible, base)) {
    ADD_FAILURE() << "differs from the reference in radix " << base << ": "
                  << std::string(text.begin(), text.end());
  }
}

template <typename Unit>
void expect_every_type_as_reference(const std::basic_string<Unit>& text, unsigned int base) {
  expect_as_reference<signed char>(text, base);
  expect_as_reference<short>(text, base);
  expect_as_reference<int>(text, base);
  expect_as_reference<long long>(text, base);
  expect_as_reference<unsigned char>(text, base);
  expect_as_reference<unsigned short>(text, base);
  expect_as_reference<unsigned int>(text, base);
  expect_as_reference<unsigned long long>(text, base);
}

void expect_every_width_as_reference(std::string_view text, unsigned int base) {
  expect_every_type_as_reference(widen<char>(text), base);
  expect_every_type_as_reference(widen<code_unit16>(text), base);
  expect_every_type_as_reference(widen<code_unit32>(text), base);
}

/// Calls `visit` with each text of `length` units over `alphabet`.
template <typename Visit>
void for_each_text(std::string_view alphabet, std::size_t length, Visit visit) {
  std::string text(length, alphabet[0]);
  std::vector<std::size_t> at(length, 0);
  for (;;) {
    for (std::size_t i = 0; i < length; ++i) text[i] = alphabet[at[i]];
    visit(text);
    std::size_t i = 0;
    while (i < length && ++at[i] == alphabet.size()) at[i++] = 0;
    if (i == length) return;
  }
}

TEST(str_to_x, documentation_example) {
  EXPECT_EQ(convert::str_to_uint8("300", 3, radix::decimal, false), 255);
  EXPECT_THROW(convert::str_to_uint8("300", 3, radix::decimal, true), exceptions::overflow_error);
  EXPECT_EQ(convert::str_to_double("2.5e-1 litres"), 0.25);
  const auto read = [](std::string_view text, radix::base base) {
    return convert::str_to_int32(text.data(), text.size(), base, false);
  };
  EXPECT_EQ(read("12abc", radix::decimal), 12);
  EXPECT_EQ(read("  -42", radix::decimal), -42);
  EXPECT_EQ(read("-  42", radix::decimal), 0);
  EXPECT_EQ(read("0x1F", radix::prefix), 31);
  EXPECT_EQ(read("0b101", radix::prefix), 5);
  EXPECT_EQ(read("010", radix::prefix), 8);
  EXPECT_EQ(read("\\x1F", radix::prefix), 31);
  EXPECT_EQ(read("\x1F", radix::prefix), 0) << "a control character, and no digit";
  EXPECT_EQ(read("0x1F", radix::hexadecimal), 0);
  EXPECT_EQ(read("2147483648", radix::decimal), 2147483647);
}

TEST(str_to_x, texts_read_as_their_numbers) {
  const struct {
    std::string_view text;
    unsigned int base;
    int value;
  } rows[] = {
      {"0", 0, 0},
      {"09", 0, 0},
      {"010", 0, 8},
      {"0x1F", 0, 31},
      {"0X1f", 0, 31},
      {"0b101", 0, 5},
      {"0B101", 0, 5},
      {"0b", 0, 0},
      {"0x", 0, 0},
      {"0xZ", 0, 0},
      {"\\x1F", 0, 31},
      {"\\b11", 0, 3},
      {"\\17", 0, 15},
      {"\\", 0, 0},
      {"\\\\17", 0, 0},
      {"x1F", 0, 0},
      {"-0x1F", 0, -31},
      {"+0x1F", 0, 31},
      {" \t\n\v\f\r7", 0, 7},
      {"-", 0, 0},
      {"+", 0, 0},
      {"   ", 0, 0},
      {"  -42", 0, -42},
      {"-  42", 0, 0},
      {"+-5", 0, 0},
      {"--5", 0, 0},
      {"zZ", 36, 1295},
      {"fF", 16, 255},
      {"g", 16, 0},
      {"0x1F", 16, 0},
      {"12abc", 0, 12},
      {"12abc", 16, 76476},
      {"19", 8, 1},
      {"12", 2, 1},
      {"0", 10, 0},
      {"-0", 10, 0},
      {"00000000000000000000000012", 10, 12},
      {"/9", 10, 0},
      {":9", 10, 0},
      {"9:", 10, 9},
      {"@", 36, 0},
      {"[", 36, 0},
      {"`", 36, 0},
      {"{", 36, 0},
      {"1.5", 10, 1},
      {"1,000", 10, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(convert::str_to_int32(row.text.data(), row.text.size(), radix_of(row.base), true), row.value);
    const auto wide = widen<code_unit16>(row.text);
    EXPECT_EQ(convert::str_to_int32(wide.data(), wide.size(), radix_of(row.base), true), row.value);
    const auto utf32 = widen<code_unit32>(row.text);
    EXPECT_EQ(convert::str_to_int32(utf32.data(), utf32.size(), radix_of(row.base), true), row.value);
  }
}

TEST(str_to_x, names_give_their_types) {
  EXPECT_TRUE((std::is_same_v<decltype(convert::str_to_int32("", 0, radix::prefix, false)), types::int32>));
  EXPECT_TRUE((std::is_same_v<decltype(convert::str_to_long("", 0, radix::prefix, false)), types::int32>));
  EXPECT_TRUE((std::is_same_v<decltype(convert::str_to_uint32("", 0, radix::prefix, false)), types::uint32>));
  EXPECT_TRUE((std::is_same_v<decltype(convert::str_to_signed("", 0, radix::prefix, false)), int>));
  EXPECT_TRUE((std::is_same_v<decltype(convert::str_to_short("", 0, radix::prefix, false)), short>));
  EXPECT_EQ(convert::str_to_long("-12", 0, radix::prefix, false), -12);
  EXPECT_EQ(convert::str_to_short("-40000", 0, radix::prefix, false), -32768);
  EXPECT_EQ(convert::str_to_signed("3000000000", 0, radix::prefix, false), 2147483647);
  EXPECT_EQ(convert::strtointx<long>("-12", 3, radix::decimal, true), -12L);
  EXPECT_EQ(convert::strtouintx<unsigned long>("12", 2, radix::decimal, true), 12UL);
}

TEST(str_to_x, signed_reader_measures_text_of_length_0) {
  EXPECT_EQ(convert::str_to_int32("12abc", 0, radix::prefix, true), 12);
  EXPECT_EQ(convert::str_to_long("", 0, radix::prefix, false), 0);
  const auto wide = widen<code_unit16>("-42");
  EXPECT_EQ(convert::str_to_int64(wide.c_str(), 0, radix::decimal, true), -42);
  const auto utf32 = widen<code_unit32>("0x7f");
  EXPECT_EQ(convert::str_to_int8(utf32.c_str(), 0, radix::prefix, true), 127);
}

TEST(str_to_x, unsigned_reader_reads_one_unit_of_length_0) {
  EXPECT_EQ(convert::str_to_uint32("42", 0, radix::decimal, true), 4u);
  EXPECT_EQ(convert::str_to_uint64("42", 0, radix::prefix, true), 4u);
  EXPECT_EQ(convert::str_to_uint32("", 0, radix::decimal, true), 0u);
  // Only the first unit can be read: a sign or a prefix that needs another one ends the text.
  const char units[] = {'4', ' ', '-', '+', '0', '\\', 'x'};
  const unsigned int expected[] = {4, 0, 0, 0, 0, 0, 0};
  for (std::size_t i = 0; i < std::size(units); ++i) {
    const auto one = std::make_unique<char>(units[i]);
    EXPECT_EQ(convert::str_to_uint32(one.get(), 0, radix::prefix, true), expected[i]) << units[i];
  }
}

TEST(str_to_x, no_text_at_all_is_0) {
  const std::string_view nothing;
  EXPECT_EQ(convert::str_to_int32(nothing.data(), nothing.size(), radix::decimal, true), 0);
  EXPECT_EQ(convert::str_to_uint8(nothing.data(), nothing.size(), radix::prefix, true), 0);
  const strings::ustring16::view nothing_wide;
  EXPECT_EQ(convert::str_to_int64(nothing_wide.data(), nothing_wide.size(), radix::decimal, true), 0);
}

template <typename Unit>
void expect_null_reads_as_0(std::size_t length) {
  const Unit* const null = nullptr;
  for (const unsigned int base : {0u, 1u, 2u, 8u, 10u, 16u, 36u, 37u}) {
    for (const bool throw_on_range : {false, true}) {
      EXPECT_EQ(convert::str_to_int8(null, length, radix_of(base), throw_on_range), 0) << base;
      EXPECT_EQ(convert::str_to_int32(null, length, radix_of(base), throw_on_range), 0) << base;
      EXPECT_EQ(convert::str_to_int64(null, length, radix_of(base), throw_on_range), 0) << base;
      EXPECT_EQ(convert::str_to_uint16(null, length, radix_of(base), throw_on_range), 0) << base;
      EXPECT_EQ(convert::str_to_uint64(null, length, radix_of(base), throw_on_range), 0u) << base;
    }
  }
}

TEST(str_to_x, null_text_with_a_length_is_0) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{5}, std::string::npos}) {
    expect_null_reads_as_0<char>(length);
    expect_null_reads_as_0<code_unit16>(length);
    expect_null_reads_as_0<code_unit32>(length);
  }
}

template <typename Unit>
void expect_terminated_text_is_read_whole(std::size_t length) {
  const struct {
    std::string_view text;
    unsigned int base;
    long long value;
  } rows[] = {
      {"7", 10, 7},
      {"-1234567890123", 10, -1234567890123},
      {" \t+42 and more", 10, 42},
      {"0x7F", 0, 127},
      {"101", 2, 5},
      {"zZ", 36, 1295},
      {"99999999999999999999", 10, std::numeric_limits<long long>::max()},
      {"", 10, 0},
      {"-", 10, 0},
  };
  for (const auto& row : rows) {
    const auto text = widen<Unit>(row.text);
    EXPECT_EQ(convert::str_to_int64(text.c_str(), length, radix_of(row.base), false), row.value) << row.text;
    if (row.value >= 0 && row.text.size() < 20) {
      EXPECT_EQ(convert::str_to_uint64(text.c_str(), length, radix_of(row.base), true),
                static_cast<unsigned long long>(row.value))
          << row.text;
    }
  }
}

TEST(str_to_x, length_beyond_the_address_space_ends_with_the_digits) {
  constexpr std::size_t npos = std::string::npos;
  for (const std::size_t length : {npos, npos / 2, npos / 4 + 1}) {
    expect_terminated_text_is_read_whole<char>(length);
    expect_terminated_text_is_read_whole<code_unit16>(length);
    expect_terminated_text_is_read_whole<code_unit32>(length);
  }
}

TEST(str_to_x, every_text_of_one_unit_with_length_0) {
  for (unsigned int base = 0; base <= 37; ++base) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
      const char text[] = {static_cast<char>(byte), 0};
      const std::vector<std::uint32_t> visible{byte};
      EXPECT_TRUE(reads_as_reference<int>(text, 0, visible, base)) << byte << " in radix " << base;
      EXPECT_TRUE(reads_as_reference<unsigned int>(text, 0, visible, base)) << byte << " in radix " << base;
      EXPECT_TRUE(reads_as_reference<unsigned char>(text, 0, visible, base)) << byte << " in radix " << base;
    }
  }
}

TEST(str_to_x, nothing_is_read_beyond_the_length) {
  const std::string_view text = "  -0x12";
  const int expected[] = {0, 0, 0, 0, 0, -1, -18};
  for (std::size_t length = 1; length <= text.size(); ++length) {
    const auto units = std::make_unique<char[]>(length);
    std::copy_n(text.data(), length, units.get());
    EXPECT_EQ(convert::str_to_int32(units.get(), length, radix::prefix, true), expected[length - 1])
        << length;
  }
}

TEST(str_to_x, radix_outside_2_to_36_throws) {
  for (const unsigned int base : {1u, 37u, 38u, 300u, 0x80000000u, 0xFFFFFFFFu}) {
    for (const bool throw_on_range : {false, true}) {
      EXPECT_THROW(convert::str_to_int32("5", 1, radix_of(base), throw_on_range),
                   exceptions::invalid_argument_value);
      EXPECT_THROW(convert::str_to_uint8("5", 1, radix_of(base), throw_on_range),
                   exceptions::invalid_argument_value);
      EXPECT_THROW(convert::str_to_int32("", 0, radix_of(base), throw_on_range),
                   exceptions::invalid_argument_value);
    }
  }
}

TEST(str_to_x, text_that_ends_before_its_digits_is_0_in_any_radix) {
  for (const unsigned int base : {0u, 1u, 10u, 37u, 0xFFFFFFFFu}) {
    for (const std::string_view text : {"-", "+", "   ", "  -", " +", "\t"}) {
      EXPECT_EQ(convert::str_to_int32(text.data(), text.size(), radix_of(base), true), 0) << text;
      EXPECT_EQ(convert::str_to_uint32(text.data(), text.size(), radix_of(base), true), 0u) << text;
    }
  }
}

TEST(str_to_x, numbers_out_of_range_saturate) {
  const auto saturate = [](auto read, const std::string& text) {
    return read(text.data(), text.size(), radix::decimal, false);
  };
  EXPECT_EQ(convert::str_to_int8("-128", 4, radix::decimal, true), -128);
  EXPECT_EQ(saturate(convert::str_to_int8<char>, "-129"), -128);
  EXPECT_EQ(saturate(convert::str_to_int8<char>, "128"), 127);
  EXPECT_EQ(saturate(convert::str_to_int32<char>, "-99999999999"), std::numeric_limits<types::int32>::min());
  EXPECT_EQ(saturate(convert::str_to_int64<char>, "9223372036854775808"),
            std::numeric_limits<long long>::max());
  EXPECT_EQ(convert::str_to_uint32("4294967295", 10, radix::decimal, true), 4294967295u);
  EXPECT_EQ(saturate(convert::str_to_uint32<char>, "4294967296"), 4294967295u);
  EXPECT_EQ(saturate(convert::str_to_uint64<char>, "18446744073709551616"), 18446744073709551615u);
  EXPECT_EQ(saturate(convert::str_to_uint32<char>, "-99999999999"), 0u);
  EXPECT_EQ(saturate(convert::str_to_uint32<char>, "-5"), 0u);
  EXPECT_EQ(saturate(convert::str_to_uint32<char>, "-0"), 0u);
  EXPECT_EQ(convert::str_to_uint32("-0", 2, radix::decimal, true), 0u);
}

struct raised {
  std::string message;
  std::string file;
  std::string function;

  bool operator==(const raised&) const = default;
};

template <typename Exception, typename Read>
raised raised_by(Read read) {
  try {
    read();
  } catch (const Exception& error) {
    EXPECT_NE(error.error_state().line(), 0u);
    return {error.message(), error.error_state().file(), error.error_state().function()};
  }
  return {};
}

TEST(str_to_x, exceptions_have_message_file_and_function) {
  const std::string file = "generic/convert/str_to_x";
  const std::string signed_form = ORVA_QUALIFIED("generic::convert::strtointx");
  const std::string unsigned_form = ORVA_QUALIFIED("generic::convert::strtouintx");
  const std::string radix_message = "invalid radix value, values of 0, 2-36 are the only valid values";
  EXPECT_EQ(raised_by<exceptions::invalid_argument_value>(
                [] { convert::str_to_int32("5", 1, radix_of(1), false); }),
            (raised{radix_message, file, signed_form}));
  EXPECT_EQ(raised_by<exceptions::invalid_argument_value>(
                [] { convert::str_to_uint32("5", 1, radix_of(37), false); }),
            (raised{radix_message, file, unsigned_form}));
  EXPECT_EQ(raised_by<exceptions::overflow_error>(
                [] { convert::str_to_int32("2147483648", 0, radix::prefix, true); }),
            (raised{"Number value is to large", file, signed_form}));
  EXPECT_EQ(raised_by<exceptions::underflow_error>(
                [] { convert::str_to_int32("-2147483649", 0, radix::prefix, true); }),
            (raised{"Number value is to small", file, signed_form}));
  EXPECT_EQ(
      raised_by<exceptions::overflow_error>([] { convert::str_to_uint8("256", 3, radix::prefix, true); }),
      (raised{"Number value is to large", file, unsigned_form}));
  EXPECT_EQ(
      raised_by<exceptions::underflow_error>([] { convert::str_to_uint8("-5", 2, radix::prefix, true); }),
      (raised{"Number value is to small", file, unsigned_form}));
  EXPECT_EQ(
      raised_by<exceptions::underflow_error>([] { convert::str_to_uint8("-999", 4, radix::prefix, true); }),
      (raised{"Number value is to small", file, unsigned_form}));
}

TEST(str_to_x, units_above_255_are_neither_space_nor_digit) {
  const auto read = [](auto text) {
    return convert::str_to_int32(text.data(), text.size(), radix_of(36), true);
  };
  for (const unsigned int page : {0x0100u, 0x2000u, 0x3000u, 0xFF00u}) {
    for (const unsigned int low : {0x20u, 0x09u, 0x2Bu, 0x2Du, 0x30u, 0x39u, 0x41u, 0x61u, 0x7Au, 0xA0u}) {
      const unsigned int unit = page + low;
      EXPECT_EQ(read(std::basic_string<code_unit16>{static_cast<code_unit16>(unit), '7'}), 0) << unit;
      EXPECT_EQ(read(std::basic_string<code_unit32>{static_cast<code_unit32>(unit), '7'}), 0) << unit;
      EXPECT_EQ(read(std::basic_string<code_unit32>{static_cast<code_unit32>(unit + 0x10000), '7'}), 0)
          << unit;
      EXPECT_EQ(read(std::basic_string<code_unit32>{static_cast<code_unit32>(unit + 0xFF000000), '7'}), 0)
          << unit;
    }
  }
}

TEST(str_to_x, bytes_from_128_are_no_space_in_the_c_locale) {
  for (unsigned int byte = 0x80; byte <= 0xFF; ++byte) {
    const char text[] = {static_cast<char>(byte), '7'};
    EXPECT_EQ(convert::str_to_int32(text, 2, radix::decimal, true), 0) << byte;
  }
}

TEST(str_to_x, white_space_from_128_follows_the_locale) {
  const orva_test::single_byte_locale latin1("ISO-8859-1", "en_US");
  if (!latin1.made()) GTEST_SKIP() << "localedef could not make a Latin-1 locale";
  for (unsigned int byte = 0x80; byte <= 0xFF; ++byte) {
    const bool is_space = std::isspace(static_cast<int>(byte)) != 0;
    const char text[] = {static_cast<char>(byte), '7'};
    EXPECT_EQ(convert::str_to_int32(text, 2, radix::decimal, true), is_space ? 7 : 0) << byte;
    const code_unit16 wide[] = {static_cast<code_unit16>(byte), '7'};
    EXPECT_EQ(convert::str_to_int32(wide, 2, radix::decimal, true), is_space ? 7 : 0) << byte;
  }
}

TEST(str_to_x, every_short_text_as_the_reference) {
  constexpr std::string_view alphabet = " -+0\\xb1789aAfzZ.";
  for (const unsigned int base : {0u, 1u, 2u, 8u, 10u, 16u, 35u, 36u, 37u}) {
    for (std::size_t length = 1; length <= 3; ++length) {
      for_each_text(alphabet, length,
                    [&](const std::string& text) { expect_every_type_as_reference(text, base); });
    }
  }
}

TEST(str_to_x, every_pair_of_bytes_as_the_reference) {
  for (unsigned int first = 0; first < 256; ++first) {
    for (unsigned int second = 0; second < 256; ++second) {
      const std::string text{static_cast<char>(first), static_cast<char>(second)};
      for (const unsigned int base : {0u, 10u, 36u}) {
        expect_as_reference<int>(text, base);
        expect_as_reference<unsigned char>(text, base);
      }
    }
  }
}

TEST(str_to_x, every_radix_as_the_reference) {
  std::vector<unsigned int> bases(41);
  for (unsigned int base = 0; base <= 40; ++base) bases[base] = base;
  bases.push_back(300);
  for (const unsigned int base : bases) {
    for (const std::string_view text : {"zZyY", "-1111111", " +7a", "0x10", "0b10", "99999999999999999999999",
                                        "-zzzzzzzzzzzzzzzzzzzzzzz", "10101010101", "\\7", "0"}) {
      expect_every_width_as_reference(text, base);
    }
  }
}

std::string text_of(bool negative, std::uint64_t magnitude, unsigned int base) {
  const auto units = orva_test::reference_write(negative, magnitude, base);
  return std::string(units.begin(), units.end());
}

TEST(str_to_x, numbers_around_every_bound_as_the_reference) {
  for (unsigned int base = 2; base <= 36; ++base) {
    for (const int bits : {7, 8, 15, 16, 31, 32, 63, 64}) {
      const std::uint64_t bound = bits == 64 ? 0 : std::uint64_t{1} << bits;
      for (const int distance : {-2, -1, 0, 1, 2}) {
        const std::uint64_t magnitude = bound + static_cast<std::uint64_t>(distance);
        for (const std::string_view before : {"", "-", "+", " -000", "0000000000000000000000000000000"}) {
          const std::string text = std::string(before) + text_of(false, magnitude, base);
          expect_every_type_as_reference(text, base);
          expect_every_type_as_reference(text + "0", base);
          expect_every_type_as_reference(text + " 1", base);
        }
      }
    }
  }
}

TEST(str_to_x, every_16_bit_number_reads_back_in_every_radix) {
  for (unsigned int base = 2; base <= 36; ++base) {
    for (int value = -32768; value <= 32767; ++value) {
      const std::string text =
          text_of(value < 0, static_cast<std::uint64_t>(value < 0 ? -value : value), base);
      if (convert::str_to_int16(text.data(), text.size(), radix_of(base), true) != value) {
        FAIL() << text << " in radix " << base;
      }
    }
  }
}

TEST(str_to_x, random_texts_as_the_reference) {
  orva_test::random_engine random;
  constexpr std::string_view alphabet = "  --++00\\xXbB123456789aAfFzZ.\xE4\xA0";
  for (int run = 0; run < 8000; ++run) {
    std::string text(1 + random() % 24, '0');
    for (char& unit : text)
      unit = random() % 4 ? static_cast<char>('0' + random() % 10) : alphabet[random() % alphabet.size()];
    expect_every_width_as_reference(text, static_cast<unsigned int>(random() % 38));
  }
}

}  // namespace
