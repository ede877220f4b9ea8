#include "orva/platform/file.hpp"

#include <algorithm>

#include "orva/platform/windows/open_file.hpp"
#include "orva/platform/windows/write_all.hpp"

namespace ORVA_NAMESPACE::platform {

namespace calls = windows::calls;
using windows::largest_transfer;
using windows::open_file;

namespace {

HANDLE as_handle(std::intptr_t value) { return reinterpret_cast<HANDLE>(value); }

OVERLAPPED position(std::int64_t offset) {
  OVERLAPPED result = {};
  result.Offset = static_cast<DWORD>(static_cast<std::uint64_t>(offset) & 0xFFFFFFFF);
  result.OffsetHigh = static_cast<DWORD>(static_cast<std::uint64_t>(offset) >> 32);
  return result;
}

}  // namespace

input_file::input_file(const native_string& path) {
  open_file file(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size = {};
  if (!file.is_plain() || calls::get_file_size(file.get(), &size) == 0) return;
  size_ = size.QuadPart;
  handle_ = reinterpret_cast<std::intptr_t>(file.release());
}

input_file::~input_file() {
  if (is_open()) calls::close_handle(as_handle(handle_));
}

std::size_t input_file::read(std::int64_t offset, char* to, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    OVERLAPPED at = position(offset + static_cast<std::int64_t>(done));
    const auto wanted = static_cast<DWORD>(std::min(count - done, largest_transfer));
    DWORD got = 0;
    if (calls::read_file(as_handle(handle_), to + done, wanted, &got, &at) == 0 || got == 0) break;
    done += got;
  }
  return done;
}

int open_error(const native_string& path) {
  const open_file file(path, GENERIC_READ, OPEN_EXISTING);
  if (!file.is_open()) return static_cast<int>(::GetLastError());
  return file.is_plain() ? 0 : ERROR_BAD_FILE_TYPE;
}

bool write_file(const native_string& path, std::string_view contents) {
  // Emptied only when it is known to be a plain file.
  const open_file file(path, GENERIC_WRITE, OPEN_ALWAYS);
  if (!file.is_plain() || calls::set_end_of_file(file.get()) == 0) return false;
  windows::write_all(file.get(), contents);
  return true;
}

}  // namespace ORVA_NAMESPACE::platform
