#include "orva/platform/file_operations.hpp"

#include "orva/platform/windows/c_path.hpp"
#include "orva/platform/windows/status_of_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace calls = windows::calls;
using windows::c_path;

file_status status(const native_string& path) { return windows::status_of_path(c_path(path)); }

bool make_directory(const native_string& path) { return calls::create_directory(c_path(path)) != 0; }

void runtime_mkdir(const native_string& path) { calls::mkdir(c_path(path)); }

// The runtime's rename replaces nothing here.
bool rename(const native_string& from, const native_string& to) {
  return calls::rename(c_path(from), c_path(to)) == 0;
}

bool remove_file(const native_string& path) { return calls::remove(c_path(path)) == 0; }

bool remove_directory(const native_string& path) { return calls::rmdir(c_path(path)) == 0; }

}  // namespace ORVA_NAMESPACE::platform
