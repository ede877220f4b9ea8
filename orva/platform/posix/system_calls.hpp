/// The system calls that the files in this folder make, one function each.
///
/// The functions do what their namesakes do, `errno` included. A test links others in their place, so that a
/// full disk, a short read and an interrupted call can be tested. The clocks are not among them: they cannot
/// fail, and a stopwatch pays for each call; tests replace `platform/clock.hpp` as a whole.
#pragma once

#include <dirent.h>
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

DIR* opendir(const char* path);
dirent* readdir(DIR* directory);
int dirfd(DIR* directory);
int closedir(DIR* directory);

int madvise(void* begin, std::size_t size, int advice);

}  // namespace ORVA_NAMESPACE::platform::posix::calls
