#include "orva/platform/file_operations.hpp"

#include "orva/platform/windows/c_path.hpp"
#include "orva/platform/windows/open_file.hpp"
#include "orva/platform/windows/status_of_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace calls = windows::calls;
using windows::c_path;

file_status status(const native_string& path) { return windows::status_of_path(c_path(path)); }

file_stamp stamp_of(const native_string& path) {
  // The file is neither read nor kept from being replaced. The flag opens directories, too.
  constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const windows::open_file file(
      calls::create_file(c_path(path), 0, sharing, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!file.is_open() || calls::get_file_information(file.get(), &found) == 0) return {};
  const auto joined = [](DWORD high, DWORD low) { return static_cast<std::uint64_t>(high) << 32 | low; };
  const FILETIME& written = found.ftLastWriteTime;
  return {true,
          found.dwVolumeSerialNumber,
          joined(found.nFileIndexHigh, found.nFileIndexLow),
          joined(found.nFileSizeHigh, found.nFileSizeLow),
          static_cast<std::int64_t>(joined(written.dwHighDateTime, written.dwLowDateTime)),
          0};
}

bool make_directory(const native_string& path) { return calls::create_directory(c_path(path)) != 0; }

void runtime_mkdir(const native_string& path) { calls::mkdir(c_path(path)); }

// The runtime's rename replaces nothing here.
bool rename(const native_string& from, const native_string& to) {
  return calls::rename(c_path(from), c_path(to)) == 0;
}

bool remove_file(const native_string& path) { return calls::remove(c_path(path)) == 0; }

bool remove_directory(const native_string& path) { return calls::rmdir(c_path(path)) == 0; }

}  // namespace ORVA_NAMESPACE::platform
