#include "orva/generic/abilities/create_ability.hpp"
#include "orva/generic/clone_interface.hpp"

// The destructors are defined here so that all modules of a program share one type_info of each class.

namespace ORVA_NAMESPACE::generic::abilities {

create_ability::~create_ability() = default;

}  // namespace ORVA_NAMESPACE::generic::abilities

namespace ORVA_NAMESPACE::generic {

clone_interface::~clone_interface() = default;

}  // namespace ORVA_NAMESPACE::generic
