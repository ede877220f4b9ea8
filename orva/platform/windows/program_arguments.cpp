#include "orva/platform/program_arguments.hpp"

#include <memory>

#include "orva/platform/native_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

struct free_words {
  void operator()(wchar_t** words) const { windows::calls::local_free(words); }
};

}  // namespace

/// Those of `main` are in the code page of the system, which lacks most characters.
std::vector<std::string> program_arguments() {
  int count = 0;
  const std::unique_ptr<wchar_t*, free_words> words(
      windows::calls::command_line_to_argv(windows::calls::get_command_line(), &count));
  std::vector<std::string> result;
  if (words == nullptr) return result;
  for (int i = 0; i < count; ++i) append_native(result.emplace_back(), words.get()[i]);
  return result;
}

}  // namespace ORVA_NAMESPACE::platform
