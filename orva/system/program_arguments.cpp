#include "orva/system/program_arguments.hpp"

#include <utility>

#include "orva/platform/program_arguments.hpp"

namespace ORVA_NAMESPACE::system {

program_arguments::program_arguments(int argc, const char* const* argv) {
  for (std::string& word : platform::program_arguments()) words_.emplace_back(std::move(word));
  for (const strings::ustring8& word : words_) pointers_.push_back(word.c_str());
  if (words_.empty() && argv != nullptr && argc > 0) pointers_.assign(argv, argv + argc);
  pointers_.push_back(nullptr);
}

program_arguments::~program_arguments() = default;

}  // namespace ORVA_NAMESPACE::system
