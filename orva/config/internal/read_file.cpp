#include "orva/config/internal/read_file.hpp"

#include <stdexcept>

#include "orva/exceptions/exception.hpp"
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

}  // namespace ORVA_NAMESPACE::config::_private
