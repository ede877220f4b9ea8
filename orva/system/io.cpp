#include "orva/system/io.hpp"

#include "orva/platform/file_operations.hpp"

namespace ORVA_NAMESPACE::system::io {

namespace {

platform::native_string native(const path_argument& path) { return platform::to_native(path.view()); }

}  // namespace

bool exists(const path_argument& path) { return platform::status(native(path)).exists; }
bool is_directory(const path_argument& path) { return platform::status(native(path)).is_directory; }
bool is_file(const path_argument& path) { return platform::status(native(path)).is_file; }

void mkdir(const path_argument& path) { platform::runtime_mkdir(native(path)); }

void move(const path_argument& to, const path_argument& from) { platform::rename(native(from), native(to)); }

void remove_file(const path_argument& path) { platform::remove_file(native(path)); }
void remove_dir(const path_argument& path) { platform::remove_directory(native(path)); }

}  // namespace ORVA_NAMESPACE::system::io
