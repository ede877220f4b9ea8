#include "orva/platform/file_replacement.hpp"

#include "orva/platform/calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

/// As many as Linux follows. A chain that is longer is taken for a circle.
constexpr int longest_chain = 40;

replacement_outcome unfollowed(const boost::system::error_code& error) {
  return {replacement_step::follow_links, error.value()};
}

}  // namespace

replacement_outcome replace_file(const native_string& path, std::string_view contents) {
  boost::filesystem::path file(path);
  for (int links = 0; links <= longest_chain; ++links) {
    boost::system::error_code error;
    const auto type = calls::symlink_status(file, error);
    if (type == boost::filesystem::status_error) return unfollowed(error);
    if (type != boost::filesystem::symlink_file) return replace_plain_file(file.native(), contents);
    const auto target = calls::read_symlink(file, error);
    if (error) return unfollowed(error);
    file = target.has_root_path() ? target : file.parent_path() / target;
  }
  return {replacement_step::follow_links, too_many_links};
}

}  // namespace ORVA_NAMESPACE::platform
