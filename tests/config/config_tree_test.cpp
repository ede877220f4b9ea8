#include "orva/config/config_tree.hpp"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "orva/types/nil.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_config.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::config_tree;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using ORVA_NAMESPACE::strings::ustring8;
using ORVA_NAMESPACE::types::nil;
using ORVA_NAMESPACE::types::variant;
using value_entry = config_tree::value_entry;

std::string text_of(const config_tree& tree, std::string_view key) {
  const auto* const node = tree.get_node(key);
  if (node == nullptr) return "none";
  return std::to_string(node->first) + ' ' + node->second.as_string();
}

std::vector<std::string> names_and_values(const std::vector<value_entry>& entries) {
  std::vector<std::string> lines;
  for (const auto& [name, node] : entries) {
    lines.push_back(name + '=' + node.second.as_string() + '/' + std::to_string(node.first));
  }
  return lines;
}

std::vector<std::string> array_at(const config_tree& tree, std::string_view key) {
  std::vector<value_entry> entries;
  tree.get_array(key, entries);
  return names_and_values(entries);
}

std::vector<std::string> below(const config_tree& tree, std::string_view key, bool recursive,
                               std::string_view prefix = "") {
  std::vector<value_entry> entries;
  tree.get_value_pair_array(key, entries, recursive, prefix);
  return names_and_values(entries);
}

using lines = std::vector<std::string>;

TEST(config_tree, is_clonable_before_it_is_counted) {
  config_tree tree;
  EXPECT_EQ(static_cast<void*>(static_cast<ORVA_NAMESPACE::generic::abilities::clone_ability*>(&tree)),
            &tree);
}

TEST(config_tree, node_on_the_way_to_another_has_flags_zero_and_the_value_true) {
  config_tree tree;
  tree.set_node("A.B", 5, 0);
  EXPECT_EQ(text_of(tree, "a.b"), "1 5");
  ASSERT_NE(tree.get_node("a"), nullptr);
  EXPECT_EQ(tree.get_node("a")->first, 0u);
  EXPECT_EQ(tree.get_node("a")->second.type(), typeid(bool));
  EXPECT_TRUE(tree.get_node("a")->second.as_bool());
}

TEST(config_tree, documentation_example) {
  config_tree tree;
  tree.set_node("Window.Width", 640, 0);
  EXPECT_EQ(tree.get_node("window/width")->second.as_int32(), 640);
  EXPECT_EQ(tree.get_node("window")->first, 0u);
  EXPECT_EQ(tree.get_node("height"), nullptr);
}

TEST(config_tree, lookup_ignores_case_and_takes_three_separators) {
  config_tree tree;
  tree.set_node("A.b/C\\d", "x", 0);
  for (const char* const key : {"a/B.c.D", "a.b.c.d", "A\\B\\C\\D", "a/b\\c.d"}) {
    EXPECT_EQ(text_of(tree, key), "1 x") << key;
  }
  EXPECT_EQ(text_of(tree, "a.b.c"), "0 1");
  EXPECT_EQ(text_of(tree, "a.b.c.d.e"), "none");
  EXPECT_EQ(text_of(tree, "a.b.c.dd"), "none");
}

TEST(config_tree, empty_key_names_nothing_unless_a_child_is_named_so) {
  config_tree tree;
  tree.set_node("a", 1, 0);
  EXPECT_EQ(tree.get_node(""), nullptr);
  tree.set_node("", 2, 0);
  EXPECT_EQ(text_of(tree, ""), "1 2");
}

TEST(config_tree, empty_segments_are_names_and_are_not_folded_away) {
  config_tree tree;
  tree.set_node(".a", 1, 0);
  tree.set_node("b..c", 2, 0);
  EXPECT_EQ(text_of(tree, ".a"), "1 1");
  EXPECT_EQ(text_of(tree, ""), "0 1");
  EXPECT_EQ(text_of(tree, "a"), "none");
  EXPECT_EQ(text_of(tree, "b..c"), "1 2");
  EXPECT_EQ(text_of(tree, "b.c"), "none");
  EXPECT_EQ(text_of(tree, "b/\\c"), "1 2");
}

TEST(config_tree, separator_at_the_end_is_dropped_once) {
  config_tree tree;
  tree.set_node("a.", 1, 0);
  EXPECT_EQ(text_of(tree, "a"), "1 1");
  tree.set_node("a..", 2, 0);
  EXPECT_EQ(text_of(tree, "a.."), "1 2");
  EXPECT_EQ(text_of(tree, "a."), "1 1");
  EXPECT_EQ(below(tree, "", true), (lines{"a=1/1", "a.=2/1"}));
  config_tree top;
  top.set_node(".", 3, 0);
  EXPECT_EQ(text_of(top, ""), "1 3");
}

TEST(config_tree, set_overwrites_flags_and_value) {
  config_tree tree;
  tree.set_node("k", nil, config_tree::NODE_ARRAY);
  tree.set_node("k.0", "first", 0);
  EXPECT_EQ(text_of(tree, "k"), "3 ");
  tree.set_node("k", "plain", 0);
  EXPECT_EQ(text_of(tree, "k"), "1 plain");
  EXPECT_EQ(text_of(tree, "k.0"), "1 first");
  EXPECT_EQ(array_at(tree, "k"), lines{});
}

TEST(config_tree, flags_of_the_caller_come_back) {
  config_tree tree;
  tree.set_node("k", 1, 0xF0F0F000 | config_tree::NODE_LINK);
  EXPECT_EQ(tree.get_node("k")->first, 0xF0F0F005u);
}

TEST(config_tree, value_keeps_its_type) {
  config_tree tree;
  tree.set_node("a", std::string("x"), 0);
  tree.set_node("b", ustring8("x"), 0);
  tree.set_node("c", 1.5, 0);
  EXPECT_EQ(tree.get_node("a")->second.type(), typeid(std::string));
  EXPECT_EQ(tree.get_node("b")->second.type(), typeid(ustring8));
  EXPECT_EQ(tree.get_node("c")->second.type(), typeid(double));
}

TEST(config_tree, array_ends_at_the_first_missing_number) {
  config_tree tree;
  tree.set_node("k", nil, config_tree::NODE_ARRAY);
  for (const int i : {0, 1, 3}) tree.set_node("k." + std::to_string(i), i * 10, 0);
  EXPECT_EQ(array_at(tree, "K"), (lines{"0=0/1", "1=10/1"}));
}

TEST(config_tree, children_with_numbers_are_no_array_without_the_flag) {
  config_tree tree;
  tree.set_node("k.0", 1, 0);
  tree.set_node("k.1", 2, 0);
  EXPECT_EQ(array_at(tree, "k"), lines{});
  EXPECT_EQ(array_at(tree, "missing"), lines{});
  EXPECT_EQ(array_at(tree, "k.0.x"), lines{});
}

TEST(config_tree, array_comes_in_order_of_numbers_and_the_walk_in_order_of_names) {
  config_tree tree;
  tree.set_node("a.k", nil, config_tree::NODE_ARRAY);
  for (int i = 0; i < 12; ++i) tree.set_node("a.k." + std::to_string(i), i, 0);
  std::vector<value_entry> out(1);
  tree.get_array("a.k", out);
  ASSERT_EQ(out.size(), 13u) << "appended to";
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(out[static_cast<std::size_t>(i) + 1].first, std::to_string(i));
    EXPECT_EQ(out[static_cast<std::size_t>(i) + 1].second.second.as_int(), i);
  }
  std::vector<value_entry> walked;
  tree.get_value_pair_array("a.k", walked, false, "");
  std::string names;
  for (const auto& entry : walked) names += entry.first + ' ';
  EXPECT_EQ(names, "0 1 10 11 2 3 4 5 6 7 8 9 ");
}

TEST(config_tree, walk_is_documented_by_its_example) {
  config_tree tree;
  tree.set_node("a.b", 1, 0);
  tree.set_node("a.c.d", 2, 0);
  tree.set_node("e", 3, 0);
  EXPECT_EQ(below(tree, "", true), (lines{"a=1/0", "a.b=1/1", "a.c=1/0", "a.c.d=2/1", "e=3/1"}));
  EXPECT_EQ(below(tree, "", false), (lines{"a=1/0", "e=3/1"}));
  EXPECT_EQ(below(tree, "A", true), (lines{"b=1/1", "c=1/0", "c.d=2/1"}));
  EXPECT_EQ(below(tree, "a", false), (lines{"b=1/1", "c=1/0"}));
  EXPECT_EQ(below(tree, "a.c.", true), (lines{"d=2/1"}));
}

TEST(config_tree, prefix_is_put_before_names_and_is_dropped_below_a_key) {
  config_tree tree;
  tree.set_node("a.b", 1, 0);
  EXPECT_EQ(below(tree, "", true, "p"), (lines{"p.a=1/0", "p.a.b=1/1"}));
  EXPECT_EQ(below(tree, "", false, "p.q"), (lines{"p.q.a=1/0"}));
  EXPECT_EQ(below(tree, "a", true, "p"), (lines{"b=1/1"}));
}

TEST(config_tree, walk_of_a_missing_key_appends_nothing) {
  config_tree tree;
  tree.set_node("a", 1, 0);
  std::vector<value_entry> out(2);
  tree.get_value_pair_array("b", out, true, "");
  tree.get_value_pair_array("a.b", out, true, "");
  tree.get_value_pair_array("a", out, true, "");
  EXPECT_EQ(out.size(), 2u);
}

TEST(config_tree, names_sort_by_bytes_and_shorter_first) {
  config_tree tree;
  for (const char* const name : {"b", "a", "ab", "\xC3\xA4", "A_", "a-"}) tree.set_node(name, 0, 0);
  EXPECT_EQ(below(tree, "", false), (lines{"a=0/1", "a-=0/1", "a_=0/1", "ab=0/1", "b=0/1", "\xC3\xA4=0/1"}));
}

TEST(config_tree, erase_removes_the_children_and_nothing_else) {
  config_tree tree;
  tree.set_node("a.b.c", 1, 0);
  tree.erase();
  EXPECT_EQ(tree.get_node("a"), nullptr);
  EXPECT_EQ(below(tree, "", true), lines{});
  tree.set_node("a.b", 2, 0);
  EXPECT_EQ(text_of(tree, "a.b"), "1 2");
}

TEST(config_tree, copies_share_no_node) {
  config_tree tree;
  tree.set_node("a.b", 1, 4);
  config_tree copy(tree);
  copy.set_node("a.b", 2, 0);
  copy.set_node("a.c", 3, 0);
  EXPECT_EQ(below(tree, "", true), (lines{"a=1/0", "a.b=1/5"}));
  EXPECT_EQ(below(copy, "", true), (lines{"a=1/0", "a.b=2/1", "a.c=3/1"}));

  config_tree assigned;
  assigned.set_node("x.y", 1, 0);
  assigned = tree;
  EXPECT_EQ(below(assigned, "", true), (lines{"a=1/0", "a.b=1/5"}));
  EXPECT_NE(assigned.get_node("a.b"), tree.get_node("a.b"));
  const config_tree& same = assigned;
  assigned = same;
  EXPECT_EQ(below(assigned, "", true), (lines{"a=1/0", "a.b=1/5"}));
}

TEST(config_tree, assignment_leaves_pointers_to_the_tree_valid) {
  config_tree tree;
  tree.set_node("a", 1, 0);
  const rc_pointer<config_tree> held(tree.clone());
  ASSERT_TRUE(held->is_created_dynamic());
  *held = config_tree();
  EXPECT_TRUE(held->is_created_dynamic()) << "the last pointer still deletes it";
  EXPECT_EQ(held->get_node("a"), nullptr);
}

TEST(config_tree, clone_is_a_heap_object_of_its_own) {
  config_tree tree;
  tree.set_node("a.b", 1, 0);
  const rc_pointer<config_tree> copy(tree.clone());
  tree.erase();
  EXPECT_EQ(text_of(*copy, "a.b"), "1 1");
}

class split_tree : public config_tree {
 public:
  std::pair<ustring8, ustring8> split(std::string_view key) const {
    std::pair<ustring8, ustring8> result("old", "old");
    parse_string(key, result.first, result.second);
    return result;
  }
};

TEST(config_tree, key_is_cut_at_its_first_separator_and_lowered_up_to_there) {
  const split_tree tree;
  using parts = std::pair<ustring8, ustring8>;
  EXPECT_EQ(tree.split("A.B.C"), parts("a", "B.C"));
  EXPECT_EQ(tree.split("Ab/C"), parts("ab", "C"));
  EXPECT_EQ(tree.split("Ab\\C"), parts("ab", "C"));
  EXPECT_EQ(tree.split("Ab"), parts("ab", ""));
  EXPECT_EQ(tree.split(""), parts("", ""));
  EXPECT_EQ(tree.split(".A"), parts("", "A"));
  EXPECT_EQ(tree.split("a..B"), parts("a", ".B"));
  EXPECT_EQ(tree.split("\xC3\x84.x"), parts("\xC3\x84", "x"));
}

TEST(config_tree, lowers_all_bytes_as_the_current_locale_does) {
  const single_byte_locale locale("ISO-8859-1", "de_DE");
  if (!locale.made()) GTEST_SKIP() << "no single-byte locale can be made here";
  config_tree tree;
  tree.set_node("K\xC4SE", 1, 0);
  EXPECT_EQ(text_of(tree, "k\xE4se"), "1 1");
  const split_tree splitter;
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    if (c == '.' || c == '/' || c == '\\') continue;
    const ustring8 expected{static_cast<char>(std::tolower(byte)), '\xE4'};
    EXPECT_EQ(splitter.split(std::string{c, '\xC4'}).first, expected) << byte;
  }
}

TEST(config_tree, dump_of_an_empty_tree_is_its_end) {
  std::ostringstream stream;
  stream << config_tree();
  EXPECT_EQ(stream.str(), "end\n");
  stream.str("");
  config_tree().dump(stream, 2);
  EXPECT_EQ(stream.str(), "|\t\t|\t\tend\n");
  stream.str("");
  config_tree().dump(stream, -1);
  EXPECT_EQ(stream.str(), "end\n");
}

TEST(config_tree, dump_has_flags_and_values_level_by_level) {
  config_tree tree;
  tree.set_node("b", "x y", config_tree::NODE_LINK);
  tree.set_node("a.c", nil, config_tree::NODE_ARRAY);
  tree.set_node("a.c.0", 7, 0);
  std::ostringstream stream;
  stream << tree;
  EXPECT_EQ(stream.str(),
            "a : true\n"
            "|---------------\\\n"
            "|\t\tc : 3 \n"
            "|\t\t|---------------\\\n"
            "|\t\t|\t\t0 : 1 7\n"
            "|\t\t|\t\t|\n"
            "|\t\t|\t\tend\n"
            "|\t\tend\n"
            "b : 5 x y\n"
            "|\n"
            "end\n");
}

TEST(config_tree, dump_does_not_depend_on_the_state_of_the_stream) {
  config_tree tree;
  tree.set_node("a", 255, 8);
  std::ostringstream stream;
  stream << std::hex << std::showbase;
  stream.width(20);
  stream << tree;
  EXPECT_EQ(stream.str(), "a : 9 255\n|\nend\n");
}

TEST(config_tree, keys_longer_than_any_buffer_are_keys) {
  for (const std::size_t length : {127u, 128u, 129u, 5000u}) {
    config_tree tree;
    tree.set_node(std::string(length, 'A') + ".B", 1, 0);
    EXPECT_EQ(text_of(tree, std::string(length, 'a') + ".b"), "1 1") << length;
    EXPECT_EQ(text_of(tree, std::string(length - 1, 'a') + ".b"), "none") << length;
  }
}

/// The text of a key with `depth` parts.
std::string deep_key(std::size_t depth) {
  std::string key = "a";
  for (std::size_t i = 1; i < depth; ++i) key += ".a";
  return key;
}

/// Counts the bytes written to it and stores none: the length of the dump of a deep tree is the square of its
/// depth.
class counting_buffer : public std::streambuf {
 public:
  std::uint64_t count = 0;

 private:
  std::streamsize xsputn(const char*, std::streamsize size) override {
    count += static_cast<std::uint64_t>(size);
    return size;
  }
  int_type overflow(int_type c) override {
    ++count;
    return c;
  }
};

TEST(config_tree, deep_keys_take_no_stack) {
  constexpr std::size_t depth = 100000;
  const std::string key = deep_key(depth);
  config_tree tree;
  tree.set_node(key, "x", 0);
  EXPECT_EQ(text_of(tree, key), "1 x");
  EXPECT_EQ(text_of(tree, key + ".a"), "none");

  config_tree copy(tree);
  EXPECT_EQ(text_of(copy, key), "1 x");
  config_tree assigned;
  assigned = copy;
  copy.erase();
  const rc_pointer<config_tree> cloned(assigned.clone());
  EXPECT_EQ(text_of(*cloned, key), "1 x");

  counting_buffer buffer;
  std::ostream stream(&buffer);
  stream << tree;
  constexpr std::uint64_t indents = std::uint64_t{depth} * (depth - 1) / 2;
  EXPECT_GT(buffer.count, 3 * 3 * indents);

  std::vector<value_entry> entries;
  tree.get_value_pair_array(key.substr(2), entries, true, "");
  ASSERT_EQ(entries.size(), 1u);
}

TEST(config_tree, wide_and_deep_trees_are_destroyed_node_by_node) {
  config_tree tree;
  for (int i = 0; i < 300; ++i) {
    for (int j = 0; j < 20; ++j) {
      tree.set_node(std::to_string(i) + ".x." + std::to_string(j) + ".y." + deep_key(3), j, 0);
    }
  }
  config_tree copy(tree);
  EXPECT_EQ(text_of(copy, "299.X.19.y.a.a.a"), "1 19");
  copy.set_node("299.x.19", 1, 0);
  copy = tree;
}

TEST(config_tree, agrees_with_a_map_of_paths_on_random_keys) {
  random_engine random;
  const std::string letters = "aAbB.../\\0";
  for (int run = 0; run < 300; ++run) {
    config_tree tree;
    reference_tree reference;
    for (int i = 0; i < 20; ++i) {
      std::string key;
      for (auto length = random() % 8; length > 0; --length) key += letters[random() % letters.size()];
      const auto flags = static_cast<unsigned int>(random() % 16);
      tree.set_node(key, std::to_string(i), flags);
      reference.set(key, std::to_string(i), flags);
      EXPECT_EQ(text_of(tree, key), std::to_string(flags | 1) + ' ' + std::to_string(i));
    }
    std::vector<value_entry> entries;
    config_tree(tree).get_value_pair_array("", entries, true, "");
    std::vector<std::string> found;
    for (const auto& [name, node] : entries) {
      found.push_back(name + " | " + std::to_string(node.first) + " | " + node.second.as_string());
    }
    ASSERT_EQ(found, reference.listing());
  }
}

}  // namespace
