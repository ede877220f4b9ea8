#include "orva/platform/calls.hpp"

namespace ORVA_NAMESPACE::platform::calls {

boost::filesystem::file_type symlink_status(const boost::filesystem::path& path) {
  return boost::filesystem::symlink_status(path).type();
}

}  // namespace ORVA_NAMESPACE::platform::calls
