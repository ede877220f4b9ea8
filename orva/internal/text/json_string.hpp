/// Text as a string of JSON.
///
/// Internal: not installed.
#pragma once

#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// Appends `text` in quotes, as RFC 8259 defines a string. Control characters are escaped, also those that a
/// terminal may act on; each malformed part becomes U+FFFD.
void append_json_string(std::string& output, std::string_view text);

}  // namespace ORVA_NAMESPACE::internal::text
