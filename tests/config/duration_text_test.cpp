#include "orva/config/duration_text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>

#include "tests/support/random_engine.hpp"
#include "tests/support/reference_quantity.hpp"

namespace ORVA_NAMESPACE::config {

void PrintTo(const read_duration_result& result, std::ostream* stream) {
  *stream << result.value.count() << " ns, " << result.length << ", error " << static_cast<int>(result.error);
}

}  // namespace ORVA_NAMESPACE::config

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace std::chrono_literals;
using enum duration_error;
using std::chrono::nanoseconds;

struct duration_row {
  const char* text;
  read_duration_result result;
};

constexpr duration_row rows[] = {
    {"1h30m later", {5400s, 5, none}},
    {"1h30m", {5400s, 5, none}},
    {"1 h 30 min", {5400s, 10, none}},
    {"1.5h", {5400s, 4, none}},
    {"30m1h", {1800s, 3, none}},
    {"0", {0s, 1, none}},
    {"0.0", {0s, 3, none}},
    {"0x", {0s, 0, no_duration}},
    {"90", {0s, 0, no_duration}},
    {"1hour", {0s, 0, no_duration}},
    {"0.5ns", {0s, 5, too_fine}},
    {"300000d", {nanoseconds::max(), 7, too_large}},
    {"-1s", {0s, 0, no_duration}},
    {".5s", {0s, 0, no_duration}},
    {"", {0s, 0, no_duration}},
    {" 1s", {0s, 0, no_duration}},
    {"s", {0s, 0, no_duration}},
    {"1S", {0s, 0, no_duration}},
    {"1w", {604800s, 2, none}},
    {"1d", {86400s, 2, none}},
    {"1h", {3600s, 2, none}},
    {"1m", {60s, 2, none}},
    {"1min", {60s, 4, none}},
    {"1s", {1s, 2, none}},
    {"1sec", {1s, 4, none}},
    {"1ms", {1ms, 3, none}},
    {"1us", {1us, 3, none}},
    {"1\xC2\xB5s", {1us, 4, none}},
    {"1\xCE\xBCs", {1us, 4, none}},
    {"1ns", {1ns, 3, none}},
    {"1w1d1h1m1s1ms1us1ns", {694861001001001ns, 19, none}},
    {"1m1min", {60s, 2, none}},
    {"1h1h", {3600s, 2, none}},
    {"1h 30", {3600s, 2, none}},
    {"1h30", {3600s, 2, none}},
    {"1h, 30m", {3600s, 2, none}},
    {"1h \t30m", {3600s, 2, none}},
    {"0.1s", {100ms, 4, none}},
    {"0.0000000001s 5ns", {5ns, 17, too_fine}},
    {"106751d23h47m16s854ms775us807ns", {nanoseconds::max(), 31, none}},
    {"106751d23h47m16s854ms775us808ns", {nanoseconds::max(), 31, too_large}},
    {"9223372036854775807ns", {nanoseconds::max(), 21, none}},
    {"9223372036854775808ns", {nanoseconds::max(), 21, too_large}},
    {"99999999999999999999999ns", {nanoseconds::max(), 25, too_large}},
    {"15250.28452410194s 3ns", {15250284524101ns + 3ns, 22, too_fine}},
};

class duration_rows : public testing::TestWithParam<duration_row> {};

TEST_P(duration_rows, are_read) {
  EXPECT_EQ(read_duration(GetParam().text), GetParam().result) << GetParam().text;
}

TEST_P(duration_rows, are_parsed_if_they_are_wholly_a_duration) {
  const auto& [text, expected] = GetParam();
  const bool is_exact = expected.error == none && expected.length == std::string_view(text).size();
  EXPECT_EQ(parse_duration(text), is_exact ? std::optional(expected.value) : std::nullopt) << text;
}

INSTANTIATE_TEST_SUITE_P(documented, duration_rows, testing::ValuesIn(rows));

TEST(duration_text, documentation_example) {
  EXPECT_EQ(read_duration("1h30m later"), (read_duration_result{5400s, 5, none}));
  EXPECT_EQ(parse_duration("1.5s"), 1500000000ns);
  EXPECT_EQ(parse_duration("90"), std::nullopt);
  EXPECT_EQ(write_duration(5400s), "1h30m");
}

TEST(duration_text, documentation_example_of_describe) {
  std::ostringstream stream;
  stream << describe(read_duration("1h, 30m"), "1h, 30m", "a.txt");
  EXPECT_EQ(stream.str(), "a.txt:1:3: error: Other text follows the duration 1h. [duration.rest]");
}

TEST(duration_text, that_is_wrong_is_described) {
  const auto described = [](std::string_view text) {
    std::ostringstream stream;
    stream << describe(read_duration(text), text);
    return stream.str();
  };
  EXPECT_EQ(described("90"), "1:1: error: No duration begins here. [duration.no_duration]");
  EXPECT_EQ(described("0.5ns"),
            "1:1: error: The duration 0.5ns is not a whole number of nanoseconds. [duration.too_fine]");
  EXPECT_EQ(described("300000d 1h, or so"),
            "1:1: error: The duration 300000d 1h is too long; the limit is 292 years. [duration.too_large]");
  const auto right = describe(read_duration("1h30m"), "1h30m", "a.txt");
  EXPECT_EQ(right.code, "");
  EXPECT_EQ(right.level, ORVA_NAMESPACE::diagnostics::severity::note);
  EXPECT_EQ(right.file, "a.txt");
}

TEST(duration_text, is_written_in_the_units_that_it_has) {
  EXPECT_EQ(write_duration(90s), "1m30s");
  EXPECT_EQ(write_duration(1500ms), "1s500ms");
  EXPECT_EQ(write_duration(0s), "0s");
  EXPECT_EQ(write_duration(-90s), "-1m30s");
  EXPECT_EQ(write_duration(nanoseconds::max()), "106751d23h47m16s854ms775us807ns");
  EXPECT_EQ(write_duration(nanoseconds::min()), "-106751d23h47m16s854ms775us808ns");
}

TEST(duration_text, reads_back_what_is_written) {
  orva_test::random_engine random;
  for (int i = 0; i < 20000; ++i) {
    const nanoseconds duration(static_cast<std::int64_t>(random.bits64() >> (1 + random() % 63)));
    const auto text = write_duration(duration);
    ASSERT_EQ(parse_duration(text), duration) << text;
  }
}

TEST(duration_text, agrees_with_arithmetic_on_paper) {
  struct unit_name {
    const char* name;
    std::uint64_t nanoseconds;
  };
  constexpr std::array<unit_name, 4> units{
      {{"d", 86'400'000'000'000}, {"h", 3'600'000'000'000}, {"ms", 1'000'000}, {"us", 1'000}}};
  orva_test::random_engine random;
  for (int i = 0; i < 2000; ++i) {
    const unit_name unit = units[random() % units.size()];
    const std::string integer = std::to_string(random.bits64() >> (random() % 64));
    std::string fraction = std::to_string(random.bits64() >> (random() % 64));
    fraction.append(random() % 80, '0');
    const std::string text = integer + '.' + fraction + unit.name;

    const auto expected = orva_test::quantity_of(integer, fraction, unit.nanoseconds);
    const std::string greatest = std::to_string(nanoseconds::max().count());
    const bool fits = orva_test::decimal_at_most(expected.whole, greatest);
    const auto result = read_duration(text);
    ASSERT_EQ(result.length, text.size()) << text;
    ASSERT_EQ(std::to_string(result.value.count()), fits ? expected.whole : greatest) << text;
    ASSERT_EQ(result.error, !fits ? too_large : expected.is_whole ? none : too_fine) << text;
  }
}

}  // namespace
