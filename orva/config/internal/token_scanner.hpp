/// The scanner behind `base_config_item::get_token`, without its copies: a token is a piece of the source.
///
/// Internal: not installed. Every byte sequence has tokens, and nothing is ever refused.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "orva/config/config_token.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct scanned_token {
  /// Within the source. Kept from the token before by T_END and T_SPACE.
  std::string_view text;
  unsigned int start_position = 0;
  unsigned int end_position = 0;
  config_token::tok_types type = config_token::T_END;

  bool is_white_space() const {
    return type == config_token::T_SPACE || type == config_token::T_TABCHAR ||
           type == config_token::T_NEWLINE;
  }
};

/// Scans the token at `position` and moves `position` behind it.
///
/// The result and `token.type` are the same but for `*/`: its type is T_ENDCOMMENT and the result T_FSFS, so
/// that those who ask the result see something like a comment, and those who ask the type see what it is.
///
/// Positions have 32 bits: what lies behind 4 GiB of a source is not read.
config_token::tok_types scan_token(std::string_view source, unsigned int& position, scanned_token& token);

/// Bytes at which a reader wants to look, by their values.
class byte_set {
 public:
  constexpr explicit byte_set(std::string_view members) {
    for (const char member : members) contains_[static_cast<unsigned char>(member)] = true;
  }
  constexpr bool contains(char byte) const { return contains_[static_cast<unsigned char>(byte)]; }

 private:
  std::array<bool, 256> contains_{};
};

/// The bytes from `position` up to the first that is in `stops`, to which it is moved: many tokens in one
/// step, where a reader joins their texts again and no token that it looks at begins with another byte.
///
/// REQUIRES: `stops` holds the double quote and the line ends; blank and tab, if the text is used; and the
/// first byte of each pair that ends in a byte of `stops`.
inline std::string_view scan_plain(std::string_view source, unsigned int& position, const byte_set& stops) {
  const std::size_t start = position;
  std::size_t end = start;
  while (end < source.size() && !stops.contains(source[end])) ++end;
  position = static_cast<unsigned int>(end);
  return source.substr(std::min(start, source.size()), end - start);
}

}  // namespace ORVA_NAMESPACE::config::_private
