#include "orva/config/internal/read_file.hpp"

#include <stdexcept>

#include "orva/exceptions/exception.hpp"
#include "orva/platform/symbolic_link.hpp"
#include "orva/system/file_utility.hpp"

namespace ORVA_NAMESPACE::config::_private {

bool read_file(const strings::ustring8& name, strings::ustring8& contents) {
  try {
    return system::load_file(name, contents) == 0;
  } catch (const exceptions::exception&) {
    return false;  // too large for a string
  } catch (const std::runtime_error&) {
    return false;  // its status cannot be asked for, as in a directory that may not be searched
  }
}

strings::ustring8 linked_file(const strings::ustring8& name) {
  const auto native = platform::to_native(system::path_argument(name).view());
  const auto followed = platform::follow_links(native);
  if (followed.path == native || followed.system_error != 0) return name;
  strings::ustring8 path;
  platform::append_native(path, followed.path);
  return path;
}

bool read_linked_file(const strings::ustring8& name, strings::ustring8& contents) {
  return read_file(linked_file(name), contents);
}

}  // namespace ORVA_NAMESPACE::config::_private
