#include "orva/serialization/internal/flat_form_reader.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "orva/serialization/internal/text_form_items.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

namespace {

/// Reads the strings of one level as `serialize_text_buf` does, in place in the whole text.
class string_reader {
 public:
  explicit string_reader(std::string_view text) : text_(text) {}

  types::uint32 position() const { return position_; }
  bool at_end() const { return position_ >= text_.size(); }

  /// How many bytes of the strings read so far follow the position at which the next one was read.
  std::uint64_t reread() const { return reread_; }

  std::string_view read() {
    if (position_ == stored_buffer::past_end) return {};
    const types::int32 length = take_length(text_, position_);
    const std::size_t begin = std::min<std::size_t>(position_, text_.size());
    const std::string_view bytes = take_bytes(text_, position_, length);
    const std::size_t end = begin + bytes.size();
    if (position_ < end) reread_ += end - position_;
    return bytes;
  }

 private:
  std::string_view text_;
  types::uint32 position_ = 0;
  std::uint64_t reread_ = 0;
};

/// Reads the labels of one level, each with the string that follows it.
class level_reader {
 public:
  level_reader(std::string_view text, labeled_text_buffer& target)
      : text_(text), strings_(text), target_(&target) {}

  labeled_text_buffer& target() const { return *target_; }

  /// The next label; empty at the end of the level. Adds the bytes that are read again to `reread`.
  std::string_view read_label(std::uint64_t& reread) {
    if (strings_.at_end() || is_label_known()) return {};
    reread += strings_.reread() - std::exchange(counted_, strings_.reread());
    return reread <= labeled_text_buffer::max_reread ? strings_.read() : std::string_view();
  }

  std::string_view read_string() { return strings_.read(); }

 private:
  /// Whether a label was read at this position before: from here on everything would repeat without end.
  bool is_label_known() {
    if (strings_.reread() == 0) return false;
    // Positions only grow until the first byte is read again, so that ordinary texts pay for no record.
    if (labels_.empty()) record_first_labels();
    return !labels_.insert(strings_.position()).second;
  }

  /// Records the positions of the labels up to the first byte that is read again.
  void record_first_labels() {
    string_reader earlier(text_);
    while (earlier.reread() == 0) {
      labels_.insert(earlier.position());
      earlier.read();
      earlier.read();
    }
  }

  std::string_view text_;
  string_reader strings_;
  labeled_text_buffer* target_;
  std::uint64_t counted_ = 0;
  std::unordered_set<types::uint32> labels_;
};

}  // namespace

void read_flat_form(std::string_view text, labeled_text_buffer& target) {
  std::uint64_t reread = 0;
  std::vector<level_reader> levels;
  levels.emplace_back(text, target);
  while (!levels.empty()) {
    level_reader& level = levels.back();
    const std::string label(level.read_label(reread));
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
