#include "orva/config/base_config_item.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orva/config/config_manager.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/user_item.hpp"
#include "orva/types/nil.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::config_token;
using ORVA_NAMESPACE::config::config_tree;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using ORVA_NAMESPACE::strings::ustring8;
using ORVA_NAMESPACE::types::nil;
using ORVA_NAMESPACE::types::variant;

struct expression_row {
  const char* expression;
  const char* key;
  const char* value;
};

std::ostream& operator<<(std::ostream& out, const expression_row& row) {
  return out << test_name(row.expression);
}

class base_config_item_expression : public testing::TestWithParam<expression_row> {};

TEST_P(base_config_item_expression, reads_as) {
  const auto [key, value] = plain_item().make_key_value(GetParam().expression, config_token::T_EQ);
  EXPECT_EQ(key, GetParam().key);
  EXPECT_EQ(value.as_string(), GetParam().value);
  EXPECT_EQ(value.type(), typeid(ustring8));

  plain_item item;
  item.set(GetParam().expression, 0);
  EXPECT_EQ(value_of(item, GetParam().key), GetParam().value);
  EXPECT_EQ(flags_of(item, GetParam().key), 1);
}

INSTANTIATE_TEST_SUITE_P(documented, base_config_item_expression,
                         testing::Values(expression_row{"a b = c d", "ab", "cd"},
                                         expression_row{"k = \"c d\" e", "k", "c de"},
                                         expression_row{"a=b=c", "a", "b=c"},
                                         expression_row{"flag", "flag", ""},
                                         expression_row{"a\nb=c\nd", "ab", "c"}));
INSTANTIATE_TEST_SUITE_P(
    rules, base_config_item_expression,
    testing::Values(expression_row{"a.b = 1", "a.b", "1"}, expression_row{"", "", ""},
                    expression_row{"=", "", ""}, expression_row{"=v", "", "v"},
                    expression_row{"\ta\t=\tb\tc\t", "a", "bc"}, expression_row{"a==b", "a==b", ""},
                    expression_row{"a==b=c", "a==b", "c"}, expression_row{"k=a\"b c\"d", "k", "ab cd"},
                    expression_row{"k=\"a\nb\"c\nd", "k", "a\nbc"}, expression_row{"k=a\r\nb", "k", "a"},
                    expression_row{"k=a\rb", "k", "a\rb"}, expression_row{"\"a = b\" = c", "a = b", "c"},
                    expression_row{"k=\"a\\\"b\"", "k", "a\\\"b"},
                    expression_row{"k=\"open  it", "k", "open  it"},
                    expression_row{"k=a#b//c*/d", "k", "a#b//c*/d"},
                    expression_row{"k=\xC3\xA4 \xC3\xB6", "k", "\xC3\xA4\xC3\xB6"},
                    expression_row{"\nk=v", "k", "v"}, expression_row{"k=\nv", "k", ""}));

TEST(base_config_item, separator_may_be_any_token) {
  const plain_item item;
  const auto read = [&](const char* text, config_token::tok_types separator) {
    const auto [key, value] = item.make_key_value(text, separator);
    return key + "|" + value.as_string();
  };
  EXPECT_EQ(read("a:b=c", config_token::T_COLON), "a|b=c");
  EXPECT_EQ(read("a := b", config_token::T_COLONEQ), "a|b");
  EXPECT_EQ(read("a b c", config_token::T_SPACE), "a|bc");
  EXPECT_EQ(read("a*/b", config_token::T_ENDCOMMENT), "a|b") << "the type decides, not the result";
  EXPECT_EQ(read("a//b*/c", config_token::T_FSFS), "a|b*/c");
  EXPECT_EQ(read("a=b", config_token::T_END), "a=b|");
  EXPECT_EQ(read("a=b", config_token::T_STARTCOMMENT), "a=b|");
  EXPECT_EQ(read("a\nb", config_token::T_NEWLINE), "a|b");
  EXPECT_EQ(read("x\"q\"y", config_token::T_STRING), "x|y");
}

TEST(base_config_item, expression_without_separator_stores_an_empty_text_under_its_flags) {
  plain_item item;
  item.set("flag", 1);
  EXPECT_EQ(value_of(item, "flag"), "");
  EXPECT_EQ(flags_of(item, "flag"), 1);
  EXPECT_EQ(item.get_value("flag")->second.type(), typeid(ustring8));
}

TEST(base_config_item, set_takes_key_and_value_apart_or_as_a_pair) {
  plain_item item;
  item.set("a", 5, 0);
  item.set(std::pair<ustring8, variant>("b", "x"), config_tree::NODE_LINK);
  item.set(ustring8("c"), variant(1.5), 8);
  item.set(std::string("d=e"), 0);
  EXPECT_EQ(value_of(item, "a"), "5");
  EXPECT_EQ(flags_of(item, "b"), 5);
  EXPECT_EQ(item.get_value("c")->second.type(), typeid(double));
  EXPECT_EQ(flags_of(item, "c"), 9);
  EXPECT_EQ(value_of(item, "d"), "e");
}

template <typename Flags>
constexpr bool has_set_without_value = requires(plain_item item, Flags flags) {
  item.set("key", flags);
};

TEST(base_config_item, truth_and_floating_values_are_no_flags) {
  static_assert(!has_set_without_value<bool>);
  static_assert(!has_set_without_value<float>);
  static_assert(!has_set_without_value<double>);
  static_assert(!has_set_without_value<long double>);
  static_assert(has_set_without_value<int>);
  static_assert(has_set_without_value<unsigned int>);
  static_assert(has_set_without_value<config_tree::node_flags>);
  static_assert(requires(plain_item item) { item.set("key", true, 0); });
  static_assert(requires(plain_item item) { item.set("key", 2.5, 0); });
  static_assert(requires(plain_item item, std::pair<ustring8, variant> entry) { item.set(entry, 0); });
  plain_item item;
  item.set("verbose", true, 0);
  item.set("zoom", 2.5, 0);
  EXPECT_EQ(value_of(item, "verbose"), "1");
  EXPECT_EQ(value_of(item, "zoom"), "2.5");
}

TEST(base_config_item, key_that_is_set_twice_keeps_the_second_value) {
  plain_item item;
  item.set("a = 1", 0);
  item.set("A = 2", 4);
  EXPECT_EQ(value_of(item, "a"), "2");
  EXPECT_EQ(flags_of(item, "a"), 5);
}

TEST(base_config_item, array_has_a_header_and_numbered_elements) {
  plain_item item;
  item.set_array("k", varg_list(argument("x"), argument("y")), {});
  EXPECT_EQ(flags_of(item, "k"), 3);
  EXPECT_TRUE(item.get_value("k")->second == nil);
  EXPECT_EQ(value_of(item, "k.1"), "y");
  EXPECT_EQ(flags_of(item, "k.1"), 1);
  EXPECT_EQ(array_of(item, "K"), (std::vector<std::string>{"x", "y"}));
}

TEST(base_config_item, array_of_nothing_is_a_header) {
  plain_item item;
  item.set_array("k", {}, varg_list(argument(4)));
  EXPECT_EQ(listing_of(item), (std::vector<std::string>{"k | 3 | "}));
}

TEST(base_config_item, flags_of_elements_come_from_their_list) {
  plain_item item;
  item.set_array("k", varg_list(argument("x"), argument("y")), varg_list(argument(4), argument("0x10")));
  EXPECT_EQ(flags_of(item, "k.0"), 5);
  EXPECT_EQ(flags_of(item, "k.1"), 17);
  EXPECT_EQ(value_of(item, "k.0"), "x");
  EXPECT_EQ(flags_of(item, "k"), 3);
}

TEST(base_config_item, elements_after_the_end_of_a_short_list_of_flags_become_numbers) {
  plain_item item;
  item.set_array("k", varg_list(argument("7x"), argument("8x"), argument(-1)), varg_list(argument(4)));
  EXPECT_EQ(value_of(item, "k.0"), "7x");
  EXPECT_EQ(flags_of(item, "k.0"), 5);
  EXPECT_EQ(value_of(item, "k.1"), "8");
  EXPECT_EQ(flags_of(item, "k.1"), 1);
  EXPECT_EQ(value_of(item, "k.2"), "4294967295");
  EXPECT_EQ(item.get_value("k.1")->second.type(), typeid(ORVA_NAMESPACE::types::uint32));
}

TEST(base_config_item, list_of_flags_may_be_longer_than_the_values) {
  plain_item item;
  item.set_array("k", varg_list(argument("x")), varg_list(argument(0), argument(4)));
  EXPECT_EQ(listing_of(item), (std::vector<std::string>{"k | 3 | ", "k.0 | 1 | x"}));
}

TEST(base_config_item, shorter_array_over_a_longer_one_leaves_the_tail) {
  plain_item item;
  item.set_array("k", varg_list(argument(1), argument(2), argument(3)), {});
  item.set_array("k", varg_list(argument(9)), {});
  EXPECT_EQ(array_of(item, "k"), (std::vector<std::string>{"9", "2", "3"}));
}

TEST(base_config_item, array_under_a_key_with_an_empty_last_part_has_its_elements_in_another_node) {
  plain_item item;
  item.set_array("k.", varg_list(argument("x")), {});
  EXPECT_EQ(listing_of(item), (std::vector<std::string>{"k | 3 | ", "k. | 0 | 1", "k..0 | 1 | x"}));
  reference_tree reference;
  reference.set_array("k.", {"x"});
  EXPECT_EQ(listing_of(item), reference.listing());
}

TEST(base_config_item, array_of_nothing_under_a_key_with_an_empty_last_part_makes_no_further_node) {
  plain_item item;
  item.set_array("k.", {}, {});
  EXPECT_EQ(listing_of(item), (std::vector<std::string>{"k | 3 | "}));
  item.set_array("j.", {}, varg_list(argument(4)));
  EXPECT_EQ(listing_of(item), (std::vector<std::string>{"j | 3 | ", "k | 3 | "}));
}

TEST(base_config_item, array_without_a_key_is_the_node_of_the_empty_name) {
  plain_item item;
  item.set_array("", varg_list(argument("x")), {});
  EXPECT_EQ(array_of(item, ""), (std::vector<std::string>{"x"}));
}

TEST(base_config_item, base_loads_and_saves_nothing_and_says_true) {
  plain_item item;
  item.set("a=b", 0);
  EXPECT_TRUE(item.load());
  EXPECT_TRUE(item.load(item_list()));
  EXPECT_TRUE(item.save());
  EXPECT_TRUE(item.save(item_list()));
  item.unload();
  EXPECT_EQ(value_of(item, "a"), "b");
  EXPECT_EQ(item.get_id(), "");
}

class counting_item : public base_config_item {
 public:
  bool load() override { return ++loads < 0; }
  using base_config_item::load;
  bool save() override { return ++saves < 0; }
  using base_config_item::save;
  counting_item* clone() const override { return nullptr; }
  int loads = 0;
  int saves = 0;
};

TEST(base_config_item, load_with_the_list_calls_load_and_save_with_the_list_does_not_call_save) {
  counting_item item;
  base_config_item& base = item;
  EXPECT_FALSE(base.load(item_list()));
  EXPECT_EQ(item.loads, 1);
  EXPECT_TRUE(base.save(item_list()));
  EXPECT_EQ(item.saves, 0);
}

namespace documented {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::config;

// As in base_config_item.hpp.
class clock_item : public base_config_item {
 public:
  clock_item() { id_ = "clock"; }
  using base_config_item::load;  // load(items) calls load(); without this line it is hidden
  bool load() override {
    set("clock.ticks", 42, 0);
    return true;
  }
  void unload() override { tree_.erase(); }
  clock_item* clone() const override { return generic::abilities::create_dynamic<clock_item>(*this); }
};

// As in config_dispatch.hpp.
class clock_dispatch : public config_dispatch {
 public:
  void setup(item_list& items) const override { append(items, clock_item()); }
  void load(item_list& items) const override { load_each(items); }
  void unload(item_list& items) const override { unload_each(items); }
  void save(item_list& items) const override { save_each(items); }
  clock_dispatch* clone() const override { return new clock_dispatch(*this); }
};

}  // namespace documented

TEST(base_config_item, derived_class_is_documented_by_its_example) {
  ORVA_NAMESPACE::config::config_manager manager;
  manager.init(documented::clock_dispatch());
  EXPECT_TRUE(manager.load());
  EXPECT_EQ(manager.get_value("clock.ticks").as_int32(), 42);
  EXPECT_TRUE(manager.get_config_item("clock")->is_created_dynamic());
  documented::clock_item item;
  EXPECT_TRUE(item.load(item_list()));
  EXPECT_EQ(value_of(item, "clock.ticks"), "42");
  EXPECT_TRUE(manager.save());
  EXPECT_TRUE(manager.unload());
  EXPECT_FALSE(manager.value_exist("clock.ticks"));
}

TEST(base_config_item, documentation_example) {
  ORVA_NAMESPACE::config::user_item settings;
  settings.set("window.width", 640, 0);
  settings.set("window.title = \"Free space\"", 0);
  EXPECT_EQ(settings.get_value("Window/Width")->second.as_int32(), 640);
  EXPECT_EQ(value_of(settings, "window.title"), "Free space");
}

TEST(base_config_item, copy_has_values_of_its_own) {
  plain_item item;
  item.name("id");
  item.set("a.b = 1", 0);
  plain_item copy(item);
  copy.set("a.b = 2", 0);
  EXPECT_EQ(value_of(item, "a.b"), "1");
  EXPECT_EQ(copy.get_id(), "id");
  plain_item assigned;
  assigned.set("x = y", 0);
  assigned = item;
  item.set("a.b = 3", 0);
  EXPECT_EQ(listing_of(assigned), (std::vector<std::string>{"a | 0 | 1", "a.b | 1 | 1"}));
  EXPECT_EQ(assigned.get_id(), "id");
}

TEST(base_config_item, assignment_leaves_pointers_to_the_item_valid) {
  plain_item source;
  source.set("a = 1", 0);
  const rc_pointer<plain_item> held(source.clone());
  source.set("a = 2", 0);
  *held = source;
  EXPECT_TRUE(held->is_created_dynamic()) << "the last pointer still deletes it";
  EXPECT_EQ(value_of(*held, "a"), "2");
}

TEST(base_config_item, clone_is_a_marked_heap_object) {
  plain_item item;
  item.set("a=b", 0);
  const rc_pointer<base_config_item> copy(item.clone());
  EXPECT_TRUE(copy->is_created_dynamic());
  EXPECT_EQ(value_of(*copy, "a"), "b");
}

TEST(base_config_item, walk_gives_names_relative_to_the_key) {
  plain_item item;
  item.set("a.b.c = 1", 0);
  std::vector<base_config_item::value_entry> out;
  item.get_value_pair_array("a", out, true);
  ASSERT_EQ(out.size(), 2u);
  EXPECT_EQ(out[0].first, "b");
  EXPECT_EQ(out[1].first, "b.c");
}

TEST(base_config_item, dump_has_the_id_and_the_tree_one_level_in) {
  plain_item item;
  item.name("test");
  item.set("a.b = c", 0);
  std::ostringstream stream;
  stream << item;
  EXPECT_EQ(stream.str(),
            "object : test\n"
            "|---------------\\\n"
            "|\t\ta : true\n"
            "|\t\t|---------------\\\n"
            "|\t\t|\t\tb : 1 c\n"
            "|\t\t|\t\t|\n"
            "|\t\t|\t\tend\n"
            "|\t\tend\n"
            "end\n");
  std::ostringstream empty;
  plain_item().dump(empty);
  EXPECT_EQ(empty.str(), "object : \n|---------------\\\n|\t\tend\nend\n");
}

TEST(base_config_item, long_expressions_take_time_in_proportion) {
  plain_item item;
  std::string key = "a";
  for (int i = 0; i < 50000; ++i) key += ".a";
  item.set(key + " = x", 0);
  EXPECT_EQ(value_of(item, key), "x");
  varg_list values;
  for (int i = 0; i < 20000; ++i) values.push_back(argument(i));
  item.set_array(key, values, {});
  EXPECT_EQ(array_of(item, key).size(), 20000u);
}

}  // namespace
