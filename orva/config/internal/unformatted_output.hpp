/// Output that ignores the format of a stream.
///
/// Internal: not installed.
#pragma once

#include <ostream>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Writes the bytes as they are. Width, fill and adjustment of the stream are neither used nor reset.
inline void write_unformatted(std::ostream& stream, std::string_view text) {
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace ORVA_NAMESPACE::config::_private
