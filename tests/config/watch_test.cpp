// Settings that follow their files, on the real file system.
#include "orva/config/watch.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "orva/config/linked_file_item.hpp"
#include "orva/config/module_config_dispatch.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/system/replace_file.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

namespace config = ORVA_NAMESPACE::config;
namespace generic = ORVA_NAMESPACE::generic;
namespace sys = ORVA_NAMESPACE::system;
using config::link_following_dispatch;
using config::std_config_dispatch;
using config::watch;
using orva_test::temporary_directory;
using orva_test::working_directory;

std::string value_in(const watch& settings, std::string_view key) {
  return settings.current()->get_value(key, "default").as_string();
}

std_config_dispatch dispatch_of(const std::string& file) { return {0, nullptr, nullptr, file, ""}; }

TEST(watch, documentation_example) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "[window]\nwidth = 1024\n");
  watch settings(dispatch_of(file));
  EXPECT_FALSE(settings.changed());
  directory.write("app.cfg", "[window]\nwidth = 800\n");
  if (settings.changed()) settings.reload();
  const auto config = settings.current();
  EXPECT_EQ(config->get_value("window.width", 640).as_int32(), 800);
  EXPECT_FALSE(settings.changed());
}

TEST(watch, contents_of_the_same_size_written_at_once_are_a_change) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 0\n");
  watch settings(dispatch_of(file));
  for (int i = 1; i < 10; ++i) {
    directory.write("app.cfg", "a = " + std::to_string(i) + "\n");
    ASSERT_TRUE(settings.changed()) << i;
    settings.reload();
    ASSERT_EQ(value_in(settings, "a"), std::to_string(i));
  }
}

TEST(watch, file_that_comes_and_goes_is_a_change) {
  const temporary_directory directory;
  watch settings(dispatch_of(directory.file("app.cfg")));
  EXPECT_FALSE(settings.changed());
  EXPECT_EQ(value_in(settings, "a"), "default");
  directory.write("app.cfg", "a = 1");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "1");
  std::filesystem::remove(directory.path() / "app.cfg");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "default");
  EXPECT_FALSE(settings.changed());
}

TEST(watch, replaced_file_of_the_same_contents_is_a_change) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1");
  watch settings(dispatch_of(file));
  ASSERT_EQ(sys::replace_file(file, "a = 1").code, sys::replace_file_result::error::none);
  EXPECT_TRUE(settings.changed());
}

TEST(watch, change_is_reported_until_the_reload) {
  const temporary_directory directory;
  watch settings(dispatch_of(directory.file("app.cfg")));
  directory.write("app.cfg", "a = 1");
  EXPECT_TRUE(settings.changed());
  EXPECT_TRUE(settings.changed());
  EXPECT_EQ(value_in(settings, "a"), "default");
}

TEST(watch, exchanged_directory_is_a_change) {
  const temporary_directory directory;
  directory.write("first/app.cfg", "a = 1");
  directory.write("second/app.cfg", "a = 2");
  std::error_code refused;
  std::filesystem::create_directory_symlink("first", directory.path() / "data", refused);
  if (refused) GTEST_SKIP() << "no links here";
  watch settings(dispatch_of(directory.file("data/app.cfg")));
  EXPECT_EQ(value_in(settings, "a"), "1");
  // As an orchestrator does it: a new link is renamed over the old one.
  std::filesystem::create_directory_symlink("second", directory.path() / "next");
  std::filesystem::rename(directory.path() / "next", directory.path() / "data");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "2");
}

TEST(watch, exchanged_link_is_a_change_where_links_are_followed) {
  const temporary_directory directory;
  directory.write("first.cfg", "a = 1");
  directory.write("second.cfg", "a = 2");
  std::error_code refused;
  std::filesystem::create_symlink("first.cfg", directory.path() / "app.cfg", refused);
  if (refused) GTEST_SKIP() << "no links here";
  watch settings(link_following_dispatch(dispatch_of(directory.file("app.cfg"))));
  EXPECT_EQ(value_in(settings, "a"), "1");
  std::filesystem::create_symlink("second.cfg", directory.path() / "next");
  std::filesystem::rename(directory.path() / "next", directory.path() / "app.cfg");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "2");
  directory.write("second.cfg", "a = 3");
  EXPECT_TRUE(settings.changed());
}

TEST(watch, file_named_on_the_command_line_may_come_later) {
  const temporary_directory directory;
  const auto usual = directory.write("usual.cfg", "a = usual");
  const auto named = "-cfg_file=" + directory.file("named.cfg");
  const char* const arguments[] = {"app.exe", named.c_str(), nullptr};
  watch settings(std_config_dispatch(2, arguments, nullptr, usual, ""));
  EXPECT_EQ(value_in(settings, "a"), "usual");
  directory.write("named.cfg", "a = named");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "named");
  std::filesystem::remove(directory.path() / "named.cfg");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "usual");
}

TEST(watch, file_of_the_programs_name_may_come_later) {
  const temporary_directory directory;
  const working_directory change(directory.name());
  const char* const arguments[] = {"app.exe", nullptr};
  watch settings(std_config_dispatch(1, arguments, nullptr, "", ""));
  EXPECT_FALSE(settings.changed());
  directory.write("app.cfg", "a = 1");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "1");
}

TEST(watch, environment_does_not_name_the_file_on_a_reload_either) {
  const temporary_directory directory;
  const auto usual = directory.write("usual.cfg", "a = usual");
  const auto named = "CFG_FILE=" + directory.write("named.cfg", "a = named");
  const char* const environment[] = {named.c_str(), nullptr};
  watch settings(std_config_dispatch(0, nullptr, environment, usual, ""));
  EXPECT_EQ(value_in(settings, "a"), "usual");
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "usual");
}

TEST(watch, all_files_of_a_module_are_watched) {
  const temporary_directory directory;
  const auto first = directory.file("first.cfg");
  const auto second = directory.write("second.cfg", "a = 2");
  watch settings(config::module_config_dispatch(
      generic::varg_list(generic::argument(first), generic::argument(second)), nullptr));
  EXPECT_EQ(settings.files(), (std::vector<ORVA_NAMESPACE::strings::ustring8>{first, second}));
  directory.write("first.cfg", "a = 1");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_EQ(value_in(settings, "a"), "1");
}

TEST(watch, added_file_is_watched_after_a_reload_too) {
  const temporary_directory directory;
  const auto own = directory.file("own.txt");
  watch settings(dispatch_of(directory.file("app.cfg")));
  settings.add_file(own);
  directory.write("own.txt", "1");
  EXPECT_TRUE(settings.changed());
  settings.reload();
  EXPECT_FALSE(settings.changed());
  directory.write("own.txt", "22");
  EXPECT_TRUE(settings.changed());
}

TEST(watch, refused_manager_is_not_used_and_not_offered_again) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1");
  watch settings(dispatch_of(file));
  directory.write("app.cfg", "a = wrong");
  EXPECT_TRUE(settings.changed());
  EXPECT_FALSE(settings.reload([](const auto& next) { return next.get_value("a").as_string() != "wrong"; }));
  EXPECT_EQ(value_in(settings, "a"), "1");
  EXPECT_FALSE(settings.changed());
  directory.write("app.cfg", "a = 22");
  EXPECT_TRUE(settings.changed());
  EXPECT_TRUE(settings.reload([](const auto& next) { return next.get_value("a").as_string() != "wrong"; }));
  EXPECT_EQ(value_in(settings, "a"), "22");
}

TEST(watch, check_that_throws_leaves_all_as_it_was) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1");
  watch settings(dispatch_of(file));
  directory.write("app.cfg", "a = 22");
  EXPECT_THROW(settings.reload([](const auto&) -> bool { throw 5; }), int);
  EXPECT_EQ(value_in(settings, "a"), "1");
  EXPECT_TRUE(settings.changed());
}

TEST(watch, reader_keeps_the_manager_that_it_has) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1");
  watch settings(dispatch_of(file));
  const auto before = settings.current();
  directory.write("app.cfg", "a = 2");
  settings.reload();
  EXPECT_EQ(before->get_value("a").as_string(), "1");
  EXPECT_EQ(value_in(settings, "a"), "2");
}

TEST(watch, readers_in_other_threads_see_whole_managers) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 0\nb = 0\n");
  watch settings(dispatch_of(file));
  std::atomic<bool> done = false;
  std::atomic<int> mixed = 0;
  const auto read = [&] {
    while (!done) {
      const auto now = settings.current();
      if (now->get_value("a").as_string() != now->get_value("b").as_string()) ++mixed;
    }
  };
  std::thread first(read), second(read);
  for (int i = 1; i <= 200; ++i) {
    const auto text = "a = " + std::to_string(i) + "\nb = " + std::to_string(i) + "\n";
    EXPECT_EQ(sys::replace_file(file, text).code, sys::replace_file_result::error::none);
    EXPECT_TRUE(settings.changed());
    settings.reload();
  }
  done = true;
  first.join();
  second.join();
  EXPECT_EQ(mixed, 0);
  EXPECT_EQ(value_in(settings, "a"), "200");
}

}  // namespace
