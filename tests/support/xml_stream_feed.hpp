/// `xml_stream_feed`: a streaming parser and the file that it reads.
#pragma once

#include <string>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace orva_test {

/// As long as the smallest file that is parsed.
inline constexpr std::string_view xml_stream_header =
    "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>";

/// The file holds the header and a text.
struct xml_stream_feed {
  explicit xml_stream_feed(std::string_view text, unsigned open_depth = 1)
      : file(std::string(xml_stream_header).append(text)), parser(file.path(), open_depth) {}

  /// The nodes of one parse and of pops until the queue is empty.
  transcript nodes() {
    transcript seen;
    parser.parse();
    take_all(parser, seen);
    return seen;
  }

  xml_stream_file file;
  ORVA_NAMESPACE::parser::xml_stream_parser parser;
};

}  // namespace orva_test
