// What watching and checking of files make of answers of the system that a test gives.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>

#include "orva/config/file_findings.hpp"
#include "orva/config/internal/watched_file.hpp"

#include "tests/platform/scripted_system_calls.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/system/date_time/fake_clock.hpp"

namespace {

using ORVA_NAMESPACE::config::_private::watched_file;
using orva_test::scripted_calls;
using orva_test::temporary_directory;

/// All files have one time and one identity, as within a step of the clock.
void stop_the_clock_of_the_files(const scripted_calls& calls) {
  calls->stat = [](const char* path, struct stat* status) {
    const int result = ::stat(path, status);
    status->st_ino = 5;
    status->st_mtim = {1000, 500};
    status->st_ctim = {1000, 500};
    return result;
  };
}

void pass_seconds(std::uint64_t seconds) { orva_test::clock.ticks += seconds * orva_test::clock.frequency; }

TEST(watched_file, change_within_a_step_of_the_clock_is_seen_by_the_contents) {
  const temporary_directory directory;
  const scripted_calls calls;
  stop_the_clock_of_the_files(calls);
  watched_file file(directory.write("file", "one"));
  EXPECT_FALSE(file.changed());
  directory.write("file", "two");
  EXPECT_TRUE(file.changed());
  directory.write("file", "one");
  EXPECT_FALSE(file.changed());
}

TEST(watched_file, contents_are_compared_once_more_after_the_step) {
  const temporary_directory directory;
  const scripted_calls calls;
  stop_the_clock_of_the_files(calls);
  watched_file file(directory.write("file", "one"));
  pass_seconds(10);
  directory.write("file", "two");
  EXPECT_TRUE(file.changed());
}

TEST(watched_file, contents_are_not_read_when_the_step_is_over) {
  const temporary_directory directory;
  const scripted_calls calls;
  stop_the_clock_of_the_files(calls);
  watched_file file(directory.write("file", "one"));
  int opened = 0;
  calls->refusal = [&](const char* call) {
    opened += call == std::string("open") ? 1 : 0;
    return 0;
  };
  EXPECT_FALSE(file.changed());
  EXPECT_EQ(opened, 1);
  pass_seconds(10);
  EXPECT_FALSE(file.changed());
  EXPECT_EQ(opened, 2);
  for (int i = 0; i < 10; ++i) EXPECT_FALSE(file.changed());
  EXPECT_EQ(opened, 2);
}

TEST(watched_file, each_part_of_the_status_tells_a_change) {
  const temporary_directory directory;
  const auto path = directory.write("file", "one");
  for (int part = 0; part < 6; ++part) {
    const scripted_calls calls;
    int current = -1;
    calls->stat = [&](const char* name, struct stat* status) {
      const int result = ::stat(name, status);
      if (current == 0) status->st_dev += 1;
      if (current == 1) status->st_ino += 1;
      if (current == 2) status->st_size += 1;
      if (current == 3) status->st_mtim.tv_nsec ^= 1;
      if (current == 4) status->st_ctim.tv_nsec ^= 1;
      return current == 5 ? -1 : result;
    };
    watched_file file{ORVA_NAMESPACE::strings::ustring8(path)};
    EXPECT_FALSE(file.changed());
    current = part;
    EXPECT_TRUE(file.changed()) << part;
  }
}

TEST(check_readable, file_that_may_not_be_opened_has_the_reason_of_the_system) {
  const temporary_directory directory;
  const scripted_calls calls;
  calls->refusal = [](const char* call) { return call == std::string("open") ? EACCES : 0; };
  const auto found = ORVA_NAMESPACE::config::check_readable(directory.write("file", "a = 1"));
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->code, "config.file_refused");
  EXPECT_EQ(sentence(*found), "The file cannot be opened: Permission denied");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(check_readable, file_of_2_gb_is_too_large) {
  const temporary_directory directory;
  const auto path = directory.write("file", "a = 1");
  const scripted_calls calls;
  off_t size = 0x7FFFFFFF;
  calls->stat = [&](const char* name, struct stat* status) {
    const int result = ::stat(name, status);
    status->st_size = size;
    return result;
  };
  EXPECT_FALSE(ORVA_NAMESPACE::config::check_readable(path).has_value());
  ++size;
  EXPECT_EQ(ORVA_NAMESPACE::config::check_readable(path)->code, "config.file_too_large");
}

TEST(watched_file, file_that_does_not_exist_is_not_read) {
  const temporary_directory directory;
  const scripted_calls calls;
  int opened = 0;
  calls->refusal = [&](const char* call) {
    opened += call == std::string("open") ? 1 : 0;
    return 0;
  };
  watched_file file{ORVA_NAMESPACE::strings::ustring8(directory.file("file"))};
  EXPECT_FALSE(file.changed());
  EXPECT_EQ(opened, 0);
}

}  // namespace
