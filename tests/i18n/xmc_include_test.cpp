// Files that include files.
#include <gtest/gtest.h>

#include <string>

#include "tests/i18n/xmc_reading.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;

std::string include(std::string_view file) { return "<include file=\"" + std::string(file) + "\"/>"; }

std::string message(std::string_view name) {
  return app("de", "<msg name=\"" + std::string(name) + "\">x</msg>");
}

reading read_file(const std::string& file) {
  xmc_file_loader loader;
  reading result;
  result.error = loader.parse(file, "de");
  result.stored = loader.combine_data(result.catalogs);
  return result;
}

TEST(xmc_include, path_starts_from_the_directory_of_the_including_file) {
  const temporary_directory directory;
  directory.write("a/one.xmc", xmc(message("one") + include("deep/two.xmc") + include("../b/four.xmc")));
  directory.write("a/deep/two.xmc", xmc(message("two") + include("three.xmc")));
  directory.write("a/deep/three.xmc", xmc(message("three")));
  directory.write("b/four.xmc", xmc(message("four") + include("five.xmc")));
  directory.write("b/five.xmc", xmc(message("five")));
  const reading result = read_file(directory.file("a/one.xmc"));
  EXPECT_EQ(words(result.error), "No Error");
  for (const char* name : {"one", "two", "three", "four", "five"}) {
    EXPECT_FALSE(result.message(name) == ORVA_NAMESPACE::types::nil) << name;
  }
}

TEST(xmc_include, absolute_path_is_taken_as_it_is) {
  const temporary_directory directory;
  const std::string other = directory.write("other/two.xmc", xmc(message("two")));
  const std::string file = directory.write("one.xmc", xmc(include(other)));
  EXPECT_EQ(read_file(file).stored, 1u);
}

TEST(xmc_include, forms_of_absolute_paths) {
  const struct {
    const char* path;
    const char* opened;
  } rows[] = {
      {"/no/such.xmc", "/no/such.xmc"},
      {"\\no\\such.xmc", "\\no\\such.xmc"},
      {"c:/no/such.xmc", "c:/no/such.xmc"},
      {"c:x", "c:x"},
      // Two characters are too few for a drive and a path.
      {"c:", "./c:"},
      {"no/such.xmc", "./no/such.xmc"},
      {"./no/such.xmc", "././no/such.xmc"},
  };
  for (const auto& row : rows) {
    xmc_file_loader loader;
    loader.handle_language("de");
    EXPECT_EQ(loader.parse_file("no_such_file").type(), load_error::file_not_found);
    const temporary_directory empty;
    const load_error error = loader.parse_string(xmc(include(row.path)), "test.xmc");
    EXPECT_EQ(error.type(), load_error::file_not_found) << row.path;
    // The path is unchanged if no file was read before. After a file in the working directory it follows
    // "./".
    const std::string opened = row.opened;
    const std::string bare =
        opened.compare(0, 2, "./") == 0 && opened != row.path ? opened.substr(2) : opened;
    EXPECT_EQ(words(error), "File \"" + bare + "\" was not found on disk\n in file: \"test.xmc\"")
        << row.path;
  }
}

TEST(xmc_include, failure_names_every_file_on_the_way) {
  const temporary_directory directory;
  const std::string file = directory.write("one.xmc", xmc(include("two.xmc")));
  directory.write("two.xmc", xmc(include("three.xmc")));
  directory.write("three.xmc", xmc("<foo/>"));
  EXPECT_EQ(words(read_file(file).error), "Invalid element \"foo\"\n in file: \"" +
                                              directory.file("three.xmc") + "\"\n in file: \"" +
                                              directory.file("two.xmc") + "\"\n in file: \"" + file + "\"");
}

TEST(xmc_include, file_that_adds_nothing_passes_only_after_a_catalog) {
  const temporary_directory directory;
  directory.write("none.xmc", xmc(""));
  const std::string first = directory.write("first.xmc", xmc(include("none.xmc") + message("m")));
  EXPECT_EQ(words(read_file(first).error), "No catalog was loaded in file: \"" + directory.file("none.xmc") +
                                               "\"\n in file: \"" + first + "\"");
  const std::string last = directory.write("last.xmc", xmc(message("m") + include("none.xmc")));
  EXPECT_EQ(words(read_file(last).error), "No Error");
}

TEST(xmc_include, element_must_be_empty) {
  const temporary_directory directory;
  directory.write("two.xmc", xmc(message("two")));
  for (const char* content : {" ", "text", "<foo/>", "<!-- a --> "}) {
    const std::string file =
        directory.write("one.xmc", xmc("<include file='two.xmc'>" + std::string(content) + "</include>"));
    EXPECT_EQ(words(read_file(file).error),
              "Expected \"include\" end tag not found\n in file: \"" + file + "\"");
  }
  const std::string file = directory.write("one.xmc", xmc("<include file='two.xmc'><!-- a --></include>"));
  EXPECT_EQ(words(read_file(file).error), "No Error");
}

TEST(xmc_include, of_two_equals_the_file_read_first_wins) {
  const temporary_directory directory;
  directory.write("two.xmc", xmc(app("de", "<msg name='m'>two</msg>")));
  const ustring8 own = app("de", "<msg name='m'>one</msg>");
  EXPECT_EQ(read_file(directory.write("a.xmc", xmc(own + include("two.xmc")))).message("m").as_utf8(), "one");
  EXPECT_EQ(read_file(directory.write("b.xmc", xmc(include("two.xmc") + own))).message("m").as_utf8(), "two");
}

TEST(xmc_include, cycle_ends_with_the_name_of_the_file) {
  const temporary_directory directory;
  const std::string self = directory.write("self.xmc", xmc(message("m") + include("self.xmc")));
  const load_error error = read_file(self).error;
  EXPECT_EQ(error.type(), load_error::invalid_element);
  EXPECT_EQ(words(error).find("Invalid element \"" + self + "\"\n in file: \"" + self + "\"\n in file: "),
            0u);

  const std::string ping = directory.write("ping.xmc", xmc(message("m") + include("pong.xmc")));
  directory.write("pong.xmc", xmc(include("ping.xmc") + include("ping.xmc")));
  EXPECT_EQ(read_file(ping).error.type(), load_error::invalid_element);
}

TEST(xmc_include, nests_to_the_limit_and_no_deeper) {
  const temporary_directory directory;
  const auto chain = [&](unsigned depth) {
    for (unsigned i = 0; i < depth; ++i) {
      directory.write(std::to_string(i) + ".xmc", xmc(include(std::to_string(i + 1) + ".xmc")));
    }
    directory.write(std::to_string(depth) + ".xmc", xmc(message("m")));
    return read_file(directory.file("0.xmc")).error.type();
  };
  EXPECT_EQ(chain(xmc_file_loader::max_include_depth), load_error::no_error);
  EXPECT_EQ(chain(xmc_file_loader::max_include_depth + 1), load_error::invalid_element);
}

TEST(xmc_include, doubling_chain_ends_at_the_number_of_files) {
  const temporary_directory directory;
  constexpr int links = 40;
  for (int i = 0; i < links; ++i) {
    const std::string next = include(std::to_string(i + 1) + ".xmc");
    directory.write(std::to_string(i) + ".xmc", xmc(next + next));
  }
  directory.write(std::to_string(links) + ".xmc", xmc(message("m")));
  EXPECT_EQ(read_file(directory.file("0.xmc")).error.type(), load_error::invalid_element);
}

TEST(xmc_include, number_of_files_counts_for_each_load) {
  const temporary_directory directory;
  directory.write("two.xmc", xmc(message("m")));
  std::string many;
  for (unsigned i = 0; i < xmc_file_loader::max_included_files; ++i) many += include("two.xmc");
  const std::string file = directory.write("one.xmc", xmc(many));
  xmc_file_loader loader;
  EXPECT_EQ(loader.parse(file, "de").type(), load_error::no_error);
  EXPECT_EQ(loader.parse(directory.write("three.xmc", xmc(include("two.xmc")))).type(), load_error::no_error);
  EXPECT_EQ(read_file(directory.write("one.xmc", xmc(many + include("two.xmc")))).error.type(),
            load_error::invalid_element);
}

}  // namespace
