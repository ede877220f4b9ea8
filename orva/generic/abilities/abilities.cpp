#include "orva/generic/abilities/create_ability.hpp"
#include "orva/generic/clone_interface.hpp"

// The destructors stand here so that the type_info of each ability is one for all modules of a program.

namespace ORVA_NAMESPACE::generic::abilities {

create_ability::~create_ability() = default;

}  // namespace ORVA_NAMESPACE::generic::abilities

namespace ORVA_NAMESPACE::generic {

clone_interface::~clone_interface() = default;

}  // namespace ORVA_NAMESPACE::generic
