#include "orva/config/sample_file.hpp"

#include <gtest/gtest.h>

#include "orva/config/check_file.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/exceptions/exception.hpp"
#include "tests/config/declared_programs.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace orva_test;
using ORVA_NAMESPACE::strings::ustring8;
using ORVA_NAMESPACE::types::variant;

/// Removes each # in front of a setting.
std::string uncommented(std::string_view sample) {
  std::string text;
  while (!sample.empty()) {
    std::string_view line = sample.substr(0, sample.find('\n') + 1);
    sample.remove_prefix(line.size());
    if (line.size() > 1 && line[0] == '#' && line[1] != ' ') line.remove_prefix(1);
    text += line;
  }
  return text;
}

/// What `file_item` reads from a text.
class file_values {
 public:
  explicit file_values(const std::string& text) {
    const std::string name = directory_.write("sample.cfg", text);
    const char* const arguments[] = {"sample.exe", nullptr};
    const char* const environment[] = {nullptr};
    manager_.init(std_config_dispatch(1, arguments, environment, ustring8(name), ""));
    manager_.load();
  }

  std::vector<ustring8> of(const setting& described, const std::string& key) const {
    std::vector<variant> values;
    if (described.type().is_list()) {
      manager_.get_array(key, values);
    } else if (manager_.value_exist(key)) {
      values.push_back(manager_.get_value(key));
    }
    std::vector<ustring8> texts;
    for (const variant& value : values) texts.push_back(value.as_utf8());
    return texts;
  }

 private:
  temporary_directory directory_;
  config_manager manager_;
};

/// The values of a file that has the default of each setting, or nothing where it must not have one.
std::vector<ustring8> expected_values(const setting& described) {
  if (described.is_secret()) return {};
  if (described.type() == flag() && !described.has_default()) return {"false"};
  if (described.default_texts() == std::vector<ustring8>{""}) return {};
  return described.default_texts();
}

TEST(sample_file, documentation_example) {
  declaration viewer("viewer");
  viewer.version("2.1");
  viewer.add(setting("threads", integer_between(1, 64)).by_default(4).help("Number of threads."));
  viewer.add(setting("window.width", integer()).by_default(640).help("Width of the window."));
  EXPECT_EQ(sample_file(viewer), R"(# viewer 2.1
# Settings of viewer. To set one, remove the # in front of it.

# Number of threads. [1 to 64]
#threads = 4

[window]

# Width of the window.
#width = 640
)");
}

TEST(sample_file, has_each_setting_with_its_default) {
  EXPECT_EQ(sample_file(declared_viewer()), R"(# viewer 2.1
# Settings of viewer. To set one, remove the # in front of it.

# Number of threads that read pictures ahead. [1 to 64] [environment:
# VIEWER_THREADS]
#threads = 4

# Memory for pictures.
#cache = "10 MiB"

# Shows more.
#verbose = false

# How to scale. [one of: fast, small, 16:9]
#mode = fast

# Time for each.
#delay = 1s500ms

# Scale. [0.1 to 10]
#zoom =

# Names that are not shown.
#exclude[] =

# Folder for copies. [required]
#output =

# For pictures behind a login. [environment: VIEWER_PASSWORD]
#password =

[window]

# Width of the window.
#width = 640

# Title of the window.
#title = "dark blue"
)");
}

TEST(sample_file, reads_as_the_defaults_when_it_is_uncommented) {
  const declaration viewer = declared_viewer();
  const file_values values(uncommented(sample_file(viewer)));
  for (const setting& each : viewer.settings()) {
    if (!each.successor().empty()) continue;
    EXPECT_EQ(values.of(each, each.key()), expected_values(each)) << each.key();
  }
}

TEST(sample_file, sets_nothing_as_it_is) {
  const declaration viewer = declared_viewer();
  const file_values values(sample_file(viewer));
  for (const setting& each : viewer.settings())
    EXPECT_TRUE(values.of(each, each.key()).empty()) << each.key();
}

TEST(sample_file, has_nothing_that_reads_otherwise_than_it_looks) {
  for (const declaration& declared : {declared_viewer(), declared_tool()}) {
    ORVA_NAMESPACE::diagnostics::report found;
    check_text(sample_file(declared), "sample.cfg", found);
    using ORVA_NAMESPACE::diagnostics::severity;
    EXPECT_EQ(found.count(severity::error) + found.count(severity::warning), 0u) << sample_file(declared);
  }
}

TEST(sample_file, has_the_settings_of_commands_in_sections) {
  const std::string sample = sample_file(declared_tool());
  EXPECT_NE(sample.find("\n[remote.add]\n\n# What may be done. [one of: read, write]\n#mode =\n"),
            sample.npos)
      << sample;
}

TEST(sample_file, leaves_out_what_does_not_belong_in_it) {
  declaration tool("tool");
  tool.add(setting("cfg_file", file_path())).add(setting("old", text()).deprecated("new"));
  tool.add(setting("new", text())).add_positional(setting("file", file_path()));
  const std::string sample = sample_file(tool);
  for (const char* const key : {"cfg_file", "old", "file ="})
    EXPECT_EQ(sample.find(key), sample.npos) << sample;
  EXPECT_NE(sample.find("\n#new =\n"), sample.npos);
}

TEST(sample_file, never_shows_a_secret) {
  declaration tool("tool");
  tool.add(setting("k", text()).secret().by_default("hunter2"));
  tool.add(setting("l", list_of(text())).secret().by_default("hunter2", "a\"b"));
  const std::string sample = sample_file(tool);
  EXPECT_EQ(sample.find("hunter2"), sample.npos);
  EXPECT_EQ(sample.find("a\""), sample.npos);
  const file_values values(uncommented(sample));
  EXPECT_TRUE(values.of(tool.settings()[0], "k").empty());
}

TEST(sample_file, names_a_default_that_the_format_cannot_hold) {
  declaration tool("tool");
  tool.add(setting("k", text()).by_default("a\"b").help("Help."));
  tool.add(setting("l", list_of(text())).by_default("a", ""));
  EXPECT_TRUE(sample_file(tool).ends_with("\n\n# Help. [default: a'b]\n#k =\n\n# [default: a, ]\n#l =\n"))
      << sample_file(tool);
}

TEST(sample_file, is_in_the_language_of_the_user) {
  const std::string sample = sample_file(declared_tool(), [](std::string_view name, std::string_view) {
    return ustring8(name == "setting.quiet" ? "静かに。" : "");
  });
  EXPECT_NE(sample.find("\n# 静かに。\n#quiet = false\n"), sample.npos) << sample;
}

std::string random_text(random_engine& random) {
  static constexpr std::string_view parts[] = {"a",  "B7",  " ",    "\"",   "\\", "#",  "//", ",",
                                               "=",  "[x]", "\n",   ":",    "/",  "\r", "\t", "'",
                                               "[]", "*/",  "\x01", "\xFF", "日", ";"};
  std::string text;
  for (std::size_t count = random() % 7; count > 0; --count) text += parts[random() % std::size(parts)];
  return text;
}

setting random_setting(random_engine& random, std::size_t number) {
  static constexpr std::string_view sections[] = {"", "s.", "s.t.", "section."};
  const std::string key = std::string(sections[random() % 4]) + "k" + std::to_string(number);
  const bool is_list = random() % 3 == 0;
  setting described(key, is_list ? list_of(text()) : text());
  described.help(random_text(random));
  if (is_list) {
    described.by_default(random_text(random), random_text(random), random_text(random));
  } else {
    described.by_default(random_text(random));
  }
  return described;
}

bool is_subset(const std::vector<ustring8>& values, const setting& described) {
  return values.empty() || values == expected_values(described);
}

TEST(sample_file, with_any_texts_reads_as_the_defaults_or_does_not_set_them) {
  random_engine random;
  std::size_t set = 0;
  for (int i = 0; i < 200; ++i) {
    declaration tool(random_text(random));
    tool.version(random_text(random));
    for (std::size_t number = 0; number < 20; ++number) tool.add(random_setting(random, number));
    const std::string sample = sample_file(tool);
    const file_values as_it_is(sample);
    const file_values values(uncommented(sample));
    for (const setting& each : tool.settings()) {
      ASSERT_TRUE(as_it_is.of(each, each.key()).empty()) << sample;
      ASSERT_TRUE(is_subset(values.of(each, each.key()), each)) << each.key() << '\n' << sample;
      if (!values.of(each, each.key()).empty()) ++set;
    }
  }
  EXPECT_GT(set, 1000u);
}

TEST(sample_file, of_a_wrong_declaration_throws) {
  declaration wrong("tool");
  wrong.add(setting("a", text())).add(setting("a", text()));
  EXPECT_THROW(static_cast<void>(sample_file(wrong)), ORVA_NAMESPACE::exceptions::invalid_argument_value);
}

}  // namespace
