#include "tests/platform/scripted_system_calls.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>

namespace orva_test {

call_script& script() {
  static call_script current;
  return current;
}

}  // namespace orva_test

namespace ORVA_NAMESPACE::platform::posix::calls {

using orva_test::script;

int open(const char* path, int flags, mode_t mode) {
  const int file = script().open ? script().open(path, flags, mode) : ::open(path, flags, mode);
  if (file >= 0) ++script().open_files;
  return file;
}

int close(int file) {
  --script().open_files;
  return ::close(file);
}

int fstat(int file, struct stat* status) {
  return script().fstat ? script().fstat(file, status) : ::fstat(file, status);
}

off_t lseek(int file, off_t offset, int whence) { return ::lseek(file, offset, whence); }

ssize_t pread(int file, void* to, std::size_t count, off_t offset) {
  return script().pread ? script().pread(file, to, count, offset) : ::pread(file, to, count, offset);
}

ssize_t write(int file, const void* from, std::size_t count) {
  return script().write ? script().write(file, from, count) : ::write(file, from, count);
}

int let_writes_wait(int file) {
  return script().let_writes_wait ? script().let_writes_wait(file) : ::fcntl(file, F_SETFL, 0);
}

void sleep_for_a_millisecond() { ++script().sleeps; }

int stat(const char* path, struct stat* status) { return ::stat(path, status); }

int fstatat(int directory, const char* name, struct stat* status, int flags) {
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

}  // namespace ORVA_NAMESPACE::platform::posix::calls
