#include "orva/serialization/internal/flat_form_reader.hpp"

#include <string>
#include <vector>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/serialization/internal/text_form_items.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

namespace {

/// Reads the strings of one level where they stand in the whole text.
class level_reader {
 public:
  level_reader(std::string_view text, labeled_text_buffer& target) : text_(text), target_(&target) {}

  labeled_text_buffer& target() const { return *target_; }

  /// The next label; empty where the level ends.
  std::string_view read_label() {
    if (has_ended_ || position_ >= text_.size()) return {};
    const std::string_view label = read_string();
    // A label that led back has no value behind it.
    return has_ended_ ? std::string_view() : label;
  }

  /// A length below 0, or none at the end of the text, leads the reader back to what was read before, which
  /// it would read for ever: such a string is the last of its level.
  std::string_view read_string() {
    if (position_ == stored_buffer::past_end) return {};
    const std::string_view number = take_number(text_, position_);
    const types::int32 length =
        number.empty()
            ? 0
            : generic::convert::str_to_int32(number.data(), number.size(), types::radix_t::prefix, false);
    const types::uint32 begin = position_;
    const std::string_view bytes = take_bytes(text_, position_, length);
    has_ended_ = position_ <= begin;
    return bytes;
  }

 private:
  std::string_view text_;
  labeled_text_buffer* target_;
  types::uint32 position_ = 0;
  bool has_ended_ = false;
};

}  // namespace

void read_flat_form(std::string_view text, labeled_text_buffer& target) {
  std::vector<level_reader> levels{level_reader(text, target)};
  while (!levels.empty()) {
    level_reader& level = levels.back();
    const std::string label(level.read_label());
    if (label.empty()) {
      levels.pop_back();
    } else if (label.back() == ' ') {
      labeled_text_buffer& group = *level.target().create_group(label);
      levels.emplace_back(level.read_string(), group);
    } else {
      level.target().add_value(label, std::string(level.read_string()));
    }
  }
}

}  // namespace ORVA_NAMESPACE::serialization::_private
