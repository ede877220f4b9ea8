#include "orva/config/internal/finding_list.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "orva/config/internal/place_cursor.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using diagnostics::severity;

constexpr std::size_t longest_argument = 60;

}  // namespace

bool finding_list::is_before(const entry& left, const entry& right) {
  return std::pair(left.offset, left.number) < std::pair(right.offset, right.number);
}

void finding_list::add(severity level, std::string_view code, std::size_t offset,
                       generic::varg_list arguments, std::size_t other) {
  entries_.push_back({offset, added_++, other, level, code, std::move(arguments)});
  if (entries_.size() / 2 > room_) drop_last();
}

/// Keeps the first `room_` entries. This happens after as many others were added, so that all calls together
/// take time in proportion to the number of findings.
void finding_list::drop_last() {
  if (entries_.size() <= room_) return;
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(room_);
  std::nth_element(entries_.begin(), end, entries_.end(), is_before);
  for (auto dropped = end; dropped != entries_.end(); ++dropped) {
    ++dropped_[static_cast<std::size_t>(dropped->level)];
  }
  entries_.erase(end, entries_.end());
}

void finding_list::resolve_lines(std::string_view text) {
  std::vector<entry*> pending;
  for (entry& each : entries_) {
    if (each.other != no_offset) pending.push_back(&each);
  }
  std::ranges::sort(pending, {}, &entry::other);
  std::size_t line = 1;
  std::size_t at = 0;
  for (entry* const each : pending) {
    line += static_cast<std::size_t>(std::ranges::count(text.substr(at, each->other - at), '\n'));
    at = each->other;
    each->arguments.push_back("line", static_cast<unsigned long long>(line));
  }
}

void finding_list::write(std::string_view text, std::string_view file_name, diagnostics::report& report) {
  drop_last();
  std::ranges::sort(entries_, is_before);
  resolve_lines(text);
  place_cursor places(text);
  for (entry& each : std::exchange(entries_, {})) {
    report.add({each.level, strings::ustring8(each.code), strings::ustring8(file_name),
                places.place_of(each.offset), std::move(each.arguments)});
  }
  // The report is full: it only counts these.
  for (std::size_t level = 0; level < dropped_.size(); ++level) {
    for (; dropped_[level] > 0; --dropped_[level]) report.add({static_cast<severity>(level), {}, {}, {}, {}});
  }
}

strings::ustring8 shortened(std::string_view text) {
  if (text.size() <= longest_argument) return strings::ustring8(text);
  std::size_t end = longest_argument;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return strings::ustring8(text.substr(0, end)) + "\xE2\x80\xA6";
}

}  // namespace ORVA_NAMESPACE::config::_private
