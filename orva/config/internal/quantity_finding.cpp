#include "orva/config/internal/quantity_finding.hpp"

namespace ORVA_NAMESPACE::config::_private {

using strings::ustring8;

diagnostics::finding quantity_finding(const char* area, std::string_view error, std::string_view text,
                                      std::size_t length, std::string_view file) {
  const bool is_right = error.empty();
  if (is_right && length >= text.size()) return {diagnostics::severity::note, {}, ustring8(file), {}, {}};
  diagnostics::finding found{diagnostics::severity::error,
                             ustring8(area),
                             ustring8(file),
                             diagnostics::place_of(text, is_right ? length : 0),
                             {}};
  found.code.append(1, '.').append(is_right ? "rest" : error);
  if (length != 0) found.arguments.push_back(area, ustring8(text.substr(0, length)));
  return found;
}

}  // namespace ORVA_NAMESPACE::config::_private
