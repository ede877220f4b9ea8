// Listings of a directory search that this test defines. Every search of the tested systems reports "."
// first, so that no real directory has another first entry.
#include <gtest/gtest.h>

#include "orva/platform/directory_listing.hpp"
#include "orva/system/file_utility.hpp"
#include "tests/support/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

/// Reports "first", "." and "second", all of them readable files.
directory_listing::directory_listing(const native_string&, detail) {
  for (const std::string name : {"first", ".", "second"}) add(native_string(name.begin(), name.end()));
  for (auto& reported : entries_) reported.status = {true, false, true, true};
}

void directory_listing::add(native_view name) {
  entries_.push_back({names_.size(), name.size(), {}});
  names_.append(name);
}

}  // namespace ORVA_NAMESPACE::platform

namespace {

using ORVA_NAMESPACE::strings::ustring8;
using orva_test::native;
namespace sys = ORVA_NAMESPACE::system;

TEST(list_directory, first_entry_is_lost_where_it_is_not_the_dot) {
  EXPECT_EQ(sys::list_directory("d"), (std::vector<ustring8>{native("d/second")}));
}

TEST(get_directory_files, first_entry_is_kept_where_it_is_not_the_dot) {
  std::vector<ustring8> files;
  sys::get_directory_files("d", files);
  EXPECT_EQ(files, (std::vector<ustring8>{native("d/first"), native("d/second")}));
}

}  // namespace
