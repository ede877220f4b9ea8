/// Reads any data as a frame, at once and in pieces, and compares with the second reader. Then writes the
/// data as content, in pieces, and reads it again, as it is and with one bit changed.
///
/// The first byte selects: 0 the data as it is; otherwise its first 60 bytes and each 16 bytes after them get
/// the checksum that a header and a record need, so that the rules after the checksums are reached. The
/// second byte chooses the sizes of the pieces.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/serialization/frame.hpp"
#include "tests/support/reference_frame.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using event = frame_reader::event;
using orva_fuzz::require;

/// Sizes from 1 to 256, which a number of eight bits determines.
class piece_sizes {
 public:
  explicit piece_sizes(unsigned int start) : state_(start) {}

  std::size_t next() {
    state_ = (state_ * 1103515245 + 12345) & 0x7FFFFFFF;
    return std::size_t{1} << (state_ >> 16) % 9;
  }

 private:
  unsigned int state_;
};

struct reading {
  std::string content;
  frame_failure failure;
  std::size_t size = 0;
};

reading read_in_pieces(std::string_view data, piece_sizes sizes) {
  frame_reader reader;
  reading read;
  event seen = event::need_more;
  while (seen != event::end && seen != event::failed && !data.empty()) {
    const std::size_t size = std::min(sizes.next(), data.size());
    const std::unique_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), data.data(), size);
    std::string_view piece(copy.get(), size);
    do {
      seen = reader.next(piece);
      read.content += reader.content();
    } while (seen == event::header || seen == event::content);
    require(seen != event::need_more || piece.empty());
    read.size += size - piece.size();
    data.remove_prefix(size);
  }
  read.failure = reader.finish();
  require(read.content.size() == reader.content_size());
  return read;
}

void append_checksum(std::string& part) {
  const std::uint32_t checksum = orva_test::reference_crc32c(0, part);
  for (int shift = 0; shift < 32; shift += 8) part += static_cast<char>(checksum >> shift);
}

std::string with_checksums(const std::string& data) {
  std::string header = "\x8Forva1\r\n" + data.substr(0, 52);
  append_checksum(header);
  std::string frame = header;
  for (std::size_t at = 52; at < data.size(); at += 16) {
    std::string record = data.substr(at, 16);
    append_checksum(record);
    frame += record;
  }
  return frame;
}

void read_any(const std::string& data, piece_sizes sizes) {
  const auto expected = orva_test::read_reference_frame(data);
  const reading in_pieces = read_in_pieces(data, sizes);
  const whole_frame whole = read_frame(data);
  require((in_pieces.failure.error == frame_error::none) == expected.has_value());
  require(in_pieces.failure.position <= data.size());
  if (!expected) {
    require(whole.failure == in_pieces.failure && whole.content.empty());
    return;
  }
  require(in_pieces.content == expected->content && in_pieces.size == expected->size);
  const bool has_more = expected->size < data.size();
  require(whole.failure.error == (has_more ? frame_error::data_after_end : frame_error::none));
  require(has_more || (whole.content == expected->content && whole.format_name == expected->format_name &&
                       whole.version == expected->version));
}

void write_and_read(const std::string& data, piece_sizes sizes) {
  std::string frame;
  frame_writer writer(frame, "fuzz", 1);
  for (std::string_view rest = data; !rest.empty();) {
    const std::string_view piece = rest.substr(0, sizes.next());
    writer.write(piece);
    if (piece.size() == 1) writer.flush();
    rest.remove_prefix(piece.size());
  }
  require(writer.finish());
  const reading read = read_in_pieces(frame, sizes);
  require(read.failure.error == frame_error::none && read.content == data && read.size == frame.size());
  const std::size_t bit = data.size() * 2654435761U % (8 * frame.size());
  frame[bit / 8] = static_cast<char>(frame[bit / 8] ^ 1 << bit % 8);
  require(read_in_pieces(frame, sizes).failure.error != frame_error::none);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size < 2) return 0;
  const std::string data(bytes + 2, bytes + size);
  const piece_sizes sizes(bytes[1]);
  read_any(bytes[0] == 0 ? data : with_checksums(data), sizes);
  write_and_read(data, sizes);
  return 0;
}
