/// UTF-8 from several units of the basic plane at once, where the processor has an instruction for it.
///
/// Each converts as much as it likes, stops before the first unit that it does not take (a surrogate, a value above
/// 0xFFFF, the last few of the text), and leaves it to the plain loop of its transform to say what that unit gives. It may stop
/// anywhere; taking nothing is right, too.
///
/// The result says how far it came. Output needs room for four bytes for each unit that is left, and those behind `to`
/// may be overwritten.
///
/// Internal: not installed. The build chooses between pack_utf8_x86.cpp and pack_utf8_portable.cpp.
#pragma once

#include "orva/strings/code_unit.hpp"

namespace ORVA_2_18::strings::_private {

template <typename From>
struct packed {
  const From* from;
  char* to;
};

packed<code_unit16> pack_utf8(const code_unit16* from, const code_unit16* end, char* to);
packed<code_unit32> pack_utf8(const code_unit32* from, const code_unit32* end, char* to);

}  // namespace ORVA_2_18::strings::_private
