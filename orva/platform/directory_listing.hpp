/// `directory_listing`: what one directory search reports.
///
/// Internal: not installed. A port provides the entries in this order: ".", "..", then the names sorted by
/// their native units (on Windows as the system reports them). It leaves out names that `to_native` makes of
/// no 16-bit path. No search is open when the constructor returns or throws.
#pragma once

#include <cstddef>
#include <vector>

#include "orva/platform/file_operations.hpp"
#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

class directory_listing {
 public:
  enum class detail { names, names_and_status };

  /// Lists the directory that `directory` and a separator name, so that the empty path lists the root. One
  /// that cannot be listed has no entries. The status of each entry is asked for on demand only: it costs a
  /// system call.
  directory_listing(const native_string& directory, detail wanted);

  std::size_t size() const { return entries_.size(); }
  native_view name(std::size_t index) const {
    return native_view(names_).substr(entries_[index].begin, entries_[index].length);
  }
  /// What `status` says of the directory, a separator and the name; of a listing of names, nothing.
  const file_status& status(std::size_t index) const { return entries_[index].status; }

 private:
  struct entry {
    std::size_t begin;
    std::size_t length;
    file_status status;
  };

  void add(native_view name);

  // One text for all names: a directory of a hundred thousand files costs a few allocations, not one for
  // each.
  native_string names_;
  std::vector<entry> entries_;
};

}  // namespace ORVA_NAMESPACE::platform
