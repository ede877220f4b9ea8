/// Findings for configuration files that are named and not read.
///
///     config.load();
///     diagnostics::report found;
///     check_files(config, found, diagnostics::severity::error);
///     write_text(std::cerr, found);
///         =>  app.cfg: error: The file does not exist. [config.file_missing]
///
/// `file_item` reads nothing from a file that does not exist, cannot be opened, or is a symbolic link, and
/// reports nothing. These are its speaking siblings. They look at the file system now: a file may change
/// before the next load.
///
///     config.file_is_link       a symbolic link, which a `file_item` does not follow
///     config.file_missing       no such file
///     config.file_not_a_file    a directory, a pipe or a socket
///     config.file_refused       the system does not let the process open it, or links form a circle
///     config.file_too_large     more than 0x7FFFFFFF bytes
///
/// docs/diagnostic_codes.md explains them.
#pragma once

#include <optional>
#include <string_view>

#include "orva/config/config_manager.hpp"
#include "orva/diagnostics/finding.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

enum class file_links {
  refused,   ///< as by `file_item`
  followed,  ///< as by `linked_file_item`
};

/// Why a file cannot be read, or nothing.
[[nodiscard]] ORVA_API std::optional<diagnostics::finding> check_readable(
    std::string_view file, diagnostics::severity level = diagnostics::severity::warning,
    file_links links = file_links::refused);

/// Checks each configured file once: the file of each `file_item` that has a name, and each file that a
/// source names by the key "cfg_file". The file that is searched for by the name of the program may be
/// missing.
ORVA_API void check_files(const config_manager& manager, diagnostics::report& findings,
                          diagnostics::severity level = diagnostics::severity::warning);

}  // namespace ORVA_NAMESPACE::config
