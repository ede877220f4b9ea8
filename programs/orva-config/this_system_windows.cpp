#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>

#include "orva/strings/unicode.hpp"
#include "this_system.hpp"

namespace orva_config {

/// Those of `main` have the characters of the system's code page only.
std::vector<std::string> arguments(int argc, char** argv) {
  int count = 0;
  wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (words == nullptr) return {argv, argv + argc};
  std::vector<std::string> result;
  for (int i = 0; i < count; ++i) result.push_back(orva::strings::utf16_to_utf8(std::wstring(words[i])));
  ::LocalFree(words);
  return result;
}

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
