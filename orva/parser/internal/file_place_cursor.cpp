#include "orva/parser/internal/file_place_cursor.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

#include "orva/internal/text/well_formed_utf8.hpp"
#include "orva/platform/file.hpp"
#include "orva/strings/byte_order_mark.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace {

constexpr std::int64_t chunk = 0x10000;
/// How far the rest of a character can reach.
constexpr std::int64_t look_ahead = 3;

}  // namespace

diagnostics::place file_place_cursor::place_of(const platform::native_string& path, std::int64_t offset) {
  platform::input_file file(path);
  if (!file.is_open()) return {};
  if (offset < offset_) *this = {};
  std::string buffer(static_cast<std::size_t>(std::min(offset - offset_, chunk) + look_ahead), '\0');
  while (offset_ < offset) {
    const std::int64_t wanted = std::min(offset - offset_, chunk);
    const auto count = file.read(offset_, buffer.data(), static_cast<std::size_t>(wanted + look_ahead));
    const std::int64_t passed = pass(std::string_view(buffer).substr(0, count), wanted);
    // None: the file ends here, or the offset is inside a character.
    if (passed == 0) break;
    offset_ += passed;
  }
  return place_;
}

/// Moves the place over the characters that end within `count` bytes of the text.
std::int64_t file_place_cursor::pass(std::string_view text, std::int64_t count) {
  const std::size_t end = std::min(text.size(), static_cast<std::size_t>(count));
  std::size_t at = 0;
  const std::string_view mark = strings::byte_order_mark_in(strings::unicode_encoding::utf8);
  if (offset_ == 0 && text.starts_with(mark)) {
    if (end < mark.size()) return 0;
    at = mark.size();
  }
  while (at < end) {
    const std::size_t units = internal::text::decode_well_formed(text.substr(at)).units;
    if (at + units > end) break;
    if (text[at] == '\n') {
      place_ = {place_.line + 1, 1};
    } else {
      ++place_.column;
    }
    at += units;
  }
  return static_cast<std::int64_t>(at);
}

}  // namespace ORVA_NAMESPACE::parser::_private
