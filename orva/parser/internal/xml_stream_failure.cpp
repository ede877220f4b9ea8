// What `xml_stream_parser` knows about the error that stopped it. Nothing is recorded while it parses: after
// an error, the window still begins with the token that failed, and the lexer is where it stopped in it.
#include <algorithm>
#include <string_view>

#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/parser/internal/xml_stream_implementation.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace {

std::string_view name_at_the_begin(std::string_view token) {
  const auto end = std::ranges::find_if_not(token, internal::xml::is_stream_name_character);
  return token.substr(0, static_cast<std::size_t>(end - token.begin()));
}

/// The name in an end tag.
std::string_view name_of_end_tag(std::string_view token) {
  token.remove_prefix(2);
  const auto name = std::ranges::find_if_not(token, internal::xml::is_white_space);
  return name_at_the_begin(token.substr(static_cast<std::size_t>(name - token.begin())));
}

}  // namespace

xml_stream_parser::parse_error xml_stream_implementation::last_error() const {
  const std::string_view data = data_of_error();
  return {error_, lexer_.line(), ustring8(data), window_.offset() + (data.data() - window_.first()),
          ustring8(open_element())};
}

/// Its position is the place of the error, also if it is empty.
std::string_view xml_stream_implementation::data_of_error() const noexcept {
  const std::string_view token(window_.first(), static_cast<std::size_t>(window_.last() - window_.first()));
  const std::string_view nothing_at_the_lexer(lexer_.position(), 0);
  switch (error_) {
    case mismatched_tag:
      return token.front() == '<' ? name_of_end_tag(token) : nothing_at_the_lexer;
    case duplicate_attribute:
    case missing_equals:
      return name_at_the_begin(token);
    case unexpected_character:
      return {is_text_outside_a_record() ? token.data() : lexer_.position(), 1};
    case missing_quote:
    case fatal_error:
    case bad_header:
      return nothing_at_the_lexer;
    default:
      return token.substr(0, 0);
  }
}

/// A text has been read up to the < after it, where nothing else fails outside a tag.
bool xml_stream_implementation::is_text_outside_a_record() const noexcept {
  return !in_tag_ && *window_.first() != '<' && lexer_.current() == '<';
}

/// The name that an end tag must have; see `end_tag`.
std::string_view xml_stream_implementation::open_element() const {
  if (queue_.open_elements() > open_depth_) return queue_.innermost_name();
  return open_names_.empty() ? std::string_view() : open_names_.back();
}

}  // namespace ORVA_NAMESPACE::parser::_private
