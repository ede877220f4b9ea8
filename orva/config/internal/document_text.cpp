#include "orva/config/internal/document_text.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

#include "orva/config/config_document.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/generic/convert/read_number.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using type = scanned_part::type;

/// Reads the parts of a text from a place on.
class part_reader {
 public:
  part_reader(std::string_view text, std::size_t position, std::string_view section, elements carried)
      : text_(text),
        scanner_(text, static_cast<unsigned int>(position)),
        section_(section),
        carried_(std::move(carried)) {
    part_.end = static_cast<std::uint32_t>(position);
  }

  /// False at the end of the text.
  bool next() {
    if (!scanner_.next(scanned_)) return false;
    part_ = document_part();
    part_.kind = scanned_.kind;
    part_.is_open = scanned_.end > text_.size();
    part_.begin = scanned_.begin;
    part_.end = part_.is_open ? static_cast<std::uint32_t>(text_.size()) : scanned_.end;
    if (part_.kind == type::section) part_.path = section_ = joined_segments(scanned_.name);
    if (part_.has_values()) read_name();
    stored_.clear();
    if (part_.kind == type::array) read_array();
    part_.carried = static_cast<std::uint32_t>(carried_.size());
    return true;
  }

  const document_part& part() const { return part_; }
  document_part take_part() { return std::move(part_); }
  std::size_t position() const { return part_.end; }
  const std::string& section() const { return section_; }
  const elements& carried() const { return carried_; }

  /// What the part stores.
  stored_value stored() const {
    if (part_.kind == type::array) return {part_.path, true, stored_, part_.has_nested_elements};
    return {part_.path, false, {scanned_.values.front().text}, false};
  }

 private:
  /// An array without a name has the node of its section as its header.
  void read_name() {
    part_.is_stored = !scanned_.values.back().text.empty();
    const bool is_header = part_.kind == type::array && scanned_.name.empty() && !section_.empty();
    const std::string_view name = without_last_separator(scanned_.name);
    part_.path.reserve(section_.size() + 1 + name.size());
    part_.path = section_;
    if (!section_.empty() && !is_header) part_.path += '.';
    append_segments(name, part_.path);
    part_.has_nested_elements =
        part_.kind == type::array && (is_header || name.size() < scanned_.name.size());
  }

  void read_array() {
    if (!part_.is_stored) scanned_.values.pop_back();
    for (scanned_value& value : scanned_.values) carried_.push_back(std::move(value.text));
    if (!part_.is_stored) return;
    part_.count = static_cast<std::uint32_t>(carried_.size());
    stored_.swap(carried_);
  }

  std::string_view text_;
  config_file_scanner scanner_;
  scanned_part scanned_;
  document_part part_;
  std::string section_;
  elements carried_;
  elements stored_;
};

std::string replaced(std::string_view text, const std::vector<replacement>& replacements) {
  std::string result;
  std::size_t position = 0;
  for (const replacement& each : replacements) {
    result.append(text.substr(position, each.offset - position)).append(each.text);
    position = each.offset + each.length;
  }
  return result.append(text.substr(position));
}

}  // namespace

std::optional<std::size_t> element_number(std::string_view parent, std::string_view path) {
  if (path.size() <= parent.size() + 1 || path[parent.size()] != '.' || !path.starts_with(parent)) {
    return std::nullopt;
  }
  const std::string_view name = path.substr(parent.size() + 1);
  const bool has_other_form =
      name.front() == '+' || name.front() == '-' || (name.front() == '0' && name != "0");
  if (has_other_form) return std::nullopt;
  return generic::convert::parse_number<std::size_t>(name);
}

document_text::document_text(std::string text) : text_(std::move(text)) {
  if (text_.size() > config_document::max_size) return;
  part_reader reader(text_, 0, {}, {});
  while (reader.next()) parts_.push_back(reader.take_part());
}

scanned_part document_text::scan(std::size_t index) const {
  scanned_part part;
  config_file_scanner(text_, parts_[index].begin).next(part);
  return part;
}

elements document_text::carried_before(std::size_t index) const {
  if (index == 0 || parts_[index - 1].carried == 0) return {};
  std::size_t first = index;
  while (first > 0 && !parts_[first - 1].is_stored_array()) --first;
  elements result;
  for (; first < index; ++first) {
    if (parts_[first].kind != type::array) continue;
    scanned_part part = scan(first);
    part.values.pop_back();
    for (scanned_value& value : part.values) result.push_back(std::move(value.text));
  }
  return result;
}

elements document_text::elements_of(std::size_t index) const {
  elements result = carried_before(index);
  scanned_part part = scan(index);
  for (scanned_value& value : part.values) result.push_back(std::move(value.text));
  return result;
}

std::string_view document_text::section_before(std::size_t index) const {
  while (index > 0 && parts_[index - 1].kind != type::section) --index;
  return index > 0 ? std::string_view(parts_[index - 1].path) : std::string_view();
}

stored_value document_text::stored_by(std::size_t index) const {
  const document_part& part = parts_[index];
  if (part.kind == type::array) return {part.path, true, elements_of(index), part.has_nested_elements};
  return {part.path, false, {scan(index).values.front().text}, false};
}

std::vector<stored_value> document_text::expected(std::size_t first, std::size_t last,
                                                  const intended_change& intended) const {
  std::vector<stored_value> result;
  for (std::size_t i = first; i <= last; ++i) {
    if (intended.added && i == intended.position) result.push_back(*intended.added);
    const bool is_removed = std::binary_search(intended.removed.begin(), intended.removed.end(), i);
    if (i < last && parts_[i].is_stored && !is_removed) result.push_back(stored_by(i));
  }
  return result;
}

document_text::new_parts document_text::read_again(std::string_view text, std::size_t first,
                                                   std::size_t old_end) const {
  const std::size_t growth = text.size() - text_.size();  // modulo 2^N
  new_parts result;
  result.next = first;
  std::string_view section = section_before(first);
  part_reader reader(text, first > 0 ? parts_[first - 1].end : 0, section, carried_before(first));
  // Whether the old text reads on from the place of the reader, too, in the same state.
  const auto rejoins = [&] {
    if (reader.position() < old_end + growth) return false;
    const std::size_t old_position = reader.position() - growth;
    std::size_t& next = result.next;
    for (; next < parts_.size() && parts_[next].begin < old_position; ++next) {
      if (parts_[next].kind == type::section) section = parts_[next].path;
    }
    if (next > 0 && parts_[next - 1].end > old_position) return false;
    const std::size_t carried = next > 0 ? parts_[next - 1].carried : 0;
    return section == reader.section() && carried == reader.carried().size() &&
           carried_before(next) == reader.carried();
  };
  while (!rejoins()) {
    if (!reader.next()) {
      result.next = parts_.size();
      break;
    }
    result.parts.push_back(reader.part());
    if (reader.part().is_stored) result.stored.push_back(reader.stored());
  }
  return result;
}

bool document_text::replace(const std::vector<replacement>& replacements, const intended_change& intended) {
  const std::size_t begin = replacements.front().offset;
  const std::size_t end = replacements.back().offset + replacements.back().length;
  std::string text = replaced(text_, replacements);
  const auto touched = std::find_if(parts_.begin(), parts_.end(),
                                    [&](const document_part& part) { return part.end >= begin; });
  const auto first = static_cast<std::size_t>(touched - parts_.begin());
  new_parts changed = read_again(text, first, end);
  if (changed.stored != expected(first, changed.next, intended)) return false;
  exchange(first, std::move(changed), text.size() - text_.size());
  text_ = std::move(text);
  return true;
}

/// Whatever needs memory comes first: a failure leaves the document as it was.
void document_text::exchange(std::size_t first, new_parts changed, std::size_t growth) {
  const std::size_t size = parts_.size() - (changed.next - first) + changed.parts.size();
  if (size > parts_.capacity()) parts_.reserve(std::max(size, 2 * parts_.capacity()));
  const auto at = [&](std::size_t index) { return parts_.begin() + static_cast<std::ptrdiff_t>(index); };
  std::for_each(at(changed.next), parts_.end(), [&](document_part& part) {
    part.begin += static_cast<std::uint32_t>(growth);
    part.end += static_cast<std::uint32_t>(growth);
  });
  parts_.erase(at(first), at(changed.next));
  parts_.insert(at(first), std::make_move_iterator(changed.parts.begin()),
                std::make_move_iterator(changed.parts.end()));
}

}  // namespace ORVA_NAMESPACE::config::_private
