/// `stream_lexer`: reads the names, values, texts and comments of the grammar of `xml_stream_parser`.
///
/// Internal. Each function moves to the end of what it read. It throws the `error_type` that stopped it; this
/// is `incomplete` where the data ends before the construct does. The caller then starts again at the
/// beginning of the token, once there is more data.
///
///     lexer.start(window.first(), window.last(), line);
///     lexer.step();                               // past the <
///     const std::string_view tag = lexer.name();
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/parser/xml_stream_parser.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class stream_lexer {
 public:
  /// The data to read, and the line on which it begins.
  void start(const char* first, const char* last, types::uint32 line) noexcept {
    restart(first, last);
    line_ = line;
  }
  /// The same with the line unchanged.
  void restart(const char* first, const char* last) noexcept {
    at_ = first;
    end_ = last;
  }

  const char* position() const noexcept { return at_; }
  types::uint32 line() const noexcept { return line_; }
  std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - at_); }
  bool at_end() const noexcept { return at_ == end_; }
  std::string_view rest() const noexcept { return {at_, left()}; }

  /// REQUIRES: more than `ahead` bytes are left.
  char current(std::size_t ahead = 0) const noexcept { return at_[ahead]; }
  void step(std::size_t count = 1) noexcept { at_ += count; }

  void skip_white_space() noexcept {
    const char* at = at_;
    types::uint32 feeds = 0;
    for (const char* const end = end_; at != end && internal::xml::is_white_space(*at); ++at)
      feeds += *at == '\n' ? 1 : 0;
    at_ = at;
    line_ += feeds;
  }

  /// A name, which may be empty, after white space. False if it may go on after the end of the data.
  bool scan_name(std::string_view& name) noexcept {
    skip_white_space();
    const char* last = at_;
    for (const char* const end = end_; last != end && internal::xml::is_stream_name_character(*last);
         ++last) {
    }
    name = std::string_view(at_, static_cast<std::size_t>(last - at_));
    at_ = last;
    return last != end_;
  }

  /// The same. Throws `incomplete` instead of returning false.
  std::string_view name() {
    std::string_view name;
    if (!scan_name(name)) throw xml_stream_parser::incomplete;
    return name;
  }

  /// An attribute's value after white space, from quote to quote, with its entities expanded.
  strings::ustring8 value();
  /// Text up to the next <, with its entities expanded.
  strings::ustring8 text();
  /// The byte that an entity or a character reference gives.
  char character();
  /// The rest of a comment. False if its end is not in the data; the position is then where to go on.
  bool skip_comment();

 private:
  void expand_up_to(unsigned int ending, strings::ustring8& to);
  char numbered_character();
  char named_character();

  const char* at_ = nullptr;
  const char* end_ = nullptr;
  types::uint32 line_ = 1;
};

}  // namespace ORVA_NAMESPACE::parser::_private
