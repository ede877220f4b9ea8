/// `working_directory`: makes a directory the current one until the object goes. For tests of relative paths.
#pragma once

#include <filesystem>

namespace orva_test {

class working_directory {
 public:
  explicit working_directory(const std::filesystem::path& directory)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory);
  }
  working_directory(const working_directory&) = delete;
  working_directory& operator=(const working_directory&) = delete;
  ~working_directory() { std::filesystem::current_path(before_); }

 private:
  std::filesystem::path before_;
};

}  // namespace orva_test
