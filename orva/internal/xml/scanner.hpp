/// `document_scanner`: reads the constructs of the grammar of `xml_parser`, one function for each.
///
/// Internal: not installed. A scanner is at a position of the text and moves to the end of what it took. It
/// never reads past the end of the text: a construct that is cut off there fails without a character to show.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#include "orva/internal/xml/byte_block.hpp"
#include "orva/internal/xml/failure.hpp"
#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::internal::xml {

class document_scanner {
 public:
  using ustring8 = strings::ustring8;

  /// `line` counts the line feeds in white space; failures report it.
  document_scanner(const char* first, const char* last, types::uint32& line) noexcept
      : at_(first), end_(last), line_(line) {}

  const char* position() const noexcept { return at_; }

  std::string_view white_space() {
    const char* at = at_;
    if (at == end_ || !is_white_space(*at)) return {};
    types::uint32 feeds = 0;
    for (; at != end_ && is_white_space(*at); ++at) feeds += *at == '\n' ? 1 : 0;
    line_ += feeds;
    return take_up_to(at);
  }

  std::string_view name() {
    const char* at = at_;
    if (at == end_ || !is_document_name_start(*at)) fail_at(at);
    while (++at != end_ && is_document_name_character(*at)) {
    }
    return take_up_to(at);
  }

  // A text with entities is put together in `expanded`; one without is returned as a view of the document.

  /// From the opening quote to the closing one, or to the end of the text.
  std::string_view attribute_value(ustring8& expanded) {
    if (at_end() || !is_quote(*at_)) fail(failure::missing_quote);
    const char quote = *at_++;
    const std::string_view plain = plain_value(quote);
    if (at_end() || *at_ == quote) return plain;
    expanded.assign(plain);
    while (!at_end() && *at_ != quote) {
      if (*at_ == '<') fail_at(at_);
      expanded.push_back(character());
      expanded.append(plain_value(quote));
    }
    return expanded;
  }

  /// A run of text: up to the next tag, or to the first of two white-space characters in a row.
  std::string_view text_run(ustring8& expanded) {
    const std::string_view plain = plain_text();
    if (at_end() || *at_ != '&') return plain;
    expanded.assign(plain);
    while (!at_end() && *at_ == '&') {
      expanded.push_back(character());
      expanded.append(plain_text());
    }
    return expanded;
  }

  /// The byte that an entity or a character reference gives.
  char character() {
    if (at_end() || *at_ != '&') fail_at(at_);
    return starts_with("&#") ? numbered_character() : named_character();
  }

  /// The place of the failure is that of `data` in the text, or the position if there is none.
  [[noreturn]] void fail(failure::error_type type, std::string_view data = {}) const {
    throw failure{type, line_, ustring8(data), data.data() == nullptr ? at_ : data.data()};
  }

  /// An unexpected character, which is none if the text ended instead.
  [[noreturn]] void fail_at(const char* place) const {
    fail(failure::unexpected_character, {place, place < end_ ? 1u : 0u});
  }

 protected:
  bool at_end() const noexcept { return at_ == end_; }
  char current() const noexcept { return *at_; }
  void step(std::size_t count = 1) noexcept { at_ += count; }
  std::string_view rest() const noexcept { return {at_, remaining(at_)}; }
  /// With a literal the comparison is one of constants.
  bool starts_with(std::string_view opener) const noexcept {
    return remaining(at_) >= opener.size() && std::memcmp(at_, opener.data(), opener.size()) == 0;
  }

 private:
  std::string_view take_up_to(const char* last) noexcept {
    const char* const first = std::exchange(at_, last);
    return {first, static_cast<std::size_t>(last - first)};
  }

  std::size_t remaining(const char* at) const noexcept { return static_cast<std::size_t>(end_ - at); }

  /// Up to the closing quote, a < or an &.
  std::string_view plain_value(char quote) {
    const char* at = at_;
    for (; remaining(at) >= byte_block::size; at += byte_block::size) {
      const byte_block block(at);
      const auto ends = block.of(quote) | block.of('<') | block.of('&');
      if (!ends.empty()) return take_up_to(at + ends.first());
    }
    const unsigned int ends = markup | (quote == '"' ? double_quote : single_quote);
    while (at != end_ && !is_in(*at, ends)) ++at;
    return take_up_to(at);
  }

  /// Up to a <, an & or the first of two white-space characters.
  std::string_view plain_text() {
    const char* at = at_;
    // The last byte of a block is also the first of the next one: a pair may lie across both.
    for (; remaining(at) >= byte_block::size; at += byte_block::size - 1) {
      const byte_block block(at);
      const auto ends = block.of('<') | block.of('&') | block.of_two_blanks_in_a_row();
      if (ends.empty()) continue;
      at += ends.first();
      break;
    }
    while (at != end_ && (!is_in(*at, markup | byte_class::white_space) || is_lone_white_space(at))) ++at;
    return take_up_to(at);
  }

  bool is_lone_white_space(const char* at) const {
    return is_white_space(*at) && (remaining(at) == 1 || !is_white_space(at[1]));
  }

  char numbered_character() {
    const character_reference reference(rest());
    if (!reference.is_closed()) fail_at(reference.end_of_digits());
    const char value = reference.value();
    at_ = reference.end_of_digits() + 1;
    return value;
  }

  /// The first letter decides between an unknown entity and a wrong character in a known one, and the
  /// character shown is the second one.
  char named_character() {
    bool has_known_letter = false;
    for (const auto& [text, value, letters] : named_entities) {
      if (starts_with(text)) {
        step(text.size());
        return value;
      }
      has_known_letter = has_known_letter || starts_with(letters.substr(0, 2));
    }
    if (!has_known_letter) fail(failure::unknown_entity);
    fail_at(at_ + 2);
  }

  const char* at_;
  const char* end_;
  types::uint32& line_;
};

}  // namespace ORVA_NAMESPACE::internal::xml
