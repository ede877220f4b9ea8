#include "orva/config/help_text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <sstream>

#include "orva/exceptions/exception.hpp"
#include "orva/i18n/translate.hpp"
#include "tests/config/declared_programs.hpp"
#include "tests/support/environment_variable.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace orva_test;
using ORVA_NAMESPACE::exceptions::invalid_argument_value;
using ORVA_NAMESPACE::strings::ustring8;

TEST(help_text, documentation_example) {
  declaration viewer("viewer");
  viewer.version("2.1").description("Shows pictures.");
  viewer.add(setting("threads", integer_between(1, 64)).by_default(4).option('t').help("Threads."));
  viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
  EXPECT_EQ(help_text(viewer, {.width = 80}), R"(Usage: viewer [OPTION]... FILES...

Shows pictures.

Arguments:
  FILES...              Pictures to show. [required]

Options:
  -t, --threads NUMBER  Threads. [1 to 64] [default: 4]
  -h, --help            Shows this help.
      --version         Shows the version.
)");
}

// The whole page, as tests/config/help_pages has it.

std::string page(const std::string& name) {
  std::ifstream file(HELP_PAGES "/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

class help_text_of_columns : public testing::TestWithParam<std::size_t> {};

TEST_P(help_text_of_columns, is_as_pinned) {
  const std::string columns = std::to_string(GetParam());
  EXPECT_EQ(help_text(declared_viewer(), {.width = GetParam()}), page("viewer_" + columns + ".txt"));
}

TEST_P(help_text_of_columns, is_as_pinned_in_japanese) {
  ORVA_NAMESPACE::i18n::message_catalogs catalogs;
  ASSERT_EQ(catalogs.load(CONFIG_MESSAGES, "ja"), ORVA_NAMESPACE::i18n::message_catalogs::no_error);
  ASSERT_EQ(catalogs.load(HELP_PAGES, "ja"), ORVA_NAMESPACE::i18n::message_catalogs::no_error);
  help_options options;
  options.width = GetParam();
  options.texts = [&](std::string_view name, std::string_view english) {
    return ORVA_NAMESPACE::i18n::translate(name, english, catalogs, "viewer");
  };
  const std::string columns = std::to_string(GetParam());
  EXPECT_EQ(help_text(declared_viewer(), options), page("viewer_ja_" + columns + ".txt"));
}

INSTANTIATE_TEST_SUITE_P(widths, help_text_of_columns, testing::Values(40, 80, 120));

/// In columns: the wide characters of Japanese have three bytes of UTF-8.
std::size_t width_of(std::string_view line) {
  std::size_t width = 0;
  for (const char unit : line) {
    const auto byte = static_cast<unsigned char>(unit);
    width += byte < 0x80 ? 1 : byte >= 0xE0 ? 2 : 0;
  }
  return width;
}

TEST(help_text, has_no_line_that_is_wider_than_the_width) {
  ORVA_NAMESPACE::i18n::message_catalogs catalogs;
  ASSERT_EQ(catalogs.load(CONFIG_MESSAGES, "ja"), ORVA_NAMESPACE::i18n::message_catalogs::no_error);
  ASSERT_EQ(catalogs.load(HELP_PAGES, "ja"), ORVA_NAMESPACE::i18n::message_catalogs::no_error);
  const auto japanese = [&](std::string_view name, std::string_view english) {
    return ORVA_NAMESPACE::i18n::translate(name, english, catalogs, "viewer");
  };
  for (const text_lookup& texts : {text_lookup(), text_lookup(japanese)}) {
    for (std::size_t width = min_help_width; width < 140; ++width) {
      const ustring8 help = help_text(declared_viewer(), {.width = width, .command = {}, .texts = texts});
      ASSERT_TRUE(help.ends_with('\n'));
      std::istringstream lines(help);
      for (std::string line; std::getline(lines, line);) ASSERT_LE(width_of(line), width) << line;
    }
  }
}

TEST(help_text, is_as_wide_as_the_least_width_where_a_smaller_one_is_given) {
  const ustring8 narrow = help_text(declared_viewer(), {.width = min_help_width});
  EXPECT_EQ(help_text(declared_viewer(), {.width = 0}), narrow);
  EXPECT_EQ(help_text(declared_viewer(), {.width = min_help_width - 1}), narrow);
  EXPECT_NE(help_text(declared_viewer(), {.width = min_help_width + 1}), narrow);
}

TEST(help_text, of_a_program_with_commands_lists_them) {
  EXPECT_EQ(help_text(declared_tool()), R"(Usage: tool [OPTION]... COMMAND [ARGUMENT]...

Knows places.

Commands:
  remote             Knows others.
  fetch              Gets all.

Options:
  -c, --config FILE  Reads this file.
  -q, --[no-]quiet   Shows less.
  -h, --help         Shows this help.
      --version      Shows the version.

Help for a command: tool COMMAND --help
)");
}

TEST(help_text, of_a_command_has_its_options_and_those_around_it) {
  EXPECT_EQ(help_text(declared_tool(), {.command = "remote.add"}),
            R"(Usage: tool remote add [OPTION]... NAME [PLACE]

Adds a place.

Arguments:
  NAME               Its name. [required]
  PLACE              Where it is.

Options:
  -m, --mode WORD    What may be done. [one of: read, write] [key:
                     remote.add.mode]
  -h, --help         Shows this help.

General options:
  -c, --config FILE  Reads this file.
  -q, --[no-]quiet   Shows less.

Examples:
  tool remote add home
      Adds home.
)");
  EXPECT_TRUE(help_text(declared_tool(), {.command = "remote"})
                  .starts_with("Usage: tool remote [OPTION]... [COMMAND [ARGUMENT]...]\n"));
}

TEST(help_text, of_a_command_that_is_not_declared_throws) {
  for (const char* const command : {"add", "remote.fetch", "remote.add.more", ".", "remote..add"}) {
    EXPECT_THROW(static_cast<void>(help_text(declared_tool(), {.command = command})), invalid_argument_value);
  }
}

TEST(help_text, of_a_wrong_declaration_throws) {
  declaration wrong("tool");
  wrong.add(setting("a", text())).add(setting("a", text()));
  EXPECT_THROW(static_cast<void>(help_text(wrong)), invalid_argument_value);
}

std::string row_of(const setting& shown) {
  declaration tool("tool");
  const std::string page = help_text(tool.add(shown), {.width = 1000});
  const auto begin = page.find("\n  ") + 3;
  return page.substr(begin, page.find('\n', begin) - begin);
}

TEST(a_row_of_help, shows_what_a_setting_takes_and_where_it_is_set) {
  EXPECT_EQ(row_of(setting("k", integer())), "    --k NUMBER");
  EXPECT_EQ(row_of(setting("k", integer()).option('k').help("Help.")), "-k, --k NUMBER  Help.");
  EXPECT_EQ(row_of(setting("k", integer<std::int64_t>())), "    --k NUMBER");
  EXPECT_EQ(row_of(setting("k", integer_between(0, INT32_MAX))), "    --k NUMBER  [at least 0]");
  EXPECT_EQ(row_of(setting("k", integer_between(INT64_MIN, -1))), "    --k NUMBER  [at most -1]");
  EXPECT_EQ(row_of(setting("k", number_between(-0.5, 100))), "    --k NUMBER  [-0.5 to 100]");
  EXPECT_EQ(row_of(setting("k", list_of(duration())).by_default("1h", "90s")),
            "    --k DURATION  [default: 1h, 1m30s] [may be repeated]");
  EXPECT_EQ(row_of(setting("s.k", text()).option("k").environment("K")),
            "    --k TEXT  [environment: K] [key: s.k]");
  EXPECT_EQ(row_of(setting("K", text()).value_name("NAME").required()), "    --K NAME  [required] [key: k]");
}

TEST(a_row_of_help, of_a_positional_list_shows_once_what_is_repeated) {
  declaration tool("tool");
  tool.add_positional(setting("names", list_of(text())).required().value_name("FILE... KEY"));
  const ustring8 help = help_text(tool);
  EXPECT_TRUE(help.starts_with("Usage: tool [OPTION]... FILE... KEY\n")) << help;
  EXPECT_NE(help.find("\n  FILE... KEY  [required]\n"), help.npos) << help;
}

TEST(a_row_of_help, shows_how_a_flag_is_switched_off) {
  EXPECT_EQ(row_of(setting("k", flag()).by_default(true)), "    --[no-]k  [default: true]");
  EXPECT_EQ(row_of(setting("k", flag()).by_default(false)), "    --[no-]k");
  EXPECT_EQ(row_of(setting("no-k", flag())), "    --no-k");
}

TEST(a_row_of_help, never_shows_the_default_of_a_secret) {
  const setting secret = setting("k", text()).secret().by_default("hunter2").help("Help.");
  EXPECT_EQ(row_of(secret), "    --k TEXT  Help.");
}

TEST(a_row_of_help, of_a_setting_without_an_option_is_written_as_in_a_file) {
  declaration tool("tool");
  tool.add(setting("A.b", list_of(text())).no_option()).add(setting("c", flag()).no_option().group("G"));
  const std::string page = help_text(tool);
  EXPECT_NE(page.find("\nG:\n  c = true|false\n"), page.npos) << page;
  EXPECT_NE(page.find("\nSettings without an option:\n  a.b[] = TEXT, ...\n"), page.npos) << page;
}

TEST(a_row_of_help, names_the_successor) {
  const std::string page = help_text(declared_viewer());
  EXPECT_NE(page.find("[deprecated, use --threads]"), page.npos);
}

TEST(help_text, leaves_out_options_that_a_setting_has_instead) {
  declaration tool("tool");
  tool.version("1").add(setting("help", text())).add(setting("version", flag()).help("Of the data."));
  const std::string page = help_text(tool);
  EXPECT_EQ(page.find("Shows"), page.npos) << page;
  declaration short_h("tool");
  short_h.add(setting("height", integer()).option('h'));
  EXPECT_NE(help_text(short_h).find("\n      --help"), std::string::npos);
}

TEST(help_text, shows_hostile_texts_without_control_characters) {
  declaration tool("to\x1B[2Jol\xFF");
  tool.description("a\x07\r\nb\n\nc\xE2\x80\xAE");
  tool.add(setting("k", one_of({"x\ny", "z"})).help("one\ntwo\x9B\t").group("g\x7F").value_name("V\x01"));
  tool.example("run\x02 me", "x\r");
  const std::string page = help_text(tool);
  EXPECT_EQ(page.find_first_of("\x1B\x07\r\x01\x02\x7F\xFF"), page.npos) << page;
  EXPECT_NE(page.find("\na\xEF\xBF\xBD\nb\n\nc\xEF\xBF\xBD\n"), page.npos) << page;
  EXPECT_NE(page.find("one two\xEF\xBF\xBD [one of: x y, z]"), page.npos) << page;
}

TEST(help_text, uses_the_english_text_where_a_lookup_gives_none) {
  help_options options;
  options.texts = [](std::string_view, std::string_view) { return ustring8(); };
  EXPECT_EQ(help_text(declared_tool(), options), help_text(declared_tool()));
}

TEST(help_text, asks_for_each_text_by_its_name) {
  std::vector<std::string> names;
  help_options options;
  options.command = "remote.add";
  options.texts = [&](std::string_view name, std::string_view) {
    if (!name.starts_with("help.")) names.emplace_back(name);
    return ustring8(name);
  };
  const std::string page = help_text(declared_tool(), options);
  EXPECT_EQ(names, (std::vector<std::string>{"setting.remote.add.name", "setting.remote.add.place",
                                             "setting.remote.add.mode", "setting.config", "setting.quiet",
                                             "description.remote.add", "example.remote.add.1"}));
  names.clear();
  options.command = "";
  static_cast<void>(help_text(declared_tool(), options));
  EXPECT_EQ(names, (std::vector<std::string>{"command.remote", "command.fetch", "setting.config",
                                             "setting.quiet", "description"}));
  names.clear();
  static_cast<void>(help_text(declared_viewer(), options));
  for (const char* const name : {"description", "group.Speed", "value.threads", "setting.window.title"}) {
    EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
  }
}

TEST(help_text, fills_values_only_into_names_that_it_knows) {
  help_options options;
  options.texts = [](std::string_view name, std::string_view english) {
    return ustring8(name == "help.default" ? "{value} {value}{x}{value" : english);
  };
  declaration tool("tool");
  tool.add(setting("k", text()).by_default("{value}"));
  EXPECT_NE(help_text(tool, options).find("[{value} {value}{x}{value]"), std::string::npos);
}

TEST(version_text, is_name_and_version) {
  EXPECT_EQ(version_text(declared_viewer()), "viewer 2.1\n");
  EXPECT_EQ(version_text(declaration("tool")), "tool\n");
  EXPECT_EQ(version_text(declaration("").version("1\n2")), "1 2\n");
}

TEST(help_width, is_that_of_the_variable) {
  const std::ostringstream stream;
  const environment_variable variable("COLUMNS", "132");
  EXPECT_EQ(help_width(stream), 132u);
}

TEST(help_width, is_80_where_nothing_is_known) {
  const std::ostringstream stream;
  for (const char* const value :
       {static_cast<const char*>(nullptr), "", "0", "-5", "wide", "80x", "99999999999999999999"}) {
    const environment_variable variable("COLUMNS", value);
    EXPECT_EQ(help_width(stream), default_help_width) << (value != nullptr ? value : "no variable");
  }
}

}  // namespace
