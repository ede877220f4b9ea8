#include "orva/system/file_utility.hpp"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::temporary_directory;
namespace strings = ORVA_2_18::strings;
namespace sys = ORVA_2_18::system;

TEST(load_file, missing_file_gives_1_and_leaves_contents_unchanged) {
  const temporary_directory directory;
  strings::ustring8 contents = "before";
  EXPECT_EQ(sys::load_file(directory.file("none"), contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, gives_the_bytes_of_the_file) {
  const temporary_directory directory;
  const auto path = directory.write("a", "some bytes");
  strings::ustring8 contents = "before";
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "some bytes");
}

TEST(list_directory, gives_files_and_directories_as_full_paths) {
  const temporary_directory directory;
  directory.write("b/c", "");
  directory.write("a", "");
  EXPECT_EQ(sys::list_directory(directory.name()),
            (std::vector<strings::ustring8>{directory.file("a"), directory.file("b")}));
}

}  // namespace
