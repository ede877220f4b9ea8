#include "orva/platform/calls.hpp"

namespace ORVA_NAMESPACE::platform::calls {

boost::filesystem::file_type symlink_status(const boost::filesystem::path& path) {
  return boost::filesystem::symlink_status(path).type();
}

boost::filesystem::file_type symlink_status(const boost::filesystem::path& path,
                                            boost::system::error_code& error) {
  return boost::filesystem::symlink_status(path, error).type();
}

boost::filesystem::path read_symlink(const boost::filesystem::path& path, boost::system::error_code& error) {
  return boost::filesystem::read_symlink(path, error);
}

}  // namespace ORVA_NAMESPACE::platform::calls
