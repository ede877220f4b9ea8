/// Skipping of well-formed text, many units at once, where the processor has instructions for it.
///
/// Each returns a position up to which the text is well-formed, at the beginning of a character or of a
/// malformed part. It may be any such position, even the first; the plain loop goes on from there.
///
/// Internal: not installed. The build chooses between skip_well_formed_avx2.cpp and
/// skip_well_formed_portable.cpp.
#pragma once

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::text {

const char* skip_well_formed(const char* from, const char* end);
const strings::code_unit16* skip_well_formed(const strings::code_unit16* from,
                                             const strings::code_unit16* end);
const strings::code_unit32* skip_well_formed(const strings::code_unit32* from,
                                             const strings::code_unit32* end);

}  // namespace ORVA_NAMESPACE::internal::text
