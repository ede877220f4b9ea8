#include "orva/config/user_item.hpp"

#include <gtest/gtest.h>

#include "tests/support/config_item.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::config::user_item;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;

TEST(user_item, id_has_a_blank_and_that_of_a_copy_an_underscore) {
  const user_item item;
  EXPECT_EQ(item.get_id(), "user item");
  EXPECT_EQ(user_item(item).get_id(), "user_item");
  EXPECT_EQ(rc_pointer<base_config_item>(item.clone())->get_id(), "user_item");
  user_item assigned;
  assigned = user_item(item);
  EXPECT_EQ(assigned.get_id(), "user_item");
}

TEST(user_item, keeps_what_is_set_through_load_save_and_unload) {
  user_item item;
  item.set("a = b", 0);
  EXPECT_TRUE(item.load());
  EXPECT_TRUE(item.load(item_list()));
  EXPECT_TRUE(item.save());
  EXPECT_TRUE(item.save(item_list()));
  item.unload();
  EXPECT_EQ(value_of(item, "a"), "b");
  const rc_pointer<base_config_item> copy(item.clone());
  item.set("a = c", 0);
  EXPECT_EQ(value_of(*copy, "a"), "b");
}

}  // namespace
