/// The two ends of a conversion: files, or the standard streams under the name "-". Names are in UTF-8.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace transcode {

class input {
 public:
  /// `is_open` is false for a file that cannot be opened, and for a directory.
  explicit input(const std::string& name);

  bool is_open() const { return stream_ != nullptr; }
  /// Nothing for what has no size, such as a pipe.
  std::optional<std::uint64_t> size() const { return size_; }

  /// Reads as many bytes as `to` has, fewer only at the end or after a failure, which `failed` reports.
  std::size_t read(std::string& to);
  bool failed() const { return failed_; }

 private:
  std::ifstream file_;
  std::istream* stream_ = nullptr;
  std::optional<std::uint64_t> size_;
  bool failed_ = false;
};

/// A file is written beside its name, and takes the name, with the permissions of the file that had it, when
/// all is written. Until then that file is as it was. Devices and pipes are written directly.
class output {
 public:
  explicit output(const std::string& name);
  output(const output&) = delete;
  output& operator=(const output&) = delete;
  /// Removes what was written, unless it was committed.
  ~output();

  bool is_open() const { return stream_ != nullptr; }
  bool write(std::string_view bytes);
  bool commit();

 private:
  void open_beside();

  std::filesystem::path target_;
  std::filesystem::path beside_;
  std::ofstream file_;
  std::ostream* stream_ = nullptr;
};

}  // namespace transcode
