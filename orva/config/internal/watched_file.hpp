/// A file that may change, come or go.
///
/// Internal: not installed.
#pragma once

#include <cstdint>

#include "orva/platform/file_operations.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Remembers the state of a file when it was made. Symbolic links are followed, also those to directories.
///
/// A file system records times in steps: a file that is written twice within one, with contents of one
/// size, has the same stamp. So the contents are compared as well, until the steps are over; from then on,
/// every change has another time.
class watched_file {
 public:
  explicit watched_file(strings::ustring8 name);

  const strings::ustring8& name() const noexcept { return name_; }

  /// Whether the file has another state now. Reads no more than the status of a file that has been left alone
  /// for some seconds.
  bool changed();

 private:
  platform::file_stamp stamp() const;

  strings::ustring8 name_;
  platform::file_stamp stamp_;
  /// In ticks of `platform::counter`.
  std::uint64_t taken_at_;
  bool compares_contents_;
  strings::ustring8 contents_;
};

}  // namespace ORVA_NAMESPACE::config::_private
