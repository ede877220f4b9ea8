// Local time in programs that are started with a given time zone.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace chrono = std::chrono;

std::vector<std::string> lines_of(const std::string& command) {
  std::FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error(command);
  std::string text;
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) text += static_cast<char>(c);
  if (pclose(output) != 0) throw std::runtime_error(command);
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The output of print_times in a zone.
std::vector<std::string> printed(const std::string& zone, const std::string& arguments) {
  return lines_of("TZ='" + zone + "' '" ORVA_PRINT_TIMES "' " + arguments);
}

const std::string berlin = "CET-1CEST,M3.5.0,M10.5.0/3";
const std::string new_york = "EST5EDT,M3.2.0,M11.1.0";
const std::string lord_howe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";
const std::string kolkata = "IST-5:30";
const std::string kiritimati = "<+14>-14";

struct moment {
  std::string zone;
  long long since_epoch;
  std::string local;
};

TEST(time_zone, local_time_follows_TZ_across_changes_of_daylight_saving) {
  const moment table[] = {
      {berlin, 1711846799999, "2024-03-31 01:59:59.999"},
      {berlin, 1711846800000, "2024-03-31 03:00:00.000"},
      {berlin, 1729990799999, "2024-10-27 02:59:59.999"},
      {berlin, 1729990800000, "2024-10-27 02:00:00.000"},
      {new_york, 1710053999999, "2024-03-10 01:59:59.999"},
      {new_york, 1710054000000, "2024-03-10 03:00:00.000"},
      {new_york, 1730613599999, "2024-11-03 01:59:59.999"},
      {new_york, 1730613600000, "2024-11-03 01:00:00.000"},
      {lord_howe, 1728142199999, "2024-10-06 01:59:59.999"},
      {lord_howe, 1728142200000, "2024-10-06 02:30:00.000"},
      {kolkata, 1709145000500, "2024-02-29 00:00:00.500"},
      {"UTC0", 1709145000500, "2024-02-28 18:30:00.500"},
      {kiritimati, 1735639200000, "2025-01-01 00:00:00.000"},
      {"EST5", 0, "1969-12-31 19:00:00.000"},
      {"no such zone", 0, "1970-01-01 00:00:00.000"},
  };
  for (const moment& row : table) {
    EXPECT_EQ(printed(row.zone, std::to_string(row.since_epoch)), std::vector<std::string>{row.local})
        << row.zone;
  }
}

TEST(time_zone, one_process_shows_both_sides_of_a_change) {
  EXPECT_EQ(printed(berlin, "1711846799999 1711846800000 1711846799999"),
            (std::vector<std::string>{"2024-03-31 01:59:59.999", "2024-03-31 03:00:00.000",
                                      "2024-03-31 01:59:59.999"}));
}

TEST(time_zone, leap_second_is_second_59) {
  const std::string zone = "right/UTC";
  if (!std::filesystem::exists("/usr/share/zoneinfo/" + zone)) GTEST_SKIP() << "no zone with leap seconds";
  EXPECT_EQ(printed(zone, "1483228825250 1483228826250 1483228827250"),
            (std::vector<std::string>{"2016-12-31 23:59:59.250", "2016-12-31 23:59:59.250",
                                      "2017-01-01 00:00:00.250"}));
}

chrono::sys_time<chrono::milliseconds> parse(const std::string& line) {
  int year;
  unsigned int month;
  unsigned int day;
  int hour;
  int minute;
  int second;
  int millisecond;
  if (std::sscanf(line.c_str(), "%d-%u-%u %d:%d:%d.%d", &year, &month, &day, &hour, &minute, &second,
                  &millisecond) != 7) {
    throw std::runtime_error(line);
  }
  return chrono::sys_days(chrono::year(year) / chrono::month(month) / chrono::day(day)) +
         chrono::hours(hour) + chrono::minutes(minute) + chrono::seconds(second) +
         chrono::milliseconds(millisecond);
}

TEST(time_zone, clock_readings_of_a_process_are_in_its_zone) {
  struct {
    std::string zone;
    chrono::minutes offset;
  } const table[] = {{"UTC0", {}},
                     {kolkata, chrono::minutes(330)},
                     {kiritimati, chrono::hours(14)},
                     {"EST5", chrono::hours(-5)},
                     {"<-12>12", chrono::hours(-12)}};
  for (const auto& row : table) {
    const auto lines = printed(row.zone, "");
    ASSERT_EQ(lines.size(), 3u) << row.zone;
    const auto local = parse(lines[1]) - row.offset;
    EXPECT_LE(parse(lines[0]), local) << row.zone;
    EXPECT_LE(local, parse(lines[2])) << row.zone;
  }
}

}  // namespace
