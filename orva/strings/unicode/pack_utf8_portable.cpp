#include "orva/strings/unicode/pack_utf8.hpp"

namespace ORVA_2_18::strings::_private {

// Without a shuffle of bytes nothing beats the plain loop.
packed<code_unit16> pack_utf8(const code_unit16* from, const code_unit16*, char* to) { return {from, to}; }
packed<code_unit32> pack_utf8(const code_unit32* from, const code_unit32*, char* to) { return {from, to}; }

}  // namespace ORVA_2_18::strings::_private
