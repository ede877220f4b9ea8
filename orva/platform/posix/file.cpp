#include "orva/platform/file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "orva/platform/posix/c_path.hpp"
#include "orva/platform/posix/descriptor.hpp"
#include "orva/platform/posix/write_all.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

using posix::descriptor;

/// O_NOFOLLOW: a link that takes the file's place after a check for links is refused all the same.
/// O_NONBLOCK: opening a pipe does not wait for its other end.
constexpr int common_flags = O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | O_NONBLOCK;

/// Whether the open that just failed is made again: a signal interrupted it, or another process holds a lease
/// on the file. The system has then asked the holder to give it up, and an open with O_NONBLOCK has to come
/// back for it.
bool opens_again() {
  if (errno == EINTR) return true;
  if (errno != EWOULDBLOCK) return false;
  posix::calls::sleep_for_a_millisecond();
  return true;
}

descriptor open_file(const native_string& path, int flags) {
  int file;
  do {
    file = posix::calls::open(posix::c_path(path), flags | common_flags, 0666);
  } while (file < 0 && opens_again());
  return descriptor(file);
}

/// The position of the end, or -1 for what has none.
std::int64_t size_of(int file) {
  struct stat status = {};
  if (posix::calls::fstat(file, &status) != 0 || S_ISDIR(status.st_mode)) return -1;
  if (S_ISREG(status.st_mode)) return status.st_size;
  return posix::calls::lseek(file, 0, SEEK_END);
}

/// Whether `file` takes bytes as a file or a device does; a pipe does not. Only opening must not wait: writes
/// to a device wait until it has taken every byte.
bool prepare_for_writing(int file) {
  struct stat status = {};
  if (posix::calls::fstat(file, &status) != 0 || S_ISFIFO(status.st_mode)) return false;
  return S_ISREG(status.st_mode) || posix::calls::let_writes_wait(file) == 0;
}

}  // namespace

input_file::input_file(const native_string& path) {
  descriptor file = open_file(path, O_RDONLY);
  if (file.get() < 0) return;
  size_ = size_of(file.get());
  if (size_ >= 0) handle_ = file.release();
}

input_file::~input_file() {
  if (is_open()) posix::calls::close(static_cast<int>(handle_));
}

std::size_t input_file::read(std::int64_t offset, char* to, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const auto at = offset + static_cast<std::int64_t>(done);
    const ssize_t got = posix::calls::pread(static_cast<int>(handle_), to + done, count - done, at);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

int open_error(const native_string& path) {
  const descriptor file = open_file(path, O_RDONLY);
  if (file.get() < 0) return errno;
  errno = EISDIR;
  return size_of(file.get()) >= 0 ? 0 : errno;
}

bool write_file(const native_string& path, std::string_view contents) {
  const descriptor file = open_file(path, O_WRONLY | O_CREAT | O_TRUNC);
  if (file.get() < 0 || !prepare_for_writing(file.get())) return false;
  posix::write_all(file.get(), contents);
  return true;
}

}  // namespace ORVA_NAMESPACE::platform
