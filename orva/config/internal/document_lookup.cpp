#include "orva/config/internal/document_lookup.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace ORVA_NAMESPACE::config::_private {

namespace {

std::optional<std::size_t> element_of(const document_part& array, std::string_view path) {
  if (!array.is_stored_array() || path.size() <= array.path.size()) return std::nullopt;
  const auto number = element_number(array.elements_path(), path);
  return number && *number < array.count ? number : std::nullopt;
}

/// The number of elements below a path for which a part is responsible: one more than the highest number.
std::size_t elements_below(const document_part& part, std::string_view path) {
  if (!part.is_stored) return 0;
  const auto number = element_number(path, part.path);
  if (number) return *number + 1;
  return part.is_stored_array() && part.elements_path() == path ? part.count : 0;
}

}  // namespace

std::optional<value_source> last_source(const document_text& document, std::string_view path) {
  for (std::size_t i = document.parts().size(); i-- > 0;) {
    const document_part& part = document.parts()[i];
    if (!part.is_stored) continue;
    if (part.path == path) return value_source{i, std::nullopt};
    if (const auto number = element_of(part, path)) return value_source{i, number};
  }
  return std::nullopt;
}

std::vector<std::size_t> lines_of(const document_text& document, std::string_view path) {
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < document.parts().size(); ++i) {
    const document_part& part = document.parts()[i];
    if (part.has_values() && part.path == path) lines.push_back(i);
  }
  return lines;
}

std::optional<std::size_t> line_to_edit(const document_text& document, std::string_view path) {
  if (const auto source = last_source(document, path)) return source->part;
  const auto lines = lines_of(document, path);
  return lines.empty() ? std::nullopt : std::optional(lines.back());
}

std::optional<strings::ustring8> find_value(const document_text& document, std::string_view path) {
  const auto source = last_source(document, path);
  if (!source) return std::nullopt;
  if (source->element) return document.elements_of(source->part)[*source->element];
  if (document.parts()[source->part].is_stored_array()) return std::nullopt;
  return std::move(document.scan(source->part).values.front().text);
}

std::optional<elements> find_array(const document_text& document, std::string_view path) {
  const auto source = last_source(document, path);
  if (!source || source->element || !document.parts()[source->part].is_stored_array()) return std::nullopt;

  std::map<std::size_t, strings::ustring8> by_number;
  for (std::size_t i = 0; i < document.parts().size(); ++i) {
    const document_part& part = document.parts()[i];
    if (elements_below(part, path) == 0) continue;
    if (const auto number = element_number(path, part.path)) {
      // The header of an array has no value of its own.
      by_number[*number] = part.is_stored_array() ? "" : document.scan(i).values.front().text;
    } else {
      std::size_t next = 0;
      for (strings::ustring8& text : document.elements_of(i)) by_number[next++] = std::move(text);
    }
  }
  elements result;
  for (auto& [number, text] : by_number) {
    if (number != result.size()) break;
    result.push_back(std::move(text));
  }
  return result;
}

bool array_is_alone(const document_text& document, std::string_view path, std::size_t earlier_end,
                    std::size_t later_begin, std::size_t count) {
  for (std::size_t i = 0; i < document.parts().size(); ++i) {
    if (i >= earlier_end && i < later_begin) continue;
    const std::size_t others = elements_below(document.parts()[i], path);
    if (others > (i < earlier_end ? count : 0)) return false;
  }
  return true;
}

bool stored_by_these_only(const document_text& document, std::string_view path,
                          const std::vector<std::size_t>& lines) {
  std::vector<std::string> arrays;
  for (const std::size_t line : lines) {
    const document_part& part = document.parts()[line];
    if (part.is_stored_array()) arrays.push_back(part.elements_path());
  }
  std::sort(arrays.begin(), arrays.end());
  arrays.erase(std::unique(arrays.begin(), arrays.end()), arrays.end());
  for (std::size_t i = 0; i < document.parts().size(); ++i) {
    const document_part& part = document.parts()[i];
    if (std::binary_search(lines.begin(), lines.end(), i)) continue;
    if (element_of(part, path)) return false;
    const auto is_below = [&](const std::string& array) { return elements_below(part, array) != 0; };
    if (std::any_of(arrays.begin(), arrays.end(), is_below)) return false;
  }
  return true;
}

}  // namespace ORVA_NAMESPACE::config::_private
