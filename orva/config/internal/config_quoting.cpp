#include "orva/config/internal/config_quoting.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "orva/config/internal/config_file_scanner.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr std::string_view letters_and_digits =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr byte_set name_ends(letters_and_digits);
constexpr byte_set name_marks("_-.:@+$%");
constexpr byte_set value_specials(" \t\r\n\"#,");

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Whether a name needs no quotes. A mark at its end could join the `=` after it.
bool is_plain_name(std::string_view text) {
  const auto belongs = [](char c) { return !is_ascii(c) || name_ends.contains(c); };
  return !text.empty() && (belongs(text.back()) || text.back() == '_') &&
         std::all_of(text.begin(), text.end(), [&](char c) { return belongs(c) || name_marks.contains(c); });
}

/// Whether a value needs no quotes. A `=` at its front could join the one before it. A comma only matters in
/// arrays, but other programs that read such files may split at it anywhere.
bool is_plain_value(std::string_view text) {
  return !text.empty() && text.front() != '=' && text.find("//") == text.npos &&
         std::none_of(text.begin(), text.end(), [](char c) { return value_specials.contains(c); });
}

/// The number of backslashes from `position` on.
std::size_t backslashes_at(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of('\\', position), text.size()) - position;
}

/// Text in quotes, and backslashes outside.
class quoted_text {
 public:
  void add_inside(std::string_view text) {
    if (!text.empty() && !open_) toggle();
    spelling_ += text;
  }
  void add_outside(std::string_view backslashes) {
    if (open_) toggle();
    spelling_ += backslashes;
  }
  std::string finish() {
    if (open_ || spelling_.empty()) spelling_ += open_ ? "\"" : "\"\"";
    return std::move(spelling_);
  }

 private:
  void toggle() {
    spelling_ += '"';
    open_ = !open_;
  }

  std::string spelling_;
  bool open_ = false;
};

}  // namespace

bool can_be_spelled(std::string_view text) {
  for (std::size_t i = text.find('"'); i != text.npos; i = text.find('"', i + 1)) {
    if (i == 0 || text[i - 1] != '\\') return false;
  }
  return true;
}

/// In quotes, backslashes come in pairs with the characters that they protect. A run of them before a quote
/// must have an odd number, one at the end an even number; otherwise one or all are outside.
std::string quoted(std::string_view text) {
  quoted_text result;
  std::size_t position = 0;
  while (position < text.size()) {
    const std::size_t run = std::min(text.find('\\', position), text.size());
    result.add_inside(text.substr(position, run - position));
    const std::size_t length = backslashes_at(text, run);
    const std::size_t end = run + length;
    const bool is_odd = length % 2 != 0;
    if (end == text.size() && is_odd) {
      result.add_outside(text.substr(run));
      break;
    }
    const bool even_before_quote = length > 0 && !is_odd && end < text.size() && text[end] == '"';
    const std::size_t outside = even_before_quote ? 1 : 0;
    if (outside != 0) result.add_outside(text.substr(run, outside));
    // With the character after the run: it is protected, or it is plain.
    position = std::min(end + 1, text.size());
    result.add_inside(text.substr(run + outside, position - run - outside));
  }
  return result.finish();
}

std::string spelled_name(std::string_view text) {
  return is_plain_name(text) ? std::string(text) : quoted(text);
}

std::string spelled_value(std::string_view text, bool always) {
  return !always && is_plain_value(text) ? std::string(text) : quoted(text);
}

std::optional<std::string> spelled_comment(std::string_view text, std::string_view indentation,
                                           std::string_view line_end) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view content = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    if (content.ends_with('\r')) content.remove_suffix(1);

    std::string line(content.empty() ? "#" : "# ");
    line += content;
    unsigned int position = 0;
    skip_comment(line, position);
    if (position != line.size()) return std::nullopt;
    lines.append(indentation).append(line).append(line_end);
  }
  return lines;
}

}  // namespace ORVA_NAMESPACE::config::_private
