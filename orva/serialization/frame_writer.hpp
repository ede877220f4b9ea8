/// `frame_writer`: stores data in a frame, in which every reader finds damage and missing ends.
///
///     std::ofstream file("settings.frame", std::ios::binary);
///     frame_writer frame(file, "example.settings", 3);      // the format of the content, and its version
///     frame.write(settings.as_str());                       // any number of pieces of any size
///     if (!frame.finish()) return report("cannot write settings.frame");
///
/// A frame is a header with the name and the version of a format, the content in chunks with checksums, and a
/// last record with the length and the checksum of all content. Its length need not be known before, and the
/// output need not be seekable: a pipe or socket will do. `frame_reader` reads a frame in pieces;
/// `write_frame` and `read_frame` in frame.hpp take a whole one. docs/frame_format.md describes the bytes.
///
/// Without `finish` the frame has no end, and every reader reports it as truncated: a writer that an
/// exception destroys leaves nothing that looks complete.
///
/// The writer stores up to `max_chunk_size` bytes before it writes them. It belongs to one thread. The output
/// must outlive it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API frame_writer {
 public:
  /// The longest name of a format.
  static constexpr std::size_t max_name_size = 48;
  /// The longest chunk of content, and so what a reader must store before it can vouch for any of it.
  static constexpr std::size_t max_chunk_size = 65536;

  /// Whether a name has 1 to `max_name_size` characters from "!" to "~" of ASCII.
  [[nodiscard]] static bool is_format_name(std::string_view name) noexcept;

  /// Writes the header. Throws `exceptions::invalid_argument_value` if `is_format_name` is false.
  frame_writer(std::ostream& output, std::string_view format_name, types::uint32 version);
  /// Appends to `output`.
  frame_writer(std::string& output, std::string_view format_name, types::uint32 version);
  frame_writer(const frame_writer&) = delete;
  frame_writer& operator=(const frame_writer&) = delete;

  /// Adds content.
  void write(std::string_view piece);
  /// Writes the content so far, so that a reader at the other end of a pipe gets it.
  void flush();
  /// Writes the last record. Whether everything was written: false if the stream has failed, or if `write`
  /// was called after `finish`, when the frame has no place for more.
  [[nodiscard]] bool finish();

 private:
  frame_writer(std::ostream* stream, std::string* text, std::string_view format_name, types::uint32 version);
  void put(std::string_view bytes);
  void put_record(std::string_view chunk);
  void put_pending();

  std::ostream* stream_;
  std::string* text_;
  /// Content that is not written yet.
  std::string pending_;
  /// The length and the checksum of the content that is written.
  std::uint64_t position_ = 0;
  std::uint32_t checksum_ = 0;
  bool is_finished_ = false;
  bool has_late_content_ = false;
};

}  // namespace ORVA_NAMESPACE::serialization
