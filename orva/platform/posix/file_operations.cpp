#include "orva/platform/file_operations.hpp"

#include <cerrno>

#include "orva/platform/posix/c_path.hpp"
#include "orva/platform/posix/status_of_mode.hpp"
#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace calls = posix::calls;
using posix::c_path;

file_status status(const native_string& path) {
  struct stat found = {};
  if (calls::stat(c_path(path), &found) != 0) return {};
  return posix::status_of_mode(found.st_mode);
}

file_stamp stamp_of(const native_string& path) {
  struct stat found = {};
  if (calls::stat(c_path(path), &found) != 0) return {};
  const auto nanoseconds = [](const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
  };
  return {true,
          static_cast<std::uint64_t>(found.st_dev),
          static_cast<std::uint64_t>(found.st_ino),
          static_cast<std::uint64_t>(found.st_size),
          nanoseconds(found.st_mtim),
          nanoseconds(found.st_ctim)};
}

bool make_directory(const native_string& path) { return calls::mkdir(c_path(path), 0777) == 0; }

void runtime_mkdir(const native_string& path) { make_directory(path); }

bool rename(const native_string& from, const native_string& to) {
  if (calls::rename_without_replacing(c_path(from), c_path(to)) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  struct stat taken = {};
  if (calls::lstat(c_path(to), &taken) == 0) return false;
  return calls::rename(c_path(from), c_path(to)) == 0;
}

bool remove_file(const native_string& path) { return calls::unlink(c_path(path)) == 0; }

bool remove_directory(const native_string& path) { return calls::rmdir(c_path(path)) == 0; }

}  // namespace ORVA_NAMESPACE::platform
