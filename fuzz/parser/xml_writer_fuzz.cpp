// Any calls of xml_writer: what was accepted is read back as the same events, and what was refused leaves the
// output as it was. A second writer, on a stream, must do the same.
//
// An input is a byte of settings, then calls: a byte for the call, a byte for the length of its text, the
// text. An attribute's name is the part of the text before the first =.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.hpp"
#include "orva/parser/xml_writer.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using orva_fuzz::require;
using ORVA_NAMESPACE::parser::xml_writer;
using ORVA_NAMESPACE::parser::xml_writer_settings;
using error = xml_writer::error;
using result = xml_writer::result;

enum call_type { start, start_mixed, attribute, text, cdata, comment, end, finish, number_of_calls };

struct call {
  call_type type;
  std::string_view text;

  std::string_view name() const { return text.substr(0, text.find('=')); }
  std::string_view value() const { return text.substr(std::min(text.size(), name().size() + 1)); }
};

std::vector<call> read_calls(std::string_view input) {
  std::vector<call> calls;
  while (input.size() >= 2) {
    const auto type = static_cast<call_type>(static_cast<unsigned char>(input[0]) % number_of_calls);
    const std::string_view text = input.substr(2, static_cast<unsigned char>(input[1]));
    calls.push_back({type, text});
    input.remove_prefix(2 + text.size());
  }
  return calls;
}

result make(xml_writer& writer, const call& call) {
  switch (call.type) {
    case start:
      return writer.start_element(call.text);
    case start_mixed:
      return writer.start_mixed_element(call.text);
    case attribute:
      return writer.attribute(call.name(), call.value());
    case text:
      return writer.text(call.text);
    case cdata:
      return writer.cdata(call.text);
    case comment:
      return writer.comment(call.text);
    case end:
      return writer.end_element();
    default:
      return writer.finish();
  }
}

/// The events that a parser must find.
class expected_events {
 public:
  std::vector<std::string> events;

  void add(const call& call) {
    const bool continues_a_text = in_text_;
    in_text_ = call.type == text && (in_text_ || !call.text.empty());
    switch (call.type) {
      case start:
      case start_mixed:
        open_.emplace_back(call.text);
        return add("start ", call.text);
      case attribute:
        return add("attribute ", call.text.find('=') == call.text.npos ? std::string(call.text) + '='
                                                                       : std::string(call.text));
      case text:
        if (call.text.empty()) return;
        if (!continues_a_text) events.emplace_back("character ");
        events.back() += call.text;
        return;
      case cdata:
        return add("character ", call.text);
      case comment:
        return add("comment ", call.text);
      case end:
        return close();
      default:
        while (!open_.empty()) close();
    }
  }

 private:
  void add(std::string kind, std::string_view text) { events.push_back(kind.append(text)); }
  void close() {
    add("end ", open_.back());
    open_.pop_back();
  }

  std::vector<std::string> open_;
  bool in_text_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const xml_writer_settings settings{
      .indent = data[0] & 3u, .declaration = true, .open_depth = data[0] / 4u & 3u};
  std::string document;
  xml_writer writer(document, settings);
  std::ostringstream stream;
  xml_writer stream_writer(stream, settings);
  expected_events expected;
  for (const call& each : read_calls({reinterpret_cast<const char*>(data) + 1, size - 1})) {
    const std::string before = document;
    const result done = make(writer, each);
    require(make(stream_writer, each) == done, "the writer to a stream answers otherwise");
    require(done.offset <= each.text.size(), "the place is not in the text");
    if (done.error == error::none) {
      expected.add(each);
    } else {
      require(document == before, "a refused call changed the output");
    }
  }
  const result finished = writer.finish();
  require(stream_writer.finish() == finished, "the writer to a stream finishes otherwise");
  require(stream.str() == document, "the writer to a stream writes something else");
  if (finished.error != error::none) {
    require(finished.error == error::no_root, "a document cannot be finished");
    return 0;
  }
  expected.add({finish, {}});
  auto outcome = orva_test::parse_xml(document);
  const auto is_space = [](const std::string& event) { return event.starts_with("space "); };
  if (settings.indent > 0) std::erase_if(outcome.events, is_space);
  require(outcome.type == 0 && !outcome.overflowed, "the parser does not read the document");
  require(outcome.events == expected.events, "the parser reads other events");
  return 0;
}
