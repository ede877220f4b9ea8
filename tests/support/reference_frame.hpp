/// A second reader of frames, after docs/frame_format.md: the whole frame at once, byte by byte, with a
/// checksum of single bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/support/reference_crc32c.hpp"

namespace orva_test {

struct reference_frame {
  std::string format_name;
  std::uint32_t version = 0;
  std::string content;
  /// The bytes that the frame takes.
  std::size_t size = 0;
};

namespace frame_reading {

struct bad_frame {};

inline void require(bool condition) {
  if (!condition) throw bad_frame();
}

inline std::string take(const std::string& data, std::size_t& at, std::size_t count) {
  require(count <= data.size() - at);
  at += count;
  return data.substr(at - count, count);
}

inline std::uint64_t number(const std::string& bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i > 0; --i)
    value = value * 256 + static_cast<unsigned char>(bytes[i - 1]);
  return value;
}

/// A part whose last four bytes are the checksum of the others.
inline std::string take_checked(const std::string& data, std::size_t& at, std::size_t count) {
  const std::string part = take(data, at, count);
  require(number(part.substr(count - 4)) == reference_crc32c(0, part.substr(0, count - 4)));
  return part;
}

inline reference_frame read(const std::string& data) {
  reference_frame frame;
  const std::string header = take_checked(data, frame.size, 64);
  require(header.substr(0, 8) == "\x8Forva1\r\n");
  frame.version = static_cast<std::uint32_t>(number(header.substr(8, 4)));
  for (std::size_t i = 12; i < 60; ++i) {
    const bool is_padding = header[i] == '\0';
    require(is_padding || (header[i] >= '!' && header[i] <= '~'));
    require(i > 12 ? is_padding || header[i - 1] != '\0' : !is_padding);
    if (!is_padding) frame.format_name += header[i];
  }
  for (;;) {
    const std::string record = take_checked(data, frame.size, 20);
    const std::uint64_t length = number(record.substr(8, 4));
    require(number(record.substr(0, 8)) == frame.content.size() && length <= 65536);
    frame.content += take(data, frame.size, static_cast<std::size_t>(length));
    require(number(record.substr(12, 4)) == reference_crc32c(0, frame.content));
    if (length == 0) return frame;
  }
}

}  // namespace frame_reading

/// Nothing if the data does not begin with a frame.
inline std::optional<reference_frame> read_reference_frame(const std::string& data) {
  try {
    return frame_reading::read(data);
  } catch (const frame_reading::bad_frame&) {
    return std::nullopt;
  }
}

}  // namespace orva_test
