#include "orva/platform/directory_listing.hpp"

#include <limits.h>

#include <algorithm>
#include <memory>

#include "orva/internal/paths/path_rules.hpp"
#include "orva/platform/posix/c_path.hpp"
#include "orva/platform/posix/status_of_mode.hpp"
#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

namespace calls = posix::calls;

struct close_search {
  void operator()(DIR* search) const { calls::closedir(search); }
};
using open_search = std::unique_ptr<DIR, close_search>;

bool is_dots(native_view name) { return name == "." || name == ".."; }

/// The status of a name in the directory that is searched. A name that is too long to be reached by its whole
/// path has none, as with `status`.
file_status status_in(DIR* search, std::size_t directory_length, const char* name, std::size_t length) {
  struct stat found = {};
  if (directory_length + 1 + length >= PATH_MAX) return {};
  if (calls::fstatat(calls::dirfd(search), name, &found, 0) != 0) return {};
  return posix::status_of_mode(found.st_mode);
}

}  // namespace

directory_listing::directory_listing(const native_string& directory, detail wanted) {
  if (directory.find('\0') != directory.npos) return;
  const open_search search(calls::opendir((directory + separator).c_str()));
  if (!search) return;
  add(".");
  add("..");
  while (const dirent* found = calls::readdir(search.get())) {
    const native_view name = found->d_name;
    if (!is_dots(name) && internal::paths::is_nameable(name)) add(name);
  }
  const auto text = [this](const entry& e) { return native_view(names_).substr(e.begin, e.length); };
  std::sort(entries_.begin() + 2, entries_.end(),
            [&](const entry& left, const entry& right) { return text(left) < text(right); });
  if (wanted == detail::names) return;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    entries_[i].status = status_in(search.get(), directory.size(), name(i).data(), entries_[i].length);
}

void directory_listing::add(native_view name) {
  entries_.push_back({names_.size(), name.size(), {}});
  names_.append(name);
  names_ += '\0';  // a name is also a terminated text
}

}  // namespace ORVA_NAMESPACE::platform
