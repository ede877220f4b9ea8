#include "orva/system/replace_file.hpp"

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

std::string_view sentence(error code) {
  switch (code) {
    case error::none:
      break;
    case error::bad_path:
      return "The path is empty or has a zero character";
    case error::bad_link:
      return "The symbolic link could not be followed";
    case error::not_a_file:
      return "The path does not name a file";
    case error::read_only:
      return "The file may not be changed";
    case error::no_directory:
      return "The directory of the file could not be opened";
    case error::not_created:
      return "A new file could not be created in the directory";
    case error::not_written:
      return "The new contents could not be written";
    case error::owner_changes:
      return "The owner and the access rights of the file could not be kept";
    case error::not_synced:
      return "The new contents could not be synced to the disk";
    case error::not_renamed:
      return "The old file could not be replaced";
    case error::not_durable:
      return "The file was replaced, but its directory could not be synced to the disk";
  }
  return {};
}

}  // namespace

replace_file_result replace_file(const path_argument& path, std::string_view contents) {
  const auto native = platform::to_native(path.view());
  if (native.empty() || native.find(platform::native_char{}) != native.npos) return {error::bad_path, {}};
  const auto outcome = platform::replace_file(native, contents);
  if (outcome.failed == platform::replacement_step::none) return {};
  return {error_of(outcome.failed), {outcome.system_error, std::system_category()}};
}

std::string describe(const replace_file_result& result) {
  std::string text(sentence(result.code));
  if (result.reason) text += ": " + result.reason.message();
  return text;
}

}  // namespace ORVA_NAMESPACE::system
