#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::types {

nil_t nil;

}  // namespace ORVA_NAMESPACE::types
