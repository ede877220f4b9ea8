#include <gtest/gtest.h>

#include "tests/support/debug_output.hpp"

namespace orva_test {

std::string debug_output_of(const std::function<void()>& body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

}  // namespace orva_test
