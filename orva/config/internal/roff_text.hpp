/// Text as roff reads it.
///
///     roff_line(".--x \\")     =>  \&.\-\-x \(rs
///     roff_line("日本")        =>  \[u65E5]\:\[u672C]
///
/// Internal: not installed. Texts are on one line, and well-formed UTF-8 without control characters. Results
/// are ASCII.
#pragma once

#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A line of text. Says where a line of the page may break, where no blank does: between Japanese characters,
/// and in very long words.
std::string roff_line(std::string_view text);

/// An argument of a request, in quotes.
std::string roff_argument(std::string_view text);

}  // namespace ORVA_NAMESPACE::config::_private
