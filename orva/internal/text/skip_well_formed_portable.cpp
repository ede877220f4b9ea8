#include "orva/internal/text/skip_well_formed.hpp"

namespace ORVA_NAMESPACE::internal::text {

using strings::code_unit16;
using strings::code_unit32;

// The plain loop does it all.
const char* skip_well_formed(const char* from, const char*) { return from; }
const code_unit16* skip_well_formed(const code_unit16* from, const code_unit16*) { return from; }
const code_unit32* skip_well_formed(const code_unit32* from, const code_unit32*) { return from; }

}  // namespace ORVA_NAMESPACE::internal::text
