#include "orva/config/config_document.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "orva/diagnostics/finding.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using ORVA_NAMESPACE::config::config_document;
using ORVA_NAMESPACE::strings::ustring8;
using error = config_document::error;
using load_error = config_document::load_error;
using elements = std::vector<ustring8>;

const char* name_of(error code) {
  const char* const names[] = {
      "none",        "bad_key",       "bad_value", "empty_value",        "bad_comment",
      "no_such_key", "array_element", "unclosed",  "affects_other_keys", "too_large"};
  return names[static_cast<int>(code)];
}

/// The text after an edit. The name of the error if the edit is refused, which must not change the text.
template <typename Edit>
std::string edited(std::string_view text, Edit edit) {
  config_document document{std::string(text)};
  const auto result = edit(document);
  if (result.error == error::none) return document.text();
  EXPECT_EQ(document.text(), text);
  return name_of(result.error);
}

std::string set(std::string_view text, std::string_view key, std::string_view value,
                std::string_view comment = {}) {
  return edited(text, [&](config_document& document) { return document.set(key, value, comment); });
}
std::string set_array(std::string_view text, std::string_view key, const elements& values) {
  return edited(text, [&](config_document& document) { return document.set_array(key, values); });
}
std::string removed(std::string_view text, std::string_view key) {
  return edited(text, [&](config_document& document) { return document.remove(key); });
}
std::string with_comment(std::string_view text, std::string_view key, std::string_view comment) {
  return edited(text, [&](config_document& document) { return document.set_comment(key, comment); });
}
std::string with_section(std::string_view text, std::string_view name) {
  return edited(text, [&](config_document& document) { return document.add_section(name); });
}

void must(const config_document::result& result) { EXPECT_EQ(result.error, error::none); }

TEST(config_document, documentation_example) {
  config_document document("# Size on screen\n[window]\nwidth = 640   # pixels\n");
  EXPECT_EQ(document.get("window.width"), "640");
  must(document.set("Window.Width", "800"));
  must(document.set("window.title", "Free space"));
  EXPECT_EQ(document.text(),
            "# Size on screen\n[window]\nwidth = 800   # pixels\n"
            "title = \"Free space\"\n");
}

void must(const config_document::load_result& result) { EXPECT_EQ(result, config_document::load_result()); }
void must(const ORVA_NAMESPACE::system::replace_file_result& result) {
  EXPECT_EQ(result.code, ORVA_NAMESPACE::system::replace_file_result::error::none);
}

TEST(config_document, documentation_example_with_a_file) {
  const orva_test::temporary_directory directory;
  const std::string path = directory.write("viewer.cfg", "# Size on screen\r\n[window]\r\nwidth = 640\r\n");
  config_document document;
  must(document.load(path));
  must(document.set("window.width", "800"));
  must(document.save());
  EXPECT_EQ(directory.read("viewer.cfg"), "# Size on screen\r\n[window]\r\nwidth = 800\r\n");
}

TEST(config_document, file_that_does_not_exist_is_made_by_save) {
  const orva_test::temporary_directory directory;
  const std::string path = directory.file("new.cfg");
  config_document document;
  EXPECT_EQ(document.load(path).error, load_error::no_file);
  must(document.set("a", "1"));
  must(document.save());
  EXPECT_EQ(directory.read("new.cfg"), "a = 1\n");
  config_document copy(document);
  must(copy.set("a", "2"));
  must(copy.save());
  EXPECT_EQ(directory.read("new.cfg"), "a = 2\n");
  must(document.save(directory.file("other.cfg")));
  EXPECT_EQ(directory.read("other.cfg"), "a = 1\n");
}

TEST(config_document, failed_load_keeps_the_text) {
  const orva_test::temporary_directory directory;
  const std::string file = directory.write("file.cfg", "a = 2\n");
  config_document document("a = 1\n");
  EXPECT_EQ(document.load(directory.name()).error, load_error::not_a_file);
  for (const std::string& path : {directory.file("none/none.cfg"), directory.file("file.cfg/none.cfg"),
                                  file + std::string("\0", 1), std::string()}) {
    EXPECT_EQ(document.load(path), (config_document::load_result{load_error::no_file, {}})) << path;
  }
  EXPECT_EQ(document.text(), "a = 1\n");
  EXPECT_EQ(document.save().code, ORVA_NAMESPACE::system::replace_file_result::error::bad_path);
}

TEST(config_document, failed_load_is_described_by_the_codes_of_files) {
  const config_document::load_result refused{load_error::unreadable,
                                             std::make_error_code(std::errc::permission_denied)};
  std::ostringstream stream;
  stream << describe(refused, "/etc/shadow");
  EXPECT_EQ(stream.str(),
            "/etc/shadow: error: The file cannot be opened: Permission denied [config.file_refused]");
  EXPECT_EQ(describe(config_document::load_result{load_error::no_file, {}}, "x").code, "config.file_missing");
  EXPECT_EQ(describe(config_document::load_result{load_error::not_a_file, {}}, "x").code,
            "config.file_not_a_file");
  EXPECT_EQ(describe(config_document::load_result{load_error::too_large, {}}, "x").code,
            "config.file_too_large");
  EXPECT_EQ(describe(config_document::load_result(), "x").code, "");
  EXPECT_EQ(describe(config_document::load_result(), "x").level, ORVA_NAMESPACE::diagnostics::severity::note);
}

TEST(config_document, links_are_followed_by_load_and_save_and_stay) {
  const orva_test::temporary_directory directory;
  directory.write("data/real.cfg", "a = 1\n");
  std::error_code refused;
  std::filesystem::create_symlink("data/real.cfg", directory.path() / "link.cfg", refused);
  if (refused) GTEST_SKIP() << "no links can be made here: " << refused.message();
  std::filesystem::create_symlink("link.cfg", directory.path() / "first.cfg");
  std::filesystem::create_symlink("circle.cfg", directory.path() / "circle.cfg");
  config_document document;
  must(document.load(directory.path() / "first.cfg"));
  must(document.set("a", "2"));
  must(document.save());
  EXPECT_EQ(directory.read("data/real.cfg"), "a = 2\n");
  EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "first.cfg"));
  EXPECT_EQ(document.load(directory.file("first.cfg") + std::string("\0x", 2)).error, load_error::no_file);
  const auto circle = document.load(directory.file("circle.cfg"));
  EXPECT_EQ(circle.error, load_error::unreadable);
  EXPECT_NE(circle.reason, std::error_code());
}

TEST(config_document, findings_name_the_key_and_its_line) {
  config_document document("title = x\n\npaths[] = 1\n");
  std::ostringstream stream;
  stream << describe(document.set("title", "\"x\""), "title", "a.cfg");
  EXPECT_EQ(
      stream.str(),
      "a.cfg: error: The value for title has a quote without a backslash before it. [config.edit_bad_value]");
  const auto refused = document.remove("paths.0");
  EXPECT_EQ(refused, (config_document::result{error::array_element, 3}));
  const auto found = describe(refused, "paths.0", "a.cfg");
  EXPECT_EQ(found.code, "config.edit_array_element");
  EXPECT_EQ(found.at.line, 3u);
  EXPECT_EQ(describe(config_document::result(), "title").code, "");
}

TEST(config_document, copy_is_independent) {
  config_document document("a = 1\n");
  config_document copy(document);
  must(copy.set("a", "2"));
  EXPECT_EQ(document.text(), "a = 1\n");
  document = copy;
  EXPECT_EQ(document.text(), "a = 2\n");
  const config_document moved(std::move(copy));
  EXPECT_EQ(moved.get("a"), "2");
  EXPECT_EQ(config_document().text(), "");
}

// Reading.

TEST(config_document, values_are_found_by_any_spelling_of_the_key) {
  const config_document document("[Window]\nWidth = 640\nempty =\npaths[] = /, \"/my disk\"\npaths.5 = x\n");
  for (const char* const key : {"window.width", "WINDOW/width", "window\\Width", "window.width."}) {
    EXPECT_EQ(document.get(key), "640") << key;
  }
  for (const char* const key : {"window", "width", "window.empty", "window.paths", "", "."}) {
    EXPECT_EQ(document.get(key), std::nullopt) << key;
  }
  EXPECT_EQ(document.get("window.paths.1"), "/my disk");
  EXPECT_EQ(document.get("window.paths.2"), std::nullopt);
  EXPECT_EQ(document.get_array("window.paths"), (elements{"/", "/my disk"}));
  EXPECT_EQ(document.get_array("window.width"), std::nullopt);
  EXPECT_EQ(document.get_array("window.paths.0"), std::nullopt);
}

TEST(config_document, last_line_of_a_key_counts) {
  const config_document document("a = 1\n[s]\nb = 1\n[]\na = 2\n[s]\nB = 3\n");
  EXPECT_EQ(document.get("a"), "2");
  EXPECT_EQ(document.get("s.b"), "3");
}

TEST(config_document, elements_come_from_all_lines_that_store_them) {
  EXPECT_EQ(config_document("a[] = 1, 2, 3\na[] = 9\n").get_array("a"), (elements{"9", "2", "3"}));
  EXPECT_EQ(config_document("a[] = 1\na.1 = x\na.3 = y\n").get_array("a"), (elements{"1", "x"}));
  EXPECT_EQ(config_document("a[] = 1\na = x\n").get_array("a"), std::nullopt);
  EXPECT_EQ(config_document("a[] = 1, \"\"\nb[] = 2\n").get_array("b"), (elements{"1", "2"}));
  EXPECT_EQ(config_document("a[] = 1,,2\n").get("a.1"), "");
}

TEST(config_document, entries_are_the_lines_that_store_a_key) {
  const config_document document("# note\nA = 1\n\n[s]\nempty =\nb[] = 1,\n 2\nx\ny = 3\n[]\na = 2\n");
  using entry = config_document::entry;
  EXPECT_EQ(document.entries(),
            (std::vector<entry>{{"a", 2, false}, {"s.b", 6, true}, {"s.xy", 8, false}, {"a", 11, false}}));
  EXPECT_TRUE(config_document().entries().empty());
}

// Setting.

TEST(config_document, set_changes_only_the_value) {
  EXPECT_EQ(set("a=1", "a", "2"), "a=2");
  EXPECT_EQ(set("  a =  1  # note\r\nb=1\n", "A", "23"), "  a =  23  # note\r\nb=1\n");
  EXPECT_EQ(set("a = b \"c d\" e // f\n", "a", "x"), "a = x // f\n");
  EXPECT_EQ(set("a\n=\t1\n", "a", "2"), "a\n=\t2\n");
  EXPECT_EQ(set("a = \"1\n2\" # note\n", "a", "x"), "a = \"x\" # note\n");
  EXPECT_EQ(set("[s] a = 1 // note", "s.a", "2"), "[s] a = 2 // note");
  EXPECT_EQ(set("a = 1\n", "a", "1"), "a = 1\n");
  EXPECT_EQ(set("a = \"\\\"\"\n", "a", "\\\""), "a = \"\\\"\"\n");
}

TEST(config_document, set_fills_a_line_without_a_value) {
  EXPECT_EQ(set("a =\n", "a", "1"), "a = 1\n");
  EXPECT_EQ(set("a = \n", "a", "1"), "a = 1\n");
  EXPECT_EQ(set("a=\n", "a", "1"), "a=1\n");
  EXPECT_EQ(set("a=", "a", "1"), "a=1");
  EXPECT_EQ(set("a =   # note\n", "a", "1"), "a = 1  # note\n");
  EXPECT_EQ(set("a =# note\n", "a", "1"), "a = 1 # note\n");
  EXPECT_EQ(set("a = \"\"\n", "a", "1"), "a = \"1\"\n");
  EXPECT_EQ(set("a =\na = 1\na =\n", "a", "2"), "a =\na = 2\na =\n");
}

TEST(config_document, set_changes_the_line_that_counts) {
  EXPECT_EQ(set("a = 1\na = 2\n", "a", "3"), "a = 1\na = 3\n");
  EXPECT_EQ(set("[s]\na = 1\n[t]\na = 2\n[s]\n", "s.a", "3"), "[s]\na = 3\n[t]\na = 2\n[s]\n");
}

TEST(config_document, set_quotes_what_would_read_otherwise) {
  const std::pair<const char*, const char*> rows[] = {{"x y", "\"x y\""},
                                                      {" ", "\" \""},
                                                      {"#1", "\"#1\""},
                                                      {"http://x", "\"http://x\""},
                                                      {"=1", "\"=1\""},
                                                      {"a=b", "a=b"},
                                                      {"a\nb", "\"a\nb\""},
                                                      {"a\r", "\"a\r\""},
                                                      {"\\\"", "\"\\\"\""},
                                                      {"C:\\", "C:\\"},
                                                      {"C:\\a b\\", "\"C:\\a b\"\\"},
                                                      {"\\\\\" ", "\\\"\\\" \""},
                                                      {"/", "/"},
                                                      {"1,2", "\"1,2\""},
                                                      {"[x]", "[x]"},
                                                      {"\xC3\xA4", "\xC3\xA4"},
                                                      {"*/", "*/"}};
  for (const auto& [value, spelling] : rows) {
    EXPECT_EQ(set("a = 1\n", "a", value), "a = " + std::string(spelling) + "\n");
    EXPECT_EQ(set("", "a", value), "a = " + std::string(spelling) + "\n");
  }
  EXPECT_EQ(set("a=1// note", "a", "x/"), "a=\"x/\"// note");
}

TEST(config_document, set_refuses_values_that_the_format_cannot_hold) {
  EXPECT_EQ(set("a = 1\n", "a", ""), "empty_value");
  EXPECT_EQ(set("a = 1\n", "b", ""), "empty_value");
  for (const char* const value : {"\"", "a\"", "\\\"\"", "say \"hi\""}) {
    EXPECT_EQ(set("a = 1\n", "a", value), "bad_value") << value;
  }
}

TEST(config_document, set_of_an_element_changes_it_in_its_array) {
  EXPECT_EQ(set("a[] = 1, 2, # note\n  3\n", "a.1", "x"), "a[] = 1, x, # note\n  3\n");
  EXPECT_EQ(set("a[] = 1, 2\n", "a.0", ""), "a[] = \"\", 2\n");
  EXPECT_EQ(set("a[] = 1, 2\n", "a.1", ""), "empty_value");
  EXPECT_EQ(set("a[]=1,,2\n", "a.1", "x,y"), "a[]=1,\"x,y\",2\n");
  EXPECT_EQ(set("a[] = 1\na.0 = x\n", "a.0", "y"), "a[] = 1\na.0 = y\n");
  EXPECT_EQ(set("a[] = 1,\"\"\nb[] = 2\n", "b.1", "x"), "a[] = 1,\"\"\nb[] = x\n");
  EXPECT_EQ(set("a[] = 1,\"\"\nb[] = 2\n", "b.0", "x"), "affects_other_keys");
  EXPECT_EQ(set_array("a[] = 1, 2\n", "a.0", {"x"}), "array_element");
  EXPECT_EQ(set("a[] = 1\n", "a.1", "2"), "a[] = 1\n\n[a]\n1 = 2\n");
}

TEST(config_document, set_turns_an_array_into_a_value_and_back) {
  EXPECT_EQ(set("Paths[] = 1, 2 # note\n", "paths", "x"), "Paths = x # note\n");
  EXPECT_EQ(set("\"a b[]\"=1\n", "a b", "x"), "\"a b\"=x\n");
  EXPECT_EQ(set("a[]=\n", "a", "x"), "a=x\n");
  EXPECT_EQ(set_array("Paths = 1 # note\n", "paths", {"x", "y z"}), "Paths[] = x, \"y z\" # note\n");
  EXPECT_EQ(set_array("a=\n", "a", {"x", "", "y"}), "a[]=x, \"\", y\n");
  EXPECT_EQ(set_array("a.=1\n", "a", {"x", "y"}), "a[]=x, y\n");
  EXPECT_EQ(set("a[] = 1\na[] = 2\n", "a", "x"), "affects_other_keys");
  EXPECT_EQ(set("a[] = 1\na.0 = 2\n", "a", "x"), "affects_other_keys");
}

TEST(config_document, set_array_touches_only_elements_that_change) {
  const char* const text = "a[] = 1, \"2\",  # two\n   3   # three\n";
  EXPECT_EQ(set_array(text, "a", {"1", "2", "3"}), text);
  EXPECT_EQ(set_array(text, "a", {"1", "x", "3"}), "a[] = 1, \"x\",  # two\n   3   # three\n");
  EXPECT_EQ(set_array(text, "a", {"1", "2", "3", "4"}), "a[] = 1, \"2\",  # two\n   3, 4   # three\n");
  EXPECT_EQ(set_array(text, "a", {"1", "2"}), "a[] = 1, \"2\"   # three\n");
  EXPECT_EQ(set_array(text, "a", {"x"}), "a[] = x   # three\n");
  EXPECT_EQ(set_array("a[] = 1,\n  2\n", "a", {"1", "2", "3", "4"}), "a[] = 1,\n  2,\n  3,\n  4\n");
  EXPECT_EQ(set_array("a[]=1,2\n", "a", {"0", "2", "3"}), "a[]=0,2,3\n");
  EXPECT_EQ(set_array("a[] = 1, ,3\n", "a", {"1", "x"}), "a[] = 1, x\n");
  EXPECT_EQ(set_array("a[] =\n", "a", {"1", "2"}), "a[] = 1, 2\n");
  EXPECT_EQ(set_array("a[] = 1, \"\"\n", "a", {"1", "2"}), "a[] = 1, \"2\"\n");
}

TEST(config_document, set_array_refuses_what_the_format_cannot_hold) {
  EXPECT_EQ(set_array("", "a", {}), "empty_value");
  EXPECT_EQ(set_array("", "a", {"1", ""}), "empty_value");
  EXPECT_EQ(set_array("", "a", {"", "1"}), "a[] = \"\", 1\n");
  EXPECT_EQ(set_array("", "a", {"\"", "1"}), "bad_value");
}

TEST(config_document, set_array_is_refused_where_other_lines_set_its_elements) {
  EXPECT_EQ(set_array("a[] = 1, 2\na[] = 3\n", "a", {"x"}), "affects_other_keys");
  EXPECT_EQ(set_array("a[] = 1, 2\na[] = 3\n", "a", {"x", "y"}), "a[] = 1, 2\na[] = x, y\n");
  EXPECT_EQ(set_array("a[] = 1\na.0 = 2\n", "a", {"x"}), "affects_other_keys");
  EXPECT_EQ(set_array("a[] = 1,\"\"\nb[] = 2\n", "b", {"1", "x"}), "affects_other_keys");
  EXPECT_EQ(set_array("a[] = 1,\"\"\nb[] = 2\n", "b", {"2"}), "affects_other_keys");
  EXPECT_EQ(set("a[] = 1,\"\"\nb[] = 2\n", "b", "2"), "affects_other_keys");
  EXPECT_EQ(set_array("[s]\n\"[]\" = 1\n", "s", {"x"}), "affects_other_keys");
  EXPECT_EQ(set_array("a.1 = x\n", "a", {"1"}), "affects_other_keys");
  EXPECT_EQ(set_array("b = 1\na.0 = x\n", "a", {"1"}), "affects_other_keys");
  EXPECT_EQ(set_array("b = 1\n[]\na.0 = x\n", "a", {"1"}), "affects_other_keys");
}

// New keys.

TEST(config_document, new_key_follows_its_last_sibling_in_its_form) {
  EXPECT_EQ(set("[s]\n\ta:=\t1 # note\nb=2\n\n[t]\nc = 3\n", "s.x", "4"),
            "[s]\n\ta:=\t1 # note\nb=2\n\tx=4\n\n[t]\nc = 3\n");
  EXPECT_EQ(set("[s]\n\ta\t=\t1 # note\n\n[t]\nc=3\n", "s.b", "4"),
            "[s]\n\ta\t=\t1 # note\n\tb\t=\t4\n\n[t]\nc=3\n");
  EXPECT_EQ(set("a=1\nb = 2\n[s]\nc=3\n", "d", "4"), "a=1\nb = 2\nd = 4\n[s]\nc=3\n");
  EXPECT_EQ(set("s.a=1\n[t]\nb=2\n", "s.c", "3"), "s.a=1\ns.c=3\n[t]\nb=2\n");
  EXPECT_EQ(set("[a]\nb.c=1\n[d]\n", "a.b.x", "2"), "[a]\nb.c=1\nb.x=2\n[d]\n");
  EXPECT_EQ(set("[s]\na=1\n[]\nb=2\n", "c", "3"), "[s]\na=1\n[]\nb=2\nc=3\n");
  EXPECT_EQ(set("[s]\na[]=1,\n 2\n", "s.b", "3"), "[s]\na[]=1,\n 2\nb=3\n");
}

TEST(config_document, new_key_begins_an_empty_section_of_its_name) {
  EXPECT_EQ(set("[s] # note\n\n[t]\na=1\n", "s.b", "1"), "[s] # note\nb = 1\n\n[t]\na=1\n");
  EXPECT_EQ(set("[s]", "s.b", "1"), "[s]\nb = 1");
  EXPECT_EQ(set("[s] [t] a=1\n", "s.b", "1"), "[s]\nb = 1\n [t] a=1\n");
  EXPECT_EQ(set("[s]\n[t]\n[S]\n# note\n", "s.b", "1"), "[s]\n[t]\n[S]\nb = 1\n# note\n");
  EXPECT_EQ(set("[a.b]\n", "a.b.c", "1"), "[a.b]\nc = 1\n");
}

TEST(config_document, new_key_without_a_section_makes_one_at_the_end) {
  EXPECT_EQ(set("a = 1\n", "Window.Main.Width", "1"), "a = 1\n\n[Window.Main]\nWidth = 1\n");
  EXPECT_EQ(set("a = 1\n\n", "s/b", "1"), "a = 1\n\n[s]\nb = 1\n");
  EXPECT_EQ(set("[a]\nb=1\n", "a.b.c", "1"), "[a]\nb=1\n\n[a.b]\nc = 1\n");
  EXPECT_EQ(set("", "s.b", "1"), "[s]\nb = 1\n");
  EXPECT_EQ(set("a = 1", "s.b", "1"), "a = 1\n\n[s]\nb = 1");
  EXPECT_EQ(set("a = 1\r\n", "my disk.b c", "1"), "a = 1\r\n\r\n[\"my disk\"]\r\n\"b c\" = 1\r\n");
}

TEST(config_document, new_key_without_a_parent_comes_before_the_sections) {
  EXPECT_EQ(set("[s]\na=1\n", "b", "1"), "b = 1\n\n[s]\na=1\n");
  EXPECT_EQ(set("# file\n[s]\na=1\n", "b", "1"), "# file\nb = 1\n\n[s]\na=1\n");
  EXPECT_EQ(set("# file\n\n# section\n[s]\na=1\n", "b", "1"), "# file\n\nb = 1\n\n# section\n[s]\na=1\n");
  EXPECT_EQ(set("# file\n", "b", "1"), "# file\nb = 1\n");
  EXPECT_EQ(set("", "b", "1"), "b = 1\n");
  EXPECT_EQ(set("= [s]\n", "b", "1"), "= \nb = 1\n\n[s]\n");
}

TEST(config_document, new_line_ends_like_the_one_before_it) {
  EXPECT_EQ(set("a=1\r\nb=2\n", "c", "3"), "a=1\r\nb=2\nc=3\n");
  EXPECT_EQ(set("a=1\nb=2\r\n", "c", "3"), "a=1\nb=2\r\nc=3\r\n");
  EXPECT_EQ(set("[s]\r\na=1\n", "b", "1"), "b = 1\r\n\r\n[s]\r\na=1\n");
  EXPECT_EQ(set("a=1\r\nb=2", "c", "3"), "a=1\r\nb=2\r\nc=3");
  EXPECT_EQ(set("a=1", "c", "3", "note"), "a=1\n# note\nc=3");
}

TEST(config_document, names_are_quoted_where_they_need_it) {
  for (const char* const name : {"#a", "[a", "a=b", "a b", "a:", "a\n", "a+", "a]", "a\"\\"}) {
    const bool writable = std::string_view(name) != "a\"\\";
    EXPECT_EQ(set("", name, "1"), writable ? "\"" + std::string(name) + "\" = 1\n" : "bad_key") << name;
  }
  EXPECT_EQ(set("x=1\n", "a_", "2"), "x=1\na_=2\n");
  EXPECT_EQ(set("x=1\n", "a-", "2"), "x=1\n\"a-\"=2\n");
}

TEST(config_document, keys_with_empty_names_are_refused_only_where_they_are_new) {
  for (const char* const key : {"", ".", ".a", "a..b", "a[]", "s.a[]", "..", "\"a\""}) {
    EXPECT_EQ(set("x = 1\n", key, "1"), "bad_key") << key;
    EXPECT_EQ(with_section("x = 1\n", key), "bad_key") << key;
  }
  EXPECT_EQ(set("[a.]\nb = 1\n", "a..b", "2"), "[a.]\nb = 2\n");
  EXPECT_EQ(set("a. = 1\n", "a", "2"), "a. = 2\n");
}

TEST(config_document, byte_order_mark_is_a_part_of_the_first_key_and_stays_first) {
  const std::string mark = "\xEF\xBB\xBF";
  const config_document document(mark + "a=1\n");
  EXPECT_EQ(document.get("a"), std::nullopt);
  EXPECT_EQ(document.get(mark + "a"), "1");
  EXPECT_EQ(set(mark + "a=1\n", "a", "2"), mark + "a=1\na=2\n");
  EXPECT_EQ(set(mark + "[s]\na=1\n", "s.a", "2"), mark + "[s]\na=1\n\n[s]\na = 2\n");
  EXPECT_EQ(set(mark, "a", "2"), "unclosed");
  EXPECT_EQ(removed(mark + "a=1\nb=2\n", mark + "a"), "b=2\n");
}

TEST(config_document, nothing_is_added_after_text_that_is_open) {
  for (const char* const text :
       {"x", "a\n# note\n", "[s", "# it\"s\n", "a = \"1\n", "a[] = 1,", "a[] = 1,\n# note\n", "\"x\" "}) {
    EXPECT_EQ(set(text, "s.b", "1"), "unclosed") << text;
    EXPECT_EQ(with_section(text, "t"), "unclosed") << text;
  }
  EXPECT_EQ(set("x\n", "b", "1", "a comment with ="), "unclosed");
  EXPECT_EQ(set("a = 1\nx", "b", "1"), "a = 1\nb = 1\nx");
  EXPECT_EQ(set("a = \"1\nb = 2\n", "a", "x"), "unclosed");
  EXPECT_EQ(removed("a = \"1\nb = 2\n", "a"), "unclosed");
}

TEST(config_document, result_has_the_line_of_what_is_open) {
  config_document document("a = 1\n\nb\n");
  EXPECT_EQ(document.set("s.b", "1"), (config_document::result{error::unclosed, 3}));
  EXPECT_EQ(document.add_section("s"), (config_document::result{error::unclosed, 3}));
}

// Comments.

TEST(config_document, set_with_a_comment_replaces_that_of_the_key) {
  EXPECT_EQ(set("", "a", "1", "one\n\ntwo"), "# one\n#\n# two\na = 1\n");
  EXPECT_EQ(set("x=1\n\n  // old\n  # old\n  a=1\n", "a", "2", "new"), "x=1\n\n  # new\n  a=2\n");
  EXPECT_EQ(set("[s]\r\na=1\r\n", "s.b", "2", "one\r\ntwo"), "[s]\r\na=1\r\n# one\r\n# two\r\nb=2\r\n");
  EXPECT_EQ(set("a[] = 1, 2\n", "a.1", "x", "note"), "# note\na[] = 1, x\n");
  EXPECT_EQ(set("a = 1\n", "a", "1", "note"), "# note\na = 1\n");
}

TEST(config_document, comment_is_the_lines_directly_above_the_key) {
  const config_document document("# file\n\n#one\n  //  two \na=1 # b\n# c\n\nb=1\nc=1\n[s] # d\nd=1\n");
  EXPECT_EQ(document.comment("a"), "one\n two ");
  for (const char* const key : {"b", "c", "s.d", "none"}) EXPECT_EQ(document.comment(key), "") << key;
}

TEST(config_document, set_comment_adds_replaces_and_removes) {
  EXPECT_EQ(with_comment("a=1\n", "a", "x"), "# x\na=1\n");
  EXPECT_EQ(with_comment("# x\na=1\n", "a", "y\nz"), "# y\n# z\na=1\n");
  EXPECT_EQ(with_comment("b=1\n# x\na=1\n", "a", ""), "b=1\na=1\n");
  EXPECT_EQ(with_comment("a=1\n", "a", ""), "a=1\n");
  EXPECT_EQ(with_comment("a =\n", "a", "x"), "# x\na =\n");
  EXPECT_EQ(with_comment("a=1\n", "b", "x"), "no_such_key");
  EXPECT_EQ(with_comment("[s] a=1\n", "s.a", "x"), "affects_other_keys");
}

TEST(config_document, quotes_in_comments_are_closed_in_their_line) {
  EXPECT_EQ(with_comment("a=1\n", "a", "say \"x\""), "# say \"x\"\na=1\n");
  for (const char* const comment : {"it\"s", "\"\n\"", "\"\\\"", "\""}) {
    EXPECT_EQ(with_comment("a=1\n", "a", comment), "bad_comment") << comment;
    EXPECT_EQ(set("a=1\n", "a", "2", comment), "bad_comment") << comment;
    EXPECT_EQ(set("a=1\n", "b", "2", comment), "bad_comment") << comment;
  }
}

// Removing.

TEST(config_document, remove_takes_all_lines_of_the_key) {
  EXPECT_EQ(removed("a=1\nb=2\nA=3\n", "a"), "b=2\n");
  EXPECT_EQ(removed("a=\nb=2\na=3", "a"), "b=2\n");
  EXPECT_EQ(removed("[s]\na=1\n[]\ns.a[] = 1,\n 2\n[s]\n", "s.a"), "[s]\n[]\n[s]\n");
  EXPECT_EQ(removed("a=\n", "a"), "");
  EXPECT_EQ(removed("x\ny = \"1\n2\" # note\nb=1\n", "xy"), "b=1\n");
  EXPECT_EQ(removed("[s] a=1 # note\nb=2\n", "s.a"), "[s] \nb=2\n");
  EXPECT_EQ(removed("a=1\n", "b"), "no_such_key");
  EXPECT_EQ(removed("[a]\nb=1\n", "a"), "no_such_key");
}

TEST(config_document, remove_takes_the_comment_that_is_only_for_the_key) {
  EXPECT_EQ(removed("x=1\n# a\n// b\na=1\n\ny=1\n", "a"), "x=1\n\ny=1\n");
  EXPECT_EQ(removed("x=1\n# a\na=1\n# y\ny=1\n", "a"), "x=1\n# y\ny=1\n");
  EXPECT_EQ(removed("x=1\n# a\na=1", "a"), "x=1\n");
  EXPECT_EQ(removed("x=1\n# a and y\na=1\ny=1\n", "a"), "x=1\n# a and y\ny=1\n");
  EXPECT_EQ(removed("# the file\na=1\n\ny=1\n", "a"), "# the file\n\ny=1\n");
  EXPECT_EQ(removed("x=1\n# other\n\na=1\n", "a"), "x=1\n# other\n\n");
  EXPECT_EQ(removed("[s] # other\na=1\n", "s.a"), "[s] # other\n");
}

TEST(config_document, remove_refuses_elements_and_shared_arrays) {
  EXPECT_EQ(removed("a[] = 1, 2\n", "a.1"), "array_element");
  EXPECT_EQ(removed("a[] = 1, 2\na.1 = x\n", "a"), "affects_other_keys");
  EXPECT_EQ(removed("a[] = 1, 2\na.1 = x\n", "a.1"), "affects_other_keys");
  EXPECT_EQ(removed("a[] = 1, 2\na[] = 3\n", "a"), "");
  EXPECT_EQ(removed("a[] = 1, \"\"\nb[] = 2\n", "a"), "affects_other_keys");
  EXPECT_EQ(removed("=a=1\n=b=2\n", "a"), "=\n=b=2\n");
  EXPECT_EQ(removed("a.[] = 1, 2\n", "a"), "");
}

// Sections.

TEST(config_document, add_section_adds_it_once_at_the_end) {
  EXPECT_EQ(with_section("", "s"), "[s]\n");
  EXPECT_EQ(with_section("a=1\n", "Window/Main"), "a=1\n\n[Window.Main]\n");
  EXPECT_EQ(with_section("a=1\r\n# note", "s"), "a=1\r\n# note\r\n\r\n[s]");
  EXPECT_EQ(with_section("[S]\n[t]\n", "s"), "[S]\n[t]\n");
  EXPECT_EQ(with_section("[a.b]\n", "a"), "[a.b]\n\n[a]\n");
}

TEST(config_document, each_edit_of_a_long_series_sees_those_before_it) {
  config_document document;
  for (int i = 0; i < 200; ++i) {
    const std::string key = "s" + std::to_string(i % 10) + ".k" + std::to_string(i);
    must(document.set(key, std::to_string(i), i % 3 == 0 ? "note" : ""));
    if (i % 4 == 3) must(document.remove("s" + std::to_string((i - 2) % 10) + ".k" + std::to_string(i - 2)));
  }
  EXPECT_EQ(document.entries().size(), 150u);
  EXPECT_EQ(config_document(document.text()).entries(), document.entries());
  for (const auto& entry : document.entries()) {
    EXPECT_EQ(entry.key.substr(entry.key.find('k') + 1), document.get(entry.key));
  }
}

}  // namespace
