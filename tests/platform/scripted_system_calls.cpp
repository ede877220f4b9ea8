#include "tests/platform/scripted_system_calls.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace orva_test {

call_script& script() {
  static call_script current;
  return current;
}

}  // namespace orva_test

namespace {

bool is_refused(const char* call) {
  const int error = orva_test::script().refusal ? orva_test::script().refusal(call) : 0;
  if (error != 0) errno = error;
  return error != 0;
}

}  // namespace

namespace ORVA_NAMESPACE::platform::posix::calls {

using orva_test::script;

int open(const char* path, int flags, mode_t mode) {
  if (is_refused("open")) return -1;
  const int file = script().open ? script().open(path, flags, mode) : ::open(path, flags, mode);
  if (file >= 0) ++script().open_files;
  return file;
}

int close(int file) {
  is_refused("close");
  --script().open_files;
  return ::close(file);
}

int fstat(int file, struct stat* status) {
  if (is_refused("fstat")) return -1;
  return script().fstat ? script().fstat(file, status) : ::fstat(file, status);
}

off_t lseek(int file, off_t offset, int whence) { return ::lseek(file, offset, whence); }

ssize_t pread(int file, void* to, std::size_t count, off_t offset) {
  return script().pread ? script().pread(file, to, count, offset) : ::pread(file, to, count, offset);
}

ssize_t write(int file, const void* from, std::size_t count) {
  if (is_refused("write")) return -1;
  return script().write ? script().write(file, from, count) : ::write(file, from, count);
}

int let_writes_wait(int file) {
  return script().let_writes_wait ? script().let_writes_wait(file) : ::fcntl(file, F_SETFL, 0);
}

void sleep_for_a_millisecond() { ++script().sleeps; }

int stat(const char* path, struct stat* status) {
  return script().stat ? script().stat(path, status) : ::stat(path, status);
}

int fstatat(int directory, const char* name, struct stat* status, int flags) {
  if (is_refused("fstatat")) return -1;
  return ::fstatat(directory, name, status, flags);
}

int mkdir(const char* path, mode_t mode) {
  ++script().directories_asked_for;
  return ::mkdir(path, mode);
}

int rename_without_replacing(const char* from, const char* to) {
  if (script().rename_without_replacing) return script().rename_without_replacing(from, to);
  return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
}

int rename(const char* from, const char* to) { return ::rename(from, to); }
int lstat(const char* path, struct stat* status) { return ::lstat(path, status); }
int unlink(const char* path) { return ::unlink(path); }
int rmdir(const char* path) { return ::rmdir(path); }

int openat(int directory, const char* name, int flags, mode_t mode) {
  if (is_refused("openat")) return -1;
  const int file = ::openat(directory, name, flags, mode);
  if (file >= 0) ++script().open_files;
  return file;
}

int open_unnamed(int directory, mode_t mode) {
  if (is_refused("open_unnamed")) return -1;
  const int file = ::openat(directory, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
  if (file >= 0) ++script().open_files;
  return file;
}

int name_unnamed(int file, int directory, const char* name) {
  if (is_refused("name_unnamed")) return -1;
  const auto path = "/proc/self/fd/" + std::to_string(file);
  return ::linkat(AT_FDCWD, path.c_str(), directory, name, AT_SYMLINK_FOLLOW);
}

int faccessat(int directory, const char* name, int rights, int flags) {
  return is_refused("faccessat") ? -1 : ::faccessat(directory, name, rights, flags);
}

int fchown(int file, uid_t owner, gid_t group) {
  return is_refused("fchown") ? -1 : ::fchown(file, owner, group);
}

int fchmod(int file, mode_t mode) { return is_refused("fchmod") ? -1 : ::fchmod(file, mode); }

ssize_t get_access_list(const char* path, void* list, std::size_t room) {
  if (is_refused("get_access_list")) return -1;
  return ::lgetxattr(path, "system.posix_acl_access", list, room);
}

int set_access_list(int file, const void* list, std::size_t size) {
  if (is_refused("set_access_list")) return -1;
  return ::fsetxattr(file, "system.posix_acl_access", list, size, 0);
}

int remove_access_list(int file) {
  return is_refused("remove_access_list") ? -1 : ::fremovexattr(file, "system.posix_acl_access");
}

int fsync(int file) { return is_refused("fsync") ? -1 : ::fsync(file); }

int renameat(int directory, const char* from, const char* to) {
  return is_refused("renameat") ? -1 : ::renameat(directory, from, directory, to);
}

int unlinkat(int directory, const char* name) {
  return is_refused("unlinkat") ? -1 : ::unlinkat(directory, name, 0);
}

DIR* opendir(const char* path) {
  DIR* const search = ::opendir(path);
  if (search != nullptr) ++script().open_searches;
  return search;
}

dirent* readdir(DIR* directory) {
  return script().readdir ? script().readdir(directory) : ::readdir(directory);
}
int dirfd(DIR* directory) { return ::dirfd(directory); }

int closedir(DIR* directory) {
  --script().open_searches;
  return ::closedir(directory);
}

int madvise(void* begin, std::size_t size, int advice) { return ::madvise(begin, size, advice); }

int isatty(int file) { return script().isatty ? script().isatty(file) : ::isatty(file); }

int get_window_size(int file, winsize* size) {
  return script().get_window_size ? script().get_window_size(file, size) : ::ioctl(file, TIOCGWINSZ, size);
}

}  // namespace ORVA_NAMESPACE::platform::posix::calls
