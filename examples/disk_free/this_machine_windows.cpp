#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>
#include <string>

#include "machine.hpp"
#include "orva/strings/unicode.hpp"

namespace disk_free {

namespace {

/// The roots of all drives, each with a terminator, and an empty one at the end.
std::wstring drives() {
  std::wstring roots(::GetLogicalDriveStringsW(0, nullptr), L'\0');
  ::GetLogicalDriveStringsW(static_cast<DWORD>(roots.size()), roots.data());
  return roots;
}

/// Returns false for drives without a disk and for drives of other machines.
bool ask_file_system(const wchar_t* root, file_system& result) {
  ULARGE_INTEGER free = {};
  ULARGE_INTEGER total = {};
  const UINT type = ::GetDriveTypeW(root);
  if (type != DRIVE_FIXED && type != DRIVE_REMOVABLE) return false;
  if (::GetDiskFreeSpaceExW(root, &free, &total, nullptr) == 0) return false;
  result = {orva::strings::utf16_to_utf8(root), total.QuadPart, free.QuadPart};
  return true;
}

}  // namespace

machine this_machine() {
  machine result;
  const std::wstring roots = drives();
  for (const wchar_t* root = roots.c_str(); *root != L'\0'; root += std::wstring_view(root).size() + 1) {
    file_system found;
    if (ask_file_system(root, found)) result.file_systems.push_back(std::move(found));
  }
  result.seconds_up = ::GetTickCount64() / 1000;
  return result;
}

std::filesystem::path program_directory() {
  std::array<wchar_t, 32768> path = {};
  const DWORD size = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return std::filesystem::path(path.data(), path.data() + size).parent_path();
}

}  // namespace disk_free
