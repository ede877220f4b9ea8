#include "orva/platform/posix/system_calls.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

#include <cerrno>
#include <cstdio>
#include <ctime>

namespace ORVA_NAMESPACE::platform::posix::calls {

int open(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }
int close(int file) { return ::close(file); }
int fstat(int file, struct stat* status) { return ::fstat(file, status); }
off_t lseek(int file, off_t offset, int whence) { return ::lseek(file, offset, whence); }

ssize_t pread(int file, void* to, std::size_t count, off_t offset) {
  return ::pread(file, to, count, offset);
}

ssize_t write(int file, const void* from, std::size_t count) { return ::write(file, from, count); }

int let_writes_wait(int file) { return ::fcntl(file, F_SETFL, 0); }

void sleep_for_a_millisecond() {
  const timespec millisecond = {0, 1'000'000};
  ::nanosleep(&millisecond, nullptr);
}

int stat(const char* path, struct stat* status) { return ::stat(path, status); }

int fstatat(int directory, const char* name, struct stat* status, int flags) {
  return ::fstatat(directory, name, status, flags);
}

int mkdir(const char* path, mode_t mode) { return ::mkdir(path, mode); }

int rename_without_replacing([[maybe_unused]] const char* from, [[maybe_unused]] const char* to) {
#ifdef RENAME_NOREPLACE
  return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
#else
  errno = ENOSYS;
  return -1;
#endif
}

int rename(const char* from, const char* to) { return ::rename(from, to); }
int lstat(const char* path, struct stat* status) { return ::lstat(path, status); }
int unlink(const char* path) { return ::unlink(path); }
int rmdir(const char* path) { return ::rmdir(path); }

int openat(int directory, const char* name, int flags, mode_t mode) {
  return ::openat(directory, name, flags, mode);
}

int open_unnamed([[maybe_unused]] int directory, [[maybe_unused]] mode_t mode) {
#ifdef O_TMPFILE
  return ::openat(directory, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
#else
  errno = EOPNOTSUPP;
  return -1;
#endif
}

int name_unnamed(int file, int directory, const char* name) {
  // The way that needs no privilege. It fails where /proc is not mounted.
  char path[32];
  std::snprintf(path, sizeof path, "/proc/self/fd/%d", file);
  return ::linkat(AT_FDCWD, path, directory, name, AT_SYMLINK_FOLLOW);
}

int faccessat(int directory, const char* name, int rights, int flags) {
  return ::faccessat(directory, name, rights, flags);
}

int fchown(int file, uid_t owner, gid_t group) { return ::fchown(file, owner, group); }
int fchmod(int file, mode_t mode) { return ::fchmod(file, mode); }

#ifdef __linux__

namespace {

constexpr const char* access_list = "system.posix_acl_access";

}  // namespace

ssize_t get_access_list(const char* path, void* list, std::size_t room) {
  return ::lgetxattr(path, access_list, list, room);
}

int set_access_list(int file, const void* list, std::size_t size) {
  return ::fsetxattr(file, access_list, list, size, 0);
}

int remove_access_list(int file) { return ::fremovexattr(file, access_list); }

#else

ssize_t get_access_list(const char*, void*, std::size_t) { return errno = EOPNOTSUPP, -1; }
int set_access_list(int, const void*, std::size_t) { return errno = EOPNOTSUPP, -1; }
int remove_access_list(int) { return errno = EOPNOTSUPP, -1; }

#endif

int fsync(int file) { return ::fsync(file); }

int renameat(int directory, const char* from, const char* to) {
  return ::renameat(directory, from, directory, to);
}

int unlinkat(int directory, const char* name) { return ::unlinkat(directory, name, 0); }

DIR* opendir(const char* path) { return ::opendir(path); }
dirent* readdir(DIR* directory) { return ::readdir(directory); }
int dirfd(DIR* directory) { return ::dirfd(directory); }
int closedir(DIR* directory) { return ::closedir(directory); }

int madvise(void* begin, std::size_t size, int advice) { return ::madvise(begin, size, advice); }

int isatty(int file) { return ::isatty(file); }
int get_window_size(int file, winsize* size) { return ::ioctl(file, TIOCGWINSZ, size); }

}  // namespace ORVA_NAMESPACE::platform::posix::calls
