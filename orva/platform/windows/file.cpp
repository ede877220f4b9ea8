#include "orva/platform/file.hpp"

#include <algorithm>
#include <utility>

#include "orva/platform/windows/c_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace calls = windows::calls;

namespace {

/// One call of the system moves no more than 32 bits can count.
constexpr std::size_t largest_transfer = 0x40000000;

/// An open file, other readers and writers let in.
class open_file {
 public:
  /// The flag for links keeps one that takes the file's place after someone looked for links from being
  /// followed.
  open_file(const native_string& path, DWORD access, DWORD creation)
      : file_(calls::create_file(windows::c_path(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE, creation,
                                 FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT)) {}
  open_file(const open_file&) = delete;
  open_file& operator=(const open_file&) = delete;
  ~open_file() {
    if (file_ != INVALID_HANDLE_VALUE) calls::close_handle(file_);
  }

  HANDLE get() const { return file_; }
  HANDLE release() { return std::exchange(file_, INVALID_HANDLE_VALUE); }

  /// A file of a disk, no link, pipe or console.
  bool is_plain() const {
    BY_HANDLE_FILE_INFORMATION found = {};
    return file_ != INVALID_HANDLE_VALUE && calls::get_file_type(file_) == FILE_TYPE_DISK &&
           calls::get_file_information(file_, &found) != 0 &&
           (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
  }

 private:
  HANDLE file_;
};

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

bool write_file(const native_string& path, std::string_view contents) {
  // Emptied only when it is known to be a plain file.
  const open_file file(path, GENERIC_WRITE, OPEN_ALWAYS);
  if (!file.is_plain() || calls::set_end_of_file(file.get()) == 0) return false;
  while (!contents.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(contents.size(), largest_transfer));
    DWORD written = 0;
    if (calls::write_file(file.get(), contents.data(), wanted, &written) == 0 || written == 0) break;
    contents.remove_prefix(written);
  }
  return true;
}

}  // namespace ORVA_NAMESPACE::platform
