/// Keys in the form that the tree stores: in lower case, split at `.`, backslash and `/`.
///
///     const lower_case_key key("Window.Width");
///     std::string_view rest = key.text(), name;
///     next_segment(rest, name);                    // true: name is "window", rest is "width"
///     next_segment(rest, name);                    // false: name is "width", rest is empty
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/internal/text/character_class.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

constexpr bool is_separator(char c) { return c == '.' || c == '\\' || c == '/'; }

/// Copies `text` in lower case to `output`, which has room for as many bytes.
inline void copy_lower_case(std::string_view text, char* output) {
  unsigned char all_bits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool is_upper = static_cast<unsigned char>(byte - 'A') < 26;
    output[i] = static_cast<char>(byte | (is_upper ? 'a' ^ 'A' : 0));
    all_bits |= byte;
  }
  if (all_bits < 0x80) return;
  // From 128 on the C runtime's current locale decides.
  for (std::size_t i = 0; i < text.size(); ++i) output[i] = internal::character_class::tolower(text[i]);
}

inline std::string lower_case(std::string_view text) {
  std::string result(text.size(), '\0');
  copy_lower_case(text, result.data());
  return result;
}

/// A key in lower case: converted once for any number of lookups. Short keys allocate nothing.
class lower_case_key {
 public:
  explicit lower_case_key(std::string_view key) {
    char* output = short_.data();
    if (key.size() > short_.size()) {
      long_.resize(key.size());
      output = long_.data();
    }
    copy_lower_case(key, output);
    text_ = {output, key.size()};
  }
  lower_case_key(const lower_case_key&) = delete;
  lower_case_key& operator=(const lower_case_key&) = delete;

  std::string_view text() const noexcept { return text_; }

 private:
  std::array<char, 128> short_;
  std::string long_;
  std::string_view text_;
};

/// Appends all segments of a key, in lower case and separated by dots.
inline void append_segments(std::string_view key, std::string& path) {
  const std::size_t length = path.size();
  path.append(key);
  char* const begin = path.data() + length;
  copy_lower_case(key, begin);
  std::replace_if(begin, begin + key.size(), is_separator, '.');
}

/// All segments of a key, in lower case and separated by dots.
inline std::string joined_segments(std::string_view key) {
  std::string joined;
  append_segments(key, joined);
  return joined;
}

/// The key without the separator that may be at its end, and counts for nothing there.
inline std::string_view without_last_separator(std::string_view key) {
  return !key.empty() && is_separator(key.back()) ? key.substr(0, key.size() - 1) : key;
}

/// The one spelling of all keys that name the same node: in lower case, separated by dots, without the
/// last separator.
inline std::string canonical_key(std::string_view key) {
  return joined_segments(without_last_separator(key));
}

/// A key that finds the node of these segments. One dot at the end of a key is ignored.
inline std::string key_of(std::string segments) {
  if (segments.ends_with('.')) segments += '.';
  return segments;
}

/// Moves the first segment of `rest` to `segment`, and drops the separator after it. False if there was no
/// separator: `segment` is then the last one, and `rest` is empty.
inline bool next_segment(std::string_view& rest, std::string_view& segment) {
  std::size_t end = 0;
  while (end < rest.size() && !is_separator(rest[end])) ++end;
  segment = rest.substr(0, end);
  const bool separated = end < rest.size();
  rest.remove_prefix(separated ? end + 1 : end);
  return separated;
}

}  // namespace ORVA_NAMESPACE::config::_private
