/// UTF-8 from several units of the basic plane at once, where the processor has an instruction for it.
///
/// Each converts as much as it likes, stops before the first unit that it does not take (a surrogate, a value
/// above 0xFFFF, the last few of the text), and leaves it to the plain loop of its transform to say what that
/// unit gives. It may stop anywhere; taking nothing is right, too.
///
/// Output needs room for four bytes for each unit that is left, of which those behind the result's `to` may
/// be overwritten.
///
/// Internal: not installed. The build chooses between pack_utf8_x86.cpp and pack_utf8_portable.cpp.
#pragma once

#include "orva/internal/text/fast_path.hpp"

namespace ORVA_NAMESPACE::internal::text {

cursor<code_unit16, char> pack_utf8(cursor<code_unit16, char> at, const code_unit16* end);
cursor<code_unit32, char> pack_utf8(cursor<code_unit32, char> at, const code_unit32* end);

}  // namespace ORVA_NAMESPACE::internal::text
