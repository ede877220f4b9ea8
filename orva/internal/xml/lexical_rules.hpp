/// The lexical rules of XML that `xml_parser` and `xml_stream_parser` share: byte classes, named entities and
/// character references.
///
/// Internal: not installed. Where the rules of the two parsers differ, each variant has a name here:
///
///     names             is_document_name_start, is_document_name_character; is_stream_name_character
///     named entities    `letters` of an entity is how much of it `xml_stream_parser` needs to recognise it
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/internal/text/character_class.hpp"
#include "orva/types/radix.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::xml {

/// Sets of bytes; they are joined with |.
enum byte_class : std::uint8_t {
  white_space = 1,
  ascii_name = 2,   ///< letters, digits and _
  above_ascii = 4,  ///< the bytes of multi-byte characters
  markup = 8,       ///< < and &
  single_quote = 16,
  double_quote = 32,
};

inline constexpr auto byte_classes = [] {
  std::array<std::uint8_t, 256> table{};
  const auto add = [&table](std::string_view bytes, byte_class to) {
    for (const char byte : bytes) table[static_cast<unsigned char>(byte)] |= to;
  };
  add(" \t\r\n", white_space);
  add("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_", ascii_name);
  add("<&", markup);
  add("'", single_quote);
  add("\"", double_quote);
  for (std::size_t byte = 128; byte < table.size(); ++byte) table[byte] = above_ascii;
  return table;
}();

/// REQUIRES: `classes` is one or several of `byte_class`.
constexpr bool is_in(char c, unsigned int classes) noexcept {
  return (byte_classes[static_cast<unsigned char>(c)] & classes) != 0;
}

constexpr bool is_white_space(char c) noexcept { return is_in(c, white_space); }
constexpr bool is_quote(char c) noexcept { return is_in(c, single_quote | double_quote); }

/// In a name that `xml_parser` reads, a byte from 128 on is a letter if the locale says so.
inline bool is_document_name_start(char c) { return character_class::isalpha(c); }
inline bool is_document_name_character(char c) {
  return is_in(c, ascii_name) || (is_in(c, above_ascii) && character_class::isalnum(c));
}

/// In a name that `xml_stream_parser` reads, every byte of a multi-byte character is allowed, and a name may
/// begin with any of its characters.
constexpr bool is_stream_name_character(char c) noexcept { return is_in(c, ascii_name | above_ascii); }

struct named_entity {
  std::string_view text;
  char value;
  /// The shortest beginning that no other entity has.
  std::string_view letters;
};

inline constexpr std::array<named_entity, 6> named_entities{{{"&lt;", '<', "&l"},
                                                             {"&gt;", '>', "&g"},
                                                             {"&amp;", '&', "&am"},
                                                             {"&apos;", '\'', "&ap"},
                                                             {"&quot;", '"', "&q"},
                                                             {"&nbsp;", ' ', "&n"}}};

/// A character reference, as far as its digits go: `&#65` or `&#x41`.
class character_reference {
 public:
  /// REQUIRES: `text` begins with &#.
  explicit character_reference(std::string_view text) noexcept
      : hexadecimal_(text.substr(2).starts_with('x')),
        digits_(text.substr(hexadecimal_ ? 3 : 2)),
        end_(text.data() + text.size()) {
    const auto* const last = std::find_if_not(digits_.data(), end_, [this](char c) {
      return hexadecimal_ ? character_class::isxdigit(c) : character_class::isdigit(c);
    });
    digits_ = digits_.substr(0, static_cast<std::size_t>(last - digits_.data()));
  }

  /// The first character that is no digit, or the end of the text. In a reference that is well formed it is
  /// the semicolon.
  const char* end_of_digits() const noexcept { return digits_.data() + digits_.size(); }
  bool is_cut_off() const noexcept { return end_of_digits() == end_; }
  bool is_closed() const noexcept { return !is_cut_off() && *end_of_digits() == ';'; }

  /// The byte that it names, which is not encoded. No digits give 0. Throws `exceptions::overflow_error` for
  /// a number above 255.
  ///
  /// REQUIRES: is_closed().
  char value() const {
    // Without digits the reader takes the semicolon for the first unit, and no digit reads as 0.
    const auto radix = hexadecimal_ ? types::radix_t::hexadecimal : types::radix_t::decimal;
    return static_cast<char>(generic::convert::str_to_uint8(digits_.data(), digits_.size(), radix, true));
  }

 private:
  bool hexadecimal_;
  std::string_view digits_;
  const char* end_;
};

}  // namespace ORVA_NAMESPACE::internal::xml
