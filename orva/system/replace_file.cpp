#include "orva/system/replace_file.hpp"

#include <cstddef>

#include "orva/platform/file_replacement.hpp"
#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::system {

namespace {

using error = replace_file_result::error;

error error_of(platform::replacement_step failed) {
  switch (failed) {
    using enum platform::replacement_step;
    case none:
      break;
    case follow_links:
      return error::bad_link;
    case check_kind:
      return error::not_a_file;
    case check_permission:
      return error::read_only;
    case open_directory:
      return error::no_directory;
    case create:
      return error::not_created;
    case write:
      return error::not_written;
    case keep_owner:
      return error::owner_changes;
    case sync:
      return error::not_synced;
    case rename:
      return error::not_renamed;
    case sync_directory:
      return error::not_durable;
  }
  return error::none;
}

std::string_view code_of(error code) {
  constexpr std::string_view codes[] = {
      "",
      "file.bad_path",
      "file.bad_link",
      "file.not_a_file",
      "file.read_only",
      "file.no_directory",
      "file.not_created",
      "file.not_written",
      "file.owner_changes",
      "file.not_synced",
      "file.not_renamed",
      "file.not_durable",
  };
  return codes[static_cast<std::size_t>(code)];
}

}  // namespace

replace_file_result replace_file(const path_argument& path, std::string_view contents) {
  const auto native = platform::to_native(path.view());
  if (native.empty() || native.find(platform::native_char{}) != native.npos) return {error::bad_path, {}};
  const auto outcome = platform::replace_file(native, contents);
  if (outcome.failed == platform::replacement_step::none) return {};
  return {error_of(outcome.failed), {outcome.system_error, std::system_category()}};
}

diagnostics::finding describe(const replace_file_result& result, std::string_view file) {
  const strings::ustring8 name(file);
  if (result.code == error::none) return {diagnostics::severity::note, {}, name, {}, {}};
  const bool is_replaced = result.code == error::not_durable;
  const auto level = is_replaced ? diagnostics::severity::warning : diagnostics::severity::error;
  const strings::ustring8 reason(result.reason.message());
  return {level, strings::ustring8(code_of(result.code)), name, {}, generic::argument("reason", reason)};
}

std::string describe(const replace_file_result& result) {
  return result.code == error::none ? std::string() : sentence(describe(result, {}));
}

}  // namespace ORVA_NAMESPACE::system
