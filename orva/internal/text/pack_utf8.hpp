/// Conversion of several units of the basic plane into UTF-8 at once, where the processor has an instruction
/// for it.
///
/// Each converts units from the front and stops before the first one that it does not handle: a surrogate, a
/// value above 0xFFFF, or the last few of the text. It may stop before any unit, even the first; the plain
/// loop of the transform handles the rest.
///
/// The output needs room for four bytes for each remaining unit. Bytes after the result's `to` may be
/// overwritten.
///
/// Internal: not installed. The build chooses between pack_utf8_x86.cpp and pack_utf8_portable.cpp.
#pragma once

#include "orva/internal/text/fast_path.hpp"

namespace ORVA_NAMESPACE::internal::text {

cursor<code_unit16, char> pack_utf8(cursor<code_unit16, char> at, const code_unit16* end);
cursor<code_unit32, char> pack_utf8(cursor<code_unit32, char> at, const code_unit32* end);

}  // namespace ORVA_NAMESPACE::internal::text
