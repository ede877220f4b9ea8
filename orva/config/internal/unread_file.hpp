/// Why a configuration file is not read: one set of codes for all that read files.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/config/config_document.hpp"
#include "orva/diagnostics/finding.hpp"
#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Looks at a file now, as a load does. Symbolic links are followed.
config_document::load_result try_to_read(const platform::native_string& path);

/// Without an error, a finding without a code.
diagnostics::finding finding_of(const config_document::load_result& result, std::string_view file,
                                diagnostics::severity level);

}  // namespace ORVA_NAMESPACE::config::_private
