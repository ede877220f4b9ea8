/// The scanner behind `base_config_item::get_token`, without its copies: a token is a piece of the source.
///
/// Internal: not installed. Every byte sequence has tokens, and nothing is ever refused.
#pragma once

#include <string_view>

#include "orva/config/config_token.hpp"

namespace ORVA_2_18::config::_private {

struct scanned_token {
  /// Within the source. Kept from the token before by T_END and T_SPACE.
  std::string_view text;
  unsigned int start_position = 0;
  unsigned int end_position = 0;
  config_token::tok_types type = config_token::T_END;
};

/// Scans the token at `position` and moves `position` behind it.
///
/// The result and `token.type` are the same but for `*/`: its type is T_ENDCOMMENT and the result T_FSFS, so that those who
/// ask the result see something like a comment, and those who ask the type see what it is.
///
/// Positions have 32 bits: what lies behind 4 GiB of a source is not read.
config_token::tok_types scan_token(std::string_view source, unsigned int& position, scanned_token& token);

}  // namespace ORVA_2_18::config::_private
