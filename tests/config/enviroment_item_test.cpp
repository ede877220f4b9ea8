#include "orva/config/enviroment_item.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/config_item.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::enviroment_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;

TEST(enviroment_item, entries_are_read_as_expressions) {
  const char* const envp[] = {"HOME=/home/ann",
                              "P=C:\\Program Files",
                              "Q=\"C:\\Program Files\"",
                              "A.B=1",
                              "Path/Part=2",
                              "EMPTY=",
                              "FLAG",
                              "M=a=b",
                              "=C:=C:\\dir",
                              "L=first\nsecond",
                              "URL=http://x#y",
                              "LIST[]=a,b",
                              nullptr};
  enviroment_item item(envp);
  EXPECT_TRUE(item.load());
  EXPECT_EQ(value_of(item, "home"), "/home/ann");
  EXPECT_EQ(value_of(item, "p"), "C:\\ProgramFiles");
  EXPECT_EQ(value_of(item, "q"), "C:\\Program Files");
  EXPECT_EQ(value_of(item, "a.b"), "1");
  EXPECT_EQ(value_of(item, "path.part"), "2");
  EXPECT_EQ(value_of(item, "empty"), "");
  EXPECT_EQ(flags_of(item, "flag"), 1);
  EXPECT_EQ(value_of(item, "m"), "a=b");
  EXPECT_EQ(value_of(item, ""), "C:=C:\\dir");
  EXPECT_EQ(value_of(item, "l"), "first");
  EXPECT_EQ(value_of(item, "url"), "http://x#y") << "there are no comments";
  EXPECT_EQ(value_of(item, "list[]"), "a,b") << "there are no arrays";
  EXPECT_EQ(item.get_value("home")->second.type(), typeid(ORVA_NAMESPACE::strings::ustring8));
}

TEST(enviroment_item, block_may_be_null_or_empty) {
  const char* const none[] = {nullptr};
  for (const char* const* const envp : {static_cast<const char* const*>(nullptr), none}) {
    enviroment_item item(envp);
    EXPECT_TRUE(item.load());
    EXPECT_EQ(listing_of(item), std::vector<std::string>{});
    EXPECT_EQ(item.get_envp(), envp);
  }
}

TEST(enviroment_item, id_is_spelled_as_programs_ask_for_it) {
  const enviroment_item item(nullptr);
  EXPECT_EQ(item.get_id(), "enviroment");
  EXPECT_EQ(enviroment_item(item).get_id(), "enviroment");
  EXPECT_EQ(rc_pointer<base_config_item>(item.clone())->get_id(), "enviroment");
}

TEST(enviroment_item, unload_empties_it_and_load_fills_it_again) {
  const char* const envp[] = {"A=1", nullptr};
  enviroment_item item(envp);
  EXPECT_TRUE(item.load(item_list()));
  const rc_pointer<base_config_item> copy(item.clone());
  item.unload();
  EXPECT_EQ(value_of(item, "a"), "(none)");
  EXPECT_EQ(value_of(*copy, "a"), "1");
  item.load();
  EXPECT_EQ(value_of(item, "a"), "1");
  EXPECT_TRUE(item.save());
}

}  // namespace
