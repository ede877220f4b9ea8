#include "orva/serialization/serialize_text_buf.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>

#include "orva/memory/pointers/rc_pointer.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_serialization.hpp"
#include "tests/support/shown_separators.hpp"
#include "tests/support/sign_of_nan.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using orva_test::bytes;
using orva_test::reference_text_reader;
using orva_test::shown;

template <typename Append>
std::string text_of(Append append) {
  serialize_text_buf buffer;
  append(buffer);
  return shown(buffer.as_str());
}

serialize_text_buf buffer_of(const char* text) { return serialize_text_buf(bytes(text)); }

template <typename Action>
void expect_invalid_position(Action action) {
  try {
    action();
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& failure) {
    EXPECT_STREQ(failure.what(), "invalid string position");
  }
}

TEST(serialize_text_buf, documentation_example) {
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_int32(-5); }), "-5~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_uint8(200); }), "200~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_double(3.14159265, 3); }), "3.14~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_double(1500000.0, 2); }), "1.5e+06~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_float(0.5F, 6); }), "0.5~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_string("ab"); }), "2~ab~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_string(""); }), "0~~");
}

TEST(serialize_text_buf, numbers_come_back_and_then_the_end) {
  serialize_text_buf buffer;
  buffer.append_int32(-5);
  buffer.append_uint8(200);
  EXPECT_EQ(buffer.as_str(),
            "-5\x01"
            "200\x01");
  EXPECT_EQ(buffer.read_int32(), -5);
  EXPECT_EQ(buffer.read_uint8(), 200);
  EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_text_buf, empty_string_ends_after_its_second_separator) {
  serialize_text_buf buffer;
  buffer.append_string("");
  buffer.append_int8(7);
  EXPECT_EQ(buffer.read_string(), "");
  EXPECT_EQ(buffer.read_int8(), 7);
}

TEST(serialize_text_buf, number_read_from_an_empty_buffer_leaves_the_mark) {
  serialize_text_buf buffer;
  EXPECT_EQ(buffer.read_int32(), 0);
  EXPECT_TRUE(buffer.at_end());
  buffer.append_int32(5);
  EXPECT_TRUE(buffer.at_end()) << "the mark stays";
  EXPECT_EQ(buffer.read_int32(), 0);
  buffer.reset_read();
  EXPECT_EQ(buffer.read_int32(), 5);
}

TEST(serialize_text_buf, numbers_past_the_last_item_are_zero_and_stay_so) {
  const serialize_text_buf buffer = buffer_of("1~2~");
  EXPECT_EQ(buffer.read_int32(), 1);
  EXPECT_EQ(buffer.read_int32(), 2);
  EXPECT_EQ(buffer.read_int32(), 0);
  EXPECT_EQ(buffer.read_int32(), 0);
  EXPECT_EQ(buffer.read_double(), 0.0);
}

TEST(serialize_text_buf, string_past_the_last_item_is_empty_and_rewinds) {
  serialize_text_buf buffer = buffer_of("1~2~");
  buffer.read_int32();
  buffer.read_int32();
  EXPECT_EQ(buffer.read_string(), "");
  EXPECT_FALSE(buffer.at_end());
  EXPECT_EQ(buffer.read_int32(), 1) << "the first item again";
}

TEST(serialize_text_buf, buffer_past_the_last_item_is_empty_and_rewinds) {
  const serialize_text_buf buffer = buffer_of("1~");
  buffer.read_int32();
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  ASSERT_TRUE(nested);
  EXPECT_EQ(nested->as_str(), "");
  EXPECT_EQ(buffer.read_int32(), 1) << "the first item again";
}

TEST(serialize_text_buf, string_and_buffer_at_the_mark_are_empty_and_leave_it) {
  serialize_text_buf buffer = buffer_of("1~");
  buffer.read_int32();
  buffer.read_int32();
  EXPECT_EQ(buffer.read_string(), "");
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  ASSERT_TRUE(nested);
  EXPECT_EQ(nested->as_str(), "");
  EXPECT_TRUE(buffer.at_end());
  EXPECT_EQ(buffer.read_int32(), 0);
}

TEST(serialize_text_buf, empty_nested_buffer_at_the_end_is_a_buffer) {
  serialize_text_buf buffer;
  buffer.append_buffer(serialize_text_buf());
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  ASSERT_TRUE(nested);
  EXPECT_TRUE(nested->is_created_dynamic());
  EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_text_buf, text_without_separator_is_the_first_number_and_then_the_mark) {
  const serialize_text_buf buffer("12");
  EXPECT_EQ(buffer.read_int32(), 12);
  EXPECT_TRUE(buffer.at_end());
  EXPECT_EQ(buffer.read_int32(), 0);
}

TEST(serialize_text_buf, length_without_separator_throws_unless_it_is_zero) {
  serialize_text_buf buffer("12");
  expect_invalid_position([&] { buffer.read_string(); });
  EXPECT_TRUE(buffer.at_end()) << "the position is 12";
  buffer.assign("0123456789ab3\x01");
  EXPECT_EQ(buffer.read_int32(), 3);

  serialize_text_buf zero("0");
  EXPECT_EQ(zero.read_string(), "");
  EXPECT_FALSE(zero.at_end()) << "rewound";
}

TEST(serialize_text_buf, length_that_overstates_is_cut_and_the_next_number_throws_once) {
  serialize_text_buf buffer = buffer_of("9~abc");
  EXPECT_EQ(buffer.read_string(), "abc");
  EXPECT_TRUE(buffer.at_end());
  expect_invalid_position([&] { buffer.read_int32(); });
  EXPECT_EQ(buffer.read_int32(), 0) << "the mark";

  buffer.reset_read();
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  EXPECT_EQ(nested->as_str(), "abc");
  expect_invalid_position([&] { buffer.read_string(); });
  EXPECT_EQ(buffer.read_string(), "") << "the mark";
}

TEST(serialize_text_buf, missing_closing_separator_leaves_the_position_past_the_data) {
  serialize_text_buf buffer = buffer_of("3~abc");
  EXPECT_EQ(buffer.read_string(), "abc");
  expect_invalid_position([&] { buffer.read_double(); });
}

TEST(serialize_text_buf, negative_length_leads_back_and_reads_to_the_end) {
  serialize_text_buf buffer = buffer_of("-4~abc");
  EXPECT_EQ(buffer.read_string(), "abc");
  EXPECT_EQ(buffer.read_int32(), -4) << "the position is 0";

  serialize_text_buf to_the_mark = buffer_of("-5~abc");
  EXPECT_EQ(to_the_mark.read_string(), "abc");
  EXPECT_TRUE(to_the_mark.at_end());
  EXPECT_EQ(to_the_mark.read_int32(), 0);
}

TEST(serialize_text_buf, position_past_new_data_makes_the_next_number_throw) {
  serialize_text_buf buffer;
  buffer.append_string("0123456789");
  buffer.read_string();
  buffer.assign(bytes("1~"));
  EXPECT_TRUE(buffer.at_end());
  expect_invalid_position([&] { buffer.read_int32(); });
  buffer.reset_read();
  EXPECT_EQ(buffer.read_int32(), 1);
}

TEST(serialize_text_buf, every_number_reader_throws_past_the_data) {
  const auto expect = [](auto read) {
    serialize_text_buf buffer = buffer_of("9~abc");
    buffer.read_string();
    expect_invalid_position([&] { read(buffer); });
  };
  expect([](auto& buffer) { buffer.read_int8(); });
  expect([](auto& buffer) { buffer.read_int16(); });
  expect([](auto& buffer) { buffer.read_int32(); });
  expect([](auto& buffer) { buffer.read_int64(); });
  expect([](auto& buffer) { buffer.read_uint8(); });
  expect([](auto& buffer) { buffer.read_uint16(); });
  expect([](auto& buffer) { buffer.read_uint32(); });
  expect([](auto& buffer) { buffer.read_uint64(); });
  expect([](auto& buffer) { buffer.read_float(); });
  expect([](auto& buffer) { buffer.read_double(); });
  expect([](auto& buffer) { buffer.read_string(); });
  expect([](auto& buffer) { delete buffer.read_buffer(); });
}

struct reading {
  const char* text;
  long long as_int8;
  long long as_int16;
  long long as_int32;
  long long as_int64;
  unsigned long long as_uint8;
  unsigned long long as_uint16;
  unsigned long long as_uint32;
  unsigned long long as_uint64;
  double as_double;
};
void PrintTo(const reading& row, std::ostream* stream) { *stream << row.text; }

class text_number : public testing::TestWithParam<reading> {};

TEST_P(text_number, is_read_leniently) {
  const reading& row = GetParam();
  const serialize_text_buf buffer = buffer_of((std::string(row.text) + "~").c_str());
  const auto again = [&] {
    EXPECT_TRUE(buffer.at_end());
    buffer.reset_read();
  };
  EXPECT_EQ(buffer.read_int8(), row.as_int8);
  again();
  EXPECT_EQ(buffer.read_int16(), row.as_int16);
  again();
  EXPECT_EQ(buffer.read_int32(), row.as_int32);
  again();
  EXPECT_EQ(buffer.read_int64(), row.as_int64);
  again();
  EXPECT_EQ(buffer.read_uint8(), row.as_uint8);
  again();
  EXPECT_EQ(buffer.read_uint16(), row.as_uint16);
  again();
  EXPECT_EQ(buffer.read_uint32(), row.as_uint32);
  again();
  EXPECT_EQ(buffer.read_uint64(), row.as_uint64);
  again();
  EXPECT_EQ(buffer.read_float(), static_cast<float>(row.as_double));
  again();
  EXPECT_EQ(buffer.read_double(), row.as_double);
  again();
}

INSTANTIATE_TEST_SUITE_P(
    table, text_number,
    testing::Values(reading{"", 0, 0, 0, 0, 0, 0, 0, 0, 0.0}, reading{"abc", 0, 0, 0, 0, 0, 0, 0, 0, 0.0},
                    reading{"12abc", 12, 12, 12, 12, 12, 12, 12, 12, 12.0},
                    reading{"0x1F", 31, 31, 31, 31, 31, 31, 31, 31, 0.0},
                    reading{"010", 8, 8, 8, 8, 8, 8, 8, 8, 10.0},
                    reading{" -7", -7, -7, -7, -7, 0, 0, 0, 0, -7.0},
                    reading{"300", 127, 300, 300, 300, 255, 300, 300, 300, 300.0},
                    reading{"70000", 127, 32767, 70000, 70000, 255, 65535, 70000, 70000, 70000.0},
                    reading{"-70000", -128, -32768, -70000, -70000, 0, 0, 0, 0, -70000.0},
                    reading{"99999999999", 127, 32767, 2147483647, 99999999999, 255, 65535, 4294967295,
                            99999999999, 99999999999.0},
                    reading{"99999999999999999999", 127, 32767, 2147483647, 9223372036854775807, 255, 65535,
                            4294967295, 18446744073709551615U, 99999999999999999999.0},
                    reading{"1.5e+06", 1, 1, 1, 1, 1, 1, 1, 1, 1500000.0}));

TEST(serialize_text_buf, length_reads_like_any_number) {
  EXPECT_EQ(buffer_of("0x3~abc~").read_string(), "abc");
  EXPECT_EQ(buffer_of(" 3x~abc~").read_string(), "abc");
  EXPECT_EQ(buffer_of("011~123456789~").read_string(), "123456789");
}

TEST(serialize_text_buf, lengths_are_read_through_the_virtual_call) {
  struct counting : serialize_text_buf {
    using serialize_text_buf::serialize_text_buf;
    ORVA_NAMESPACE::types::int32 read_int32() const override {
      ++calls;
      return serialize_text_buf::read_int32();
    }
    mutable int calls = 0;
  };
  counting buffer(bytes("1~a~1~b~"));
  EXPECT_EQ(buffer.read_string(), "a");
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  EXPECT_EQ(nested->as_str(), "b");
  EXPECT_EQ(buffer.calls, 2);
}

// Floating values are written as a stream writes them.

template <typename Floating>
std::string by_stream(Floating value, std::uint32_t precision) {
  std::ostringstream stream;
  stream.precision(precision);
  stream << value;
  return orva_test::with_sign_of_nan(value, stream.str()) + "~";
}

void expect_as_stream(double value, std::uint32_t precision) {
  ASSERT_EQ(text_of([&](auto& buffer) { buffer.append_double(value, precision); }),
            by_stream(value, precision))
      << value << " with " << precision;
  const auto narrow = static_cast<float>(value);
  ASSERT_EQ(text_of([&](auto& buffer) { buffer.append_float(narrow, precision); }),
            by_stream(narrow, precision))
      << narrow << " with " << precision;
}

TEST(serialize_text_buf, floating_values_are_written_as_by_a_stream) {
  using limits = std::numeric_limits<double>;
  for (const double value : {0.0,
                             -0.0,
                             1.0,
                             0.1,
                             2.5,
                             3.5,
                             9.5,
                             99.95,
                             0.0001,
                             0.00001,
                             123456.0,
                             1234567.0,
                             1e15,
                             1e16,
                             1e17,
                             1e21,
                             1e22,
                             1e300,
                             limits::min(),
                             limits::max(),
                             limits::denorm_min(),
                             -limits::max(),
                             3.14159265358979,
                             limits::infinity(),
                             -limits::infinity(),
                             limits::quiet_NaN(),
                             -limits::quiet_NaN(),
                             5e-324}) {
    // A `float` does not hold them all, and the conversion must be defined.
    if (std::isfinite(value) && std::abs(value) > std::numeric_limits<float>::max()) {
      for (const std::uint32_t precision : {0U, 1U, 6U, 17U, 50U, 400U, 1000U, 100000U}) {
        ASSERT_EQ(text_of([&](auto& buffer) { buffer.append_double(value, precision); }),
                  by_stream(value, precision));
      }
      continue;
    }
    for (const std::uint32_t precision :
         {0U, 1U, 2U, 6U, 9U, 17U, 50U, 400U, 767U, 800U, 801U, 1000U, 100000U}) {
      ASSERT_NO_FATAL_FAILURE(expect_as_stream(value, precision));
    }
  }
}

TEST(serialize_text_buf, random_floating_values_are_written_as_by_a_stream) {
  orva_test::random_engine random;
  for (int run = 0; run < 30000; ++run) {
    const std::uint64_t bits = random.bits64();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    const auto precision = static_cast<std::uint32_t>(random() % 20);
    ASSERT_EQ(text_of([&](auto& buffer) { buffer.append_double(value, precision); }),
              by_stream(value, precision));
    const double small = static_cast<double>(random() % 1000000) / 1000;
    ASSERT_NO_FATAL_FAILURE(expect_as_stream(small, precision));
  }
}

TEST(serialize_text_buf, precision_of_any_size_shows_only_the_digits_of_the_value) {
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_double(0.5, 4294967295U); }), "0.5~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_float(1.25F, 2147483648U); }), "1.25~");
  EXPECT_EQ(text_of([](auto& buffer) { buffer.append_double(0.1, 4294967295U); }),
            "0.1000000000000000055511151231257827021181583404541015625~");
}

TEST(serialize_text_buf, floating_values_that_are_not_finite_read_as_zero) {
  serialize_text_buf buffer;
  buffer.append_double(std::numeric_limits<double>::infinity(), 6);
  buffer.append_float(std::numeric_limits<float>::quiet_NaN(), 6);
  EXPECT_EQ(shown(buffer.as_str()), "inf~nan~");
  EXPECT_EQ(buffer.read_double(), 0.0);
  EXPECT_EQ(buffer.read_float(), 0.0F);
  EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_text_buf, floating_values_follow_the_global_locale) {
  struct comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new comma));
  serialize_text_buf buffer;
  buffer.append_double(1234567.5, 10);
  buffer.append_float(0.5F, 6);
  buffer.append_int32(1234567);
  const std::string text = shown(buffer.as_str());
  const double number = buffer.read_double();
  std::locale::global(before);
  EXPECT_EQ(text, "1.234.567,5~0,5~1234567~") << "integers do not use the locale";
  EXPECT_EQ(number, 1234567.5);
}

TEST(serialize_text_buf, any_reads_of_any_text_agree_with_the_reference) {
  orva_test::random_engine random;
  constexpr std::string_view units =
      "\x01\x01\x01"
      "0123-x a9";
  for (int run = 0; run < 40000; ++run) {
    std::string data(random() % 24, '\0');
    for (char& byte : data) byte = units[random() % units.size()];
    serialize_text_buf buffer(data);
    reference_text_reader reference(data);
    for (int step = 0; step < 8; ++step) {
      const auto outcome = [](auto read) -> std::string {
        try {
          return read();
        } catch (const std::out_of_range& failure) {
          return std::string("thrown: ") + failure.what();
        }
      };
      std::string got;
      std::string expected;
      switch (random() % 4) {
        case 0:
          got = outcome([&] { return std::to_string(buffer.read_int32()); });
          expected = outcome([&] { return std::to_string(reference.read_int32()); });
          break;
        case 1:
          got = outcome([&] { return buffer.read_string(); });
          expected = outcome([&] { return reference.read_string(); });
          break;
        case 2:
          got = outcome([&] { return rc_pointer<serialize_buffer>(buffer.read_buffer())->as_str(); });
          expected = outcome([&] { return reference.read_string(); });
          break;
        default:
          if (random() % 8 != 0) continue;
          buffer.reset_read();
          reference.reset();
      }
      ASSERT_EQ(shown(got), shown(expected)) << shown(data);
      ASSERT_EQ(buffer.at_end(), reference.at_end()) << shown(data);
    }
  }
}

TEST(serialize_text_buf, exact_floating_values_are_the_shortest_text_that_reads_back) {
  serialize_text_buf buffer;
  buffer.append_exact(3.141592653589793);
  buffer.append_exact(0.1F);
  buffer.append_exact(1e23);
  buffer.append_exact(-0.0);
  EXPECT_EQ(shown(buffer.as_str()), "3.141592653589793~0.1~1e+23~-0~");
  EXPECT_EQ(buffer.read_double(), 3.141592653589793);
  EXPECT_EQ(buffer.read_float(), 0.1F);
  EXPECT_EQ(buffer.read_double(), 1e23);
}

}  // namespace
