// Which file a `file_item` reads when it loads by a list of items.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "orva/config/user_item.hpp"
#include "tests/config/config_files.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::config::user_item;

class file_search : public testing::Test {
 protected:
  /// Adds an item that has one key.
  void add(const std::string& key, const std::string& value) {
    user_item item;
    item.set(key, value, 0);
    items_.emplace_back(item.clone());
  }

  /// The name of the file that was loaded, relative to the directory, and the value of `k` in it.
  std::string found(const std::string& name = "") {
    file_item item(name);
    EXPECT_TRUE(item.load(items_));
    const std::string taken = item.get_filename();
    const std::string prefix = directory_.name() + separator;
    return (taken.starts_with(prefix) ? taken.substr(prefix.size()) : taken) + ' ' + value_of(item, "k");
  }

  temporary_directory directory_;
  working_directory current_{directory_.path()};
  item_list items_;
};

TEST_F(file_search, item_without_a_name_in_an_empty_list_finds_none) {
  EXPECT_EQ(found(), " (none)");
  directory_.write(".cfg", "k=1\n");
  EXPECT_EQ(found(), " (none)");
}

TEST_F(file_search, key_names_the_file) {
  add("cfg_file", directory_.write("a.cfg", "k=1\n"));
  EXPECT_EQ(found(), "a.cfg 1");
}

TEST_F(file_search, first_item_that_names_a_file_which_opens_decides) {
  directory_.make_directory("directory");
  directory_.write("target.cfg", "k=0\n");
  orva_test::make_link("target.cfg", directory_.file("link.cfg"));
  add("other", "x");
  add("cfg_file", directory_.file("missing.cfg"));
  add("cfg_file", directory_.file("directory"));
  add("cfg_file", directory_.file("link.cfg"));
  add("cfg_file", "");
  add("cfg_file", directory_.write("b.cfg", "k=2\n"));
  add("cfg_file", directory_.write("c.cfg", "k=3\n"));
  EXPECT_EQ(found(), "b.cfg 2");
}

TEST_F(file_search, key_goes_before_the_name_given) {
  add("cfg_file", directory_.write("a.cfg", "k=1\n"));
  EXPECT_EQ(found(directory_.write("named.cfg", "k=2\n")), "a.cfg 1");
}

TEST_F(file_search, given_name_is_used_if_the_key_names_no_file_that_opens) {
  add("cfg_file", directory_.file("missing.cfg"));
  add("application.name.raw", "app");
  directory_.write("app.cfg", "k=3\n");
  EXPECT_EQ(found(directory_.write("named.cfg", "k=2\n")), "named.cfg 2");
  EXPECT_EQ(found(directory_.file("not_there.cfg")), "not_there.cfg (none)") << "it is not tested";
}

TEST_F(file_search, program_gives_the_name_of_last_resort) {
  directory_.write("app.cfg", "k=3\n");
  add("application.name.raw", "missing");
  add("application.name.raw", "app");
  EXPECT_EQ(found(), "app.cfg 3");
}

TEST_F(file_search, program_without_a_dot_in_its_name_looks_for_a_file_without_a_name) {
  directory_.write("app.cfg", "k=3\n");
  directory_.write(".cfg", "k=4\n");
  add("application.name.raw", "");
  EXPECT_EQ(found(), ".cfg 4");
}

TEST_F(file_search, link_to_a_file_does_not_open) {
  directory_.write("target.cfg", "k=0\n");
  if (!orva_test::make_link("target.cfg", directory_.file("app.cfg"))) GTEST_SKIP() << orva_test::no_links;
  add("application.name.raw", "app");
  EXPECT_EQ(found(), " (none)");
}

TEST_F(file_search, any_value_serves_as_a_name) {
  user_item item;
  item.set("cfg_file", 17, 0);
  items_.emplace_back(item.clone());
  directory_.write("17", "k=5\n");
  EXPECT_EQ(found(), "17 5");
}

/// Its `load()` reads nothing.
class overriding_item : public file_item {
 public:
  using file_item::file_item;
  using file_item::load;
  bool load() override { return ++loads < 0; }
  int loads = 0;
};

TEST_F(file_search, load_by_the_list_reads_the_file_without_the_load_of_a_derived_class) {
  add("cfg_file", directory_.write("a.cfg", "k=1\n"));
  overriding_item item("");
  EXPECT_TRUE(item.load(items_));
  EXPECT_EQ(item.loads, 0);
  EXPECT_EQ(value_of(item, "k"), "1");
}

TEST_F(file_search, name_that_was_found_is_kept_for_the_next_load) {
  add("cfg_file", directory_.write("a.cfg", "k=1\n"));
  file_item item("");
  item.load(items_);
  directory_.write("a.cfg", "k=2\n");
  item.load();
  EXPECT_EQ(value_of(item, "k"), "2");
  EXPECT_TRUE(item.load(item_list()));
  EXPECT_EQ(item.get_filename(), directory_.file("a.cfg"));
}

TEST_F(file_search, item_asks_itself_when_it_is_in_the_list) {
  directory_.write("b.cfg", "k=2\n");
  items_.emplace_back(file_item(directory_.write("a.cfg", "cfg_file=b.cfg\nk=1\n")).clone());
  auto& item = static_cast<file_item&>(*items_.front());
  item.load(items_);
  EXPECT_EQ(value_of(item, "k"), "1");
  item.load(items_);
  EXPECT_EQ(value_of(item, "k"), "2");
}

}  // namespace
