/// `write_frame` and `read_frame`: a whole frame in memory.
///
///     const std::string stored = write_frame("example.settings", 3, settings.as_str());
///
///     const whole_frame read = read_frame(stored);
///     if (read.failure.error != frame_error::none) return report(describe(read.failure));
///     if (read.format_name != "example.settings" || read.version > 3) return report("another format");
///     settings.assign(read.content);
///
/// A frame holds data with the name and the version of its format, its length and a checksum, so that every
/// reader finds damage and missing ends. frame_writer.hpp and frame_reader.hpp do the same in pieces, for
/// streams and for data larger than memory. docs/frame_format.md describes the bytes.
#pragma once

#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/serialization/frame_reader.hpp"
#include "orva/serialization/frame_writer.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

/// Throws `exceptions::invalid_argument_value` if the name is not `frame_writer::is_format_name`.
[[nodiscard]] ORVA_API std::string write_frame(std::string_view format_name, types::uint32 version,
                                               std::string_view content);

struct whole_frame {
  frame_failure failure;
  /// Known if the header was read, also if something after it has failed.
  std::string format_name;
  types::uint32 version = 0;
  /// All of it, or nothing.
  std::string content;
};

/// The inverse. Data after the frame is a failure too.
[[nodiscard]] ORVA_API whole_frame read_frame(std::string_view frame);

}  // namespace ORVA_NAMESPACE::serialization
