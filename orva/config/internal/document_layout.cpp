#include "orva/config/internal/document_layout.hpp"

#include <algorithm>
#include <optional>

namespace ORVA_NAMESPACE::config::_private {

namespace {

using type = scanned_part::type;

constexpr std::string_view blanks = " \t";

bool is_blank(std::string_view text) { return text.find_first_not_of(blanks) == text.npos; }

std::string_view slice(std::string_view text, std::size_t begin, std::size_t end) {
  return text.substr(begin, end - begin);
}

/// The end of the line that has a part, if nothing but comments comes after it there.
placement after_part(const document_text& document, std::size_t index) {
  const std::string_view text = document.text();
  placement place;
  place.part = index + 1;
  place.offset = document.parts()[index].end;
  if (place.offset > 0 && text[place.offset - 1] == '\n') return place;

  for (; place.part < document.parts().size(); ++place.part) {
    const document_part& next = document.parts()[place.part];
    if (next.kind != type::comment || !is_blank(slice(text, place.offset, next.begin))) break;
    place.offset = next.end;
  }
  const std::size_t end = std::min(text.find_first_not_of(blanks, place.offset), text.size());
  if (text.substr(end).starts_with("\r\n")) {
    place.offset = end + 2;
  } else if (text.substr(end).starts_with('\n')) {
    place.offset = end + 1;
  } else if (end == text.size()) {
    place.offset = end;
  }
  return place;
}

/// The last part whose line `accepts` it.
template <typename Test>
std::optional<std::size_t> last_part(const document_text& document, Test accepts) {
  for (std::size_t i = document.parts().size(); i-- > 0;) {
    if (accepts(document.parts()[i])) return i;
  }
  return std::nullopt;
}

bool is_sibling(const document_part& part, std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return part.has_values() && !part.has_nested_elements && part.path.rfind('.') == dot &&
         (dot == path.npos || path.substr(0, dot) == std::string_view(part.path).substr(0, dot));
}

/// A new key looks like its sibling.
void take_form(placement& place, const document_text& document, std::size_t sibling) {
  const std::string_view text = document.text();
  if (begins_line(document, sibling)) place.indentation = indentation(document, sibling);
  const scanned_part part = document.scan(sibling);
  const scanned_value& value = part.values.front();
  const std::string_view assignment = slice(text, part.name_end, value.begin);
  if (value.begin < value.end && assignment.find_first_not_of(" \t=") == text.npos) {
    place.assignment = assignment;
  }
}

/// A comment that begins the text stays above the new key, as it describes the file.
placement before_first_section(const document_text& document, std::size_t section) {
  const auto& parts = document.parts();
  placement place;
  place.before_section = true;
  place.part = begins_line(document, section) ? comment_above(document, section) : section;
  if (parts[place.part].begin == 0) place.part = section;
  place.offset = parts[place.part].begin;
  if (begins_line(document, place.part)) place.offset = line_begin(document.text(), place.offset);
  return place;
}

}  // namespace

std::size_t line_begin(std::string_view text, std::size_t offset) {
  const std::size_t end = text.substr(0, offset).rfind('\n');
  return end == text.npos ? 0 : end + 1;
}

std::size_t line_number(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

std::string_view line_end_near(std::string_view text, std::size_t offset) {
  std::size_t end = text.substr(0, offset).rfind('\n');
  if (end == text.npos) end = text.find('\n', offset);
  return end != text.npos && end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
}

bool begins_line(const document_text& document, std::size_t index) {
  const std::size_t begin = document.parts()[index].begin;
  return is_blank(slice(document.text(), line_begin(document.text(), begin), begin));
}

std::string_view indentation(const document_text& document, std::size_t index) {
  const std::size_t begin = document.parts()[index].begin;
  return slice(document.text(), line_begin(document.text(), begin), begin);
}

std::size_t comment_above(const document_text& document, std::size_t index) {
  const auto& parts = document.parts();
  const std::string_view text = document.text();
  while (index > 0 && parts[index - 1].kind == type::comment && begins_line(document, index - 1)) {
    const std::string_view between = slice(text, parts[index - 1].end, parts[index].begin);
    if (std::count(between.begin(), between.end(), '\n') != 1) break;
    --index;
  }
  return index;
}

bool key_follows(const document_text& document, std::size_t index) {
  const auto& parts = document.parts();
  if (index + 1 >= parts.size()) return false;
  const document_part& next = parts[index + 1];
  if (next.kind == type::comment || next.kind == type::section) return false;
  return is_blank(slice(document.text(), parts[index].end, next.begin));
}

bool ends_open(const document_text& document) {
  if (document.parts().empty()) return false;
  const document_part& last = document.parts().back();
  return last.is_open || last.kind == type::unfinished_key ||
         (last.kind == type::section && document.text()[last.end - 1] != ']');
}

placement placement_of(const document_text& document, std::string_view path) {
  const auto sibling = last_part(document, [&](const auto& part) { return is_sibling(part, path); });
  if (sibling) {
    const std::string_view section = document.section_before(*sibling);
    placement place = after_part(document, *sibling);
    place.section_length = section.empty() ? 0 : section.size() + 1;
    take_form(place, document, *sibling);
    return place;
  }

  const std::size_t dot = path.rfind('.');
  if (dot == path.npos) {
    const auto is_section = [](const document_part& part) { return part.kind == type::section; };
    const auto& parts = document.parts();
    const auto first = std::find_if(parts.begin(), parts.end(), is_section);
    if (first == parts.end()) return placement_at_end(document);
    return before_first_section(document, static_cast<std::size_t>(first - parts.begin()));
  }

  const auto section = last_part(document, [&](const document_part& part) {
    return part.kind == type::section && part.path == path.substr(0, dot);
  });
  placement place = section ? after_part(document, *section) : placement_at_end(document);
  place.needs_section = !section;
  place.section_length = dot + 1;
  return place;
}

placement placement_at_end(const document_text& document) {
  placement place;
  place.part = document.parts().size();
  place.offset = document.text().size();
  return place;
}

replacement inserted_lines(std::string_view text, const placement& place, std::string_view lines) {
  const std::string_view line_end = line_end_near(text, place.offset);
  const std::string_view before = text.substr(0, place.offset);
  const bool inside_line = !before.empty() && before.back() != '\n';
  std::string result;
  if (inside_line) result += line_end;
  if (place.needs_section) {
    const bool after_empty_line = before.empty() || before.ends_with("\n\n") || before.ends_with("\n\r\n");
    if (!after_empty_line) result += line_end;
  }
  result += lines;
  if (!inside_line || place.offset < text.size()) result += line_end;
  if (place.before_section) result += line_end;
  return {place.offset, 0, result};
}

}  // namespace ORVA_NAMESPACE::config::_private
