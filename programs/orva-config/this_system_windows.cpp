#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include <string>

#include "this_system.hpp"

namespace orva_config {

std::filesystem::path program_directory() {
  std::wstring path(32768, L'\0');
  const DWORD size = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  path.resize(size);
  return std::filesystem::path(path).parent_path();
}

void prepare_streams() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

}  // namespace orva_config
