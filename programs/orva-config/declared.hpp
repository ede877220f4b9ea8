/// The command line of the program.
#pragma once

#include "orva/config/declaration.hpp"

namespace orva_config {

/// The keys of positional arguments have the name of their command in front: "set.file".
orva::config::declaration declared();

}  // namespace orva_config
