#include "orva/config/config_manager.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orva/types/nil.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::config_dispatch;
using ORVA_NAMESPACE::config::config_manager;
using ORVA_NAMESPACE::config::config_tree;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using ORVA_NAMESPACE::strings::ustring8;
using ORVA_NAMESPACE::types::nil;
using ORVA_NAMESPACE::types::variant;

constexpr unsigned int link = config_tree::NODE_LINK;

/// A dispatch with the items "0", "1", ... It logs its calls and counts its live objects.
class logging_dispatch : public config_dispatch {
 public:
  explicit logging_dispatch(int count) : count_(count) { ++alive; }
  logging_dispatch(const logging_dispatch& other) : config_dispatch(other), count_(other.count_) { ++alive; }
  ~logging_dispatch() override { --alive; }

  void setup(item_list& items) const override {
    for (int i = 0; i < count_; ++i) {
      plain_item item;
      item.name(std::to_string(i));
      append(items, item);
    }
  }
  void load(item_list& items) const override {
    log += "load " + std::to_string(items.size()) + ' ';
    load_each(items);
  }
  void unload(item_list& items) const override {
    log += "unload ";
    unload_each(items);
  }
  void save(item_list& items) const override {
    log += "save ";
    save_each(items);
  }
  logging_dispatch* clone() const override { return new logging_dispatch(*this); }

  inline static int alive = 0;
  inline static std::string log;

 private:
  int count_;
};

class config_manager_reads : public testing::Test {
 protected:
  config_manager_reads() { config_.init(logging_dispatch(3)); }

  base_config_item& item(const char* id) { return *config_.get_config_item(id); }

  std::string value(std::string_view key) { return config_.get_value(key, "default").as_string(); }

  std::string array(std::string_view key) {
    std::vector<variant> values;
    config_.get_array(key, values);
    std::string text;
    for (const auto& each : values) text += each.as_string() + ' ';
    return text;
  }

  std::string pairs(std::string_view key, bool recursive) {
    std::vector<std::pair<ustring8, variant>> values;
    config_.get_key_value_array(key, values, recursive);
    std::string text;
    for (const auto& [name, each] : values) text += name + "=" + each.as_string() + ' ';
    return text;
  }

  config_manager config_;
};

TEST(config_manager_without_init, has_no_value_and_loads_nothing) {
  config_manager config;
  EXPECT_EQ(config.get_value("a", 5).as_int(), 5);
  EXPECT_TRUE(config.get_value("a") == nil);
  EXPECT_FALSE(config.value_exist("a"));
  EXPECT_FALSE(config.is_array("a"));
  EXPECT_FALSE(config.load());
  EXPECT_FALSE(config.unload());
  EXPECT_FALSE(config.save());
  EXPECT_EQ(config.get_config_item("0"), nullptr);
  std::vector<variant> values(1);
  config.get_array("a", values);
  std::vector<std::pair<ustring8, variant>> pairs(1);
  config.get_key_value_array("a", pairs, true);
  EXPECT_EQ(values.size(), 1u);
  EXPECT_EQ(pairs.size(), 1u);
  std::ostringstream stream;
  stream << config;
  EXPECT_EQ(stream.str(), "config_manager:\n\nno more config_items!\n\nending output\n");
}

TEST_F(config_manager_reads, first_item_that_has_the_key_answers) {
  item("1").set("a = one", 0);
  item("2").set("a = two", 0);
  item("2").set("b = two", 0);
  EXPECT_EQ(value("A"), "one");
  EXPECT_EQ(value("b"), "two");
  EXPECT_EQ(value("c"), "default");
  item("0").set("a = zero", 0);
  EXPECT_EQ(value("a"), "zero");
}

TEST_F(config_manager_reads, subtrees_are_not_merged_and_a_node_on_the_way_is_a_value) {
  item("0").set("a.b = 1", 0);
  item("1").set("a = 2", 0);
  item("1").set("a.c = 3", 0);
  EXPECT_EQ(value("a.b"), "1");
  EXPECT_EQ(value("a.c"), "3");
  EXPECT_EQ(value("a"), "1") << "the value true of the first item";
  EXPECT_EQ(config_.get_value("a").type(), typeid(bool));
  EXPECT_TRUE(config_.value_exist("a"));
}

TEST_F(config_manager_reads, value_keeps_its_type) {
  item("0").set("a", 1.5, 0);
  EXPECT_EQ(config_.get_value("a", 3).type(), typeid(double));
}

TEST_F(config_manager_reads, value_of_an_array_is_its_first_element) {
  item("0").set_array("k", varg_list(argument("x"), argument("y")), {});
  EXPECT_EQ(value("k"), "x");
  EXPECT_TRUE(config_.value_exist("k"));
}

TEST_F(config_manager_reads, array_without_elements_is_nil_and_does_not_exist) {
  item("0").set_array("k", {}, {});
  item("1").set("k = x", 0);
  EXPECT_TRUE(config_.get_value("k", 5) == nil);
  EXPECT_FALSE(config_.value_exist("k"));
  EXPECT_TRUE(config_.is_array("k"));
}

TEST_F(config_manager_reads, element_of_an_array_is_looked_for_in_the_same_item) {
  item("0").set_array("k", {}, {});
  item("1").set_array("k", varg_list(argument("x")), {});
  EXPECT_TRUE(config_.get_value("k") == nil);
}

TEST_F(config_manager_reads, array_goes_before_a_link_and_its_element_is_not_followed) {
  item("0").set_array("k", varg_list(argument("target")), varg_list(argument(link)));
  item("0").set("target = x", 0);
  EXPECT_EQ(value("k"), "target");
  EXPECT_EQ(value("k.0"), "x");
  item("0").set("k", "target", 2 | link);
  EXPECT_EQ(value("k"), "target");
}

TEST_F(config_manager_reads, nil_that_was_set_does_not_exist) {
  item("0").set("k", nil, 0);
  EXPECT_FALSE(config_.value_exist("k"));
  EXPECT_TRUE(config_.get_value("k", 5) == nil);
}

TEST_F(config_manager_reads, link_leads_to_another_key_from_the_first_item_on) {
  item("2").set("a", "B.c", link);
  item("2").set("b.c = two", 0);
  EXPECT_EQ(value("a"), "two");
  item("0").set("b.c = zero", 0);
  EXPECT_EQ(value("a"), "zero");
}

TEST_F(config_manager_reads, link_to_a_key_that_is_nowhere_gives_the_default) {
  item("0").set("a", "b", link);
  EXPECT_EQ(value("a"), "default");
  EXPECT_FALSE(config_.value_exist("a"));
}

TEST_F(config_manager_reads, link_to_an_array_gives_its_first_element) {
  item("0").set("a", "k", link);
  item("1").set_array("k", varg_list(argument("x")), {});
  EXPECT_EQ(value("a"), "x");
}

TEST_F(config_manager_reads, links_in_a_circle_end_with_the_name_that_closes_it) {
  item("0").set("a", "b", link);
  item("0").set("b", "a", link);
  EXPECT_EQ(value("a"), "a");
  EXPECT_EQ(value("b"), "b");
  item("0").set("c", "c", link);
  EXPECT_EQ(value("c"), "c");
  item("0").set("d", "a", link);
  EXPECT_EQ(value("d"), "a");
}

TEST_F(config_manager_reads, circle_closes_when_a_spelling_comes_again) {
  item("0").set("a", "B", link);
  item("0").set("b", "A", link);
  EXPECT_EQ(value("a"), "B") << "a, B, A and then B again";
}

TEST_F(config_manager_reads, long_chains_of_links_are_followed) {
  constexpr int count = 20000;
  for (int i = 0; i < count; ++i) item("1").set(std::to_string(i), std::to_string(i + 1), link);
  EXPECT_EQ(value("0"), "default");
  item("0").set(std::to_string(count), "end", 0);
  EXPECT_EQ(value("0"), "end");
}

TEST_F(config_manager_reads, is_array_if_any_item_has_it_as_one) {
  item("0").set("k = x", 0);
  EXPECT_FALSE(config_.is_array("k"));
  item("2").set_array("k", varg_list(argument("y"), argument("z")), {});
  EXPECT_TRUE(config_.is_array("K"));
  EXPECT_EQ(value("k"), "x");
  EXPECT_EQ(array("k"), "y z ") << "the scalar is passed over";
  item("1").set("j", "x", config_tree::NODE_ARRAY);
  EXPECT_TRUE(config_.is_array("j")) << "flags 3, from any source";
}

TEST_F(config_manager_reads, array_comes_from_one_item_and_is_appended) {
  item("1").set_array("k", varg_list(argument("a"), argument("b")), {});
  item("2").set_array("k", varg_list(argument("c"), argument("d"), argument("e")), {});
  std::vector<variant> values(1);
  config_.get_array("k", values);
  ASSERT_EQ(values.size(), 3u);
  EXPECT_EQ(values[2].as_string(), "b");
  EXPECT_EQ(array("j"), "");
}

TEST_F(config_manager_reads, children_come_from_the_first_item_that_has_the_key) {
  item("1").set("a.b.c = 1", 0);
  item("1").set("a.d = 2", 0);
  item("2").set("a.e = 3", 0);
  EXPECT_EQ(pairs("A", true), "b=1 b.c=1 d=2 ");
  EXPECT_EQ(pairs("a", false), "b=1 d=2 ");
  EXPECT_EQ(pairs("a.b.c", true), "");
  EXPECT_EQ(pairs("x", true), "");
  EXPECT_EQ(pairs("", true), "") << "no item has a node without a name";
}

TEST_F(config_manager_reads, element_of_an_array_under_an_odd_key_is_found_as_it_was_set) {
  item("0").set_array("k.", varg_list(argument("x")), {});
  EXPECT_EQ(value("k."), "x");
  EXPECT_TRUE(config_.get_value("k") == nil);
}

TEST_F(config_manager_reads, item_is_found_by_its_exact_id_and_shared) {
  EXPECT_EQ(config_.get_config_item("1")->get_id(), "1");
  EXPECT_EQ(config_.get_config_item("1"), config_.get_config_item("1"));
  EXPECT_EQ(config_.get_config_item("x"), nullptr);
  EXPECT_EQ(config_.get_config_item(""), nullptr);
  const rc_pointer<base_config_item> held = config_.get_config_item("1");
  held->set("a = b", 0);
  EXPECT_EQ(value("a"), "b");
  config_ = config_manager();
  EXPECT_EQ(value_of(*held, "a"), "b");
}

TEST_F(config_manager_reads, forwards_to_its_dispatch) {
  logging_dispatch::log.clear();
  EXPECT_TRUE(config_.load());
  EXPECT_TRUE(config_.unload());
  EXPECT_TRUE(config_.save());
  EXPECT_EQ(logging_dispatch::log, "load 3 unload save ");
}

TEST_F(config_manager_reads, init_replaces_dispatch_and_items) {
  item("0").set("a = b", 0);
  const rc_pointer<base_config_item> old = config_.get_config_item("0");
  EXPECT_EQ(logging_dispatch::alive, 1);
  config_.init(logging_dispatch(1));
  EXPECT_EQ(logging_dispatch::alive, 1);
  EXPECT_EQ(value("a"), "default");
  EXPECT_EQ(config_.get_config_item("2"), nullptr);
  EXPECT_FALSE(config_.get_config_item("0") == old);
  EXPECT_EQ(value_of(*old, "a"), "b");
}

TEST_F(config_manager_reads, copies_share_items_and_one_dispatch) {
  config_manager copy(config_);
  config_manager assigned;
  assigned = copy;
  EXPECT_EQ(logging_dispatch::alive, 1) << "the dispatch is not cloned";
  for (const char* const id : {"0", "1", "2"}) {
    EXPECT_EQ(copy.get_config_item(id), config_.get_config_item(id));
    EXPECT_EQ(assigned.get_config_item(id), config_.get_config_item(id));
  }
  copy.get_config_item("0")->set("a = b", 0);
  EXPECT_EQ(value("a"), "b");
  EXPECT_EQ(assigned.get_value("a").as_string(), "b");
}

TEST(config_manager_dispatch, goes_with_the_last_manager_that_has_it) {
  ASSERT_EQ(logging_dispatch::alive, 0);
  {
    config_manager last;
    {
      config_manager first;
      first.init(logging_dispatch(1));
      const config_manager second(first);
      last = second;
      EXPECT_EQ(logging_dispatch::alive, 1);
    }
    EXPECT_EQ(logging_dispatch::alive, 1);
    EXPECT_TRUE(last.load());
  }
  EXPECT_EQ(logging_dispatch::alive, 0);
}

TEST(config_manager_dispatch, stays_with_the_copy_when_the_original_is_given_another) {
  config_manager first;
  first.init(logging_dispatch(1));
  config_manager copy(first);
  first.init(logging_dispatch(2));
  EXPECT_EQ(logging_dispatch::alive, 2);
  EXPECT_TRUE(copy.load());
  EXPECT_EQ(copy.get_config_item("1"), nullptr);
  EXPECT_FALSE(first.get_config_item("1") == nullptr);
  copy.init(logging_dispatch(3));
  EXPECT_EQ(logging_dispatch::alive, 2);
  copy = first;
  EXPECT_EQ(logging_dispatch::alive, 1);
  const config_manager& same = copy;
  copy = same;
  EXPECT_TRUE(copy.load());
}

class failing_dispatch : public logging_dispatch {
 public:
  failing_dispatch() : logging_dispatch(1) {}
  void setup(item_list&) const override { throw std::length_error("list<T> too long"); }
  failing_dispatch* clone() const override { return new failing_dispatch(*this); }
};

TEST_F(config_manager_reads, init_that_fails_changes_nothing) {
  item("0").set("a = b", 0);
  EXPECT_THROW(config_.init(failing_dispatch()), std::length_error);
  EXPECT_EQ(value("a"), "b");
  EXPECT_TRUE(config_.load());
  EXPECT_EQ(logging_dispatch::alive, 1);
}

TEST_F(config_manager_reads, dump_has_all_items) {
  config_.init(logging_dispatch(2));
  item("1").set("a = b", 0);
  std::ostringstream stream;
  stream << config_;
  EXPECT_EQ(stream.str(),
            "config_manager:\n"
            "\nconfig_item:\nobject : 0\n|---------------\\\n|\t\tend\nend\n"
            "\nconfig_item:\nobject : 1\n|---------------\\\n|\t\ta : 1 b\n|\t\t|\n|\t\tend\nend\n"
            "\nno more config_items!\n\nending output\n");
}

TEST_F(config_manager_reads, keys_may_be_any_text_of_bytes) {
  item("0").set("deep.key", 1, 0);
  EXPECT_EQ(config_.get_value(std::string("deep.key")).as_int(), 1);
  EXPECT_EQ(config_.get_value(ustring8("DEEP/KEY")).as_int(), 1);
  EXPECT_EQ(value(std::string(100000, '.')), "default");
}

}  // namespace
