#include "orva/serialization/exact_flat_form.hpp"

#include <utility>
#include <vector>

#include "orva/generic/convert/write_number.hpp"
#include "orva/serialization/internal/flat_form_writer.hpp"
#include "orva/serialization/internal/trimmed_label.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::serialization {

using generic::convert::number_text;
using types::variant;

namespace {

/// Malformed wide text has no exact text; it is written as `as_str` writes it.
std::string exact_text(const variant& value) {
  auto exact = value.try_as<std::string>();
  return exact ? *std::move(exact) : std::string(value.as_string());
}

/// The strings of one level, and the group that they fill.
struct open_level {
  checked_reader strings;
  labeled_text_buffer* target;
};

/// Whether a label, without the blank that marks a group, can be stored without loss.
bool is_exact_label(const std::string& label, bool is_group, const labeled_text_buffer& target) {
  if (label.empty() || _private::trimmed_label(label) != label) return false;
  const auto present = target.entries().find(label);
  if (present == target.entries().end()) return true;
  return is_group ? present->second.group.is_empty() : present->second.value == types::nil;
}

/// Reads one label with its value, or opens its group.
read_failure read_entry(std::vector<open_level>& levels) {
  auto& [strings, target] = levels.back();
  const std::size_t begin = strings.position();
  const auto read = strings.read_string_view();
  if (!read) return strings.failure();
  const bool is_group = read->ends_with(' ');
  const std::string label(read->substr(0, read->size() - (is_group ? 1 : 0)));
  if (!is_exact_label(label, is_group, *target)) return {read_error::bad_label, begin, begin};
  if (!is_group) {
    if (auto value = strings.read_string()) target->add_value(label, *std::move(value));
    return strings.failure();
  }
  const auto group = strings.read_buffer();
  if (!group) return strings.failure();
  levels.push_back({*group, target->create_group(label)});
  return {};
}

}  // namespace

std::string write_exact_flat_form(const labeled_text_buffer& buffer) {
  std::string text;
  _private::flat_form_writer(text, exact_text).write(buffer.entries());
  return text;
}

read_failure read_exact_flat_form(std::string_view text, labeled_text_buffer& buffer) {
  labeled_text_buffer read;
  std::vector<open_level> levels{{checked_reader(text, checked_reader::form::text), &read}};
  while (!levels.empty()) {
    if (levels.back().strings.at_end()) {
      levels.pop_back();
    } else if (const read_failure failure = read_entry(levels); failure.error != read_error::none) {
      return failure;
    }
  }
  buffer = std::move(read);
  return {};
}

labeled_serialize_buffer::result_type add_exact(labeled_serialize_buffer& buffer, const std::string& label,
                                                double value) {
  return buffer.add_value(label, std::string(number_text(value)));
}

labeled_serialize_buffer::result_type add_exact(labeled_serialize_buffer& buffer, const std::string& label,
                                                float value) {
  return buffer.add_value(label, std::string(number_text(value)));
}

}  // namespace ORVA_NAMESPACE::serialization
