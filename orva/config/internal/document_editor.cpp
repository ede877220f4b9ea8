#include "orva/config/internal/document_editor.hpp"

#include <algorithm>
#include <utility>

#include "orva/config/internal/config_quoting.hpp"
#include "orva/config/internal/document_lookup.hpp"
#include "orva/config/internal/lower_case_key.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr std::string_view blanks = " \t";

std::string with_dots(std::string_view key) {
  std::string result(without_last_separator(key));
  std::replace_if(result.begin(), result.end(), is_separator, '.');
  return result;
}

bool quotes_allowed(const elements& values) {
  return std::all_of(values.begin(), values.end(), can_be_spelled);
}

/// A quoted value stays quoted. Before a slash, a value gets quotes: one that ends in a slash would begin a
/// comment.
bool needs_quotes(std::string_view text, const scanned_value& value) {
  const bool was_quoted = value.begin < value.end && text[value.begin] == '"';
  return was_quoted || (value.end < text.size() && text[value.end] == '/');
}

std::string joined(const elements& values, std::size_t first, std::string_view separator, bool quoted) {
  std::string result;
  for (std::size_t i = first; i < values.size(); ++i) {
    if (i > 0) result += separator;
    result += spelled_value(values[i], quoted);
  }
  return result;
}

/// What separates the last two elements, if that is just a comma, blanks and line ends.
std::string separator_of(std::string_view text, const std::vector<scanned_value>& values) {
  if (values.size() > 1) {
    const scanned_value& last = values.back();
    const unsigned int begin = values[values.size() - 2].end;
    const std::string_view between = text.substr(begin, last.begin - begin);
    if (last.begin < last.end && between.find_first_not_of(" \t\r\n,") == between.npos)
      return std::string(between);
  }
  return ", ";
}

std::optional<std::size_t> part_before(const placement& place) {
  return place.part > 0 ? std::optional(place.part - 1) : std::nullopt;
}

}  // namespace

document_editor::document_editor(document_text& document, std::string_view key)
    : document_(document), spelling_(with_dots(key)), path_(canonical_key(key)) {}

document_editor::result document_editor::refused(error code, std::optional<std::size_t> line_of_part) const {
  if (!line_of_part) return {code, 0};
  return {code, line_number(text(), document_.parts()[*line_of_part].begin)};
}

document_editor::result document_editor::apply(std::vector<replacement> replacements,
                                               intended_change intended,
                                               std::optional<std::size_t> line_of_part,
                                               error if_not_intended) {
  std::erase_if(replacements, [&](const replacement& each) {
    return text().substr(each.offset, each.length) == each.text;
  });
  if (replacements.empty()) return {};
  std::size_t size = text().size();
  for (const replacement& each : replacements) size = size - each.length + each.text.size();
  if (size > config_document::max_size) return refused(error::too_large, line_of_part);
  if (!document_.replace(replacements, intended)) return refused(if_not_intended, line_of_part);
  return {};
}

bool document_editor::is_writable_name() const {
  const bool has_empty_name = spelling_.empty() || spelling_.front() == '.' || spelling_.back() == '.' ||
                              spelling_.find("..") != spelling_.npos;
  return !has_empty_name && can_be_spelled(spelling_) && !spelling_.ends_with("[]");
}

document_editor::result document_editor::set(bool is_array, const elements& values,
                                             std::string_view comment) {
  if (!quotes_allowed(values)) return refused(error::bad_value);
  const auto source = last_source(document_, path_);
  if (source && source->element) {
    if (is_array) return refused(error::array_element, source->part);
    return change_element(source->part, *source->element, values.front(), comment);
  }
  if (values.empty() || values.back().empty()) return refused(error::empty_value);
  const auto line = line_to_edit(document_, path_);
  stored_value stored{path_, is_array, values, false};
  return line ? change(*line, std::move(stored), comment) : insert(std::move(stored), comment);
}

document_editor::result document_editor::change(std::size_t index, stored_value stored,
                                                std::string_view comment) {
  const document_part& part = document_.parts()[index];
  const bool was_array = part.kind == scanned_part::type::array;
  if (part.is_open) return refused(error::unclosed, index);
  const bool is_alone =
      !(was_array || stored.is_array) ||
      array_is_alone(document_, path_, index, index + 1, stored.is_array ? stored.texts.size() : 0);
  const scanned_part scanned = document_.scan(index);
  const bool has_elements_of_another = was_array && part.count > scanned.values.size();
  if (part.has_nested_elements || has_elements_of_another || !is_alone) {
    return refused(error::affects_other_keys, index);
  }

  std::vector<replacement> replacements;
  if (!comment.empty()) {
    const error code = replace_comment(index, comment, replacements);
    if (code != error::none) return refused(code, index);
  }
  if (was_array != stored.is_array) {
    if (!can_be_spelled(scanned.name)) return refused(error::bad_key, index);
    rewrite(scanned, stored, replacements);
  } else if (was_array) {
    replace_elements(scanned, stored.texts, replacements);
  } else {
    replace_value(scanned, stored.texts.front(), replacements);
  }
  return apply(std::move(replacements), {{index}, index, std::move(stored)}, index,
               error::affects_other_keys);
}

document_editor::result document_editor::change_element(std::size_t index, std::size_t number,
                                                        const strings::ustring8& value,
                                                        std::string_view comment) {
  const document_part& part = document_.parts()[index];
  if (part.is_open) return refused(error::unclosed, index);
  if (value.empty() && number + 1 == part.count) return refused(error::empty_value, index);
  const scanned_part scanned = document_.scan(index);
  const std::size_t carried = part.count - scanned.values.size();
  if (number < carried) return refused(error::affects_other_keys, index);

  std::vector<replacement> replacements;
  if (!comment.empty()) {
    const error code = replace_comment(index, comment, replacements);
    if (code != error::none) return refused(code, index);
  }
  const scanned_value& element = scanned.values[number - carried];
  if (element.text != value) replacements.push_back(filled(scanned, element, value));
  stored_value stored{part.path, true, document_.elements_of(index), part.has_nested_elements};
  stored.texts[number] = value;
  return apply(std::move(replacements), {{index}, index, std::move(stored)}, index,
               error::affects_other_keys);
}

/// A value for a place that may have none: after a `=` or a comma, and perhaps a blank.
replacement document_editor::filled(const scanned_part& part, const scanned_value& value,
                                    std::string_view new_text) const {
  replacement filling{value.begin, value.end - value.begin,
                      spelled_value(new_text, needs_quotes(text(), value))};
  if (value.begin < value.end) return filling;
  const auto has_blank_at = [&](std::size_t offset) {
    return offset < text().size() && blanks.find(text()[offset]) != blanks.npos;
  };
  if (has_blank_at(value.begin)) {
    ++filling.offset;
  } else if (has_blank_at(part.name_end)) {
    filling.text.insert(0, 1, ' ');
  }
  if (filling.offset < text().size() && text()[filling.offset] == '#') filling.text += ' ';
  return filling;
}

void document_editor::replace_value(const scanned_part& part, std::string_view value,
                                    std::vector<replacement>& out) const {
  const scanned_value& old = part.values.front();
  if (old.text != value) out.push_back(filled(part, old, value));
}

/// The elements up to the shorter length one by one; the last of them with what is added or goes after it.
void document_editor::replace_elements(const scanned_part& part, const elements& values,
                                       std::vector<replacement>& out) const {
  const std::vector<scanned_value>& old = part.values;
  const std::size_t common = std::min(old.size(), values.size());
  for (std::size_t i = 0; i < common; ++i) {
    const bool is_last = i + 1 == common && old.size() != values.size();
    if (!is_last && old[i].text == values[i]) continue;
    replacement each = filled(part, old[i], values[i]);
    if (old[i].begin < old[i].end && old[i].text == values[i]) each.text = slice(old[i].begin, old[i].end);
    if (is_last) {
      each.length = std::max<std::size_t>(old.back().end, each.offset) - each.offset;
      each.text += joined(values, common, separator_of(text(), old), needs_quotes(text(), old.back()));
    }
    out.push_back(std::move(each));
  }
}

/// A plain value as an array, or an array as a plain value.
void document_editor::rewrite(const scanned_part& part, const stored_value& stored,
                              std::vector<replacement>& out) const {
  const std::string name = spelled_name(without_last_separator(part.name)) + (stored.is_array ? "[]" : "");
  out.push_back({part.begin, part.name_end - part.begin, name});
  replacement values = filled(part, part.values.front(), stored.texts.front());
  values.length = std::max<std::size_t>(part.values.back().end, values.offset) - values.offset;
  values.text += joined(stored.texts, 1, ", ", needs_quotes(text(), part.values.back()));
  out.push_back(std::move(values));
}

document_editor::error document_editor::replace_comment(std::size_t index, std::string_view comment,
                                                        std::vector<replacement>& out) const {
  if (!begins_line(document_, index)) return error::affects_other_keys;
  const auto& parts = document_.parts();
  const std::size_t end = line_begin(text(), parts[index].begin);
  const std::size_t begin = line_begin(text(), parts[comment_above(document_, index)].begin);
  const auto lines = spelled_comment(comment, indentation(document_, index), line_end_near(text(), end));
  if (!lines) return error::bad_comment;
  out.push_back({begin, end - begin, *lines});
  return error::none;
}

document_editor::result document_editor::insert(stored_value stored, std::string_view comment) {
  if (!is_writable_name()) return refused(error::bad_key);
  const placement place = placement_of(document_, path_);
  const bool is_at_end = place.part == document_.parts().size();
  if (is_at_end && ends_open(document_)) return refused(error::unclosed, part_before(place));
  if (stored.is_array && !array_is_alone(document_, path_, place.part, place.part, stored.texts.size())) {
    return refused(error::affects_other_keys);
  }
  const std::string_view line_end = line_end_near(text(), place.offset);
  const auto comment_lines = spelled_comment(comment, place.indentation, line_end);
  if (!comment_lines) return refused(error::bad_comment);

  std::string lines;
  if (place.needs_section) {
    lines += '[' + spelled_name(std::string_view(spelling_).substr(0, place.section_length - 1)) + ']';
    lines += line_end;
  }
  lines += *comment_lines;
  lines += place.indentation;
  lines += spelled_name(std::string_view(spelling_).substr(place.section_length));
  lines += stored.is_array ? "[]" : "";
  lines += place.assignment;
  lines += joined(stored.texts, 0, ", ", false);
  return apply({inserted_lines(text(), place, lines)}, {{}, place.part, std::move(stored)},
               part_before(place), error::unclosed);
}

document_editor::result document_editor::set_comment(std::string_view comment) {
  const auto line = line_to_edit(document_, path_);
  if (!line) return refused(error::no_such_key);
  std::vector<replacement> replacements;
  const error code = replace_comment(*line, comment, replacements);
  if (code != error::none) return refused(code, line);
  return apply(std::move(replacements), {}, line, error::affects_other_keys);
}

document_editor::result document_editor::remove() {
  const auto lines = lines_of(document_, path_);
  if (lines.empty()) {
    const auto source = last_source(document_, path_);
    if (source) return refused(error::array_element, source->part);
    return refused(error::no_such_key);
  }
  std::vector<replacement> replacements;
  for (const std::size_t line : lines) {
    if (document_.parts()[line].is_open) return refused(error::unclosed, line);
    replacements.push_back(removed_line(line));
  }
  if (!stored_by_these_only(document_, path_, lines)) return refused(error::affects_other_keys, lines.back());
  return apply(std::move(replacements), {lines, 0, std::nullopt}, lines.back(), error::affects_other_keys);
}

/// A part that shares its line with others leaves them the line end.
replacement document_editor::removed_line(std::size_t index) const {
  const auto& parts = document_.parts();
  std::size_t begin = parts[index].begin;
  std::size_t end = parts[index].end;
  if (begins_line(document_, index)) {
    const std::size_t comment = comment_above(document_, index);
    const bool goes = parts[comment].begin > 0 && !key_follows(document_, index);
    begin = line_begin(text(), parts[goes ? comment : index].begin);
  } else {
    const std::string_view line = text().substr(begin, end - begin);
    if (line.ends_with('\n')) end -= line.ends_with("\r\n") ? 2 : 1;
  }
  return {begin, end - begin, {}};
}

document_editor::result document_editor::add_section() {
  if (!is_writable_name()) return refused(error::bad_key);
  const auto& parts = document_.parts();
  const auto is_same = [&](const document_part& part) {
    return part.kind == scanned_part::type::section && part.path == path_;
  };
  if (std::any_of(parts.begin(), parts.end(), is_same)) return {};
  placement place = placement_at_end(document_);
  if (ends_open(document_)) return refused(error::unclosed, part_before(place));
  place.needs_section = true;
  const std::string header = '[' + spelled_name(spelling_) + ']';
  return apply({inserted_lines(text(), place, header)}, {{}, place.part, std::nullopt}, part_before(place),
               error::unclosed);
}

}  // namespace ORVA_NAMESPACE::config::_private
