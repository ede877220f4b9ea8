/// `frame_reader`: reads a frame in pieces of any size, and passes on no byte that is damaged.
///
///     bool take(frame_reader& frame, std::string_view piece) {
///       for (;;) {
///         switch (frame.next(piece)) {
///           case frame_reader::event::header:
///             if (frame.format_name() != "example.settings" || frame.version() > 3) return false;
///             break;
///           case frame_reader::event::content:
///             store(frame.content());
///             break;
///           case frame_reader::event::need_more:
///           case frame_reader::event::end:
///             return true;
///           case frame_reader::event::failed:
///             return false;                                // describe(frame.failure())
///         }
///       }
///     }
///
/// After the last piece call `finish`, which reports a frame that has no end. Name and version are known
/// before any content is read; a caller that does not want the format can stop there.
///
/// Each change of one bit, each truncation, and lost, repeated or exchanged chunks are found with certainty;
/// other damage with a probability of 1 - 2^-32 or better. Content is passed on chunk by chunk, after the
/// checksum of the chunk: where the end is damaged, the content before it is as it was written.
///
/// A reader stores at most one chunk, `frame_writer::max_chunk_size` bytes, and no more than it was given. It
/// belongs to one thread. `read_frame` in frame.hpp reads a whole frame at once. docs/frame_format.md
/// describes the bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

/// The rule that is broken where a frame cannot be read.
enum class frame_error {
  none,            ///< Nothing has failed.
  not_a_frame,     ///< A frame begins with eight fixed bytes.
  damaged,         ///< The bytes are those that were written, in their order: each checksum matches.
  invalid,         ///< The checksum matches, and the name of the format and the lengths are allowed.
  truncated,       ///< The data holds the frame up to its last record.
  data_after_end,  ///< `read_frame`: the data ends with the frame.
};

/// What is wrong with a frame, and where.
struct frame_failure {
  frame_error error = frame_error::none;
  /// Bytes from the beginning of the frame: to the header, record or chunk that is damaged or invalid, to the
  /// byte by which the data is not a frame, or to the end of the data.
  std::uint64_t position = 0;

  bool operator==(const frame_failure&) const = default;
};

/// The failure in words; a note without a code if there is none.
///
///     {truncated, 70}  =>  error: The data ends at offset 70, before the frame does. [frame.truncated]
///
/// The codes are "frame." and the name of the error. Argument: `offset`, the position.
/// docs/diagnostic_codes.md explains each code. `file` is the name that the user knows, and only passed on.
[[nodiscard]] ORVA_API diagnostics::finding describe(const frame_failure& failure,
                                                     std::string_view file = {});

class ORVA_API frame_reader {
 public:
  enum class event {
    need_more,  ///< The whole piece was read.
    header,     ///< `format_name` and `version` are known. Once, before all content.
    content,    ///< `content` has the next bytes.
    end,        ///< The frame is complete. What is left of the piece is not part of it.
    failed,     ///< `failure` has what is wrong and where.
  };

  frame_reader() = default;
  frame_reader(const frame_reader&) = delete;
  frame_reader& operator=(const frame_reader&) = delete;

  /// Removes bytes from the front of the piece until there is something to report. `end` and `failed` stay.
  [[nodiscard]] event next(std::string_view& piece);
  /// States that there are no more pieces. The frame is incomplete if `end` was not reported: `truncated`.
  [[nodiscard]] const frame_failure& finish();
  [[nodiscard]] const frame_failure& failure() const noexcept { return failure_; }

  /// Empty and 0 before the header.
  [[nodiscard]] const std::string& format_name() const noexcept { return format_name_; }
  [[nodiscard]] types::uint32 version() const noexcept { return version_; }
  /// The bytes of the last `content` event, which may be in the piece: valid until the next call of `next`,
  /// and no longer than the piece.
  [[nodiscard]] std::string_view content() const noexcept { return content_; }
  /// How many bytes of content were passed on.
  [[nodiscard]] std::uint64_t content_size() const noexcept { return content_size_; }

 private:
  enum class part { header, record, chunk };

  event next_event(std::string_view& piece);
  std::optional<std::string_view> take_part(std::string_view& piece);
  std::size_t part_size() const noexcept;
  event check_beginning(std::string_view begin);
  event read_part(std::string_view bytes);
  event read_header(std::string_view bytes);
  event read_record(std::string_view bytes);
  event read_chunk(std::string_view bytes);
  event fail(frame_error error, std::uint64_t position) noexcept;
  bool is_over() const noexcept { return last_ == event::end || last_ == event::failed; }

  part expected_ = part::header;
  event last_ = event::need_more;
  frame_failure failure_;
  /// The beginning of a part whose other bytes are in later pieces.
  std::string stored_;
  bool is_stored_part_read_ = false;
  /// Where the expected part begins in the frame.
  std::uint64_t part_begin_ = 0;

  std::string format_name_;
  types::uint32 version_ = 0;
  std::string_view content_;
  std::uint64_t content_size_ = 0;
  std::uint32_t checksum_ = 0;
  /// From the record of the expected chunk.
  std::uint32_t chunk_size_ = 0;
  std::uint32_t chunk_checksum_ = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
