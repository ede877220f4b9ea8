/// `working_directory`: makes a directory the current one for the lifetime of the object. For tests of
/// relative paths.
#pragma once

#include <filesystem>

namespace orva_test {

class working_directory {
 public:
  explicit working_directory(const std::filesystem::path& directory)
      : previous_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory);
  }
  working_directory(const working_directory&) = delete;
  working_directory& operator=(const working_directory&) = delete;
  ~working_directory() { std::filesystem::current_path(previous_); }

 private:
  std::filesystem::path previous_;
};

}  // namespace orva_test
