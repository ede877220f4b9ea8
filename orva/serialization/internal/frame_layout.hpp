/// The parts of a frame as bytes; docs/frame_format.md describes them.
///
/// Internal: not installed. The numbers of a frame are items of the binary form, so that
/// `serialize_binary_buf` writes them and `checked_reader` reads them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "orva/internal/checksum/crc32c.hpp"
#include "orva/serialization/checked_reader.hpp"
#include "orva/serialization/frame_writer.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

using internal::crc32c;

/// Not text in any encoding that has ASCII; a change of line ends breaks it. The digit is the version of the
/// frame itself.
inline constexpr std::string_view frame_magic("\x8Forva1\r\n", 8);

inline constexpr std::size_t frame_checksum_size = 4;
inline constexpr std::size_t frame_header_size =
    frame_magic.size() + 4 + frame_writer::max_name_size + frame_checksum_size;
inline constexpr std::size_t frame_record_size = 8 + 4 + 4 + frame_checksum_size;
static_assert(frame_header_size == 64 && frame_record_size == 20, "docs/frame_format.md");

/// A part of these fields: they and their checksum.
inline std::string closed_part(std::string fields) {
  serialize_binary_buf part(std::move(fields));
  part.append_uint32(crc32c(0, part.as_str()));
  return part.as_str();
}

/// Whether the last bytes of a part are the checksum of the others.
inline bool is_part_whole(std::string_view part) {
  const std::string_view fields = part.substr(0, part.size() - frame_checksum_size);
  checked_reader checksum(part.substr(fields.size()), checked_reader::form::binary);
  return checksum.read_uint32() == crc32c(0, fields);
}

struct frame_header {
  types::uint32 version = 0;
  std::string format_name;

  std::string bytes() const {
    serialize_binary_buf fields{std::string(frame_magic)};
    fields.append_uint32(version);
    std::string padded = fields.as_str() + format_name;
    padded.resize(frame_header_size - frame_checksum_size);
    return closed_part(std::move(padded));
  }

  /// Nothing if the name is not valid or its padding is not zero.
  static std::optional<frame_header> read(std::string_view part) {
    checked_reader version(part.substr(frame_magic.size()), checked_reader::form::binary);
    const std::string_view field = part.substr(frame_magic.size() + 4, frame_writer::max_name_size);
    const std::string_view name = field.substr(0, field.find('\0'));
    const bool is_padded = field.find_first_not_of('\0', name.size()) == field.npos;
    if (!is_padded || !frame_writer::is_format_name(name)) return std::nullopt;
    return frame_header{version.read_uint32().value_or(0), std::string(name)};
  }
};

/// What is before the content of each chunk. The length of the last record is 0.
struct frame_record {
  std::uint64_t position = 0;
  types::uint32 length = 0;
  types::uint32 content_checksum = 0;

  std::string bytes() const {
    serialize_binary_buf fields;
    fields.append_uint64(position);
    fields.append_uint32(length);
    fields.append_uint32(content_checksum);
    return closed_part(fields.as_str());
  }

  static frame_record read(std::string_view part) {
    checked_reader fields(part, checked_reader::form::binary);
    // In order, as initializers in braces are.
    return {fields.read_uint64().value_or(0), fields.read_uint32().value_or(0),
            fields.read_uint32().value_or(0)};
  }
};

}  // namespace ORVA_NAMESPACE::serialization::_private
