// The codes of the library. Each has a page entry in docs/diagnostic_codes.md, and a message in each catalog
// of orva/diagnostics/messages; a test holds them together.
#include "orva/diagnostics/finding.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

constexpr code_description codes[] = {
    {"diagnostics.not_kept", "Findings that are not shown: {count}."},
};

}  // namespace

std::span<const code_description> known_codes() noexcept { return codes; }

}  // namespace ORVA_NAMESPACE::diagnostics
