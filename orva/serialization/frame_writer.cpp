#include "orva/serialization/frame_writer.hpp"

#include <algorithm>
#include <ostream>

#include "orva/internal/raise.hpp"
#include "orva/serialization/internal/frame_layout.hpp"

namespace ORVA_NAMESPACE::serialization {

using _private::crc32c;
using _private::frame_header;
using _private::frame_record;

bool frame_writer::is_format_name(std::string_view name) noexcept {
  const auto is_visible = [](char unit) { return unit >= '!' && unit <= '~'; };
  return !name.empty() && name.size() <= max_name_size && std::all_of(name.begin(), name.end(), is_visible);
}

frame_writer::frame_writer(std::ostream* stream, std::string* text, std::string_view format_name,
                           types::uint32 version)
    : stream_(stream), text_(text) {
  if (!is_format_name(format_name)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not a valid format name of a frame",
               ORVA_QUALIFIED("serialization::frame_writer::frame_writer"));
  }
  put(frame_header{version, std::string(format_name)}.bytes());
}

frame_writer::frame_writer(std::ostream& output, std::string_view format_name, types::uint32 version)
    : frame_writer(&output, nullptr, format_name, version) {}

frame_writer::frame_writer(std::string& output, std::string_view format_name, types::uint32 version)
    : frame_writer(nullptr, &output, format_name, version) {}

void frame_writer::put(std::string_view bytes) {
  if (text_ != nullptr) {
    text_->append(bytes);
  } else {
    stream_->write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
}

/// An empty chunk is the end of the frame.
void frame_writer::put_record(std::string_view chunk) {
  checksum_ = crc32c(checksum_, chunk);
  put(frame_record{position_, static_cast<types::uint32>(chunk.size()), checksum_}.bytes());
  put(chunk);
  position_ += chunk.size();
}

void frame_writer::put_pending() {
  if (!pending_.empty()) put_record(pending_);
  pending_.clear();
}

void frame_writer::write(std::string_view piece) {
  if (is_finished_) {
    has_late_content_ = has_late_content_ || !piece.empty();
    return;
  }
  while (!piece.empty()) {
    const std::string_view part = piece.substr(0, max_chunk_size - pending_.size());
    piece.remove_prefix(part.size());
    if (part.size() == max_chunk_size) {
      // A whole chunk needs no copy.
      put_record(part);
    } else {
      pending_.append(part);
      if (pending_.size() == max_chunk_size) put_pending();
    }
  }
}

void frame_writer::flush() {
  put_pending();
  if (stream_ != nullptr) stream_->flush();
}

bool frame_writer::finish() {
  if (!is_finished_) {
    put_pending();
    put_record({});
    is_finished_ = true;
    // A full disk may show only now.
    if (stream_ != nullptr) stream_->flush();
  }
  return !has_late_content_ && (stream_ == nullptr || stream_->good());
}

// On Windows a program that refers to them by their addresses imports them.
constexpr std::size_t frame_writer::max_name_size;
constexpr std::size_t frame_writer::max_chunk_size;

}  // namespace ORVA_NAMESPACE::serialization
