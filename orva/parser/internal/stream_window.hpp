/// `stream_window`: the part of a file that `xml_stream_parser` has in memory.
///
/// Internal. The window begins at the first byte that is not consumed yet. The file is open only during
/// `load`; a symbolic link is refused each time, also one that took the file's place later.
///
///     stream_window window;
///     if (window.open(file) != stream_window::file_state::readable) return;
///     while (window.load().count > 0) window.consume_up_to(parse(window.first(), window.last()));
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "orva/platform/native_path.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class stream_window {
 public:
  static constexpr std::size_t size = 0x10000;

  enum class file_state { readable, symbolic_link, cannot_be_opened };
  struct load_result {
    file_state file;
    /// How many bytes were added at the end of the window.
    std::size_t count;
  };

  /// Starts at the beginning of this file. Nothing is read yet.
  file_state open(const strings::ustring16& file);

  /// Reads as much as the window has room for and the file has. The bytes in the window may move in memory.
  ///
  /// Throws `std::ios_base::failure` with "ios_base::failbit set" if the file ends sooner than its size says.
  /// The window is unchanged then.
  load_result load();

  const char* first() const noexcept { return first_; }
  const char* last() const noexcept { return last_; }
  /// REQUIRES: `position` is in the window or at its end.
  void consume_up_to(const char* position) noexcept { first_ = position; }

  /// Whether it has no room for more until something is consumed.
  bool is_full() const noexcept { return static_cast<std::size_t>(last_ - first_) == size; }
  /// The offset of its first byte in the file.
  std::int64_t offset() const noexcept { return bytes_read_ - (last_ - first_); }
  /// The offset of its end.
  std::int64_t bytes_read() const noexcept { return bytes_read_; }

  const platform::native_string& path() const noexcept { return path_; }
  /// The size that the file has now; -1 if it cannot be opened or is a symbolic link.
  std::int64_t file_length() const;

 private:
  void make_room(std::size_t count) noexcept;

  platform::native_string path_;
  // Two windows long: the window moves through the buffer, and is copied back to the start only once for each
  // window of text.
  std::string buffer_;
  const char* first_ = nullptr;
  char* last_ = nullptr;
  std::int64_t bytes_read_ = 0;
};

}  // namespace ORVA_NAMESPACE::parser::_private
