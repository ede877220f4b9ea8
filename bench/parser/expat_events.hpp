/// expat, which the XML benchmarks compare with. Its events are delivered as strings, with the runs of text
/// put together, as a user of expat must write it to get the events of `xml_parser`.
#pragma once

#include <expat.h>

#include <algorithm>
#include <string>
#include <utility>

namespace bench {

/// `Receiver` has start_tag(name), end_tag(name), attribute(name, value), text(text), space(text),
/// comment(text), which take strings.
template <typename Receiver>
class expat_events {
 public:
  explicit expat_events(Receiver& receiver) : receiver_(receiver) {}

  bool parse(const std::string& document) {
    XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, start, end);
    XML_SetCharacterDataHandler(parser, character_data);
    XML_SetCommentHandler(parser, comment);
    const auto status = XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
  }

 private:
  static expat_events& self(void* user_data) { return *static_cast<expat_events*>(user_data); }

  static void start(void* user_data, const XML_Char* name, const XML_Char** attributes) {
    auto& receiver = self(user_data).flushed().receiver_;
    receiver.start_tag(std::string(name));
    for (; *attributes != nullptr; attributes += 2) {
      receiver.attribute(std::string(attributes[0]), std::string(attributes[1]));
    }
  }

  static void end(void* user_data, const XML_Char* name) {
    self(user_data).flushed().receiver_.end_tag(std::string(name));
  }

  static void comment(void* user_data, const XML_Char* text) {
    self(user_data).flushed().receiver_.comment(std::string(text));
  }

  // expat delivers text in pieces: at each entity and each line end a new one.
  static void character_data(void* user_data, const XML_Char* text, int length) {
    self(user_data).text_.append(text, static_cast<std::size_t>(length));
  }

  expat_events& flushed() {
    if (text_.empty()) return *this;
    const bool blank = std::all_of(text_.begin(), text_.end(), [](char c) { return c == ' ' || c == '\n'; });
    blank ? receiver_.space(std::move(text_)) : receiver_.text(std::move(text_));
    text_.clear();
    return *this;
  }

  Receiver& receiver_;
  std::string text_;
};

}  // namespace bench
