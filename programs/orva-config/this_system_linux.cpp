#include <csignal>
#include <system_error>

#include "this_system.hpp"

namespace orva_config {

std::filesystem::path program_directory() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

void prepare_streams() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace orva_config
