/// Random bytes, for contents that mean nothing.
#pragma once

#include <cstddef>
#include <string>

#include "tests/support/random_engine.hpp"

namespace orva_test {

inline std::string random_bytes(random_engine& random, std::size_t size) {
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

inline std::string random_bytes(std::size_t size) {
  random_engine random;
  return random_bytes(random, size);
}

}  // namespace orva_test
