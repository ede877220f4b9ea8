#include <utility>

#include "orva/platform/directory_listing.hpp"
#include "orva/system/file_utility.hpp"

namespace ORVA_NAMESPACE::system {

namespace {

using platform::directory_listing;
using platform::native_string;
using platform::native_view;

bool is_dots(native_view name) {
  return name.size() <= 2 && name.find_first_not_of(static_cast<platform::native_char>('.')) == name.npos;
}

/// Joins the path of a directory and the names of its entries, in the width of the result.
template <typename Ustring>
class path_joiner {
 public:
  explicit path_joiner(const native_string& directory) {
    platform::append_native(prefix_, directory + platform::separator);
  }

  Ustring operator()(native_view name) const {
    Ustring full;
    full.reserve(prefix_.size() + name.size());
    full.append(prefix_);
    platform::append_native(full, name);
    return full;
  }

 private:
  Ustring prefix_;
};

/// A directory that the walk has entered, and the next of its entries.
template <typename Ustring>
struct walked_directory {
  explicit walked_directory(native_string directory)
      : path(std::move(directory)), join(path), listing(path, directory_listing::detail::names_and_status) {}

  native_string path;
  path_joiner<Ustring> join;
  directory_listing listing;
  std::size_t next = 0;
};

/// The native path of an entry; empty if its path in the width of the result names something else. Such a
/// directory is not entered: it would be another one, or the same one again and again.
template <typename Ustring>
native_string path_to_enter(const walked_directory<Ustring>& directory, native_view name) {
  const auto native = platform::to_native(path_argument(directory.join(name)).view());
  return native == directory.path + platform::separator + native_string(name) ? native : native_string();
}

template <typename Ustring>
std::vector<Ustring> list(const Ustring& path) {
  const auto native = platform::to_native(path_argument(path).view());
  const directory_listing listing(native, directory_listing::detail::names);
  std::vector<Ustring> paths;
  if (listing.size() == 0) return paths;
  paths.reserve(listing.size());
  const path_joiner<Ustring> join(native);
  // The first entry is skipped: it is "." in directories that have it. Without it a real entry is lost.
  for (std::size_t i = 1; i < listing.size(); ++i)
    if (!is_dots(listing.name(i))) paths.push_back(join(listing.name(i)));
  return paths;
}

template <typename Ustring>
void append_files(const Ustring& path, std::vector<Ustring>& files) {
  std::vector<walked_directory<Ustring>> walk;
  walk.emplace_back(platform::to_native(path_argument(path).view()));
  while (!walk.empty()) {
    auto& directory = walk.back();
    if (directory.next == directory.listing.size()) {
      walk.pop_back();
      continue;
    }
    const auto entry = directory.next++;
    const auto name = directory.listing.name(entry);
    const auto& status = directory.listing.status(entry);
    if (is_dots(name) || !status.owner_may_read) continue;
    if (status.is_file) files.push_back(directory.join(name));
    if (!status.is_directory) continue;
    if (auto below = path_to_enter(directory, name); !below.empty()) walk.emplace_back(std::move(below));
  }
}

}  // namespace

std::vector<strings::ustring8> list_directory(const strings::ustring8& path) { return list(path); }
std::vector<strings::ustring16> list_directory(const strings::ustring16& path) { return list(path); }
std::vector<strings::ustring32> list_directory(const strings::ustring32& path) { return list(path); }

void get_directory_files(const strings::ustring8& path, std::vector<strings::ustring8>& files) {
  append_files(path, files);
}

void get_directory_files(const strings::ustring16& path, std::vector<strings::ustring16>& files) {
  append_files(path, files);
}

void get_directory_files(const strings::ustring32& path, std::vector<strings::ustring32>& files) {
  append_files(path, files);
}

}  // namespace ORVA_NAMESPACE::system
