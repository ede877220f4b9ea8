#include "orva/system/date_time/iso8601.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "orva/system/date_time/calendar.hpp"
#include "tests/support/date_time_text.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
namespace diagnostics = ORVA_NAMESPACE::diagnostics;
using ORVA_NAMESPACE::system::date_time::time;  // not the function of the C library
using orva_test::text;

std::string text(const timestamp& t) { return text(t.utc) + ' ' + std::to_string(t.offset); }

template <typename Value>
std::string text(const std::optional<Value>& value) {
  return value ? text(*value) : "nothing";
}

std::string text(const std::optional<iso8601_text>& value) {
  return value ? std::string(value->view()) : "nothing";
}

template <typename Value>
void expect_value(const iso8601_result<Value>& result, std::string_view value, std::size_t count) {
  EXPECT_EQ(text(result.value), value);
  EXPECT_EQ(result.count, count);
  EXPECT_EQ(result.error, iso8601_error::none);
}

template <typename Value>
void expect_error(const iso8601_result<Value>& result, iso8601_error error, std::size_t position) {
  EXPECT_EQ(result.error, error);
  EXPECT_EQ(result.count, position);
  EXPECT_EQ(text(result.value), text(Value()));
  EXPECT_FALSE(result.is_rounded);
  EXPECT_FALSE(result.is_leap_second);
}

struct wrong_text {
  std::string_view text;
  iso8601_error error;
  std::size_t position;
};

TEST(iso8601, documentation_example) {
  EXPECT_EQ(text(read_date("2024-02-29").value), "29.2.2024");
  EXPECT_EQ(read_date("2023-02-29").error, iso8601_error::bad_day);
  EXPECT_EQ(read_date("2023-02-29").count, 8u);
  EXPECT_EQ(text(read_timestamp("2024-05-17T08:30:00+02:00").value.utc), "17.5.2024 6:30:0.0");
  EXPECT_EQ(parse_time("08:30:00 h"), std::nullopt);
  EXPECT_EQ(write_date(date(29, 2, 2024))->view(), "2024-02-29");
}

TEST(iso8601, forms_of_the_documentation_are_read) {
  expect_value(read_date("2024-02-29"), "29.2.2024", 10);
  expect_value(read_time("08:30:00"), "8:30:0.0", 8);
  expect_value(read_time("08:30:00.123"), "8:30:0.123", 12);
  expect_value(read_date_time("2024-02-29T08:30:00.123"), "29.2.2024 8:30:0.123", 23);
  expect_value(read_timestamp("2024-02-29T08:30:00.123Z"), "29.2.2024 8:30:0.123 0", 24);
  expect_value(read_timestamp("2024-02-29T08:30:00.123+05:30"), "29.2.2024 3:0:0.123 330", 29);
}

TEST(iso8601, examples_of_rfc_3339_are_read) {
  expect_value(read_timestamp("1985-04-12T23:20:50.52Z"), "12.4.1985 23:20:50.520 0", 23);
  expect_value(read_timestamp("1996-12-19T16:39:57-08:00"), "20.12.1996 0:39:57.0 -480", 25);
  expect_value(read_timestamp("1990-12-31T23:59:60Z"), "31.12.1990 23:59:59.0 0", 20);
  expect_value(read_timestamp("1990-12-31T15:59:60-08:00"), "31.12.1990 23:59:59.0 -480", 25);
  expect_value(read_timestamp("1937-01-01T12:00:27.87+00:20"), "1.1.1937 11:40:27.870 20", 28);
}

TEST(iso8601, reads_lower_case_and_a_space) {
  expect_value(read_date_time("2024-05-17t08:30:00"), "17.5.2024 8:30:0.0", 19);
  expect_value(read_date_time("2024-05-17 08:30:00"), "17.5.2024 8:30:0.0", 19);
  expect_value(read_timestamp("2024-05-17 08:30:00z"), "17.5.2024 8:30:0.0 0", 20);
}

TEST(iso8601, stops_where_the_form_ends) {
  expect_value(read_date("2024-05-17T08:30:00"), "17.5.2024", 10);
  expect_value(read_date("2024-05-171"), "17.5.2024", 10);
  expect_value(read_time("08:30:00Z"), "8:30:0.0", 8);
  expect_value(read_time("08:30:00,5"), "8:30:0.0", 8);
  expect_value(read_time("08:30:00.5:"), "8:30:0.500", 10);
  expect_value(read_date_time("2024-05-17T08:30:00+02:00"), "17.5.2024 8:30:0.0", 19);
  expect_value(read_timestamp("2024-05-17T08:30:00Z+"), "17.5.2024 8:30:0.0 0", 20);
  expect_value(read_timestamp("2024-05-17T08:30:00+02:000"), "17.5.2024 6:30:0.0 120", 25);
}

TEST(iso8601, wrong_dates_are_reported_at_their_position) {
  using enum iso8601_error;
  using namespace std::string_view_literals;
  const wrong_text rows[] = {
      {"", ends_early, 0},
      {"2", ends_early, 1},
      {"2024-", ends_early, 5},
      {"2024-05-1", ends_early, 9},
      {" 2024-05-17", no_digit, 0},
      {"+2024-05-17", no_digit, 0},
      {"-2024-05-17", no_digit, 0},
      {"12024-05-17", no_separator, 4},
      {"224-05-17", no_digit, 3},
      {"20240517", no_separator, 4},
      {"2024/05/17", no_separator, 4},
      {"2024-5-17", no_digit, 6},
      {"2024-W20-5", no_digit, 5},
      {"2024-138", bad_month, 5},
      {"2024-05/17", no_separator, 7},
      {"2024-05-7 ", no_digit, 9},
      {"2024-00-17", bad_month, 5},
      {"2024-13-17", bad_month, 5},
      {"2024-99", bad_month, 5},
      {"2024-05-00", bad_day, 8},
      {"2024-05-32", bad_day, 8},
      {"2024-04-31", bad_day, 8},
      {"2024-02-30", bad_day, 8},
      {"2023-02-29", bad_day, 8},
      {"1900-02-29", bad_day, 8},
      {"2024-05-1\0"sv, no_digit, 9},
      {"2024\0-05-17"sv, no_separator, 4},
      {"\xD9\xA2"
       "024-05-17",
       no_digit, 0},  // a digit of another script
      {"2024\xE2\x80\x93"
       "05",
       no_separator, 4},  // an en dash
      {"\xFF", no_digit, 0},
      {"2024-05-1/", no_digit, 9},  // the neighbours of the digits
      {"2024-05-1:", no_digit, 9},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    expect_error(read_date(row.text), row.error, row.position);
    EXPECT_EQ(parse_date(row.text), std::nullopt);
  }
}

TEST(iso8601, wrong_times_are_reported_at_their_position) {
  using enum iso8601_error;
  const wrong_text rows[] = {
      {"", ends_early, 0},          {"08:30", ends_early, 5},        {"08:30:", ends_early, 6},
      {"08:30:00.", ends_early, 9}, {"8:30:00", no_digit, 1},        {"-8:30:00", no_digit, 0},
      {"083000", no_separator, 2},  {"08.30.00", no_separator, 2},   {"08:30Z", no_separator, 5},
      {"08:3x:00", no_digit, 4},    {"08:30:00.x", no_digit, 9},     {"08:30:00..5", no_digit, 9},
      {"08:30:00.-5", no_digit, 9}, {"24:00:00", bad_hour, 0},       {"99:99:99", bad_hour, 0},
      {"23:60:00", bad_minute, 3},  {"23:59:61", bad_second, 6},     {"08:30:60", bad_second, 6},
      {"22:59:60", bad_second, 6},  {"23:58:60.999", bad_second, 6},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    expect_error(read_time(row.text), row.error, row.position);
    EXPECT_EQ(parse_time(row.text), std::nullopt);
    const std::string with_date = "2024-05-17T" + std::string(row.text);
    expect_error(read_date_time(with_date), row.error, row.position + 11);
    EXPECT_EQ(parse_date_time(with_date), std::nullopt);
  }
}

TEST(iso8601, wrong_timestamps_are_reported_at_their_position) {
  using enum iso8601_error;
  const wrong_text rows[] = {
      {"2024-05-17", ends_early, 10},
      {"2024-05-17T08:30:00", ends_early, 19},
      {"2024-05-17T08:30:00.5", ends_early, 21},
      {"2024-05-17T08:30:00+", ends_early, 20},
      {"2024-05-17T08:30:00+02", ends_early, 22},
      {"2024-05-17T08:30:00+02:0", ends_early, 24},
      {"2024-05-17_08:30:00Z", no_separator, 10},
      {"2024-05-17  08:30:00Z", no_digit, 11},
      {"2024-05-17T08:30:00 Z", no_offset, 19},
      {"2024-05-17T08:30:00UTC", no_offset, 19},
      {"2024-05-17T08:30:00\xE2\x88\x92"
       "02:00",
       no_offset, 19},  // a minus sign
      {"2024-05-17T08:30:00+2:00", no_digit, 21},
      {"2024-05-17T08:30:00+0200", no_separator, 22},
      {"2024-05-17T08:30:00+24:00", bad_hour, 20},
      {"2024-05-17T08:30:00-23:60", bad_minute, 23},
      {"0000-01-01T00:00:00+00:01", bad_year, 19},
      {"0000-01-01T00:00:00.000+23:59", bad_year, 23},
      {"9999-12-31T23:59:00-00:01", bad_year, 19},
      {"2024-05-17T24:00:00Z", bad_hour, 11},
      {"2024-02-30T08:30:00Z", bad_day, 8},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    expect_error(read_timestamp(row.text), row.error, row.position);
    EXPECT_FALSE(parse_timestamp(row.text).has_value());
  }
}

TEST(iso8601, fraction_is_cut_after_the_millisecond_and_reported_if_digits_are_lost) {
  const struct {
    std::string fraction;
    int millisecond;
    bool is_rounded;
  } rows[] = {
      {".0", 0, false},          {".5", 500, false},    {".05", 50, false},
      {".123", 123, false},      {".1230", 123, false}, {".123000000000000000000", 123, false},
      {".1239", 123, true},      {".9999", 999, true},  {".0000000001", 0, true},
      {".999999999", 999, true}, {".00", 0, false},     {"." + std::string(1000, '0') + "1", 0, true},
  };
  for (const auto& row : rows) {
    const std::string input = "08:30:00" + row.fraction;
    SCOPED_TRACE(input);
    const auto result = read_time(input);
    expect_value(result, "8:30:0." + std::to_string(row.millisecond), input.size());
    EXPECT_EQ(result.is_rounded, row.is_rounded);
    EXPECT_EQ(parse_time(input).has_value(), !row.is_rounded);
    EXPECT_EQ(read_date_time("2024-05-17T" + input).is_rounded, row.is_rounded);
    EXPECT_EQ(read_timestamp("2024-05-17T" + input + "Z").is_rounded, row.is_rounded);
    EXPECT_EQ(parse_timestamp("2024-05-17T" + input + "Z").has_value(), !row.is_rounded);
  }
}

TEST(iso8601, leap_second_is_second_59_and_reported_where_one_can_be) {
  const auto at_midnight = read_time("23:59:60.25");
  expect_value(at_midnight, "23:59:59.250", 11);
  EXPECT_TRUE(at_midnight.is_leap_second);
  EXPECT_EQ(parse_time("23:59:60"), std::nullopt);
  EXPECT_FALSE(read_time("23:59:59").is_leap_second);

  const struct {
    std::string_view text;
    std::string_view utc;
  } rows[] = {
      {"2016-12-31T23:59:60Z", "31.12.2016 23:59:59.0"},
      {"2017-01-01T05:29:60+05:30", "31.12.2016 23:59:59.0"},
      {"2016-12-31T00:00:60-23:59", "31.12.2016 23:59:59.0"},
      {"2015-06-30T23:59:60.9Z", "30.6.2015 23:59:59.900"},
      {"2024-02-29T23:59:60Z", "29.2.2024 23:59:59.0"},
      {"2023-02-28T23:59:60Z", "28.2.2023 23:59:59.0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto result = read_timestamp(row.text);
    EXPECT_EQ(text(result.value.utc), row.utc);
    EXPECT_TRUE(result.is_leap_second);
    EXPECT_EQ(result.count, row.text.size());
    EXPECT_FALSE(parse_timestamp(row.text).has_value());
  }
  EXPECT_TRUE(read_date_time("2016-12-31T23:59:60").is_leap_second);
}

TEST(iso8601, second_60_elsewhere_is_reported_at_the_second) {
  for (const std::string_view input :
       {"2016-12-30T23:59:60Z", "2024-02-28T23:59:60Z", "2016-12-31T23:59:60+01:00", "2017-01-01T05:29:60Z",
        "2016-12-31T23:58:60Z", "2016-12-31T22:59:60Z"}) {
    SCOPED_TRACE(input);
    expect_error(read_timestamp(input), iso8601_error::bad_second, 17);
  }
  expect_error(read_date_time("2016-12-30T23:59:60"), iso8601_error::bad_second, 17);
}

TEST(iso8601, every_truncation_is_found_but_within_the_fraction) {
  const std::string stamp = "2024-02-29T08:30:59.123+05:30";
  for (std::size_t size = 0; size < stamp.size(); ++size) {
    SCOPED_TRACE(size);
    // A copy on the heap, so that a read past its end is found.
    const std::string cut = stamp.substr(0, size);
    expect_error(read_timestamp(cut), iso8601_error::ends_early, size);
    EXPECT_FALSE(parse_timestamp(cut).has_value());
  }
  const std::string local = stamp.substr(0, 23);
  for (std::size_t size = 0; size < local.size(); ++size) {
    SCOPED_TRACE(size);
    const auto result = read_date_time(local.substr(0, size));
    const bool is_whole = size == 19 || size > 20;
    EXPECT_EQ(result.error, is_whole ? iso8601_error::none : iso8601_error::ends_early);
    EXPECT_EQ(result.count, size);
  }
  for (std::size_t size = 0; size < 10; ++size) {
    expect_error(read_date(stamp.substr(0, size)), iso8601_error::ends_early, size);
  }
}

TEST(iso8601, offset_of_zero_is_utc_in_every_form) {
  for (const std::string_view offset : {"Z", "z", "+00:00", "-00:00"}) {
    const std::string input = "2024-05-17T08:30:00" + std::string(offset);
    expect_value(read_timestamp(input), "17.5.2024 8:30:0.0 0", input.size());
  }
}

TEST(iso8601, parse_takes_whole_texts_only) {
  EXPECT_EQ(text(parse_date("2024-05-17")), "17.5.2024");
  EXPECT_EQ(text(parse_date("2024-05-17 ")), "nothing");
  EXPECT_EQ(text(parse_time("08:30:00.5")), "8:30:0.500");
  EXPECT_EQ(text(parse_time("08:30:00Z")), "nothing");
  EXPECT_EQ(text(parse_date_time("2024-05-17T08:30:00")), "17.5.2024 8:30:0.0");
  EXPECT_EQ(text(parse_date_time("2024-05-17T08:30:00Z")), "nothing");
  EXPECT_EQ(text(parse_timestamp("2024-05-17T08:30:00+02:00")), "17.5.2024 6:30:0.0 120");
  EXPECT_EQ(text(parse_timestamp("2024-05-17T08:30:00+02:00\n")), "nothing");
}

TEST(iso8601, values_are_written_with_all_their_digits) {
  EXPECT_EQ(text(write_date(date(1, 2, 3))), "0003-02-01");
  EXPECT_EQ(text(write_date(date(31, 12, 9999))), "9999-12-31");
  EXPECT_EQ(write_time(time()).view(), "00:00:00.000");
  EXPECT_EQ(write_time(time(23, 59, 58, 7)).view(), "23:59:58.007");
  const date_time_t moment(date(29, 2, 2024), time(8, 30, 0, 123));
  EXPECT_EQ(text(write_date_time(moment)), "2024-02-29T08:30:00.123");
  EXPECT_EQ(text(write_timestamp({moment, 0})), "2024-02-29T08:30:00.123Z");
  EXPECT_EQ(text(write_timestamp({moment, 330})), "2024-02-29T14:00:00.123+05:30");
  EXPECT_EQ(text(write_timestamp({moment, -511})), "2024-02-28T23:59:00.123-08:31");
  EXPECT_EQ(text(write_timestamp({moment, 1439})), "2024-03-01T08:29:00.123+23:59");
}

TEST(iso8601, what_has_no_text_is_refused) {
  for (const date& invalid : {date(), date(31, 2, 2024), date(1, 1, 10000)}) {
    EXPECT_EQ(text(write_date(invalid)), "nothing");
    EXPECT_EQ(text(write_date_time({invalid, time()})), "nothing");
    EXPECT_EQ(text(write_timestamp({{invalid, time()}, 0})), "nothing");
  }
  const date_time_t first(date(1, 1, 0), time());
  const date_time_t last(date(31, 12, 9999), time(23, 59, 0, 0));
  EXPECT_EQ(text(write_timestamp({first, 0})), "0000-01-01T00:00:00.000Z");
  EXPECT_EQ(text(write_timestamp({first, -1})), "nothing");
  EXPECT_EQ(text(write_timestamp({last, 1})), "nothing");
  for (const int offset : {1440, -1440, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(text(write_timestamp({date_time_t(date(17, 5, 2024), time()), offset})), "nothing");
  }
}

std::string in_words(const diagnostics::finding& found) { return (std::ostringstream() << found).str(); }

TEST(iso8601, an_error_is_described_with_its_place) {
  EXPECT_EQ(in_words(describe(read_date("2023-02-29"), "2023-02-29", "days.txt")),
            "days.txt:1:9: error: A day is 01 to the length of its month. [date.bad_day]");
  const std::string_view lines = "2024-02-29\n08:60:00Z";
  EXPECT_EQ(in_words(describe(read_timestamp(lines), lines)),
            "1:11: error: A separator is required here: - in a date, : in a time or an offset, T between "
            "date and time. [date.no_separator]");
  EXPECT_EQ(in_words(describe(read_time("08:3"), "08:3")),
            "1:5: error: The text ends before its last field. [date.ends_early]");
}

TEST(iso8601, what_parse_refuses_without_an_error_is_described) {
  EXPECT_EQ(in_words(describe(read_time("08:30:00 h"), "08:30:00 h")),
            "1:9: error: The text goes on after the date or the time. [date.rest]");
  const std::string_view leap = "2016-12-31T23:59:60Z";
  EXPECT_EQ(in_words(describe(read_timestamp(leap), leap)),
            "1:1: warning: The second 60 of a leap second is read as 59. [date.leap_second]");
  const std::string_view precise = "2016-12-31T08:30:00.123456";
  EXPECT_EQ(in_words(describe(read_date_time(precise), precise)),
            "1:1: warning: Digits below the millisecond are dropped. [date.rounded]");
}

TEST(iso8601, what_parse_takes_is_described_by_a_note_without_a_code) {
  const auto found = describe(read_date("2024-02-29"), "2024-02-29", "days.txt");
  EXPECT_EQ(found.level, diagnostics::severity::note);
  EXPECT_EQ(found.code, "");
  EXPECT_EQ(found.file, "days.txt");
}

template <typename Value>
std::string code_of(iso8601_result<Value> (*read)(std::string_view), std::string_view text) {
  return describe(read(text), text).code;
}

TEST(iso8601, the_inputs_of_the_page_of_codes_give_their_code) {
  for (const char* const day : {"2023-02-29", "2024-01-00"})
    EXPECT_EQ(code_of(read_date, day), "date.bad_day");
  EXPECT_EQ(code_of(read_time, "24:00:00"), "date.bad_hour");
  EXPECT_EQ(code_of(read_time, "08:60:00"), "date.bad_minute");
  EXPECT_EQ(code_of(read_date, "2024-13-01"), "date.bad_month");
  for (const char* const second : {"08:30:61", "08:30:60"})
    EXPECT_EQ(code_of(read_time, second), "date.bad_second");
  EXPECT_EQ(code_of(read_timestamp, "9999-12-31T23:30:00-01:00"), "date.bad_year");
  EXPECT_EQ(code_of(read_date, "2024-02"), "date.ends_early");
  EXPECT_EQ(code_of(read_time, "08:30"), "date.ends_early");
  EXPECT_EQ(code_of(read_timestamp, "2016-12-31T23:59:60Z"), "date.leap_second");
  EXPECT_EQ(code_of(read_date, "2024-2-29"), "date.no_digit");
  EXPECT_EQ(code_of(read_time, "08:30:0x"), "date.no_digit");
  EXPECT_EQ(code_of(read_timestamp, "2024-05-17T08:30:00 MEZ"), "date.no_offset");
  for (const char* const day : {"20240229", "2024/02/29"})
    EXPECT_EQ(code_of(read_date, day), "date.no_separator");
  EXPECT_EQ(code_of(read_time, "08.30.00"), "date.no_separator");
  EXPECT_EQ(code_of(read_time, "08:30:00 h"), "date.rest");
  EXPECT_EQ(code_of(read_date, "2024-05-17T08:30:00"), "date.rest");
  EXPECT_EQ(code_of(read_time, "08:30:00.123456"), "date.rounded");
}

TEST(iso8601, every_error_has_a_code_of_its_own) {
  std::set<std::string> codes;
  const auto last = static_cast<int>(iso8601_error::bad_year);
  for (int error = 1; error <= last; ++error) {
    iso8601_result<date> result;
    result.error = static_cast<iso8601_error>(error);
    result.count = 5;
    const auto found = describe(result, "2024\n2-29", "a");
    EXPECT_EQ(found.level, diagnostics::severity::error);
    EXPECT_EQ(found.at, (diagnostics::place{2, 1}));
    EXPECT_EQ(found.file, "a");
    EXPECT_TRUE(found.code.starts_with("date."));
    EXPECT_NE(sentence(found), found.code);
    codes.insert(found.code);
  }
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last));
}

}  // namespace
