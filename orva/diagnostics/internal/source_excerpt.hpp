/// The part of a source line that is shown with a finding.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

struct excerpt {
  std::string text;
  /// The column of the terminal, from 0 on, of the caret.
  std::size_t caret = 0;
};

/// At most `max_source_columns` columns of the terminal around a column of the line, which counts from 1.
excerpt excerpt_around(std::string_view line, std::size_t column);

}  // namespace ORVA_NAMESPACE::diagnostics::_private
