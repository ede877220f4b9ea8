/// The scanner of `base_config_item::get_token`, without copies: the text of a token is a view of the source.
///
///     unsigned int position = 0;
///     scanned_token token;
///     while (scan_token("a = b", position, token) != config_token::T_END) use(token);
///
/// Internal: not installed. Every byte sequence has tokens.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "orva/config/config_token.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct scanned_token {
  /// A view of the source. T_END and T_SPACE leave it unchanged, so that it is the text of the token before.
  std::string_view text;
  unsigned int start_position = 0;
  unsigned int end_position = 0;
  config_token::tok_types type = config_token::T_END;

  bool is_white_space() const {
    return type == config_token::T_SPACE || type == config_token::T_TABCHAR ||
           type == config_token::T_NEWLINE;
  }
};

/// Scans the token at `position` and moves `position` to its end.
///
/// The result equals `token.type`, except for `*/`: there the type is T_ENDCOMMENT and the result T_FSFS.
///
/// Positions have 32 bits: a source is read up to 4 GiB.
config_token::tok_types scan_token(std::string_view source, unsigned int& position, scanned_token& token);

/// A set of byte values.
class byte_set {
 public:
  constexpr explicit byte_set(std::string_view members) {
    for (const char member : members) contains_[static_cast<unsigned char>(member)] = true;
  }
  constexpr bool contains(char byte) const { return contains_[static_cast<unsigned char>(byte)]; }

 private:
  std::array<bool, 256> contains_{};
};

/// Returns the bytes from `position` to the first byte in `stops`, and moves `position` there. This replaces
/// many calls of `scan_token` where a reader would only join the texts of the tokens again.
///
/// REQUIRES: `stops` contains the double quote, the line ends, and the first byte of each pair whose second
/// byte is in `stops`; also blank and tab, if the returned text is used.
inline std::string_view scan_plain(std::string_view source, unsigned int& position, const byte_set& stops) {
  const std::size_t start = position;
  std::size_t end = start;
  while (end < source.size() && !stops.contains(source[end])) ++end;
  position = static_cast<unsigned int>(end);
  return source.substr(std::min(start, source.size()), end - start);
}

}  // namespace ORVA_NAMESPACE::config::_private
