/// `message_batch`: the messages of one catalog element in the order of their file, until they are sorted.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/i18n/internal/message_table.hpp"
#include "orva/i18n/message.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// Each message is made as a node of a map. The node is later moved into the map of its catalog, so that the
/// message itself is never moved or copied.
class message_batch {
 public:
  using node = message_table::map::node_type;

  bool empty() const noexcept { return nodes_.empty(); }
  std::size_t size() const noexcept { return nodes_.size(); }

  void add(message_t&& message) {
    node_factory_.try_emplace(message.name(), std::move(message));
    nodes_.push_back(node_factory_.extract(node_factory_.begin()));
    const std::string_view name = nodes_.back().key();
    common_prefix_ = names_.empty() ? name : common_prefix_of(common_prefix_, name);
    names_.push_back(name);
  }

  /// The nodes sorted by name; nodes of one name keep their order. This object owns them until they are moved
  /// into a map.
  std::vector<node*> sorted() {
    std::vector<sort_key> keys;
    keys.reserve(names_.size());
    for (const std::string_view name : names_) {
      keys.push_back({first_bytes(name.substr(common_prefix_.size())), keys.size()});
    }
    std::stable_sort(keys.begin(), keys.end(), [this](const sort_key& left, const sort_key& right) {
      if (left.first_bytes != right.first_bytes) return left.first_bytes < right.first_bytes;
      return names_[left.index] < names_[right.index];
    });
    std::vector<node*> result;
    result.reserve(keys.size());
    for (const sort_key& key : keys) result.push_back(&nodes_[key.index]);
    return result;
  }

 private:
  /// The names of a catalog usually have a common prefix. The eight bytes after it, compared as a number,
  /// decide most comparisons without a look at the names.
  struct sort_key {
    std::uint64_t first_bytes;
    std::size_t index;
  };

  static std::uint64_t first_bytes(std::string_view text) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
      number = number << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    }
    return number;
  }

  static std::string_view common_prefix_of(std::string_view left, std::string_view right) {
    if (right.starts_with(left)) return left;
    const auto end = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first;
    return left.substr(0, static_cast<std::size_t>(end - left.begin()));
  }

  // Holds a message only while a node is made of it.
  message_table::map node_factory_;
  std::vector<node> nodes_;
  // The keys of the nodes.
  std::vector<std::string_view> names_;
  std::string_view common_prefix_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
