/// Text of others, such as a file name or a line of a file, made safe for a terminal.
///
/// Internal: not installed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// Whether a character is a control character: up to U+001F, or from U+007F to U+009F.
constexpr bool is_control(std::uint32_t code_point) {
  return code_point < 0x20 || (code_point >= 0x7F && code_point < 0xA0);
}

/// Whether a character would not show, or change how others show.
bool is_hidden(std::uint32_t code_point) noexcept;

/// Appends `text`, with U+FFFD in place of hidden characters and malformed parts, and a space for a tab.
void append_visible(std::string& output, std::string_view text);

}  // namespace ORVA_NAMESPACE::internal::text
