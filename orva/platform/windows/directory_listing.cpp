#include "orva/platform/directory_listing.hpp"

#include <memory>

#include "orva/platform/windows/status_of_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

struct close_search {
  using pointer = HANDLE;
  void operator()(HANDLE search) const { windows::calls::find_close(search); }
};
using open_search = std::unique_ptr<void, close_search>;

}  // namespace

directory_listing::directory_listing(const native_string& directory, detail wanted) {
  if (directory.find(L'\0') != directory.npos) return;
  const native_string base = directory + separator;
  WIN32_FIND_DATAW found = {};
  const HANDLE first = windows::calls::find_first_file((base + L'*').c_str(), &found);
  if (first == INVALID_HANDLE_VALUE) return;
  const open_search search(first);
  do {
    add(found.cFileName);
    if (wanted == detail::names) continue;
    entries_.back().status = windows::status_of_path((base + found.cFileName).c_str());
  } while (windows::calls::find_next_file(search.get(), &found) != 0);
}

void directory_listing::add(native_view name) {
  entries_.push_back({names_.size(), name.size(), {}});
  names_.append(name);
  names_ += L'\0';  // a name is also a terminated text
}

}  // namespace ORVA_NAMESPACE::platform
