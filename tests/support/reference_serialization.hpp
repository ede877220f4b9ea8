/// The readers of the serialization forms in their plainest form: copies instead of views, recursion instead
/// of a stack, arithmetic instead of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"

namespace orva_test {

class reference_binary_reader {
 public:
  explicit reference_binary_reader(std::string data) : data_(std::move(data)) {}

  bool at_end() const { return position_ == 0xFFFFFFFF || position_ >= data_.size(); }

  std::uint64_t read_bits(std::uint32_t width) {
    if (at_end()) return 0;
    std::uint64_t bits = 0;
    for (std::uint32_t i = 0; i < width; ++i) {
      const std::size_t at = std::size_t{position_} + i;
      const std::uint64_t byte = at < data_.size() ? static_cast<unsigned char>(data_[at]) : 0;
      bits |= byte << (8 * i);
    }
    position_ += width;
    return bits;
  }

  /// Nothing where a buffer is null and a string empty.
  std::optional<std::string> read_bytes() {
    if (at_end()) return std::nullopt;
    const auto length = static_cast<std::uint32_t>(read_bits(4));
    if (at_end()) return std::nullopt;
    std::string bytes;
    for (std::uint32_t i = 0; i < length && position_ + std::size_t{i} < data_.size(); ++i) {
      bytes += data_[position_ + std::size_t{i}];
    }
    position_ += length;
    return bytes;
  }

  void reset() { position_ = 0; }

 private:
  std::string data_;
  std::uint32_t position_ = 0;
};

class reference_text_reader {
 public:
  static constexpr std::uint32_t mark = 0xFFFFFFFF;

  explicit reference_text_reader(std::string data) : data_(std::move(data)) {}

  bool at_end() const { return position_ == mark || position_ >= data_.size(); }
  std::uint32_t position() const { return position_; }
  void reset() { position_ = 0; }

  std::string read_number_text() {
    if (position_ == mark) return "";
    const std::uint32_t old = position_;
    std::size_t at = old;
    while (at < data_.size() && data_[at] != '\x01') ++at;
    position_ = at < data_.size() ? static_cast<std::uint32_t>(at) : mark;
    std::string text = substring(old, position_ == mark ? data_.size() : at - old);
    if (position_ != mark) position_ += 1;
    return text;
  }

  std::int32_t read_int32() {
    const std::string text = read_number_text();
    return ORVA_NAMESPACE::generic::convert::str_to_int32(text.c_str(), text.size(),
                                                          ORVA_NAMESPACE::types::radix_t::prefix, false);
  }

  std::string read_string() {
    if (position_ == mark) return "";
    const std::int32_t length = read_int32();
    const std::uint32_t begin = position_;
    position_ = begin + 1 + static_cast<std::uint32_t>(length);
    if (length == 0) return "";
    return substring(begin, static_cast<std::uint32_t>(length));
  }

 private:
  std::string substring(std::size_t begin, std::size_t count) const {
    if (begin > data_.size()) throw std::out_of_range("invalid string position");
    std::string text;
    for (std::size_t at = begin; at < data_.size() && count > 0; ++at, --count) text += data_[at];
    return text;
  }

  std::string data_;
  std::uint32_t position_ = 0;
};

/// The content of a labeled buffer. No value: nil.
struct reference_labeled {
  struct entry {
    std::unique_ptr<reference_labeled> group = std::make_unique<reference_labeled>();
    std::optional<std::string> value;
  };

  static std::string trimmed(std::string label) {
    const std::string blanks = " \n\r\t";
    while (!label.empty() && blanks.find(label.back()) != std::string::npos) label.pop_back();
    while (!label.empty() && blanks.find(label.front()) != std::string::npos) label.erase(0, 1);
    return label;
  }

  struct too_much_effort {};

  /// A reading that adds the sizes of the level's text for each label to no more than this stays below
  /// `labeled_text_buffer::max_reread`: a label and its value are each read again once at most.
  static constexpr std::size_t most_effort =
      ORVA_NAMESPACE::serialization::labeled_text_buffer::max_reread / 2;

  void read(const std::string& text) {
    std::size_t effort = most_effort;
    read(text, effort);
  }

  /// The rule of the flat form, word for word. The positions of labels are recorded only to end a reading
  /// that would repeat without end. Some texts take exponential time: throws `too_much_effort` then.
  void read(const std::string& text, std::size_t& effort) {
    entries.clear();
    reference_text_reader reader(text);
    std::set<std::uint32_t> labels;
    while (!reader.at_end() && labels.insert(reader.position()).second) {
      if (text.size() >= effort) throw too_much_effort();
      effort -= text.size();
      const std::string label = reader.read_string();
      if (label.empty()) return;
      if (label.back() == ' ') {
        auto& group = entries[trimmed(label)].group;
        group = std::make_unique<reference_labeled>();
        group->read(reader.read_string(), effort);
      } else {
        const std::string value = reader.read_string();
        entries[trimmed(label)].value = value;
      }
    }
  }

  static std::string item(const std::string& bytes) {
    return std::to_string(bytes.size()) + "\x01" + bytes + "\x01";
  }

  std::string flat() const {
    std::string text;
    for (const auto& [label, stored] : entries) {
      if (stored.group->entries.empty()) {
        text += item(label) + item(stored.value.value_or(""));
        continue;
      }
      if (stored.value) text += item(label) + item(*stored.value);
      text += item(label + " ") + item(stored.group->flat());
    }
    return text;
  }

  /// An empty label ends a reading of the flat form.
  bool has_empty_label() const {
    for (const auto& [label, stored] : entries) {
      if (label.empty() || stored.group->has_empty_label()) return true;
    }
    return false;
  }

  /// Whether a buffer holds the same entries, and nothing under other labels.
  bool is_content_of(ORVA_NAMESPACE::serialization::labeled_text_buffer& buffer) const {
    for (const auto& [label, stored] : entries) {
      if (!buffer.has_label(label) || buffer.has_value(label) != stored.value.has_value()) return false;
      if (buffer.retrieve_value(label).as_string() != stored.value.value_or("")) return false;
      if (!stored.group->is_content_of(*buffer.retrieve_group(label))) return false;
    }
    return buffer.is_empty() == entries.empty() && buffer.as_str() == flat();
  }

  std::map<std::string, entry> entries;
};

}  // namespace orva_test
