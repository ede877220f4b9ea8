#include <filesystem>
#include <iostream>
#include <vector>

#include "orva/orva.hpp"

namespace io = orva::system::io;
using orva::strings::ustring8;

// A file that is too large for a string is thrown, and not returned.
int load(const char* path, ustring8& contents) {
  try {
    return orva::system::load_file(path, contents);
  } catch (const orva::exceptions::runtime_error& error) {
    std::cout << path << ": " << error.message() << '\n';
    return 1;
  }
}

int main() {
  std::filesystem::current_path(std::filesystem::temp_directory_path());
  std::filesystem::remove_all("orva_files_guide");
  std::cout << std::boolalpha;

  // Missing parents are created at the separators of the system.
  const std::string old_logs = std::filesystem::path("orva_files_guide/logs/old").make_preferred().string();
  std::cout << "created: " << orva::system::create_directory(old_logs) << '\n';
  std::cout << "again: " << orva::system::create_directory(old_logs) << '\n';
  std::filesystem::current_path("orva_files_guide");

  std::cout << "stored: " << orva::system::store_file("logs/today.txt", "\xEF\xBB\xBFstarted\n") << '\n';
  const auto wide = orva::strings::utf8_to_utf16("logs/old/jour f\xC3\xA9ri\xC3\xA9.txt");
  if (orva::system::store_file(wide, "closed\n") != 0) return 1;

  ustring8 text = "what was there before";
  std::cout << "missing: " << load("logs/none.txt", text) << ", " << text << '\n';
  std::cout << "loaded: " << load("logs/today.txt", text) << ", " << text.size() << " bytes\n";
  std::cout << "without its mark: " << orva::strings::remove_BOM(text);

  for (const ustring8& path : orva::system::list_directory("logs"))
    std::cout << "entry: " << path << (io::is_directory(path) ? " (directory)" : "") << '\n';

  std::vector<ustring8> files;
  orva::system::get_directory_files("logs", files);
  for (const ustring8& path : files) std::cout << "file: " << path << '\n';

  io::move("logs/yesterday.txt", "logs/today.txt");  // the new name first
  std::cout << "moved: " << io::exists("logs/yesterday.txt") << '\n';
  io::remove_file("logs/yesterday.txt");
  io::remove_dir("logs");
  std::cout << "not empty, so still there: " << io::is_directory("logs") << '\n';

  std::filesystem::current_path("..");
  std::filesystem::remove_all("orva_files_guide");
}
