/// `temporary_directory`: a new, empty directory for one test. The destructor removes it with its contents.
///
/// Paths are returned as UTF-8 in a `std::string`, which every file operation of the library takes. Tests
/// that run at the same time get different directories.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "tests/support/native_path.hpp"

namespace orva_test {

class temporary_directory {
 public:
  temporary_directory() {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
      const auto name = "orva-" + std::to_string(random()) + "-" + std::to_string(random());
      path_ = std::filesystem::temp_directory_path() / name;
      if (std::filesystem::create_directory(path_)) return;
    }
    throw std::runtime_error("no temporary directory could be created");
  }
  temporary_directory(const temporary_directory&) = delete;
  temporary_directory& operator=(const temporary_directory&) = delete;

  ~temporary_directory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }

  /// The directory itself, without a separator at the end.
  std::string name() const { return text_of(path_); }

  /// The path of an entry of the directory, which need not exist: `file("logs/a.txt")`.
  std::string file(std::string_view relative) const { return text_of(path_ / path_of(relative)); }

  /// Creates a directory and its missing parents, and returns its path.
  std::string make_directory(std::string_view relative) const {
    std::filesystem::create_directories(path_ / path_of(relative));
    return file(relative);
  }

  /// Writes a file, creates its missing parents, and returns its path.
  std::string write(std::string_view relative, std::string_view contents) const {
    const auto target = path_ / path_of(relative);
    std::filesystem::create_directories(target.parent_path());
    std::ofstream stream(target, std::ios::binary);
    stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!stream.flush()) throw std::runtime_error("could not write " + text_of(target));
    return text_of(target);
  }

  std::string read(std::string_view relative) const {
    std::ifstream stream(path_ / path_of(relative), std::ios::binary);
    if (!stream) throw std::runtime_error("could not read " + file(relative));
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace orva_test
