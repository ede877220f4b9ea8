/// Input and files of the fuzz targets of configuration.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace orva_fuzz {

inline std::string_view text_of(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// A file of this process, in memory where possible. The destructor removes it.
class scratch_file {
 public:
  explicit scratch_file(const char* name) {
    const std::filesystem::path memory = "/dev/shm";
    const auto folder =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    path_ = (folder / ("orva-fuzz-" + std::to_string(::getpid()) + name)).string();
  }
  scratch_file(const scratch_file&) = delete;
  scratch_file& operator=(const scratch_file&) = delete;
  ~scratch_file() { std::filesystem::remove(path_); }

  const std::string& path() const { return path_; }

  void write(std::string_view text) const {
    std::ofstream(path_, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
  }

 private:
  std::string path_;
};

/// A listing grows with the square of the length of a key. Longer inputs only take longer.
inline constexpr std::size_t longest_input = 4096;

}  // namespace orva_fuzz
