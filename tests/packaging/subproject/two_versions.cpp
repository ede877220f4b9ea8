// Two versions of the library in one process: each module catches its own exceptions and sees its own
// assertions.
#include <cstdio>
#include <cstring>

#include "module.hpp"

extern "C" const module_functions one_module, other_module;

namespace {

int failures = 0;

void expect(bool condition, const char* words) {
  if (condition) return;
  std::printf("failed: %s\n", words);
  ++failures;
}

}  // namespace

int main() {
  const auto& one = one_module;
  const auto& other = other_module;
  expect(std::strcmp(one.version_namespace, other.version_namespace) != 0, "the namespaces differ");
  expect(one.catches(one.raise) && other.catches(other.raise), "each module catches its own exceptions");
  expect(!one.catches(other.raise) && !other.catches(one.raise), "no module catches those of the other");
  expect(std::strcmp(one.message(), other.message()) != 0, "each module renders its own message");
  one.install_hook();
  other.fail_assertion();
  expect(one.assertions_seen() == 0, "the hook of one version does not see assertions of the other");
  other.install_hook();
  one.fail_assertion();
  other.fail_assertion();
  expect(one.assertions_seen() == 1 && other.assertions_seen() == 1, "each hook sees its own assertions");
  std::printf("%s and %s in one process: %d failures\n", one.version_namespace, other.version_namespace,
              failures);
  return failures == 0 ? 0 : 1;
}
