// Where values come from: every source, link, array and default, and agreement with get_value.
#include "orva/config/explain.hpp"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <typeinfo>
#include <vector>

#include "orva/config/commandline_item.hpp"
#include "orva/config/config_dispatch.hpp"
#include "orva/config/enviroment_item.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/config/user_item.hpp"
#include "orva/generic/varg_list.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

namespace config = ORVA_NAMESPACE::config;
namespace generic = ORVA_NAMESPACE::generic;
namespace types = ORVA_NAMESPACE::types;
using config::config_manager;
using config::explained_step;
using config::explainer;
using config::explanation;
using config::node_kind;
using config::origin_kind;
using config::step_result;
using config::value_origin;
using ORVA_NAMESPACE::diagnostics::place;
using orva_test::temporary_directory;
using texts = std::vector<std::string>;

/// The arguments or the environment of a program.
class text_block {
 public:
  text_block(std::initializer_list<const char*> entries)
      : text_block(texts(entries.begin(), entries.end())) {}
  explicit text_block(texts entries) : texts_(std::move(entries)) {
    for (const auto& entry : texts_) pointers_.push_back(entry.c_str());
    pointers_.push_back(nullptr);
  }

  const char* const* get() const { return pointers_.data(); }
  int size() const { return static_cast<int>(texts_.size()); }

 private:
  texts texts_;
  std::vector<const char*> pointers_;
};

const text_block none = {};

config_manager loaded(const text_block& arguments, const std::string& file, const text_block& environment) {
  config_manager manager;
  manager.init(config::std_config_dispatch(arguments.size(), arguments.get(), environment.get(), file, ""));
  manager.load();
  return manager;
}

std::string text_of(const explanation& explained) {
  std::ostringstream stream;
  write_text(stream, explained);
  return stream.str();
}

std::string json_of(const explanation& explained) {
  std::ostringstream stream;
  write_json(stream, explained);
  return stream.str();
}

/// The results of the steps, in words.
std::string results_of(const explanation& explained) {
  std::string results;
  for (const auto& step : explained.steps) {
    if (!results.empty()) results += ", ";
    results += step.key + " " + std::string(name_of(step.kind)) + " " + std::string(name_of(step.result));
  }
  return results;
}

TEST(explain, documentation_example) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "# sizes\n[window]\nwidth = 1024\n");
  const text_block arguments = {"app", "-x", "-window.width=640"};
  const text_block environment = {"HOME=/home/ann", "WINDOW.WIDTH=320"};
  const auto manager = loaded(arguments, file, environment);
  const explainer sources(manager);
  const explanation width = sources.explain("window.width");
  EXPECT_EQ(width.value.as_int32(), 640);
  ASSERT_EQ(width.steps.size(), 3u);
  EXPECT_EQ(width.steps[0].origin,
            (value_origin{origin_kind::argument, "command line", "-window.width=640", 2, {}}));
  EXPECT_EQ(width.steps[1].origin, (value_origin{origin_kind::file, "standard file", file, 0, {3, 9}}));
  EXPECT_EQ(width.steps[2].origin,
            (value_origin{origin_kind::variable, "enviroment", "WINDOW.WIDTH", 0, {}}));
  EXPECT_EQ(results_of(width),
            "window.width value used, window.width value hidden, window.width value hidden");
}

TEST(explain, table_is_aligned_by_the_columns_of_a_terminal) {
  explanation explained;
  explained.steps = {
      {"w", {origin_kind::file, "f", "\u65E5.cfg", 0, {3, 9}}, node_kind::value, "a\tb\x1B", 0},
      {"w.long",
       {origin_kind::argument, "c", "-w=1", 2, {}},
       node_kind::array,
       {},
       12,
       step_result::first_element},
      {"w", {origin_kind::argument, "c", "", 0, {}}, node_kind::section, true, 0, step_result::hidden},
      {"w", {}, node_kind::none, 5, 0, step_result::defaulted}};
  EXPECT_EQ(text_of(explained),
            "key     source            value        result\n"
            "w       \u65E5.cfg:3:9        a b\uFFFD         used\n"
            "w.long  argument 2: -w=1  12 elements  first element\n"
            "w       command line      section      hidden\n"
            "w       default           5            default\n");
}

TEST(explain, json_has_an_object_for_each_step) {
  explanation explained;
  explained.steps = {
      {"w", {origin_kind::file, "standard file", "a\"b.cfg", 0, {3, 9}}, node_kind::value, "1\n", 0},
      {"w",
       {origin_kind::argument, "command line", "-w", 1, {}},
       node_kind::array,
       {},
       2,
       step_result::hidden},
      {"w", {origin_kind::other, "mine", "", 0, {}}, node_kind::section, true, 0, step_result::hidden},
      {"w", {}, node_kind::none, {}, 0, step_result::defaulted}};
  EXPECT_EQ(
      json_of(explained),
      "{\"key\":\"w\",\"source\":\"file\",\"id\":\"standard file\",\"name\":\"a\\\"b.cfg\",\"line\":3,"
      "\"column\":9,\"kind\":\"value\",\"value\":\"1\\u000a\",\"result\":\"used\"}\n"
      "{\"key\":\"w\",\"source\":\"argument\",\"id\":\"command line\",\"name\":\"-w\",\"argument\":1,"
      "\"kind\":\"array\",\"elements\":2,\"result\":\"hidden\"}\n"
      "{\"key\":\"w\",\"source\":\"other\",\"id\":\"mine\",\"kind\":\"section\",\"result\":\"hidden\"}\n"
      "{\"key\":\"w\",\"source\":\"default\",\"kind\":\"none\",\"value\":null,\"result\":\"default\"}\n");
}

TEST(explain, origins_are_described_in_a_few_words) {
  using config::describe;
  EXPECT_EQ(describe(value_origin{}), "default");
  EXPECT_EQ(describe(value_origin{origin_kind::argument, "i", "-w=1", 2, {}}), "argument 2: -w=1");
  EXPECT_EQ(describe(value_origin{origin_kind::argument, "i", "", 0, {}}), "command line");
  EXPECT_EQ(describe(value_origin{origin_kind::file, "i", "app.cfg", 0, {3, 9}}), "app.cfg:3:9");
  EXPECT_EQ(describe(value_origin{origin_kind::file, "i", "app.cfg", 0, {}}), "app.cfg");
  EXPECT_EQ(describe(value_origin{origin_kind::variable, "i", "W", 0, {}}), "variable W");
  EXPECT_EQ(describe(value_origin{origin_kind::variable, "i", "", 0, {}}), "variable");
  EXPECT_EQ(describe(value_origin{origin_kind::program, "i", "", 0, {}}), "program");
  EXPECT_EQ(describe(value_origin{origin_kind::other, "i", "", 0, {}}), "i");
}

TEST(explain, key_that_no_source_has_is_the_default) {
  const auto explained = explain(config_manager(), "width", 800);
  EXPECT_EQ(explained.value.as_int32(), 800);
  EXPECT_EQ(results_of(explained), "width none default");
  EXPECT_EQ(explained.steps[0].origin, value_origin{});
  EXPECT_TRUE(explain(config_manager(), "width").value == types::nil);
}

struct argument_example {
  texts arguments;
  const char* key;
  std::size_t number;
  const char* value;
};

TEST(explain, arguments_have_their_numbers) {
  const argument_example examples[] = {
      {{"app", "-a=1"}, "a", 1, "1"},
      {{"app", "-a=1", "-a=2"}, "A", 2, "2"},
      {{"app", "-flag", "-a", "1"}, "a", 2, "1"},
      {{"app", "-flag", "-a", "1"}, "flag", 1, ""},
      {{"app", "word", "-a", "1", "2"}, "a.0", 2, "1"},
      {{"app", "word", "-a", "1", "2"}, "a.1", 2, "2"},
      {{"app", "-a=1,2,3"}, "a.2", 1, "3"},
      {{"app", "-a.b.=1,2"}, "a.b..1", 1, "2"},
      {{"app", "-a$1,2"}, "a", 1, "1,2"},
      {{"app", "/a:1"}, "a", 1, "1"},
      {{"app", "-a", "/y"}, "y", 2, ""},
      {{"app", "-\"a b=1\""}, "ab", 0, nullptr},
      {{"tools\\app.exe"}, "application.name.raw", 0, "app"},
  };
  for (const auto& [entries, key, number, value] : examples) {
    const text_block arguments(entries);
    const auto explained = explain(loaded(arguments, "", none), key);
    if (value == nullptr) continue;
    const auto& step = explained.steps[0];
    EXPECT_EQ(explained.value.as_string(), value) << key;
    EXPECT_EQ(step.origin.kind, origin_kind::argument) << key;
    EXPECT_EQ(step.origin.argument, number) << key;
    EXPECT_EQ(step.origin.name, entries[number]) << key;
  }
}

TEST(explain, array_shows_its_first_element_and_hides_the_others) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "size[] = 640,\n  480\n");
  const text_block arguments = {"app"};
  const auto explained = explain(loaded(arguments, file, {"SIZE=1"}), "size");
  EXPECT_EQ(explained.value.as_string(), "640");
  EXPECT_EQ(results_of(explained), "size array first element, size value hidden, size.0 value used");
  EXPECT_EQ(explained.steps[0].elements, 2u);
  EXPECT_EQ(explained.steps[0].origin.at, (place{1, 10}));
  EXPECT_EQ(explained.steps[2].origin.at, (place{1, 10}));
  EXPECT_EQ(explain(loaded(arguments, file, none), "size.1").steps[0].origin.at, (place{2, 3}));
}

/// Sets up copies of the items that it is given.
class fixed_dispatch : public config::config_dispatch {
 public:
  explicit fixed_dispatch(config::item_list items) : items_(std::move(items)) {}
  void setup(config::item_list& items) const override {
    for (const auto& item : items_) append(items, *item);
  }
  void load(config::item_list& items) const override { load_each(items); }
  void unload(config::item_list& items) const override { unload_each(items); }
  void save(config::item_list& items) const override { save_each(items); }
  fixed_dispatch* clone() const override { return new fixed_dispatch(*this); }

 private:
  config::item_list items_;
};

template <typename... Items>
config_manager manager_of(const Items&... items) {
  config::item_list list;
  (list.push_back(config::item_list::value_type(items.clone())), ...);
  config_manager manager;
  manager.init(fixed_dispatch(list));
  manager.load();
  return manager;
}

TEST(explain, each_hop_of_a_link_is_shown) {
  config::user_item first, second;
  first.set("width", "window.width", config::config_tree::NODE_LINK);
  second.set("window.width", "size", config::config_tree::NODE_LINK);
  second.set("width", 3, 0);
  first.set("size", 640, 0);
  const auto manager = manager_of(first, second);
  const auto explained = explain(manager, "Width");
  EXPECT_EQ(results_of(explained),
            "Width link followed, Width value hidden, window.width link followed, size value used");
  EXPECT_EQ(explained.value.as_int32(), 640);
  EXPECT_EQ(explained.steps[0].origin.kind, origin_kind::program);
}

TEST(explain, circle_of_links_ends_with_the_text_of_the_last) {
  config::user_item item;
  item.set("a", "b", config::config_tree::NODE_LINK);
  item.set("b", "a", config::config_tree::NODE_LINK);
  const auto explained = explain(manager_of(item), "a");
  EXPECT_EQ(results_of(explained), "a link followed, b link closes circle");
  EXPECT_EQ(explained.value.as_string(), "a");
}

TEST(explain, link_to_a_missing_key_is_the_default) {
  config::user_item item;
  item.set("a", "b", config::config_tree::NODE_LINK);
  const auto explained = explain(manager_of(item), "a", 5);
  EXPECT_EQ(results_of(explained), "a link followed, b none default");
  EXPECT_EQ(explained.value.as_int32(), 5);
}

TEST(explain, empty_array_is_nil_and_hides_what_others_have) {
  config::user_item first, second;
  first.set_array("a", {}, {});
  second.set("a", 1, 0);
  const auto explained = explain(manager_of(first, second), "a", 5);
  EXPECT_EQ(results_of(explained), "a array first element, a value hidden, a.0 none used");
  EXPECT_TRUE(explained.value == types::nil);
}

TEST(explain, section_is_true) {
  config::user_item item;
  item.set("window.width", 1, 0);
  const auto explained = explain(manager_of(item), "window");
  EXPECT_EQ(results_of(explained), "window section used");
  EXPECT_TRUE(explained.value.as_bool());
}

TEST(explain, value_that_the_program_changed_has_no_line) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1\nb = 2\n");
  const auto manager = loaded(none, file, none);
  manager.get_config_item("standard file")->set("a", "changed", 0);
  const explainer sources(manager);
  EXPECT_EQ(sources.explain("a").steps[0].origin,
            (value_origin{origin_kind::file, "standard file", file, 0, {}}));
  EXPECT_EQ(sources.explain("b").steps[0].origin.at, (place{2, 5}));
}

TEST(explain, value_that_the_file_does_not_have_any_more_has_no_line) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1\nb = 2\n");
  const text_block arguments = {"app"};
  const auto manager = loaded(arguments, file, none);
  directory.write("app.cfg", "# new\na = 2\nb = 2\n");
  const explainer sources(manager);
  EXPECT_EQ(sources.explain("a").value.as_string(), "1");
  EXPECT_EQ(sources.explain("a").steps[0].origin.at, place{});
  EXPECT_EQ(sources.explain("b").steps[0].origin.at, (place{3, 5}));
}

TEST(explain, file_that_is_gone_leaves_values_without_lines) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1\n");
  const text_block arguments = {"app"};
  const auto manager = loaded(arguments, file, none);
  std::filesystem::remove(directory.path() / "app.cfg");
  EXPECT_EQ(explain(manager, "a").steps[0].origin.name, file);
  EXPECT_EQ(explain(manager, "a").value.as_string(), "1");
}

class clock_item : public config::base_config_item, public config::origin_provider {
 public:
  clock_item() { id_ = "clock"; }
  using base_config_item::load;
  bool load() override {
    set("clock.ticks", 42, 0);
    return true;
  }
  clock_item* clone() const override {
    return ORVA_NAMESPACE::generic::abilities::create_dynamic<clock_item>(*this);
  }
  value_origin origin_of(std::string_view) const override {
    return {origin_kind::other, {}, "the clock", 0, {}};
  }
};

TEST(explain, item_of_a_program_says_where_its_values_come_from) {
  const auto explained = explain(manager_of(clock_item()), "Clock.Ticks");
  EXPECT_EQ(explained.steps[0].origin, (value_origin{origin_kind::other, "clock", "the clock", 0, {}}));
}

TEST(explain, keys_are_those_of_all_sources) {
  const temporary_directory directory;
  const auto file = directory.write("app.cfg", "a = 1\n[window]\nb[] = x, y\n");
  const text_block arguments = {"-A=1", "-A=2", "-c"};
  const text_block environment = {"A=3", "D=4"};
  const auto manager = loaded(arguments, file, environment);
  std::string names;
  for (const auto& key : explainer(manager).keys()) names += key + " ";
  EXPECT_EQ(names, "a application.name application.name.raw c d window.b window.b.0 window.b.1 ");
}

TEST(explain, keys_longer_than_the_limit_are_left_out_and_explained) {
  const std::string section(config::max_listed_key - 2, 's');
  config::user_item item;
  for (const std::string_view key : {"a", "bc"}) item.set(section + '.' + std::string(key), 1, 0);
  const explainer sources(manager_of(item));
  ASSERT_EQ(sources.keys().size(), 1u);
  EXPECT_EQ(sources.keys().front(), section + ".a");
  EXPECT_EQ(sources.explain(section + ".bc").value.as_int32(), 1);
}

/// All names of this file together would have more than 20 gigabytes.
TEST(explain, keys_of_a_hostile_file_take_memory_in_proportion_to_it) {
  std::string deep = "b";
  while (deep.size() < 200'000) deep += ".b";
  std::string text = "a = 1\n[" + deep + "]\n";
  for (int i = 0; i < 60'000; ++i) text += 'c' + std::to_string(i) + "=\n";
  const temporary_directory directory;
  const auto manager = loaded(none, directory.write("app.cfg", text), none);
  const auto keys = explainer(manager).keys();
  EXPECT_EQ(keys.front(), "a");
  EXPECT_LT(keys.size(), 10u);
}

TEST(explain, explainer_keeps_the_items_of_a_manager_that_is_gone) {
  const auto sources = [] {
    config::user_item item;
    item.set("a", 1, 0);
    return explainer(manager_of(item));
  }();
  EXPECT_EQ(sources.explain("a").value.as_int32(), 1);
}

/// Managers with all kinds of sources and few keys, so that everything meets.
class random_manager {
 public:
  explicit random_manager(orva_test::random_engine& random) : random_(random) {
    for (auto left = random_() % 4; left > 0; --left) add_item();
    arguments_.assign(1, "app.x");
    for (auto left = random_() % 5; left > 0; --left)
      arguments_.push_back(piece({"-", "/", ""}) + key() + piece({"=", ":", "", "$"}) + value());
    for (auto left = random_() % 3; left > 0; --left) environment_.push_back(key() + "=" + value());
    for (auto left = random_() % 6; left > 0; --left)
      file_ += piece({"", "[" + key() + "]\n"}) + key() + piece({"=", " = ", "[] = "}) + value() + "\n";
  }

  config_manager make(const temporary_directory& directory) {
    argument_block_ = text_block(arguments_);
    environment_block_ = text_block(environment_);
    items_.emplace_back(
        config::commandline_item(static_cast<unsigned int>(argument_block_.size()), argument_block_.get())
            .clone());
    items_.emplace_back(config::file_item(directory.write("app.cfg", file_)).clone());
    items_.emplace_back(config::enviroment_item(environment_block_.get()).clone());
    config_manager manager;
    manager.init(fixed_dispatch(items_));
    // The warnings about words that are no options.
    testing::internal::CaptureStdout();
    manager.load();
    testing::internal::GetCapturedStdout();
    return manager;
  }

  std::string key() { return piece({"a", "B", "a.b", "b/a", "a.", "", "a.0", "A.1", "b..a", "c"}); }

 private:
  std::string piece(const texts& choices) { return choices[random_() % choices.size()]; }
  std::string value() { return piece({"1", "a", "b", "x,y", "\"q w\"", "", "c"}); }

  void add_item() {
    config::user_item item;
    for (auto left = random_() % 6; left > 0; --left) {
      const auto kind = random_() % 4;
      if (kind == 0) item.set(key(), key(), config::config_tree::NODE_LINK);
      if (kind == 1) item.set(key(), static_cast<int>(random_() % 9), 0);
      if (kind == 2)
        item.set_array(key(), generic::varg_list(generic::argument(5), generic::argument("e")), {});
      if (kind == 3) item.set(key(), value(), static_cast<unsigned int>(random_() % 16));
    }
    items_.emplace_back(item.clone());
  }

  orva_test::random_engine& random_;
  config::item_list items_;
  texts arguments_, environment_;
  std::string file_;
  text_block argument_block_ = {}, environment_block_ = {};
};

void expect_well_formed(const explanation& explained) {
  ASSERT_FALSE(explained.steps.empty());
  std::size_t used = 0;
  for (const auto& step : explained.steps) {
    if (step.result == step_result::hidden) continue;
    const bool ends = step.result != step_result::followed && step.result != step_result::first_element;
    if (ends) ++used;
    if (ends && step.kind != node_kind::array) {
      EXPECT_EQ(step.value.as_string(), explained.value.as_string());
    }
  }
  EXPECT_EQ(used, 1u);
}

TEST(explain, value_is_always_that_of_get_value) {
  orva_test::random_engine random;
  const temporary_directory directory;
  for (int i = 0; i < 1'000; ++i) {
    random_manager choice(random);
    const auto manager = choice.make(directory);
    const explainer sources(manager);
    for (int j = 0; j < 12; ++j) {
      const auto key = choice.key();
      const types::variant fallback(j);
      const auto expected = manager.get_value(key, fallback);
      const auto explained = sources.explain(key, fallback);
      ASSERT_EQ(explained.value.type(), expected.type()) << key;
      ASSERT_EQ(explained.value.as_string(), expected.as_string()) << key;
      expect_well_formed(explained);
      // Every place that is known leads to the value.
      for (const auto& step : explained.steps) {
        if (step.origin.kind == origin_kind::file && step.kind == node_kind::value) {
          EXPECT_NE(step.origin.at.line, 0u) << key;
        }
        if (step.origin.kind == origin_kind::argument && step.kind == node_kind::value) {
          EXPECT_FALSE(step.origin.name.empty()) << key;
        }
      }
      if (testing::Test::HasFailure()) return;
    }
  }
}

}  // namespace
