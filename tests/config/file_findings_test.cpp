// Which configuration files are not read, and reading through symbolic links.
#include "orva/config/file_findings.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "orva/config/linked_file_item.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/diagnostics/write.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

namespace config = ORVA_NAMESPACE::config;
namespace diagnostics = ORVA_NAMESPACE::diagnostics;
using config::check_files;
using config::check_readable;
using config::config_manager;
using config::file_links;
using config::link_following_dispatch;
using config::std_config_dispatch;
using diagnostics::severity;
using orva_test::temporary_directory;
using orva_test::working_directory;

std::string code_of(const std::optional<diagnostics::finding>& found) { return found ? found->code : "none"; }

bool can_link(const temporary_directory& directory, const std::string& name, const std::string& target) {
  std::error_code refused;
  std::filesystem::create_symlink(target, directory.path() / name, refused);
  return !refused;
}

config_manager loaded(const config::config_dispatch& dispatch) {
  config_manager manager;
  manager.init(dispatch);
  manager.load();
  return manager;
}

std::string codes_in(const diagnostics::report& found) {
  std::string codes;
  for (const auto& each : found.findings()) codes += each.file + ":" + each.code + " ";
  return codes;
}

TEST(check_files, documentation_example) {
  const temporary_directory directory;
  const working_directory change(directory.name());
  const auto manager = loaded(std_config_dispatch(0, nullptr, nullptr, "app.cfg", ""));
  diagnostics::report found;
  check_files(manager, found, severity::error);
  std::ostringstream stream;
  write_text(stream, found);
  EXPECT_EQ(stream.str(), "app.cfg: error: The file does not exist. [config.file_missing]\n");
}

TEST(check_readable, readable_file_is_no_finding) {
  const temporary_directory directory;
  EXPECT_EQ(code_of(check_readable(directory.write("a.cfg", "a = 1"))), "none");
  EXPECT_EQ(code_of(check_readable(directory.write("empty.cfg", ""))), "none");
}

TEST(check_readable, missing_file_and_missing_directory_are_missing) {
  const temporary_directory directory;
  directory.write("file", "");
  EXPECT_EQ(code_of(check_readable(directory.file("a.cfg"))), "config.file_missing");
  EXPECT_EQ(code_of(check_readable(directory.file("none/a.cfg"))), "config.file_missing");
  EXPECT_EQ(code_of(check_readable(directory.file("file/a.cfg"))), "config.file_missing");
  EXPECT_EQ(code_of(check_readable("")), "config.file_missing");
  EXPECT_EQ(code_of(check_readable(std::string("a\0b", 3))), "config.file_missing");
}

TEST(check_readable, path_that_the_system_refuses_has_its_reason) {
  const temporary_directory directory;
  const auto found = check_readable(directory.file(std::string(300, 'a')));
  ASSERT_TRUE(found.has_value());
  if (found->code == "config.file_missing") GTEST_SKIP() << "long names are missing files here";
  EXPECT_EQ(found->code, "config.file_refused");
  EXPECT_EQ(sentence(*found),
            "The file cannot be opened: " + std::make_error_code(std::errc::filename_too_long).message());
}

TEST(check_readable, severity_is_that_of_the_caller) {
  const temporary_directory directory;
  EXPECT_EQ(check_readable(directory.file("a.cfg"))->level, severity::warning);
  EXPECT_EQ(check_readable(directory.file("a.cfg"), severity::error)->level, severity::error);
}

TEST(check_readable, directory_is_no_file) {
  const temporary_directory directory;
  EXPECT_EQ(code_of(check_readable(directory.name())), "config.file_not_a_file");
}

TEST(check_readable, link_is_a_finding_unless_links_are_followed) {
  const temporary_directory directory;
  directory.write("real.cfg", "a = 1");
  if (!can_link(directory, "link.cfg", "real.cfg")) GTEST_SKIP() << "no links here";
  ASSERT_TRUE(can_link(directory, "lost.cfg", "missing.cfg"));
  const auto found = check_readable(directory.file("link.cfg"));
  EXPECT_EQ(code_of(found), "config.file_is_link");
  EXPECT_EQ(sentence(*found),
            "The file is a symbolic link to " + directory.file("real.cfg") + ", which is not followed.");
  EXPECT_EQ(code_of(check_readable(directory.file("link.cfg"), severity::error, file_links::followed)),
            "none");
  EXPECT_EQ(code_of(check_readable(directory.file("lost.cfg"), severity::error, file_links::followed)),
            "config.file_missing");
  ASSERT_TRUE(can_link(directory, "circle.cfg", "circle.cfg"));
  EXPECT_EQ(code_of(check_readable(directory.file("circle.cfg"))), "config.file_is_link");
  EXPECT_EQ(code_of(check_readable(directory.file("circle.cfg"), severity::error, file_links::followed)),
            "config.file_refused");
}

TEST(check_files, files_that_are_named_are_checked_once) {
  const temporary_directory directory;
  const auto named = "-cfg_file=" + directory.file("named.cfg");
  const char* const arguments[] = {"app.exe", named.c_str(), nullptr};
  const auto manager = loaded(std_config_dispatch(2, arguments, nullptr, directory.file("named.cfg"), ""));
  diagnostics::report found;
  check_files(manager, found);
  EXPECT_EQ(codes_in(found), directory.file("named.cfg") + ":config.file_missing ");
}

TEST(check_files, file_that_replaces_a_missing_one_by_name_is_no_finding) {
  const temporary_directory directory;
  directory.write("named.cfg", "a = 1");
  const auto named = "-cfg_file=" + directory.file("named.cfg");
  const char* const arguments[] = {"app.exe", named.c_str(), nullptr};
  const auto manager = loaded(std_config_dispatch(2, arguments, nullptr, directory.file("default.cfg"), ""));
  diagnostics::report found;
  check_files(manager, found);
  EXPECT_TRUE(found.empty()) << codes_in(found);
}

TEST(check_files, named_file_that_is_missing_is_a_finding_where_the_usual_one_is_read) {
  const temporary_directory directory;
  const auto usual = directory.write("usual.cfg", "a = 1");
  const auto named = "-cfg_file=" + directory.file("named.cfg");
  const char* const arguments[] = {"app.exe", named.c_str(), nullptr};
  const auto manager = loaded(std_config_dispatch(2, arguments, nullptr, usual, ""));
  diagnostics::report found;
  check_files(manager, found);
  EXPECT_EQ(codes_in(found), directory.file("named.cfg") + ":config.file_missing ");
}

TEST(check_files, names_that_no_load_uses_are_not_checked) {
  const temporary_directory directory;
  const working_directory change(directory.name());
  const char* const arguments[] = {"app.exe", nullptr};
  const char* const environment[] = {"CFG_FILE=none.cfg", nullptr};
  const auto manager = loaded(std_config_dispatch(1, arguments, environment, "", ""));
  diagnostics::report found;
  check_files(manager, found);
  EXPECT_TRUE(found.empty()) << codes_in(found);
}

TEST(linked_file_item, documentation_example) {
  const temporary_directory directory;
  directory.write("etc/real.cfg", "a = 1");
  if (!can_link(directory, "app.cfg", orva_test::native(std::string("etc/real.cfg"))))
    GTEST_SKIP() << "no links here";
  const std_config_dispatch dispatch(0, nullptr, nullptr, directory.file("app.cfg"), "");
  EXPECT_FALSE(loaded(dispatch).value_exist("a"));
  const auto manager = loaded(link_following_dispatch(dispatch));
  EXPECT_EQ(manager.get_value("a").as_string(), "1");
  diagnostics::report found;
  check_files(manager, found);
  EXPECT_TRUE(found.empty());
  check_files(loaded(dispatch), found);
  EXPECT_EQ(codes_in(found), directory.file("app.cfg") + ":config.file_is_link ");
}

TEST(linked_file_item, named_file_may_be_a_link) {
  const temporary_directory directory;
  directory.write("real.cfg", "a = 1");
  if (!can_link(directory, "app.cfg", "real.cfg")) GTEST_SKIP() << "no links here";
  const auto named = "-cfg_file=" + directory.file("app.cfg");
  const char* const arguments[] = {"app.exe", named.c_str(), nullptr};
  const std_config_dispatch dispatch(2, arguments, nullptr, directory.file("default.cfg"), "");
  EXPECT_EQ(loaded(link_following_dispatch(dispatch)).get_value("a").as_string(), "1");
}

TEST(linked_file_item, follows_its_link_at_each_load) {
  const temporary_directory directory;
  directory.write("first.cfg", "a = 1");
  directory.write("second.cfg", "a = 2");
  if (!can_link(directory, "app.cfg", "first.cfg")) GTEST_SKIP() << "no links here";
  config::linked_file_item item(directory.file("app.cfg"));
  EXPECT_TRUE(item.load());
  EXPECT_EQ(item.get_value("a")->second.as_string(), "1");
  std::filesystem::remove(directory.path() / "app.cfg");
  ASSERT_TRUE(can_link(directory, "app.cfg", "second.cfg"));
  EXPECT_TRUE(item.load());
  EXPECT_EQ(item.get_value("a")->second.as_string(), "2");
}

TEST(linked_file_item, save_does_not_write_through_a_link) {
  const temporary_directory directory;
  directory.write("real.cfg", "[s]\na = 1\n");
  if (!can_link(directory, "app.cfg", "real.cfg")) GTEST_SKIP() << "no links here";
  config::linked_file_item item(directory.file("app.cfg"));
  EXPECT_TRUE(item.load());
  item.set("s.a", "2", 0);
  EXPECT_TRUE(item.save());
  EXPECT_EQ(directory.read("real.cfg"), "[s]\na = 1\n");
  EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "app.cfg"));
}

TEST(linked_file_item, has_file_id_and_values_of_the_item_that_it_is_made_from) {
  const temporary_directory directory;
  config::file_item plain(directory.write("app.cfg", "a = 1"));
  EXPECT_TRUE(plain.load());
  const config::linked_file_item linked(plain);
  EXPECT_EQ(linked.get_filename(), plain.get_filename());
  EXPECT_EQ(linked.get_id(), plain.get_id());
  EXPECT_EQ(linked.get_value("a")->second.as_string(), "1");
}

TEST(linked_file_item, reads_plain_files_as_before) {
  const temporary_directory directory;
  config::linked_file_item item(directory.write("app.cfg", "a = 1"));
  EXPECT_TRUE(item.load());
  EXPECT_EQ(item.get_value("a")->second.as_string(), "1");
  EXPECT_EQ(item.get_id(), "standard file");
  config::linked_file_item missing(directory.file("missing.cfg"));
  EXPECT_TRUE(missing.load());
  EXPECT_EQ(missing.get_value("a"), nullptr);
}

}  // namespace
