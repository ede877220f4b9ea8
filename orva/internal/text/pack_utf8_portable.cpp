#include "orva/internal/text/pack_utf8.hpp"

namespace ORVA_NAMESPACE::internal::text {

// Without a byte shuffle, nothing is faster than the plain loop.
cursor<code_unit16, char> pack_utf8(cursor<code_unit16, char> at, const code_unit16*) { return at; }
cursor<code_unit32, char> pack_utf8(cursor<code_unit32, char> at, const code_unit32*) { return at; }

}  // namespace ORVA_NAMESPACE::internal::text
