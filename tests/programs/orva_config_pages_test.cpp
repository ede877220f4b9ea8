// The manual page and the completions of the program that the build writes, in man and in the shells.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/child_process.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// Runs a line of the shell with the pages in $pages and the drivers of the shells in $drivers.
std::string run(const std::string& line) {
  const orva_test::temporary_directory directory;
  directory.write("viewer.cfg", "");
  const auto result = orva_test::run_child(
      "/bin/sh", {"sh", "-c", "cd \"$HOME\"; " + line},
      {"PATH=" + std::string(std::getenv("PATH")), "HOME=" + directory.name(), "TMPDIR=" + directory.name(),
       "pages=" ORVA_CONFIG_PAGES "/orva-config", "drivers=" COMPLETION_DRIVERS, "LC_ALL=C.UTF-8",
       "MANWIDTH=80", "MANPAGER=cat", "MAN_KEEP_FORMATTING=", "TERM=dumb"});
  EXPECT_EQ(result.code, 0) << line;
  return result.output;
}

TEST(orva_config_pages, manual_page_is_shown_without_warnings) {
  EXPECT_EQ(run("man --warnings -E UTF-8 -Tutf8 -Z -l $pages.1 2>&1 >/dev/null"), "");
  EXPECT_THAT(run("man --warnings -E UTF-8 -l $pages.1 2>&1"),
              AllOf(HasSubstr("orva-config - Checks, reads and edits configuration files"),
                    HasSubstr("orva-config explain [OPTION]... FILE... KEY\n"), HasSubstr("--[no-]werror")));
}

TEST(orva_config_pages, bash_completes_commands_and_options) {
  const std::string shown =
      run("bash --norc --noprofile $drivers/bash_driver.sh $pages.bash 'orva-config ex' 'orva-config check "
          "--we'");
  EXPECT_EQ(shown, "> orva-config ex\nexplain\n> orva-config check --we\n--werror\n");
}

TEST(orva_config_pages, zsh_completes_commands_and_options) {
  const std::string shown =
      run("zsh -f $drivers/zsh_driver.zsh $pages.zsh 'orva-config ex' 'orva-config check --we'");
  EXPECT_THAT(shown,
              AllOf(HasSubstr("> orva-config ex\nexplain"), HasSubstr("--werror"), Not(HasSubstr("get"))));
}

TEST(orva_config_pages, fish_completes_commands_and_options) {
  const std::string shown =
      run("fish --no-config $drivers/fish_driver.fish $pages.fish 'orva-config ex' 'orva-config check --we'");
  EXPECT_EQ(shown,
            "> orva-config ex\nexplain\tShows where the value of a key comes from.\n"
            "> orva-config check --we\n--werror\tExit with 1 for warnings, too.\n");
}

}  // namespace
