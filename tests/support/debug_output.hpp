/// `debug_output_of`: the text that reaches the system's debug output while `body` runs.
#pragma once

#include <functional>
#include <string>

namespace orva_test {

std::string debug_output_of(const std::function<void()>& body);

}  // namespace orva_test
