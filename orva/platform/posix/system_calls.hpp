/// Every system call that the files beside this one make, one function each.
///
/// The functions do what their namesakes do, `errno` included. They stand behind this header so that a test
/// can link others in their place: a full disk, a short read and an interrupted call are tests and not hopes.
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

}  // namespace ORVA_NAMESPACE::platform::posix::calls
