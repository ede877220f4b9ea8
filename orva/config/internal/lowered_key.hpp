/// Keys as the tree takes them: in lower case, cut into segments at `.`, backslash and `/`.
///
/// Internal: not installed.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/internal/text/character_class.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

constexpr bool is_separator(char c) { return c == '.' || c == '\\' || c == '/'; }

/// Writes `text` in lower case to `lower`, which has room for it.
inline void write_lower(std::string_view text, char* lower) {
  unsigned char all_bits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool is_upper = static_cast<unsigned char>(byte - 'A') < 26;
    lower[i] = static_cast<char>(byte | (is_upper ? 'a' ^ 'A' : 0));
    all_bits |= byte;
  }
  if (all_bits < 0x80) return;
  // Beyond ASCII the C runtime is asked, in the process's current locale.
  for (std::size_t i = 0; i < text.size(); ++i) lower[i] = internal::character_class::tolower(text[i]);
}

/// A key in lower case. Lowers once for any number of lookups, and allocates only for keys longer than any in
/// use.
class lowered_key {
 public:
  explicit lowered_key(std::string_view key) {
    char* lower = short_.data();
    if (key.size() > short_.size()) {
      long_.resize(key.size());
      lower = long_.data();
    }
    write_lower(key, lower);
    text_ = {lower, key.size()};
  }
  lowered_key(const lowered_key&) = delete;
  lowered_key& operator=(const lowered_key&) = delete;

  std::string_view text() const noexcept { return text_; }

 private:
  std::array<char, 128> short_;
  std::string long_;
  std::string_view text_;
};

/// Cuts the first segment off `rest`, which holds what stands behind its separator afterwards. False if there
/// was no separator: `rest` is then empty, and the segment the last one.
inline bool next_segment(std::string_view& rest, std::string_view& segment) {
  std::size_t end = 0;
  while (end < rest.size() && !is_separator(rest[end])) ++end;
  segment = rest.substr(0, end);
  const bool separated = end < rest.size();
  rest.remove_prefix(separated ? end + 1 : end);
  return separated;
}

}  // namespace ORVA_NAMESPACE::config::_private
