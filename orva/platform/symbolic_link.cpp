#include "orva/platform/symbolic_link.hpp"

#include "orva/platform/calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

/// As many as Linux follows. A chain that is longer is taken for a circle.
constexpr int longest_chain = 40;

}  // namespace

bool is_symbolic_link(const native_string& path) {
  boost::filesystem::path file(path);
  return calls::symlink_status(file.make_preferred()) == boost::filesystem::symlink_file;
}

followed_path follow_links(const native_string& path) {
  if (path.find(native_char{}) != path.npos) return {path, 0};
  boost::filesystem::path file(path);
  for (int links = 0; links <= longest_chain; ++links) {
    boost::system::error_code error;
    const auto type = calls::symlink_status(file, error);
    if (type == boost::filesystem::status_error) return {{}, error.value()};
    if (type != boost::filesystem::symlink_file) return {file.native(), 0};
    const auto target = calls::read_symlink(file, error);
    if (error) return {{}, error.value()};
    file = target.has_root_path() ? target : file.parent_path() / target;
  }
  return {{}, too_many_links};
}

}  // namespace ORVA_NAMESPACE::platform
