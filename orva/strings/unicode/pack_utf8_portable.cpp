#include "orva/strings/unicode/pack_utf8.hpp"

namespace ORVA_2_18::strings::_private {

// Without a shuffle of bytes nothing beats the plain loop.
place<code_unit16, char> pack_utf8(place<code_unit16, char> at, const code_unit16*) { return at; }
place<code_unit32, char> pack_utf8(place<code_unit32, char> at, const code_unit32*) { return at; }

}  // namespace ORVA_2_18::strings::_private
