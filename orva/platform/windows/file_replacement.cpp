#include "orva/platform/file_replacement.hpp"

#include <utility>
#include <vector>

#include "orva/platform/symbolic_link.hpp"
#include "orva/platform/windows/open_file.hpp"
#include "orva/platform/windows/write_all.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

namespace calls = windows::calls;
using windows::c_path;
using windows::open_file;
using step = replacement_step;

constexpr replacement_outcome succeeded;

replacement_outcome failed(step at) { return {at, static_cast<int>(::GetLastError())}; }

/// A new file beside another. Its end removes it, if it still has its own name.
class new_file {
 public:
  new_file(const native_string& directory, DWORD attributes) : file_(INVALID_HANDLE_VALUE) {
    constexpr unsigned int most_attempts = 100;
    HANDLE file = INVALID_HANDLE_VALUE;
    for (unsigned int attempt = 0; attempt < most_attempts && file == INVALID_HANDLE_VALUE; ++attempt) {
      path_ = directory + unlikely_name(attempt);
      file = calls::create_new_file(c_path(path_), attributes);
      if (file == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (file == INVALID_HANDLE_VALUE) path_.clear();
    file_.reset(file);
  }
  new_file(const new_file&) = delete;
  new_file& operator=(const new_file&) = delete;
  ~new_file() {
    file_.close();
    if (!path_.empty()) calls::remove(c_path(path_));
  }

  HANDLE get() const { return file_.get(); }
  bool is_open() const { return file_.is_open(); }
  const native_string& path() const { return path_; }

  /// Takes the name away from the file that has it.
  bool take_over_name(const native_string& path) {
    file_.close();
    if (calls::move_file_replacing(c_path(path_), c_path(path)) == 0) return false;
    path_.clear();
    return true;
  }

 private:
  open_file file_;
  native_string path_;
};

/// The attributes of a file that is replaced. 0: there is none.
struct old_file {
  DWORD attributes = 0;
  replacement_outcome outcome;
};

/// A file that a plain write could not change is not changed, though its directory would allow it.
old_file examine(const native_string& path) {
  const DWORD attributes = calls::get_file_attributes(c_path(path));
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (::GetLastError() == ERROR_FILE_NOT_FOUND) return {};
    return {0, failed(::GetLastError() == ERROR_PATH_NOT_FOUND ? step::open_directory : step::check_kind)};
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {0, {step::check_kind, ERROR_ACCESS_DENIED}};
  const open_file file(path, GENERIC_WRITE, OPEN_EXISTING);
  if (!file.is_open()) return {0, failed(step::check_permission)};
  if (!file.is_plain()) return {0, {step::check_kind, ERROR_BAD_FILE_TYPE}};
  return {attributes | FILE_ATTRIBUTE_NORMAL, succeeded};
}

bool keep_access_list(const native_string& new_path, const native_string& old_path) {
  DWORD size = 0;
  calls::get_access_list(c_path(old_path), nullptr, 0, &size);
  const DWORD error = ::GetLastError();
  if (error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION) return true;  // as on FAT
  if (error != ERROR_INSUFFICIENT_BUFFER) return false;
  std::vector<char> list(size);
  return calls::get_access_list(c_path(old_path), list.data(), size, &size) != 0 &&
         calls::set_access_list(c_path(new_path), list.data()) != 0;
}

}  // namespace

const int too_many_links = ERROR_CANT_RESOLVE_FILENAME;

replacement_outcome replace_plain_file(const native_string& path, std::string_view contents) {
  const old_file old = examine(path);
  if (old.outcome.failed != step::none) return old.outcome;
  const native_string directory = path.substr(0, path.find_last_of(L"\\/:") + 1);
  constexpr DWORD kept_attributes =
      FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = old.attributes & kept_attributes;
  new_file file(directory, attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL);
  if (!file.is_open()) return failed(step::create);
  if (old.attributes != 0 && !keep_access_list(file.path(), path)) return failed(step::keep_owner);
  if (!windows::write_all(file.get(), contents)) return failed(step::write);
  if (calls::flush_file_buffers(file.get()) == 0) return failed(step::sync);
  // The move waits for the disk; a directory is not synced by itself.
  return file.take_over_name(path) ? succeeded : failed(step::rename);
}

}  // namespace ORVA_NAMESPACE::platform
