// Loads a module, which prints its settings.
//
//     host MODULE [FILE...]
#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "module.hpp"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: host MODULE [FILE...]\n";
    return EXIT_FAILURE;
  }
  void* const module = dlopen(argv[1], RTLD_NOW);
  void* const symbol = module != nullptr ? dlsym(module, "module_describe") : nullptr;
  if (symbol == nullptr) {
    std::cerr << dlerror() << '\n';
    return EXIT_FAILURE;
  }
  const auto describe = reinterpret_cast<module_describe_function*>(symbol);
  describe(argv + 2, static_cast<unsigned int>(argc) - 2, environ);
}
