#include "orva/config/internal/unread_file.hpp"

#include <system_error>

#include "orva/platform/file.hpp"
#include "orva/platform/file_operations.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::finding;
using load_error = config_document::load_error;
using load_result = config_document::load_result;
using strings::ustring8;

namespace {

load_result refused_by_system(int system_error) {
  const std::error_code reason(system_error, std::system_category());
  const bool is_missing =
      reason == std::errc::no_such_file_or_directory || reason == std::errc::not_a_directory;
  return is_missing ? load_result{load_error::no_file, {}} : load_result{load_error::unreadable, reason};
}

}  // namespace

load_result try_to_read(const platform::native_string& path) {
  const bool names_nothing = path.empty() || path.find(platform::native_char{}) != path.npos;
  if (names_nothing) return {load_error::no_file, {}};
  const auto followed = platform::follow_links(path);
  if (followed.system_error != 0) return refused_by_system(followed.system_error);
  const auto status = platform::status(followed.path);
  const int error = platform::open_error(followed.path);
  if (error != 0 && status.exists && !status.is_file) return {load_error::not_a_file, {}};
  if (error != 0) return refused_by_system(error);
  const bool is_too_large = platform::stamp_of(followed.path).size > config_document::max_size;
  return {is_too_large ? load_error::too_large : load_error::none, {}};
}

finding finding_of(const load_result& result, std::string_view file, diagnostics::severity level) {
  finding found{level, {}, ustring8(file), {}, {}};
  switch (result.error) {
    case load_error::none:
      break;
    case load_error::no_file:
      found.code = "config.file_missing";
      break;
    case load_error::not_a_file:
      found.code = "config.file_not_a_file";
      break;
    case load_error::too_large:
      found.code = "config.file_too_large";
      break;
    case load_error::unreadable:
      found.code = "config.file_refused";
      found.arguments.push_back("reason", ustring8(result.reason.message()));
      break;
  }
  return found;
}

}  // namespace ORVA_NAMESPACE::config::_private
