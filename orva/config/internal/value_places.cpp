#include "orva/config/internal/value_places.hpp"

#include <cstdint>
#include <utility>

#include "orva/config/internal/config_file_scanner.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/place_cursor.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// Whether the names of all values, each with that of its section in front, are not far longer than the text.
bool has_short_names(std::string_view text) {
  config_file_scanner scanner(text);
  scanned_part part;
  std::size_t section = 0;
  std::uint64_t sum = 0;
  while (scanner.next(part)) {
    if (part.kind == scanned_part::type::section) section = part.name.size();
    sum += std::uint64_t{section + part.name.size()} * part.values.size();
  }
  return sum / value_places::max_names_per_text <= text.size();
}

/// Collects the values as `config_file_reader` stores them.
class place_collector {
 public:
  place_collector(std::string_view text, std::vector<value_place>& all) : cursor_(text), all_(all) {}

  void begin_section(strings::ustring8& name) {
    section_.swap(name);
    section_segments_ = joined_segments(section_);
  }

  void add_value(scanned_part& part) {
    scanned_value& value = part.values.front();
    if (value.text.empty()) return;
    const auto key_place = cursor_.place_of(part.begin);
    const auto value_place = cursor_.place_of(value.begin);
    all_.push_back({key_of(node_segments(part.name)), key_place, value_place, std::move(value.text)});
  }

  void add_array(scanned_part& part) {
    const auto key_place = cursor_.place_of(part.begin);
    const bool is_stored = !part.values.back().text.empty();
    if (!is_stored) part.values.pop_back();
    for (scanned_value& value : part.values)
      elements_.push_back({{}, key_place, cursor_.place_of(value.begin), std::move(value.text)});
    if (is_stored) store_array(part.name, key_place);
  }

 private:
  void store_array(const strings::ustring8& key, const diagnostics::place& key_place) {
    all_.push_back({key_of(node_segments(key)), key_place, elements_.front().value, {}, true});
    // Other than the array, its elements are below the whole key.
    const std::string prefix = in_section(joined_segments(key)) + '.';
    for (std::size_t i = 0; i < elements_.size(); ++i) {
      elements_[i].name = prefix + std::to_string(i);
      all_.push_back(std::move(elements_[i]));
    }
    elements_.clear();
  }

  /// As `config_file_reader` finds the node: an array without a name is the section's own node.
  std::string node_segments(const strings::ustring8& key) const {
    return key.empty() && !section_.empty() ? section_segments_ : in_section(canonical_key(key));
  }

  std::string in_section(const std::string& segments) const {
    return section_.empty() ? segments : section_segments_ + '.' + segments;
  }

  place_cursor cursor_;
  std::vector<value_place>& all_;
  strings::ustring8 section_;
  std::string section_segments_;
  /// As in `config_file_reader`, also the elements of an array before that was not stored.
  std::vector<value_place> elements_;
};

}  // namespace

value_places::value_places(std::string_view text) {
  if (!has_short_names(text)) return;
  place_collector collector(text, all_);
  config_file_scanner scanner(text);
  scanned_part part;
  while (scanner.next(part)) {
    if (part.kind == scanned_part::type::section) {
      collector.begin_section(part.name);
    } else if (part.kind == scanned_part::type::value) {
      collector.add_value(part);
    } else if (part.kind == scanned_part::type::array) {
      collector.add_array(part);
    }
  }
  last_.reserve(all_.size());
  for (std::size_t i = 0; i < all_.size(); ++i) last_[canonical_key(all_[i].name)] = i;
}

const value_place* value_places::find(std::string_view key) const {
  const auto found = last_.find(canonical_key(key));
  return found != last_.end() ? &all_[found->second] : nullptr;
}

}  // namespace ORVA_NAMESPACE::config::_private
