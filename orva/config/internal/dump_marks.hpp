/// What the dumps of trees, items and managers have in common.
///
/// Internal: not installed.
#pragma once

#include <ostream>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Stands before what is one level deeper.
inline constexpr std::string_view rule = "|---------------\\\n";

/// Writes the bytes as they are, whatever width the stream is set to.
inline void put(std::ostream& stream, std::string_view text) {
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace ORVA_NAMESPACE::config::_private
