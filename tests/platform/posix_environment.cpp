#include <stdlib.h>

#include "tests/support/environment_variable.hpp"

namespace orva_test {

void set_variable(const char* name, const char* value) {
  if (value != nullptr) {
    ::setenv(name, value, 1);
  } else {
    ::unsetenv(name);
  }
}

}  // namespace orva_test
