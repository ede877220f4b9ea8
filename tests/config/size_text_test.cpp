#include "orva/config/size_text.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

#include "tests/support/random_engine.hpp"
#include "tests/support/reference_quantity.hpp"

namespace ORVA_NAMESPACE::config {

void PrintTo(const read_size_result& result, std::ostream* stream) {
  *stream << result.value << ", " << result.length << ", error " << static_cast<int>(result.error);
}

}  // namespace ORVA_NAMESPACE::config

namespace {

using namespace ORVA_NAMESPACE::config;
using enum size_error;

constexpr auto greatest = std::numeric_limits<std::uint64_t>::max();

struct size_row {
  const char* text;
  read_size_result result;
};

constexpr size_row rows[] = {
    {"10 MiB, or less", {10485760, 6, none}},
    {"4096", {4096, 4, none}},
    {"512 B", {512, 5, none}},
    {"4K", {4096, 2, none}},
    {"4 KiB", {4096, 5, none}},
    {"4 kB", {4000, 4, none}},
    {"4KB", {4000, 3, none}},
    {"4 kib", {4096, 5, none}},
    {"1.5 KiB", {1536, 7, none}},
    {"0.1 KiB", {102, 7, not_whole}},
    {"16 EiB", {greatest, 6, too_large}},
    {"4 Kx", {4, 1, none}},
    {"-1", {0, 0, no_size}},
    {".5", {0, 0, no_size}},
    {"", {0, 0, no_size}},
    {" 1", {0, 0, no_size}},
    {"+1", {0, 0, no_size}},
    {"KiB", {0, 0, no_size}},
    {"0", {0, 1, none}},
    {"007", {7, 3, none}},
    {"1.", {1, 1, none}},
    {"1. KiB", {1, 1, none}},
    {"1.5", {1, 3, not_whole}},
    {"1.0", {1, 3, none}},
    {"1 K", {1024, 3, none}},
    {"1 M", {1048576, 3, none}},
    {"1 G", {1073741824, 3, none}},
    {"1 T", {1099511627776, 3, none}},
    {"1 P", {1125899906842624, 3, none}},
    {"1 E", {1152921504606846976, 3, none}},
    {"1 TB", {1000000000000, 4, none}},
    {"1 PB", {1000000000000000, 4, none}},
    {"1 EB", {1000000000000000000, 4, none}},
    {"1   KiB", {1024, 7, none}},
    {"1\tKiB", {1, 1, none}},
    {"1 KiBi", {1, 1, none}},
    {"1 Bytes", {1, 1, none}},
    {"1K2", {1024, 2, none}},
    {"1 Ki", {1, 1, none}},
    {"1,000", {1, 1, none}},
    {"18446744073709551615", {greatest, 20, none}},
    {"18446744073709551616", {greatest, 20, too_large}},
    {"18446744073709551615.5", {greatest, 22, not_whole}},
    {"18014398509481983.9990234375 KiB", {greatest, 32, none}},
    {"18014398509481984 KiB", {greatest, 21, too_large}},
    {"15.999999999999999999132638262011596452794037759304046630859375 EiB", {greatest, 67, none}},
    {"99999999999999999999999999 EiB", {greatest, 30, too_large}},
};

class size_rows : public testing::TestWithParam<size_row> {};

TEST_P(size_rows, are_read) { EXPECT_EQ(read_size(GetParam().text), GetParam().result) << GetParam().text; }

TEST_P(size_rows, are_parsed_if_they_are_wholly_a_size) {
  const auto& [text, expected] = GetParam();
  const bool is_exact = expected.error == none && expected.length == std::string_view(text).size();
  EXPECT_EQ(parse_size(text), is_exact ? std::optional(expected.value) : std::nullopt) << text;
}

INSTANTIATE_TEST_SUITE_P(documented, size_rows, testing::ValuesIn(rows));

TEST(size_text, documentation_example) {
  EXPECT_EQ(read_size("10 MiB, or less"), (read_size_result{10485760, 6, none}));
  EXPECT_EQ(parse_size("1.5 GB"), 1500000000);
  EXPECT_EQ(parse_size("10 apples"), std::nullopt);
  EXPECT_EQ(write_size(10485760), "10 MiB");
}

TEST(size_text, documentation_example_of_describe) {
  std::ostringstream stream;
  stream << describe(read_size("0.1 KiB"), "0.1 KiB", "a.txt");
  EXPECT_EQ(stream.str(),
            "a.txt:1:1: error: The size 0.1 KiB is not a whole number of bytes. [size.not_whole]");
}

TEST(size_text, that_is_wrong_is_described) {
  const auto described = [](std::string_view text) {
    std::ostringstream stream;
    stream << describe(read_size(text), text);
    return stream.str();
  };
  EXPECT_EQ(described("apples"), "1:1: error: No size begins here. [size.no_size]");
  EXPECT_EQ(described("10 apples"), "1:3: error: Other text follows the size 10. [size.rest]");
  EXPECT_EQ(described("16 EiB, or so"),
            "1:1: error: The size 16 EiB is too large; it must be below 16 EiB. [size.too_large]");
  const auto right = describe(read_size("4 KiB"), "4 KiB", "a.txt");
  EXPECT_EQ(right.code, "");
  EXPECT_EQ(right.level, ORVA_NAMESPACE::diagnostics::severity::note);
  EXPECT_EQ(right.file, "a.txt");
}

TEST(size_text, is_written_in_the_greatest_unit_that_divides_it) {
  EXPECT_EQ(write_size(0), "0 B");
  EXPECT_EQ(write_size(1536), "1536 B");
  EXPECT_EQ(write_size(1024), "1 KiB");
  EXPECT_EQ(write_size(1500000), "1500 kB");
  EXPECT_EQ(write_size(3000000), "3 MB");
  EXPECT_EQ(write_size(1ull << 60), "1 EiB");
  EXPECT_EQ(write_size(greatest), "18446744073709551615 B");
}

TEST(size_text, reads_back_what_is_written) {
  orva_test::random_engine random;
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bytes = (random.bits64() >> random() % 64) << random() % 64;
    const auto text = write_size(bytes);
    ASSERT_EQ(parse_size(text), bytes) << text;
  }
}

/// A run of 1 to `longest` digits.
template <typename Random>
std::string random_digits(Random& random, std::size_t longest) {
  std::string digits(1 + random() % longest, '0');
  for (char& digit : digits) digit = static_cast<char>('0' + random() % 10);
  return digits;
}

TEST(size_text, agrees_with_arithmetic_on_paper) {
  const std::string units = "KMGTPE";
  orva_test::random_engine random;
  for (int i = 0; i < 2000; ++i) {
    const auto power = static_cast<int>(random() % 6);
    const bool is_binary = random() % 2 == 0;
    std::uint64_t unit = 1;
    for (int p = 0; p <= power; ++p) unit *= is_binary ? 1024 : 1000;
    const std::string integer = random_digits(random, random() % 8 == 0 ? 30 : 5);
    std::string fraction = random_digits(random, random() % 2 == 0 ? 80 : 3);
    // Multiples of a power of two, so that many products are whole.
    if (random() % 2 == 0) fraction = orva_test::decimal_product("5", 25) + std::string(random() % 3, '0');
    const std::string text =
        integer + '.' + fraction + ' ' + units[static_cast<std::size_t>(power)] + (is_binary ? "iB" : "B");

    const auto expected = orva_test::quantity_of(integer, fraction, unit);
    const bool fits = orva_test::decimal_at_most(expected.whole, std::to_string(greatest));
    const auto result = read_size(text);
    ASSERT_EQ(result.length, text.size()) << text;
    ASSERT_EQ(std::to_string(result.value), fits ? expected.whole : std::to_string(greatest)) << text;
    ASSERT_EQ(result.error, !fits ? too_large : expected.is_whole ? none : not_whole) << text;
  }
}

}  // namespace
