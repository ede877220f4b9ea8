/// The finding that ends a report of which some findings were not kept.
///
/// Internal: not installed.
#pragma once

#include <cstddef>

#include "orva/diagnostics/finding.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

inline finding not_kept(std::size_t count) {
  return {severity::note,
          "diagnostics.not_kept",
          {},
          {},
          generic::argument("count", static_cast<unsigned long long>(count))};
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
