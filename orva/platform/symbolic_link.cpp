#include "orva/platform/symbolic_link.hpp"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

namespace ORVA_NAMESPACE::platform {

bool is_symbolic_link(const native_string& path) {
  boost::filesystem::path file(path);
  return boost::filesystem::symlink_status(file.make_preferred()).type() == boost::filesystem::symlink_file;
}

}  // namespace ORVA_NAMESPACE::platform
