/// Reading and writing configuration files under the names that the user gives. Names are UTF-8, and symbolic
/// links are followed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "orva/config/config_document.hpp"
#include "orva/diagnostics/report.hpp"

namespace orva_config {

/// Nothing, and a finding, for a file that does not exist or cannot be read.
std::optional<orva::config::config_document> read_file(const std::string& name,
                                                       orva::diagnostics::report& found);

/// Replaces the file. False, and a finding, if it could not be written.
[[nodiscard]] bool write_file(const std::string& name, std::string_view text,
                              orva::diagnostics::report& found);

}  // namespace orva_config
