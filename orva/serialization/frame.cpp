#include "orva/serialization/frame.hpp"

namespace ORVA_NAMESPACE::serialization {

std::string write_frame(std::string_view format_name, types::uint32 version, std::string_view content) {
  std::string frame;
  frame_writer writer(frame, format_name, version);
  writer.write(content);
  // A string always takes everything.
  static_cast<void>(writer.finish());
  return frame;
}

whole_frame read_frame(std::string_view frame) {
  whole_frame read;
  frame_reader reader;
  std::string_view rest = frame;
  using event = frame_reader::event;
  for (event seen = event::header; seen == event::header || seen == event::content;) {
    seen = reader.next(rest);
    read.content += reader.content();
  }
  read.failure = reader.finish();
  if (read.failure.error == frame_error::none && !rest.empty())
    read.failure = {frame_error::data_after_end, frame.size() - rest.size()};
  if (read.failure.error != frame_error::none) read.content = std::string();
  read.format_name = reader.format_name();
  read.version = reader.version();
  return read;
}

}  // namespace ORVA_NAMESPACE::serialization
