#include "orva/config/declaration.hpp"

#include <gtest/gtest.h>

#include "orva/exceptions/exception.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using ORVA_NAMESPACE::exceptions::invalid_argument_value;

/// The words of the exception that `validate` throws; empty if it throws none.
std::string fault_of(const declaration& declared) {
  try {
    declared.validate();
  } catch (const invalid_argument_value& wrong) {
    return wrong.message();
  }
  return "";
}

declaration with(const std::vector<setting>& settings, const std::vector<setting>& positionals = {}) {
  declaration declared("tool");
  for (const setting& each : settings) declared.add(each);
  for (const setting& each : positionals) declared.add_positional(each);
  return declared;
}

setting key(std::string_view name) { return {name, text()}; }

TEST(declarations, documentation_example) {
  declaration viewer("viewer");
  viewer.version("2.1").description("Shows pictures.");
  viewer.add(setting("threads", integer_between(1, 64)).by_default(4).option('t').help("Threads."));
  viewer.add(setting("verbose", flag()).option('v').help("Shows more."));
  viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
  viewer.add(setting("cfg_file", file_path()).option('c', "config").by_default("viewer.cfg"));
  EXPECT_NO_THROW(viewer.validate());
  EXPECT_EQ(viewer.name(), "viewer");
  EXPECT_EQ(viewer.version(), "2.1");
  EXPECT_EQ(viewer.description(), "Shows pictures.");
  ASSERT_EQ(viewer.settings().size(), 3u);
  EXPECT_EQ(viewer.settings()[2].key(), "cfg_file");
  ASSERT_EQ(viewer.positionals().size(), 1u);
  EXPECT_EQ(viewer.positionals()[0].key(), "files");
}

TEST(declarations, keep_examples_and_sections_in_order) {
  declaration tool("tool");
  tool.example("tool a", "Does a.").example("tool b", "Does b.").allow_section("aliases");
  ASSERT_EQ(tool.examples().size(), 2u);
  EXPECT_EQ(tool.examples()[1].command_line, "tool b");
  EXPECT_EQ(tool.examples()[1].help, "Does b.");
  EXPECT_EQ(tool.allowed_sections().at(0), "aliases");
}

declaration tool_with_commands() {
  declaration remote("");
  remote.add_command("add", "Adds one.", with({key("name")})).add_command("remove", "Removes one.", with({}));
  declaration tool("tool");
  tool.add_command("remote", "Knows others.", remote).add_command("fetch", "Gets all.", with({key("name")}));
  return tool.command_required();
}

TEST(declarations, find_commands_by_the_names_on_the_way) {
  const declaration tool = tool_with_commands();
  EXPECT_TRUE(tool.is_command_required());
  EXPECT_EQ(tool.find_command(""), &tool);
  ASSERT_NE(tool.find_command("remote.add"), nullptr);
  EXPECT_EQ(tool.find_command("remote.add")->settings().at(0).key(), "name");
  EXPECT_EQ(tool.find_command("remote")->commands().size(), 2u);
  EXPECT_EQ(tool.find_command("remote.fetch"), nullptr);
  EXPECT_EQ(tool.find_command("add"), nullptr);
  EXPECT_EQ(tool.find_command("remote.add.more"), nullptr);
}

TEST(declarations, of_commands_have_keys_of_their_own) { EXPECT_EQ(fault_of(tool_with_commands()), ""); }

TEST(declarations, are_values) {
  const declaration tool = tool_with_commands();
  declaration copy = tool;
  copy.add(key("more"));
  EXPECT_TRUE(tool.settings().empty());
  EXPECT_NE(copy.find_command("remote.add"), tool.find_command("remote.add"));
  const declaration moved = std::move(copy);
  EXPECT_EQ(moved.settings().size(), 1u);
}

TEST(declarations, with_two_of_one_name_are_wrong) {
  EXPECT_EQ(fault_of(with({key("a"), key("A")})), "Two settings with one key: a");
  EXPECT_EQ(fault_of(with({key("a")}, {key("a")})), "Two settings with one key: a");
  EXPECT_EQ(fault_of(with({key("a").option("x"), key("b").option("x")})), "Two settings with one option: x");
  EXPECT_EQ(fault_of(with({key("a").option('x'), key("b").option('x')})), "Two settings with one option: x");
  EXPECT_EQ(fault_of(with({key("a").environment("X"), key("b").environment("X")})),
            "Two settings with one variable: X");
  EXPECT_EQ(fault_of(with({key("no-x"), setting("x", flag())})),
            "An option that is the negation of a flag: no-x");
  EXPECT_EQ(fault_of(with({key("no-x"), key("x")})), "");
  declaration twice("tool");
  twice.add_command("a", "", with({})).add_command("a", "", with({}));
  EXPECT_EQ(fault_of(twice), "Two commands of one name: a");
  declaration clash = with({key("fetch.depth")});
  clash.add_command("fetch", "", with({key("depth")}));
  EXPECT_EQ(fault_of(clash), "Two settings with one key: fetch.depth");
}

TEST(declarations, may_use_an_option_again_after_a_command) {
  declaration tool = with({key("a").option('x', "option")});
  tool.add_command("fetch", "", with({key("a").option('x', "option")}));
  EXPECT_EQ(fault_of(tool), "");
}

TEST(declarations, with_positionals_that_no_word_can_reach_are_wrong) {
  const setting list("list", list_of(text()));
  EXPECT_EQ(fault_of(with({}, {key("a"), list})), "");
  EXPECT_EQ(fault_of(with({}, {list, key("a")})), "A positional argument after a list: a");
  EXPECT_EQ(fault_of(with({}, {key("a"), key("b").required()})),
            "A required positional argument after one that is not: b");
  EXPECT_EQ(fault_of(with({}, {key("a").required(), key("b")})), "");
  EXPECT_EQ(fault_of(with({}, {setting("a", flag())})), "A flag as a positional argument: a");
  declaration both = with({}, {key("a")});
  both.add_command("fetch", "", with({}));
  EXPECT_EQ(fault_of(both), "Commands beside positional arguments: tool");
}

TEST(declarations, with_a_list_that_is_a_section_are_wrong) {
  EXPECT_EQ(fault_of(with({setting("a", list_of(text())), key("A.b")})), "A list that is a section: a");
  EXPECT_EQ(fault_of(with({setting("a", list_of(text())), key("a-b"), key("ab")})), "");
  EXPECT_EQ(fault_of(with({key("a"), key("a.b")})), "");
}

TEST(declarations, with_a_successor_that_cannot_take_the_value_are_wrong) {
  EXPECT_EQ(fault_of(with({key("old").deprecated("New"), key("new")})), "");
  EXPECT_EQ(fault_of(with({key("old").deprecated("new")})), "A successor that is not declared: new");
  EXPECT_EQ(fault_of(with({key("old").deprecated("new"), setting("new", integer())})),
            "A successor of another type: new");
  EXPECT_EQ(fault_of(with({key("a").deprecated("b"), key("b").deprecated("c"), key("c")})),
            "A successor that is deprecated, too: b");
  declaration tool("tool");
  tool.add_command("fetch", "", with({key("old").deprecated("new"), key("new")}));
  EXPECT_EQ(fault_of(tool), "");
}

TEST(declarations, refuse_malformed_names) {
  declaration tool("tool");
  EXPECT_THROW(tool.add_command("", "", with({})), invalid_argument_value);
  EXPECT_THROW(tool.add_command("a.b", "", with({})), invalid_argument_value);
  EXPECT_THROW(tool.add_command("-a", "", with({})), invalid_argument_value);
  EXPECT_THROW(tool.allow_section(""), invalid_argument_value);
}

}  // namespace
