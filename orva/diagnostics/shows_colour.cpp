#include "orva/diagnostics/write.hpp"
#include "orva/platform/terminal.hpp"

namespace ORVA_NAMESPACE::diagnostics {

bool shows_colour(const std::ostream& stream) {
  const auto output = platform::output_of(stream);
  return output && platform::shows_colour(*output);
}

}  // namespace ORVA_NAMESPACE::diagnostics
