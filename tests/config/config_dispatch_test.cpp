// The two dispatches of the library, and managers that use them.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/config_manager.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/module_config_dispatch.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/types/nil.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::config_manager;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::config::module_config_dispatch;
using ORVA_NAMESPACE::config::std_config_dispatch;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::types::variant;

std::string ids_of(const item_list& items) {
  std::string ids;
  for (const auto& item : items) ids += item->get_id() + ", ";
  return ids;
}

TEST(std_config_dispatch, order_of_items_is_command_line_file_environment) {
  item_list items;
  std_config_dispatch(0, nullptr, nullptr, "a", "b").setup(items);
  EXPECT_EQ(ids_of(items), "command line, standard file, enviroment, ");
  for (const auto& item : items) EXPECT_TRUE(item->is_created_dynamic());
  EXPECT_EQ(static_cast<file_item&>(**std::next(items.begin())).get_filename(), "a");
}

/// The name of the file of the second item.
std::string file_name_of(const std_config_dispatch& dispatch) {
  item_list items;
  dispatch.setup(items);
  return static_cast<file_item&>(**std::next(items.begin())).get_filename();
}

TEST(std_config_dispatch, takes_names_as_paths_and_views_of_each_width) {
  const std::string_view view = std::string_view("axb").substr(0, 1);
  const ORVA_NAMESPACE::strings::ustring16 wide(1, 'a');
  const std::filesystem::path path = "a";
  EXPECT_EQ(file_name_of(std_config_dispatch(0, nullptr, nullptr, view, "b")), "a");
  EXPECT_EQ(file_name_of(std_config_dispatch(0, nullptr, nullptr, path, path)), "a");
  EXPECT_EQ(file_name_of(std_config_dispatch(0, nullptr, nullptr, "a", path)), "a");
  EXPECT_EQ(file_name_of(std_config_dispatch(0, nullptr, nullptr, wide, std::string("b"))), "a");
}

TEST(std_config_dispatch, is_copied_assigned_and_cloned) {
  const std_config_dispatch original(0, nullptr, nullptr, "a", "b");
  std_config_dispatch copy(0, nullptr, nullptr, "x", "y");
  copy = original;
  const std::unique_ptr<std_config_dispatch> cloned(copy.clone());
  item_list items;
  cloned->setup(items);
  EXPECT_EQ(static_cast<file_item&>(**std::next(items.begin())).get_filename(), "a");
}

class std_config_manager : public testing::Test {
 protected:
  void start(const std::vector<std::string>& arguments, const std::string& file = "") {
    words_ = arguments;
    words_.insert(words_.begin(), "C:\\tools\\app.exe");
    argv_.clear();
    for (const std::string& word : words_) argv_.push_back(word.c_str());
    argv_.push_back(nullptr);
    config_.init(std_config_dispatch(static_cast<int>(words_.size()), argv_.data(), envp_, file, ""));
    EXPECT_FALSE(config_.value_exist("application.name")) << "init loads nothing";
    EXPECT_TRUE(config_.load());
  }

  std::string value(std::string_view key) const { return config_.get_value(key, "default").as_string(); }

  temporary_directory directory_;
  working_directory current_{directory_.path()};
  std::vector<std::string> words_;
  std::vector<const char*> argv_;
  const char* envp_[4] = {"E=environment", "F=environment", "CFG_FILE=environment.cfg", nullptr};
  config_manager config_;
};

TEST_F(std_config_manager, command_line_goes_before_the_file_and_the_file_before_the_environment) {
  directory_.write("app.cfg", "c=file\ne=file\ng=file\n");
  start({"-c=command"});
  EXPECT_EQ(value("c"), "command");
  EXPECT_EQ(value("g"), "file");
  EXPECT_EQ(value("e"), "file");
  EXPECT_EQ(value("f"), "environment");
  EXPECT_EQ(value("h"), "default");
}

TEST_F(std_config_manager, file_is_found_by_the_program_name_in_the_current_directory) {
  directory_.write("app.cfg", "k=v\n");
  start({});
  EXPECT_EQ(value("k"), "v");
  EXPECT_EQ(static_cast<file_item&>(*config_.get_config_item("standard file")).get_filename(), "app.cfg");
}

TEST_F(std_config_manager, command_line_names_the_file_and_the_environment_does_not) {
  directory_.write("app.cfg", "k=app\n");
  directory_.write("x.cfg", "k=x\n");
  directory_.write("environment.cfg", "k=environment\n");
  start({});
  EXPECT_EQ(value("k"), "app");
  start({"-cfg_file=x.cfg"});
  EXPECT_EQ(value("k"), "x");
  start({"-cfg_file=missing.cfg"});
  EXPECT_EQ(value("k"), "app");
}

TEST_F(std_config_manager, environment_names_the_file_of_a_second_load) {
  directory_.write("app.cfg", "k=app\n");
  directory_.write("environment.cfg", "k=environment\n");
  start({});
  EXPECT_TRUE(config_.load());
  EXPECT_EQ(value("k"), "environment");
}

TEST_F(std_config_manager, unload_empties_all_and_load_fills_them_again) {
  directory_.write("app.cfg", "k=1\n");
  start({"-c=2"});
  EXPECT_TRUE(config_.unload());
  for (const char* const key : {"k", "c", "e", "application.name"})
    EXPECT_FALSE(config_.value_exist(key)) << key;
  EXPECT_TRUE(config_.load());
  for (const char* const key : {"k", "c", "e", "application.name"})
    EXPECT_TRUE(config_.value_exist(key)) << key;
}

TEST_F(std_config_manager, save_of_the_manager_leaves_the_file_and_save_of_the_item_writes_it) {
  directory_.write("app.cfg", "# note\n[s]\nk=1\n");
  start({});
  const auto item = config_.get_config_item("standard file");
  item->set("s.k = 2", 0);
  EXPECT_TRUE(config_.save());
  EXPECT_EQ(directory_.read("app.cfg"), "# note\n[s]\nk=1\n");
  EXPECT_TRUE(item->save());
  EXPECT_EQ(directory_.read("app.cfg"), "[s]\r\nk=2\r\n\r\n");
}

TEST_F(std_config_manager, links_in_one_source_lead_to_another) {
  directory_.write("app.cfg", "target=file\n");
  start({"-target=command"});
  config_.get_config_item("enviroment")->set("alias", "target", 4);
  EXPECT_EQ(value("alias"), "command");
}

TEST_F(std_config_manager, dump_has_all_items_in_order) {
  directory_.write("app.cfg", "[s]\nk[]=a,b\n");
  start({"-c"});
  std::ostringstream stream;
  stream << config_;
  EXPECT_EQ(stream.str(),
            "config_manager:\n"
            "\nconfig_item:\n"
            "object : command line\n"
            "|---------------\\\n"
            "|\t\tapplication : true\n"
            "|\t\t|---------------\\\n"
            "|\t\t|\t\tname : 1 app.exe\n"
            "|\t\t|\t\t|---------------\\\n"
            "|\t\t|\t\t|\t\textention : 1 exe\n"
            "|\t\t|\t\t|\t\t|\n"
            "|\t\t|\t\t|\t\traw : 1 app\n"
            "|\t\t|\t\t|\t\t|\n"
            "|\t\t|\t\t|\t\tend\n"
            "|\t\t|\t\tend\n"
            "|\t\tc : 1 \n"
            "|\t\t|\n"
            "|\t\tend\n"
            "end\n"
            "\nconfig_item:\n"
            "object : standard file\n"
            "|---------------\\\n"
            "|\t\ts : true\n"
            "|\t\t|---------------\\\n"
            "|\t\t|\t\tk : 3 \n"
            "|\t\t|\t\t|---------------\\\n"
            "|\t\t|\t\t|\t\t0 : 1 a\n"
            "|\t\t|\t\t|\t\t|\n"
            "|\t\t|\t\t|\t\t1 : 1 b\n"
            "|\t\t|\t\t|\t\t|\n"
            "|\t\t|\t\t|\t\tend\n"
            "|\t\t|\t\tend\n"
            "|\t\tend\n"
            "end\n"
            "\nconfig_item:\n"
            "object : enviroment\n"
            "|---------------\\\n"
            "|\t\tcfg_file : 1 environment.cfg\n"
            "|\t\t|\n"
            "|\t\te : 1 environment\n"
            "|\t\t|\n"
            "|\t\tf : 1 environment\n"
            "|\t\t|\n"
            "|\t\tend\n"
            "end\n"
            "\nno more config_items!\n\nending output\n");
}

TEST(std_config_dispatch, negative_count_of_arguments_is_none) {
  const char* const argv[] = {"app.exe", "-a=1", nullptr};
  config_manager config;
  config.init(std_config_dispatch(-1, argv, nullptr, "", ""));
  EXPECT_TRUE(config.load());
  EXPECT_FALSE(config.value_exist("a"));
  EXPECT_TRUE(config.value_exist("application.name"));
}

TEST(module_config_dispatch, order_of_items_is_files_environment_user) {
  item_list items;
  const varg_list files(argument("first", "a"), argument("b"), argument("first2", 17));
  module_config_dispatch(files, nullptr).setup(items);
  EXPECT_EQ(ids_of(items), "standard file, standard file, standard file, enviroment, user_item, ");
  std::string names;
  for (const auto& item : items) {
    EXPECT_TRUE(item->is_created_dynamic());
    if (const auto* const file = dynamic_cast<file_item*>(item.get())) names += file->get_filename() + " ";
  }
  EXPECT_EQ(names, "a b 17 ");
}

TEST(module_config_dispatch, first_file_goes_before_the_second_and_the_user_values_come_last) {
  const temporary_directory directory;
  const varg_list files(argument(directory.write("a.cfg", "k=a\n")),
                        argument(directory.write("b.cfg", "k=b\nj=b\n")));
  const char* const envp[] = {"K=environment", "E=environment", nullptr};
  config_manager config;
  config.init(module_config_dispatch(files, envp));
  EXPECT_EQ(config.get_config_item("user item"), nullptr);
  const auto user = config.get_config_item("user_item");
  ASSERT_TRUE(user);
  for (const char* const key : {"k", "j", "e", "u"}) user->set(key, "user", 0);
  EXPECT_TRUE(config.load());
  EXPECT_EQ(config.get_value("k").as_string(), "a");
  EXPECT_EQ(config.get_value("j").as_string(), "b");
  EXPECT_EQ(config.get_value("e").as_string(), "environment");
  EXPECT_EQ(config.get_value("u").as_string(), "user");
  EXPECT_TRUE(config.unload());
  EXPECT_EQ(config.get_value("k").as_string(), "user") << "program-set values stay";
}

TEST(module_config_dispatch, takes_files_as_paths_and_views) {
  const temporary_directory directory;
  const std::filesystem::path path = directory.path() / u8"\u00E4.cfg";
  const std::string name = directory.write("\xC3\xA4.cfg", "colour = red");
  config_manager manager;
  manager.init(module_config_dispatch(varg_list(argument(path)), nullptr));
  manager.load();
  EXPECT_EQ(manager.get_value("colour").as_utf8(), "red");
  config_manager other;
  other.init(module_config_dispatch(varg_list(argument(std::string_view(name))), nullptr));
  other.load();
  EXPECT_EQ(other.get_value("colour").as_utf8(), "red");
}

TEST(module_config_dispatch, is_copied_assigned_and_cloned) {
  const module_config_dispatch original(varg_list(argument("a")), nullptr);
  module_config_dispatch copy(varg_list(), nullptr);
  copy = original;
  const std::unique_ptr<module_config_dispatch> cloned(copy.clone());
  item_list items;
  cloned->setup(items);
  EXPECT_EQ(ids_of(items), "standard file, enviroment, user_item, ");
}

TEST(module_config_dispatch, every_file_can_be_replaced_by_the_key) {
  const temporary_directory directory;
  config_manager config;
  config.init(module_config_dispatch(varg_list(argument(directory.write("a.cfg", "k=a\n"))), nullptr));
  config.get_config_item("user_item")->set("cfg_file", directory.write("b.cfg", "k=b\n"), 0);
  config.load();
  EXPECT_EQ(config.get_value("k").as_string(), "b");
}

}  // namespace
