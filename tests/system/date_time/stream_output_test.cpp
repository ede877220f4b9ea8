/// Dates, times and durations written to streams.
#include <gtest/gtest.h>

#include <cstdio>
#include <iomanip>
#include <limits>
#include <locale>
#include <ostream>
#include <sstream>
#include <string>

#include "orva/system/date_time/date_time.hpp"
#include "orva/system/date_time/iso8601.hpp"
#include "tests/support/random_engine.hpp"

namespace {

namespace date_time = ORVA_NAMESPACE::system::date_time;
using date_time::basic_date;
using date_time::basic_time;
using date_time::date;
using date_time::date_duration;
using date_time::date_time_t;
using date_time::milliseconds;
using date_time::time_duration;

template <typename T>
std::string streamed(const T& value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

TEST(stream_output, documentation_example) {
  const date day(17, 5, 2024);
  const date_time::time morning(8, 30, 0, 0);
  EXPECT_EQ(streamed(day), "2024-05-17");
  EXPECT_EQ(streamed(morning), "08:30:00.000");
  EXPECT_EQ(streamed(date_time_t(day, morning)), "2024-05-17T08:30:00.000");
  EXPECT_EQ(streamed(date_duration(30)), "P30D");
  EXPECT_EQ(streamed(time_duration(1, 30, 0, 0)), "PT1H30M");
}

TEST(stream_output, every_day_of_a_leap_year_and_of_years_of_each_length) {
  for (const unsigned int year : {0u, 9u, 99u, 999u, 2024u, 9999u}) {
    for (unsigned int month = 1; month <= 12; ++month) {
      for (unsigned int day = 1; day <= 28; ++day) {
        char expected[16];
        std::snprintf(expected, sizeof expected, "%04u-%02u-%02u", year, month, day);
        ASSERT_EQ(streamed(date(day, month, year)), expected);
      }
    }
  }
}

TEST(stream_output, is_the_text_of_the_writers_of_iso8601) {
  orva_test::random_engine random;
  const auto below = [&random](unsigned int limit) { return static_cast<unsigned int>(random() % limit); };
  for (int i = 0; i < 10'000; ++i) {
    const date_time_t moment(date(1 + below(28), 1 + below(12), below(10'000)),
                             date_time::time(below(24), below(60), below(60), below(1000)));
    ASSERT_EQ(streamed(moment.date()), date_time::write_date(moment.date())->view());
    ASSERT_EQ(streamed(moment.time()), date_time::write_time(moment.time()).view());
    ASSERT_EQ(streamed(moment), date_time::write_date_time(moment)->view());
  }
}

TEST(stream_output, day_is_the_last_one_of_a_shorter_month) {
  EXPECT_EQ(streamed(date(31, 2, 2023)), "2023-02-28");
}

TEST(stream_output, years_of_more_than_four_digits_have_a_sign) {
  EXPECT_EQ(streamed(date(1, 2, 10000)), "+10000-02-01");
  EXPECT_EQ(streamed(date(1, 2, 4294967295)), "+4294967295-02-01");
}

TEST(stream_output, date_without_fields_is_zeros) {
  EXPECT_EQ(streamed(date()), "0000-00-00");
  EXPECT_EQ(streamed(date_time_t()), "0000-00-00T00:00:00.000");
}

TEST(stream_output, every_second_of_a_day) {
  for (unsigned int second = 0; second < 86400; ++second) {
    const unsigned int millisecond = second % 1000;
    const date_time::time value(second / 3600, second / 60 % 60, second % 60, millisecond);
    char expected[16];
    std::snprintf(expected, sizeof expected, "%02u:%02u:%02u.%03u", second / 3600, second / 60 % 60,
                  second % 60, millisecond);
    ASSERT_EQ(streamed(value), expected);
  }
}

TEST(stream_output, unchecked_fields_are_written_as_they_are) {
  basic_date day;
  day.year(4294967295);
  day.month(4294967295);
  day.day(100);
  EXPECT_EQ(streamed(day), "+4294967295-4294967295-100");
  basic_time time_of_day;
  time_of_day.hour(0x80000000);
  time_of_day.minute(0x80000000);
  time_of_day.second(0x80000000);
  time_of_day.millisecond(0xFFFFFFFF);
  EXPECT_EQ(streamed(time_of_day), "-2147483648:-2147483648:-2147483648.-001");
}

TEST(stream_output, durations_of_days) {
  EXPECT_EQ(streamed(date_duration()), "P0D");
  EXPECT_EQ(streamed(date_duration(-1)), "-P1D");
  EXPECT_EQ(streamed(date_duration(2147483647)), "P2147483647D");
  EXPECT_EQ(streamed(date_duration(-2147483647 - 1)), "-P2147483648D");
}

std::string duration_text(long long count) { return streamed(time_duration(0, 0, 0, count)); }

TEST(stream_output, parts_of_a_duration_that_are_zero_are_left_out) {
  EXPECT_EQ(duration_text(0), "PT0S");
  EXPECT_EQ(duration_text(1), "PT0.001S");
  EXPECT_EQ(duration_text(-5), "-PT0.005S");
  EXPECT_EQ(duration_text(1000), "PT1S");
  EXPECT_EQ(duration_text(60'000), "PT1M");
  EXPECT_EQ(duration_text(60'001), "PT1M0.001S");
  EXPECT_EQ(duration_text(3'600'000), "PT1H");
  EXPECT_EQ(duration_text(3'601'000), "PT1H1S");
  EXPECT_EQ(duration_text(-93'784'005), "-PT26H3M4.005S");
}

TEST(stream_output, longest_durations) {
  EXPECT_EQ(duration_text(std::numeric_limits<long long>::max()), "PT2562047788015H12M55.807S");
  EXPECT_EQ(duration_text(std::numeric_limits<long long>::min()), "-PT2562047788015H12M55.808S");
}

/// The milliseconds of a duration in this form.
long long read_duration(const std::string& text) {
  std::istringstream stream(text);
  const bool is_negative = stream.peek() == '-';
  if (is_negative) stream.get();
  EXPECT_EQ(stream.get(), 'P');
  EXPECT_EQ(stream.get(), 'T');
  long long sum = 0;
  for (long long number; stream >> number;) {
    const int unit = stream.get();
    if (unit == 'H') sum += number * 3'600'000;
    if (unit == 'M') sum += number * 60'000;
    if (unit == 'S') sum += number * 1000;
    if (unit == '.') {
      int fraction = 0;
      stream >> fraction;
      EXPECT_EQ(stream.get(), 'S');
      sum += number * 1000 + fraction;
    }
  }
  return is_negative ? -sum : sum;
}

TEST(stream_output, duration_reads_back) {
  orva_test::random_engine random;
  for (int i = 0; i < 20'000; ++i) {
    const auto count = static_cast<long long>(random.bits64()) >> random() % 64;
    if (count == std::numeric_limits<long long>::min()) continue;
    ASSERT_EQ(read_duration(duration_text(count)), count);
  }
}

TEST(stream_output, milliseconds_stay_the_number_that_they_convert_to) {
  EXPECT_EQ(streamed(milliseconds(1500)), "1500");
}

class grouped : public std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\1"; }
};

TEST(stream_output, is_one_field_without_flags_and_locale_of_the_stream) {
  std::ostringstream stream;
  stream.imbue(std::locale(std::locale::classic(), new grouped));
  stream << std::hex << std::showbase << std::showpos << std::left << std::setfill('.');
  stream << std::setw(12) << date(17, 11, 2024) << '|' << std::setw(14) << date_time::time(20, 0, 0, 0);
  EXPECT_EQ(stream.str(), "2024-11-17..|20:00:00.000..");
}

TEST(stream_output, googletest_shows_the_text) {
  EXPECT_EQ(testing::PrintToString(date(17, 5, 2024)), "2024-05-17");
  EXPECT_EQ(testing::PrintToString(date_time::time(8, 30, 0, 0)), "08:30:00.000");
  EXPECT_EQ(testing::PrintToString(date_time_t()), "0000-00-00T00:00:00.000");
  EXPECT_EQ(testing::PrintToString(date_duration(1)), "P1D");
  EXPECT_EQ(testing::PrintToString(time_duration(0, 1, 0, 0)), "PT1M");
}

}  // namespace

namespace program {

/// A program that writes dates in its own way goes on doing so.
static std::ostream& operator<<(std::ostream& stream, const date_time::date& day) {
  return stream << day.day() << '.' << day.month() << '.' << day.year();
}

TEST(stream_output, own_operator_of_a_program_is_preferred) {
  std::ostringstream stream;
  stream << date_time::date(17, 5, 2024);
  EXPECT_EQ(stream.str(), "17.5.2024");
}

}  // namespace program
