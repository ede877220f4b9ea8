// Texts that were written are read back, and damaged texts are read as the plain reader does.
#include <gtest/gtest.h>

#include <chrono>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "orva/system/date_time/calendar.hpp"
#include "orva/system/date_time/iso8601.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_iso8601.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
using ORVA_NAMESPACE::system::date_time::time;  // not the function of the C library
using orva_test::random_engine;
using orva_test::reference_iso8601_reader;
using orva_test::reference_reading;

// The milliseconds of the years 0 to 9999.
constexpr std::uint64_t range = std::uint64_t{3652425} * 86400000;

date_time_t any_moment(random_engine& random) {
  const auto count = static_cast<long long>(random.bits64() % range);
  return *add_time(date_time_t(date(1, 1, 0), time()), milliseconds(count));
}

bool same(const date_time_t& left, const date_time_t& right) { return compare(left, right) == 0; }

TEST(iso8601_random, every_date_is_written_as_printf_does_and_read_back) {
  for (date day(1, 1, 0);;) {
    char expected[40];
    std::snprintf(expected, sizeof expected, "%04u-%02u-%02u", day.year(), day.month(), day.day());
    const auto text = write_date(day);
    ASSERT_EQ(text->view(), expected);
    const auto back = parse_date(text->view());
    ASSERT_TRUE(back && compare(*back, day) == 0) << expected;
    const auto next = add_days(day, 3);  // every third day: each day of the year in each kind of year
    if (!next) break;
    day = *next;
  }
}

TEST(iso8601_random, every_second_of_a_day_is_written_as_printf_does_and_read_back) {
  for (unsigned int second = 0; second < 86400; ++second) {
    const unsigned int millisecond = second * 7 % 1000;
    const time value(second / 3600, second / 60 % 60, second % 60, millisecond);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%02u:%02u:%02u.%03u", second / 3600, second / 60 % 60,
                  second % 60, millisecond);
    ASSERT_EQ(write_time(value).view(), expected);
    ASSERT_TRUE(compare(*parse_time(expected), value) == 0) << expected;
  }
}

TEST(iso8601_random, moments_and_timestamps_are_read_back) {
  random_engine random;
  std::uniform_int_distribution<int> any_offset(-1439, 1439);
  for (int i = 0; i < 100'000; ++i) {
    const timestamp value{any_moment(random), any_offset(random)};
    const auto text = write_date_time(value.utc);
    ASSERT_TRUE(same(*parse_date_time(text->view()), value.utc)) << text->view();
    const auto stamp = write_timestamp(value);
    if (!stamp) continue;  // within a day of the first or the last year's end
    const auto back = parse_timestamp(stamp->view());
    ASSERT_TRUE(back && same(back->utc, value.utc) && back->offset == value.offset) << stamp->view();
  }
}

TEST(iso8601_random, texts_are_in_the_order_of_their_moments) {
  random_engine random;
  for (int i = 0; i < 20'000; ++i) {
    const date_time_t left = any_moment(random);
    const date_time_t right = any_moment(random);
    ASSERT_EQ(compare(left, right), write_date_time(left)->view() <=> write_date_time(right)->view());
  }
}

// --- Damaged texts ---

date_time_t moment_of(const date& value) { return {value, time()}; }
date_time_t moment_of(const time& value) { return {date(1, 1, 1970), value}; }
date_time_t moment_of(const date_time_t& value) { return value; }
date_time_t moment_of(const timestamp& value) { return value.utc; }

template <typename Value>
void expect_as_the_plain_reader(const iso8601_result<Value>& result, const reference_reading& expected) {
  ASSERT_EQ(result.error, expected.error);
  ASSERT_EQ(result.count, expected.count);
  ASSERT_EQ(result.is_rounded, expected.is_rounded);
  ASSERT_EQ(result.is_leap_second, expected.is_leap_second);
  if (result.error != iso8601_error::none) return;
  ASSERT_EQ(to_sys_time(moment_of(result.value)), expected.utc);
}

void expect_readers_agree(std::string_view text) {
  SCOPED_TRACE(text);
  const auto expected = [text](bool has_date, bool has_time, bool has_offset) {
    return reference_iso8601_reader(text).read(has_date, has_time, has_offset);
  };
  expect_as_the_plain_reader(read_date(text), expected(true, false, false));
  expect_as_the_plain_reader(read_time(text), expected(false, true, false));
  expect_as_the_plain_reader(read_date_time(text), expected(true, true, false));
  const auto stamp = read_timestamp(text);
  const auto expected_stamp = expected(true, true, true);
  expect_as_the_plain_reader(stamp, expected_stamp);
  ASSERT_EQ(stamp.value.offset, expected_stamp.offset.count());
}

constexpr std::string_view well_formed[] = {
    "2024-02-29T08:30:59.123+05:30", "1990-12-31T23:59:60Z",      "0000-01-01T00:00:00.5-23:59",
    "9999-12-31T23:59:59.9999Z",     "2016-12-31 15:59:60-08:00", "23:59:60.25",
    "1900-02-28T00:00:00+00:00",
};

TEST(iso8601_random, every_byte_at_every_position_is_read_as_by_the_plain_reader) {
  for (const std::string_view text : well_formed) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string damaged(text);
        damaged[i] = static_cast<char>(byte);
        ASSERT_NO_FATAL_FAILURE(expect_readers_agree(damaged));
      }
    }
  }
}

TEST(iso8601_random, random_damage_is_read_as_by_the_plain_reader) {
  random_engine random;
  using namespace std::string_view_literals;
  constexpr std::string_view bytes = "0123456789012345678901234569-:.TZ+ tz,/;\0\xFF"sv;
  const auto any = [&random](std::size_t count) { return static_cast<std::size_t>(random() % count); };
  for (int i = 0; i < 100'000; ++i) {
    std::string text(well_formed[any(std::size(well_formed))]);
    for (std::size_t damages = any(4); damages > 0 && !text.empty(); --damages) {
      const std::size_t at = any(text.size());
      const char byte = bytes[any(bytes.size())];
      switch (any(4)) {
        case 0:
          text.erase(at, 1);
          break;
        case 1:
          text.insert(at, 1, byte);
          break;
        case 2:
          text.resize(at);
          break;
        default:
          text[at] = byte;
      }
    }
    ASSERT_NO_FATAL_FAILURE(expect_readers_agree(text));
  }
}

TEST(iso8601_random, every_leap_second_of_a_year_with_every_offset_is_read_as_by_the_plain_reader) {
  for (int offset = -1439; offset <= 1439; offset += 29) {
    for (int day = 0; day < 366; ++day) {
      const date_time_t leap(*add_days(date(1, 1, 2024), day), time(23, 59, 59, 0));
      std::string text(write_timestamp({leap, offset})->view());
      text.replace(17, 2, "60");
      ASSERT_NO_FATAL_FAILURE(expect_readers_agree(text));
    }
  }
}

}  // namespace
