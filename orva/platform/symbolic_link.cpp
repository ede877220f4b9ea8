#include "orva/platform/symbolic_link.hpp"

#include "orva/platform/calls.hpp"

namespace ORVA_NAMESPACE::platform {

bool is_symbolic_link(const native_string& path) {
  boost::filesystem::path file(path);
  return calls::symlink_status(file.make_preferred()) == boost::filesystem::symlink_file;
}

}  // namespace ORVA_NAMESPACE::platform
