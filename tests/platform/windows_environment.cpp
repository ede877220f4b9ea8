#include <stdlib.h>

#include "tests/support/environment_variable.hpp"

namespace orva_test {

void set_variable(const char* name, const char* value) { ::_putenv_s(name, value != nullptr ? value : ""); }

}  // namespace orva_test
