/// What the report is about: the file systems of a machine, and how long it has been running.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace disk_free {

struct file_system {
  std::string path;
  std::uint64_t total_bytes = 0;
  std::uint64_t free_bytes = 0;
  /// 0 where the file system has no limit on the number of its files.
  std::uint64_t total_files = 0;
  std::uint64_t free_files = 0;
};

struct machine {
  std::vector<file_system> file_systems;
  std::uint64_t seconds_up = 0;
};

/// Asks the operating system. File systems that are no disks (`/proc`, memory, ...) are left out, and of
/// several mounts of one disk the first is taken.
machine this_machine();

/// Reads a machine from a file, for tests and for machines that are elsewhere. A line of it is one of
///
///     uptime SECONDS
///     MOUNT-POINT TOTAL-BYTES FREE-BYTES [TOTAL-FILES FREE-FILES]
///
/// Lines that are empty or start with `#` are skipped. False if the file cannot be read, with `bad_line` 0,
/// or if a line is none of these; `bad_line` is then its number.
bool read_machine(const std::string& file, machine& result, int& bad_line);

/// The directory that this program lies in.
std::filesystem::path program_directory();

}  // namespace disk_free
