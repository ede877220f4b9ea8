/// Writes the flat form of a labeled buffer; `flat_form_reader.hpp` reads it.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "orva/serialization/internal/backward_text_writer.hpp"
#include "orva/serialization/internal/labeled_contents.hpp"

namespace ORVA_NAMESPACE::serialization {

/// Writes from the last entry to the first. The length of a group is then known before it is written, and
/// every byte is written once, at any depth.
class labeled_text_buffer::flat_form_writer {
 public:
  explicit flat_form_writer(std::string& text) : text_(text) {}

  void write(const contents& root) {
    enter(root);
    while (!levels_.empty()) {
      level& current = levels_.back();
      if (current.next == current.end) {
        leave();
      } else if (current.next->second.group.is_empty()) {
        text_.prepend_string(current.next->second.value.as_string());
        text_.prepend_string(current.next->first);
        ++current.next;
      } else {
        enter(*current.next->second.group.contents_);
      }
    }
    text_.finish();
  }

 private:
  using entries = std::map<std::string, entry>;

  struct level {
    entries::const_reverse_iterator next;
    entries::const_reverse_iterator end;
    /// The size of the text after this level.
    std::size_t size_after;
  };

  void enter(const contents& group) {
    if (!levels_.empty()) text_.close_string();
    levels_.push_back({group.entries.rbegin(), group.entries.rend(), text_.size()});
  }

  void leave() {
    const std::size_t length = text_.size() - levels_.back().size_after;
    levels_.pop_back();
    if (levels_.empty()) return;
    text_.open_string(length);
    const auto& [label, stored] = *levels_.back().next++;
    text_.prepend_string(label, " ");
    if (stored.value == types::nil) return;
    text_.prepend_string(stored.value.as_string());
    text_.prepend_string(label);
  }

  _private::backward_text_writer text_;
  std::vector<level> levels_;
};

}  // namespace ORVA_NAMESPACE::serialization
