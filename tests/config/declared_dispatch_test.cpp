#include "orva/config/declared_dispatch.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "orva/config/config_manager.hpp"
#include "orva/config/explain.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/declared_program.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using namespace ORVA_NAMESPACE::config;

declaration viewer() {
  declaration declared("viewer");
  declared.add(setting("threads", integer()).by_default(4).environment("THREADS"));
  declared.add(setting("cache", byte_size()).by_default("10 MiB"));
  declared.add(setting("verbose", flag()));
  declared.add(setting("paths", list_of(file_path())).by_default("a", "b"));
  return declared;
}

TEST(a_declared_dispatch, documentation_example) {
  const word_list words({"viewer", "--threads", "8"});
  const word_list environment({});
  config_manager config;
  config.init(declared_dispatch(viewer(), words.size(), words.data(), environment.data()));
  config.load();
  EXPECT_EQ(config.get_value("threads").as_int32(), 8);
}

TEST(a_declared_dispatch, sets_up_the_sources_in_order) {
  declaration declared = viewer();
  declared.add(setting("cfg_file", file_path()));
  settings_options options;
  options.files = {"one.cfg", "two.cfg"};
  item_list items;
  declared_dispatch(declared, 0, nullptr, nullptr, options).setup(items);
  std::vector<std::string> ids;
  for (const auto& item : items) ids.push_back(item->get_id());
  EXPECT_EQ(ids, (std::vector<std::string>{"command line", "standard file", "standard file", "standard file",
                                           "enviroment", "user_item"}));
  items.clear();
  declared_dispatch(viewer(), 0, nullptr).setup(items);
  EXPECT_EQ(items.size(), 3u);
}

TEST(a_declared_dispatch, gives_the_texts_of_each_source) {
  const word_list words({"viewer", "--cache=20 MiB", "--verbose", "--paths=x,y"});
  const word_list environment({"THREADS=many", "CACHE=3", "threads=4"});
  config_manager config;
  config.init(declared_dispatch(viewer(), words.size(), words.data(), environment.data()));
  config.load();
  EXPECT_EQ(config.get_value("cache").as_string(), "20 MiB");
  EXPECT_TRUE(config.get_value("verbose").as_bool());
  EXPECT_EQ(config.get_value("threads").as_string(), "many");
  EXPECT_EQ(array_of(*config.get_config_item("command line"), "paths"), std::vector<std::string>{"x,y"});
  EXPECT_EQ(array_of(*config.get_config_item("user_item"), "paths"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(value_of(*config.get_config_item("user_item"), "cache"), "10 MiB");
  EXPECT_EQ(value_of(*config.get_config_item("user_item"), "verbose"), "(none)");
  EXPECT_EQ(value_of(*config.get_config_item("enviroment"), "cache"), "(none)");
}

TEST(a_declared_dispatch, follows_links_and_lets_the_program_set_values) {
  const word_list words({"viewer", "--threads", "8"});
  config_manager config;
  config.init(declared_dispatch(viewer(), words.size(), words.data()));
  config.load();
  config.get_config_item("user_item")->set("workers", "threads", config_tree::NODE_LINK);
  EXPECT_EQ(config.get_value("workers").as_int(), 8);
  config.get_config_item("command line")->set("threads", 16, 0);
  EXPECT_EQ(config.get_value("workers").as_int(), 16);
}

TEST(a_declared_dispatch, explains_its_values) {
  const word_list words({"viewer", "--threads", "8", "--paths=x", "--paths=y"});
  const word_list environment({"THREADS=4"});
  config_manager config;
  config.init(declared_dispatch(viewer(), words.size(), words.data(), environment.data()));
  config.load();
  std::ostringstream text;
  write_text(text, explain(config, "threads"));
  EXPECT_EQ(text.str(),
            "key      source                 value  result\n"
            "threads  argument 2: --threads  8      used\n"
            "threads  variable THREADS       4      hidden\n"
            "threads  default                4      hidden\n");
  const auto paths = explain(config, "paths");
  ASSERT_GE(paths.steps.size(), 2u);
  EXPECT_EQ(paths.steps[0].origin.argument, 3u);
  EXPECT_EQ(explain(config, "Paths/1").steps.at(0).origin.argument, 4u);
  EXPECT_EQ(explain(config, "paths.2").steps.at(0).origin.kind, origin_kind::none);
  config.get_config_item("command line")->set("threads", 9, 0);
  EXPECT_EQ(explain(config, "threads").steps.at(0).origin.kind, origin_kind::program);
  EXPECT_EQ(explain(config, "cache").steps.at(0).origin.kind, origin_kind::none);
}

TEST(a_declared_dispatch, loads_again_after_unloading) {
  const temporary_directory directory;
  settings_options options;
  options.files = {directory.file("viewer.cfg")};
  std::ofstream(options.files[0]) << "threads = 2\nother = 1\n";
  const word_list words({"viewer", "--verbose"});
  config_manager config;
  config.init(declared_dispatch(viewer(), words.size(), words.data(), nullptr, options));
  EXPECT_EQ(config.get_value("threads").as_int(), 0) << "nothing is loaded";
  config.load();
  EXPECT_EQ(config.get_value("threads").as_int(), 2);
  EXPECT_EQ(config.get_value("other").as_int(), 1);
  config.unload();
  EXPECT_FALSE(config.value_exist("verbose"));
  std::ofstream(options.files[0]) << "threads = 3\n";
  config.load();
  EXPECT_EQ(config.get_value("threads").as_int(), 3);
  EXPECT_TRUE(config.get_value("verbose").as_bool());
  EXPECT_FALSE(config.value_exist("other"));
}

}  // namespace
