#include "orva/types/nil.hpp"

namespace ORVA_2_18::types {

nil_t nil;

}  // namespace ORVA_2_18::types
