#include "orva/platform/file_replacement.hpp"

#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::platform {

replacement_outcome replace_file(const native_string& path, std::string_view contents) {
  const followed_path file = follow_links(path);
  if (file.system_error != 0) return {replacement_step::follow_links, file.system_error};
  return replace_plain_file(file.path, contents);
}

}  // namespace ORVA_NAMESPACE::platform
