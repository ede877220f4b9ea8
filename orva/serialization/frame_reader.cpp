#include "orva/serialization/frame_reader.hpp"

#include <algorithm>
#include <utility>

#include "orva/serialization/frame_writer.hpp"
#include "orva/serialization/internal/frame_layout.hpp"

namespace ORVA_NAMESPACE::serialization {

using _private::crc32c;
using _private::frame_header;
using _private::frame_magic;
using _private::frame_record;

namespace {

const char* code_of(frame_error error) {
  switch (error) {
    case frame_error::none:
      break;
    case frame_error::not_a_frame:
      return "frame.not_a_frame";
    case frame_error::damaged:
      return "frame.damaged";
    case frame_error::invalid:
      return "frame.invalid";
    case frame_error::truncated:
      return "frame.truncated";
    case frame_error::data_after_end:
      return "frame.data_after_end";
  }
  return "";
}

/// The first byte that differs from the beginning of each frame.
std::size_t first_foreign_byte(std::string_view begin) {
  begin = begin.substr(0, frame_magic.size());
  const auto differing = std::mismatch(begin.begin(), begin.end(), frame_magic.begin()).first;
  return static_cast<std::size_t>(differing - begin.begin());
}

}  // namespace

diagnostics::finding describe(const frame_failure& failure, std::string_view file) {
  if (failure.error == frame_error::none)
    return {diagnostics::severity::note, {}, strings::ustring8(file), {}, {}};
  return {diagnostics::severity::error,
          code_of(failure.error),
          strings::ustring8(file),
          {},
          {{"offset", failure.position}}};
}

frame_reader::event frame_reader::fail(frame_error error, std::uint64_t position) noexcept {
  failure_ = {error, position};
  return event::failed;
}

frame_reader::event frame_reader::next(std::string_view& piece) {
  if (!is_over()) last_ = next_event(piece);
  return last_;
}

frame_reader::event frame_reader::next_event(std::string_view& piece) {
  content_ = {};
  for (;;) {
    const auto bytes = take_part(piece);
    if (!bytes) return check_beginning(stored_);
    const event seen = read_part(*bytes);
    part_begin_ += bytes->size();
    if (seen != event::need_more) return seen;
  }
}

const frame_failure& frame_reader::finish() {
  content_ = {};
  const std::size_t unread = is_stored_part_read_ ? 0 : stored_.size();
  if (!is_over()) last_ = fail(frame_error::truncated, part_begin_ + unread);
  return failure_;
}

std::size_t frame_reader::part_size() const noexcept {
  if (expected_ == part::header) return _private::frame_header_size;
  return expected_ == part::record ? _private::frame_record_size : chunk_size_;
}

/// The expected part, if the piece holds the rest of it. A part that lies within one piece is not copied.
std::optional<std::string_view> frame_reader::take_part(std::string_view& piece) {
  if (is_stored_part_read_) stored_.clear();
  is_stored_part_read_ = false;
  const std::string_view rest = piece.substr(0, part_size() - stored_.size());
  piece.remove_prefix(rest.size());
  if (rest.size() == part_size()) return rest;
  stored_.append(rest);
  if (stored_.size() < part_size()) return std::nullopt;
  is_stored_part_read_ = true;
  return stored_;
}

/// Data of another kind is recognised by its first byte that differs, also if it is shorter than a header.
frame_reader::event frame_reader::check_beginning(std::string_view begin) {
  if (expected_ != part::header) return event::need_more;
  const std::size_t foreign = first_foreign_byte(begin);
  if (foreign == std::min(begin.size(), frame_magic.size())) return event::need_more;
  return fail(frame_error::not_a_frame, foreign);
}

frame_reader::event frame_reader::read_part(std::string_view bytes) {
  if (expected_ == part::header) return read_header(bytes);
  return expected_ == part::record ? read_record(bytes) : read_chunk(bytes);
}

frame_reader::event frame_reader::read_header(std::string_view bytes) {
  if (check_beginning(bytes) == event::failed) return event::failed;
  if (!_private::is_part_whole(bytes)) return fail(frame_error::damaged, part_begin_);
  auto header = frame_header::read(bytes);
  if (!header) return fail(frame_error::invalid, part_begin_);
  format_name_ = std::move(header->format_name);
  version_ = header->version;
  expected_ = part::record;
  return event::header;
}

frame_reader::event frame_reader::read_record(std::string_view bytes) {
  if (!_private::is_part_whole(bytes)) return fail(frame_error::damaged, part_begin_);
  const auto record = frame_record::read(bytes);
  const bool is_last = record.length == 0;
  if (record.length > frame_writer::max_chunk_size) return fail(frame_error::invalid, part_begin_);
  if (record.position != content_size_ || (is_last && record.content_checksum != checksum_))
    return fail(frame_error::damaged, part_begin_);
  chunk_size_ = record.length;
  chunk_checksum_ = record.content_checksum;
  expected_ = part::chunk;
  return is_last ? event::end : event::need_more;
}

frame_reader::event frame_reader::read_chunk(std::string_view bytes) {
  checksum_ = crc32c(checksum_, bytes);
  if (checksum_ != chunk_checksum_) return fail(frame_error::damaged, part_begin_);
  content_ = bytes;
  content_size_ += bytes.size();
  expected_ = part::record;
  return event::content;
}

}  // namespace ORVA_NAMESPACE::serialization
