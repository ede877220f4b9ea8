/// The system calls that the files in this folder make, one function each.
///
/// The functions do what their namesakes do, `errno` included. A test links others in their place, so that a
/// full disk, a short read and an interrupted call can be tested. The clocks are not among them: they cannot
/// fail, and a stopwatch pays for each call; tests replace `platform/clock.hpp` as a whole.
#pragma once

#include <dirent.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform::posix::calls {

int open(const char* path, int flags, mode_t mode);
int close(int file);
int fstat(int file, struct stat* status);
off_t lseek(int file, off_t offset, int whence);
ssize_t pread(int file, void* to, std::size_t count, off_t offset);
ssize_t write(int file, const void* from, std::size_t count);
/// Takes O_NONBLOCK off a file that is open for writing.
int let_writes_wait(int file);
void sleep_for_a_millisecond();

int stat(const char* path, struct stat* status);
int fstatat(int directory, const char* name, struct stat* status, int flags);
int mkdir(const char* path, mode_t mode);
/// Renames, and fails with `EEXIST` where the new name is taken. `EINVAL` or `ENOSYS`: the file system or the
/// system cannot promise that.
int rename_without_replacing(const char* from, const char* to);
int rename(const char* from, const char* to);
int lstat(const char* path, struct stat* status);
int unlink(const char* path);
int rmdir(const char* path);

int openat(int directory, const char* name, int flags, mode_t mode);
/// Opens a new file without a name in the directory, which disappears when it is closed. Fails where the
/// system or the file system has none.
int open_unnamed(int directory, mode_t mode);
/// Gives a file that `open_unnamed` opened a name, which must be free.
int name_unnamed(int file, int directory, const char* name);
int faccessat(int directory, const char* name, int rights, int flags);
int fchown(int file, uid_t owner, gid_t group);
int fchmod(int file, mode_t mode);
/// The list of who may use the file beyond its mode, in the form in which `set_access_list` takes it.
/// `ENODATA`: the file has none; `EOPNOTSUPP`: the file system has none.
ssize_t get_access_list(const char* path, void* list, std::size_t room);
int set_access_list(int file, const void* list, std::size_t size);
int remove_access_list(int file);
int fsync(int file);
int renameat(int directory, const char* from, const char* to);
int unlinkat(int directory, const char* name);

DIR* opendir(const char* path);
dirent* readdir(DIR* directory);
int dirfd(DIR* directory);
int closedir(DIR* directory);

int madvise(void* begin, std::size_t size, int advice);

int isatty(int file);
/// `ioctl` with `TIOCGWINSZ`.
int get_window_size(int file, winsize* size);

}  // namespace ORVA_NAMESPACE::platform::posix::calls
