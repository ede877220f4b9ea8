/// The contents of a report: the file systems of a machine, and how long it has been running.
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

/// Asks the operating system. File systems that are not disks (`/proc`, memory, ...) are left out. A disk
/// that is mounted several times is listed once.
machine this_machine();

/// Reads the description of a machine from a file, for tests and other machines. A line is one of
///
///     uptime SECONDS
///     MOUNT-POINT TOTAL-BYTES FREE-BYTES [TOTAL-FILES FREE-FILES]
///
/// Lines that are empty or start with `#` are skipped. Returns false if the file cannot be read; `bad_line`
/// is 0 then. Returns false if a line is wrong; `bad_line` is its number then.
/// The name is in UTF-8.
bool read_machine(const std::string& file, machine& result, int& bad_line);

/// The directory of this program's file.
std::filesystem::path program_directory();

}  // namespace disk_free
