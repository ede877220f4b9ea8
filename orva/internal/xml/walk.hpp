/// `document_walk`: the walk over a document that `xml_parser` makes, for readers that take its events
/// without delegates.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/internal/xml/failure.hpp"
#include "orva/internal/xml/name_list.hpp"
#include "orva/internal/xml/scanner.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::internal::xml {

/// One walk over a document. It calls a member function of `Events` for each event. A text that these get is
/// a view of the document, or, if entities were expanded, of a buffer that the next event overwrites.
template <typename Name, typename Events>
class document_walk : public document_scanner {
 public:
  /// Starts with the names that an earlier walk left open, and leaves those that it does not close.
  document_walk(const char* first, const char* last, types::uint32& line, basic_name_list<Name>& open,
                basic_name_set<Name>& seen_attributes, Events& events)
      : document_scanner(first, last, line),
        open_(open),
        seen_attributes_(seen_attributes),
        events_(events) {}

  failure document() {
    try {
      skip_byte_order_mark();
      header();
      while (!at_end()) construct();
    } catch (const failure& found) {
      return found;
    }
    return {open_.empty() ? failure::no_error : failure::unexpected_eof, 0, {}, position()};
  }

 private:
  /// Any three bytes are skipped; only the byte after them is tested.
  void skip_byte_order_mark() {
    if (rest().size() >= 4 && rest()[3] == '<') step(3);
  }

  void header() {
    constexpr std::string_view opener = "<?xml";
    if (!starts_with(opener)) fail(failure::bad_header);
    step(opener.size());
    while (!starts_with("?>")) {
      if (at_end()) fail(failure::no_root_element);
      if (current() == '<' || current() == '>') fail(failure::bad_header);
      step();
    }
    step(2);
    white_space();
    if (at_end()) fail(failure::no_root_element);
  }

  void construct() {
    const auto space = white_space();
    if (!space.empty() && !in_tag_) events_.space(space);
    if (at_end()) return;
    if (current() == '<') return markup();
    if (current() == '>') return end_of_tag();
    if (!in_tag_) return text();
    if (current() == '/') return end_of_empty_element();
    attribute();
  }

  void markup() {
    if (in_tag_) fail_at(position());
    in_tag_ = true;
    if (starts_with("</")) return end_tag();
    if (starts_with("<!--")) return comment();
    if (starts_with("<![CDATA[")) return character_data();
    start_tag();
  }

  /// The closing > is left to `end_of_tag`, so that white space may come before it.
  void end_tag() {
    step(2);
    const auto closed = name();
    if (open_.empty() || open_.back() != closed) fail(failure::mismatched_end_element, closed);
    open_.pop_back();
    if (at_end()) fail(failure::unexpected_eof, closed.substr(0, 0));
    events_.element_end(closed);
  }

  void comment() { events_.comment(section(4, "-->")); }
  void character_data() { events_.character(section(9, "]]>")); }

  /// The text between an opener of that length and the closer.
  std::string_view section(std::size_t opener, std::string_view closer) {
    const auto inner = rest().substr(opener);
    const auto length = inner.find(closer);
    if (length == inner.npos) fail(failure::unexpected_eof);
    step(opener + length + closer.size());
    in_tag_ = false;
    return inner.substr(0, length);
  }

  void start_tag() {
    if (open_.empty() && root_seen_) fail(failure::data_after_root);
    step();
    const auto opened = name();
    open_.push_back(opened);
    seen_attributes_.clear();
    events_.element_start(opened);
    root_seen_ = true;
  }

  void end_of_tag() {
    if (!in_tag_) fail_at(position());
    in_tag_ = false;
    step();
  }

  void end_of_empty_element() {
    step();
    if (at_end() || current() != '>') fail_at(position());
    if (open_.empty()) fail(failure::mismatched_end_element);
    events_.element_end(open_.back());
    in_tag_ = false;
    open_.pop_back();
    seen_attributes_.clear();
    step();
  }

  /// A value that the end of the text cuts off is delivered before it fails.
  void attribute() {
    const auto attribute = name();
    if (!seen_attributes_.insert(attribute)) fail(failure::attribute_redefined, attribute);
    white_space();
    if (at_end() || current() != '=') fail(failure::missing_equals, attribute);
    step();
    white_space();
    events_.attribute(attribute, attribute_value(expanded_));
    if (at_end()) fail(failure::missing_quote, attribute);
    step();
  }

  void text() { events_.character(text_run(expanded_)); }

  basic_name_list<Name>& open_;
  basic_name_set<Name>& seen_attributes_;
  Events& events_;
  bool in_tag_ = false;
  bool root_seen_ = false;
  ustring8 expanded_;
};

}  // namespace ORVA_NAMESPACE::internal::xml
