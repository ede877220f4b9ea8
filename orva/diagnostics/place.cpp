#include "orva/diagnostics/place.hpp"

#include <algorithm>

#include "orva/internal/text/well_formed_utf8.hpp"
#include "orva/strings/byte_order_mark.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

/// The offset of the first byte of the text that has a column.
std::size_t begin_of(std::string_view text) {
  const std::string_view mark = strings::byte_order_mark_in(strings::unicode_encoding::utf8);
  return text.starts_with(mark) ? mark.size() : 0;
}

/// The column of an offset in a line that begins at `begin`.
std::size_t column_of(std::string_view text, std::size_t begin, std::size_t offset) {
  std::size_t column = 1;
  while (begin < offset) {
    begin += internal::text::decode_well_formed(text.substr(begin)).units;
    if (begin <= offset) ++column;
  }
  return column;
}

}  // namespace

place place_of(std::string_view text, std::size_t offset) {
  offset = std::min(offset, text.size());
  const std::string_view before = text.substr(0, offset);
  const auto line_feeds = static_cast<std::size_t>(std::ranges::count(before, '\n'));
  const std::size_t begin = line_feeds == 0 ? begin_of(text) : before.rfind('\n') + 1;
  return {line_feeds + 1, column_of(text, begin, offset)};
}

line_index::line_index(std::string_view text) : text_(text) {
  begins_.push_back(begin_of(text));
  for (std::size_t i = text.find('\n'); i != std::string_view::npos; i = text.find('\n', i + 1)) {
    begins_.push_back(i + 1);
  }
}

place line_index::place_of(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  // The first line also has the offsets of a byte order mark, which are before its beginning.
  const auto next = std::upper_bound(begins_.begin() + 1, begins_.end(), offset);
  return {static_cast<std::size_t>(next - begins_.begin()), column_of(text_, *(next - 1), offset)};
}

std::string_view line_index::line(std::size_t number) const {
  if (number == 0 || number > size()) return {};
  const std::size_t begin = begins_[number - 1];
  std::string_view line = text_.substr(begin, text_.find('\n', begin) - begin);
  if (line.ends_with('\r') && number < size()) line.remove_suffix(1);
  return line;
}

}  // namespace ORVA_NAMESPACE::diagnostics
