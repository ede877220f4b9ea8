#include <mntent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <memory>
#include <set>
#include <string_view>

#include "machine.hpp"

namespace disk_free {

namespace {

/// File systems that have sizes but are not disks: they are in memory, or repeat the files of another disk.
bool is_pseudo(std::string_view type) {
  static constexpr std::array pseudo{std::string_view("devtmpfs"), std::string_view("efivarfs"),
                                     std::string_view("ramfs"), std::string_view("squashfs"),
                                     std::string_view("tmpfs")};
  return std::find(pseudo.begin(), pseudo.end(), type) != pseudo.end();
}

/// Returns false if the mount is no directory, its status is not available, or its size is 0, as for the file
/// systems of the kernel.
bool ask_file_system(const char* path, file_system& result, dev_t& device) {
  struct stat status;
  if (stat(path, &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  struct statvfs sizes;
  if (statvfs(path, &sizes) != 0 || sizes.f_blocks == 0) return false;
  device = status.st_dev;
  result = {path, std::uint64_t{sizes.f_blocks} * sizes.f_frsize,
            std::uint64_t{sizes.f_bavail} * sizes.f_frsize, sizes.f_files, sizes.f_favail};
  return true;
}

std::vector<file_system> mounted_file_systems() {
  std::vector<file_system> result;
  const std::unique_ptr<FILE, int (*)(FILE*)> mounts(setmntent("/proc/self/mounts", "r"), endmntent);
  if (mounts == nullptr) return result;
  std::set<dev_t> devices;
  while (const mntent* const mount = getmntent(mounts.get())) {
    file_system found;
    dev_t device;
    if (is_pseudo(mount->mnt_type) || !ask_file_system(mount->mnt_dir, found, device)) continue;
    if (devices.insert(device).second) result.push_back(std::move(found));
  }
  return result;
}

std::uint64_t seconds_since_boot() {
  timespec time{};
  clock_gettime(CLOCK_BOOTTIME, &time);
  return static_cast<std::uint64_t>(time.tv_sec);
}

}  // namespace

machine this_machine() { return {mounted_file_systems(), seconds_since_boot()}; }

std::filesystem::path program_directory() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

}  // namespace disk_free
