#include "orva/system/symlink_check.hpp"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

namespace ORVA_2_18::system {

bool is_symbolic_link(const platform::native_string& path) {
  boost::filesystem::path file(path);
  return boost::filesystem::symlink_status(file.make_preferred()).type() == boost::filesystem::symlink_file;
}

}  // namespace ORVA_2_18::system
