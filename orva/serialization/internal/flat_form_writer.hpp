/// Writes the flat form of a labeled buffer; `flat_form_reader.hpp` reads it.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orva/serialization/internal/backward_text_writer.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// Writes from the last entry to the first. The length of a group is then known before it is written, and
/// every byte is written once, at any depth. `TextOf` gives the text of a value.
template <typename TextOf>
class flat_form_writer {
 public:
  using entries = std::map<std::string, labeled_text_buffer::entry>;

  /// Replaces the content of `text`.
  flat_form_writer(std::string& text, TextOf text_of) : text_(text), text_of_(std::move(text_of)) {}

  void write(const entries& root) {
    enter(root);
    while (!levels_.empty()) {
      level& current = levels_.back();
      if (current.next == current.end) {
        leave();
      } else if (current.next->second.group.is_empty()) {
        text_.prepend_string(text_of_(current.next->second.value));
        text_.prepend_string(current.next->first);
        ++current.next;
      } else {
        enter(current.next->second.group.entries());
      }
    }
    text_.finish();
  }

 private:
  struct level {
    entries::const_reverse_iterator next;
    entries::const_reverse_iterator end;
    /// The size of the text after this level.
    std::size_t size_after;
  };

  void enter(const entries& group) {
    if (!levels_.empty()) text_.close_string();
    levels_.push_back({group.rbegin(), group.rend(), text_.size()});
  }

  void leave() {
    const std::size_t length = text_.size() - levels_.back().size_after;
    levels_.pop_back();
    if (levels_.empty()) return;
    text_.open_string(length);
    const auto& [label, stored] = *levels_.back().next++;
    text_.prepend_string(label, " ");
    if (stored.value == types::nil) return;
    text_.prepend_string(text_of_(stored.value));
    text_.prepend_string(label);
  }

  backward_text_writer text_;
  TextOf text_of_;
  std::vector<level> levels_;
};

}  // namespace ORVA_NAMESPACE::serialization::_private
