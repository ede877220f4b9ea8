#include <filesystem>
#include <fstream>
#include <sstream>

#include "machine.hpp"

namespace disk_free {

namespace {

/// Reads the rest of "MOUNT-POINT TOTAL FREE" or "MOUNT-POINT TOTAL FREE FILES FREE-FILES" after the path.
bool read_sizes(std::istringstream& line, file_system& result) {
  if (!(line >> result.total_bytes >> result.free_bytes)) return false;
  if ((line >> std::ws).eof()) return true;
  return (line >> result.total_files >> result.free_files) && (line >> std::ws).eof();
}

bool read_line(const std::string& text, machine& result) {
  std::istringstream line(text);
  std::string first;
  if (!(line >> first) || first.starts_with('#')) return true;
  if (first == "uptime") return (line >> result.seconds_up) && (line >> std::ws).eof();
  file_system found{first};
  if (!read_sizes(line, found)) return false;
  result.file_systems.push_back(found);
  return true;
}

}  // namespace

bool read_machine(const std::string& file, machine& result, int& bad_line) {
  bad_line = 0;
  std::ifstream lines(std::filesystem::path(std::u8string(file.begin(), file.end())));
  if (!lines) return false;
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (read_line(line, result)) continue;
    bad_line = number;
    return false;
  }
  return true;
}

}  // namespace disk_free
