// The places of values in a configuration file, against the tree that file_item makes of the same text.
#include "orva/config/internal/value_places.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/array_flags.hpp"
#include "orva/config/internal/config_file_reader.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace std::string_literals;
namespace config = ORVA_NAMESPACE::config;
namespace diagnostics = ORVA_NAMESPACE::diagnostics;
using config::_private::value_place;
using config::_private::value_places;
using diagnostics::place;

config::config_tree tree_of(std::string_view text) {
  config::config_tree tree;
  config::_private::config_file_reader(text, tree).read();
  return tree;
}

TEST(value_places, documentation_example) {
  const value_places places("[window]\nwidth = 640\nsize[] = 1, 2\n");
  EXPECT_EQ(places.find("Window/Width")->key, (place{2, 1}));
  EXPECT_EQ(places.find("Window/Width")->value, (place{2, 9}));
  EXPECT_EQ(places.find("window.size.1")->value, (place{3, 13}));
  EXPECT_EQ(places.find("window"), nullptr);
}

TEST(value_places, are_none_where_the_names_would_take_far_more_memory_than_the_text) {
  const auto text = [](std::size_t section) {
    std::string result = '[' + std::string(section, 's') + "]\n";
    for (int i = 0; i < 10'000; ++i) result += "key" + std::to_string(i) + " = 1\n";
    return result;
  };
  EXPECT_EQ(value_places(text(300)).all().size(), 10'000u);
  EXPECT_EQ(value_places(text(100'000)).all().size(), 0u);
}

struct key_and_places {
  const char* text;
  const char* name;
  place key, value;
};

TEST(value_places, are_those_of_the_first_bytes) {
  const key_and_places examples[] = {
      {"a=1", "a", {1, 1}, {1, 3}},
      {"  a\t=\t1", "a", {1, 3}, {1, 7}},
      {"a = \"x y\"", "a", {1, 1}, {1, 5}},
      {"a = \"\" x", "a", {1, 1}, {1, 5}},
      {"# c\r\n\r\na=1\r\n", "a", {3, 1}, {3, 3}},
      {"# c\n[s] a=1", "s.a", {2, 5}, {2, 7}},
      {"a\nb = 1", "ab", {1, 1}, {2, 5}},
      {"= a = 1", "a", {1, 3}, {1, 7}},
      {"a=1\na=2", "a", {2, 1}, {2, 3}},
      {"a=1\na=\n", "a", {1, 1}, {1, 3}},
      {"\xEF\xBB\xBF# c\na=1", "\xEF\xBB\xBF#ca", {1, 1}, {2, 3}},
      {"\xC3\xA4=\"\xE6\x97\xA5\" \xE6\x97\xA5", "\xC3\xA4", {1, 1}, {1, 3}},
      {"[\xC3\xA4]\xF0\x9F\x98\x80=\xE6\x97\xA5", "\xC3\xA4.\xF0\x9F\x98\x80", {1, 4}, {1, 6}},
      {"a[]=x,\"y z\" , \n\n  w # c", "a", {1, 1}, {1, 5}},
      {"a[]=x,\"y z\" , \n\n  w # c", "a.0", {1, 1}, {1, 5}},
      {"a[]=x,\"y z\" , \n\n  w # c", "a.1", {1, 1}, {1, 7}},
      {"a[]=x,\"y z\" , \n\n  w # c", "a.2", {1, 1}, {3, 3}},
      {"a[] = ,x", "a.0", {1, 1}, {1, 6}},
      {"a[] = ,x", "a.1", {1, 1}, {1, 8}},
      {"a[] = x,\n\na[] = y", "a.1", {1, 1}, {3, 1}},
      {"[s][]=x", "s.0", {0, 0}, {0, 0}},
      {"[s]\n[]=x", "x", {0, 0}, {0, 0}},
  };
  for (const auto& [text, name, key, value] : examples) {
    const value_places places(text);
    const auto* const found = places.find(name);
    ASSERT_EQ(found != nullptr, key.line != 0) << text << " " << name;
    if (found == nullptr) continue;
    EXPECT_EQ(found->key, key) << text << " " << name << " " << found->key.line << ":" << found->key.column;
    EXPECT_EQ(found->value, value) << text << " " << name << " " << found->value.line << ":"
                                   << found->value.column;
  }
}

TEST(value_places, unclosed_array_gives_its_elements_with_their_places_to_the_next) {
  const value_places longer("a[] = x, #\n\n\"\"\nb[] = y");
  ASSERT_NE(longer.find("b.0"), nullptr);
  EXPECT_EQ(longer.find("b.0")->text, "x");
  EXPECT_EQ(longer.find("b.0")->key, (place{1, 1}));
  EXPECT_EQ(longer.find("b.0")->value, (place{1, 7}));
}

TEST(value_places, keys_that_come_again_are_all_there) {
  const value_places places("a=1\nA=2\n[x]\ny/z=3\n[]\nx.y\\z=4\n");
  ASSERT_EQ(places.all().size(), 4u);
  EXPECT_EQ(places.all()[0].name, "a");
  EXPECT_EQ(places.all()[1].name, "a");
  EXPECT_EQ(places.all()[2].name, "x.y.z");
  EXPECT_EQ(places.find("a")->text, "2");
  EXPECT_EQ(places.find("X\\Y/Z.")->text, "4");
}

/// The number of nodes with a value below the node of these segments, which has no empty name at the top.
std::size_t count_values(const config::config_tree& tree, const std::string& segments) {
  std::vector<config::config_tree::value_entry> children;
  tree.get_value_pair_array(segments.ends_with('.') ? segments + "." : segments, children, false, "");
  std::size_t count = 0;
  for (const auto& [name, node] : children) {
    if ((node.first & config::config_tree::NODE_VALUE_SET) != 0) ++count;
    count += count_values(tree, segments.empty() ? std::string(name) : segments + "." + name);
  }
  return count;
}

void expect_the_values_of_the_tree(const std::string& text) {
  const auto tree = tree_of(text);
  const value_places places(text);
  std::map<std::string, const value_place*> last;
  for (const auto& entry : places.all()) {
    last[entry.name] = &entry;
    EXPECT_GE(entry.key.line, 1u);
    EXPECT_GE(entry.value.line, 1u);
  }
  for (const auto& [name, entry] : last) {
    const auto* const node = tree.get_node(name);
    ASSERT_NE(node, nullptr) << text << "\n---" << name;
    EXPECT_EQ(places.find(name), entry) << text;
    const unsigned int array =
        entry->is_array ? config::_private::array_flags : config::config_tree::NODE_VALUE_SET;
    EXPECT_EQ(node->first, array) << text << "\n---" << name;
    if (entry->is_array) continue;
    EXPECT_EQ(node->second.as_string(), entry->text) << text << "\n---" << name;
  }
  // Where a node at the top has an empty name, names of listings have two meanings.
  if (tree.get_node("") != nullptr) return;
  EXPECT_EQ(last.size(), count_values(tree, "")) << text;
}

TEST(value_places, are_there_for_exactly_the_values_of_every_random_text) {
  orva_test::random_engine random;
  const std::string pieces[] = {"a",   "B",         "a.b",          "c/d",      "x\\",    ".",
                                "[",   "]",         "[s]",          "[s.t]\n",  "[u.]\n", "=",
                                "= ",  "1",         "\"x y\"",      "\"",       "#",      "//",
                                "\n",  "\r\n",      "\r",           " ",        "\t",     ",",
                                "[]=", "a[]=x,y\n", "[]=v,\n",      "\xC3\xA4", "\xFF",   "*/",
                                ":=",  "k=v\n",     "k[] = p,q,r\n"};
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (std::size_t left = random() % 25; left > 0; --left) text += pieces[random() % std::size(pieces)];
    expect_the_values_of_the_tree(text);
    if (HasFailure()) return;
  }
}

TEST(value_places, are_there_for_the_values_of_the_example_files) {
  for (const auto& file : std::filesystem::directory_iterator(CONFIG_FILES)) {
    if (file.path().extension() != ".cfg") continue;
    std::ifstream stream(file.path(), std::ios::binary);
    expect_the_values_of_the_tree({std::istreambuf_iterator<char>(stream), {}});
  }
}

TEST(value_places, columns_are_those_of_place_of) {
  orva_test::random_engine random;
  const std::string pieces[] = {"\xC3\xA4", "\xE6\x97\xA5", "\xF0\x9F\x98\x80", "\xFF", "\xE6\x97",
                                "x",        "\xEF\xBB\xBF"};
  for (int i = 0; i < 2'000; ++i) {
    std::string text;
    std::vector<std::size_t> keys;
    for (int line = 0; line < 5; ++line) {
      text += "\"";
      for (auto left = random() % 6; left > 0; --left) text += pieces[random() % std::size(pieces)];
      text += "\"=[\n";
    }
    const value_places places(text);
    std::size_t begin = 0;
    for (const auto& entry : places.all()) {
      EXPECT_EQ(entry.key, diagnostics::place_of(text, begin));
      const auto end = text.find('\n', begin);
      EXPECT_EQ(entry.value, diagnostics::place_of(text, end - 1));
      begin = end + 1;
    }
    if (HasFailure()) return;
  }
}

TEST(value_places, long_line_of_elements_takes_time_in_proportion) {
  std::string text = "a[]=";
  for (int i = 0; i < 200'000; ++i) text += "\xC3\xA4,";
  text += "z";
  const value_places places(text);
  EXPECT_EQ(places.find("a.200000")->value, (place{1, 400'005}));
}

}  // namespace
