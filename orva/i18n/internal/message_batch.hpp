/// `message_batch`: the messages of a catalog in the order of their file. Internal.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/i18n/message.hpp"
#include "orva/i18n/internal/message_table.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// A message is made as the node of the map that it will stand in, and never moves again.
class message_batch {
 public:
  using node = message_table::map::node_type;

  bool empty() const noexcept { return nodes_.empty(); }
  std::size_t size() const noexcept { return nodes_.size(); }

  void add(message_t&& message) {
    maker_.try_emplace(message.name(), std::move(message));
    nodes_.push_back(maker_.extract(maker_.begin()));
    const std::string_view name = nodes_.back().key();
    beginning_ = names_.empty() ? name : common_beginning(beginning_, name);
    names_.push_back(name);
  }

  /// The nodes in the order of their names, those of one name as they came. They belong to this object until
  /// they are moved into a map.
  std::vector<node*> sorted() {
    std::vector<place> places;
    places.reserve(names_.size());
    for (const std::string_view name : names_) {
      places.push_back({first_bytes(name.substr(beginning_.size())), places.size()});
    }
    std::stable_sort(places.begin(), places.end(), [this](const place& left, const place& right) {
      if (left.first_bytes != right.first_bytes) return left.first_bytes < right.first_bytes;
      return names_[left.index] < names_[right.index];
    });
    std::vector<node*> result;
    result.reserve(places.size());
    for (const place& each : places) result.push_back(&nodes_[each.index]);
    return result;
  }

 private:
  /// The names of a catalog begin alike as a rule. The bytes behind that, as a number, decide most
  /// comparisons.
  struct place {
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

  static std::string_view common_beginning(std::string_view one, std::string_view other) {
    if (other.starts_with(one)) return one;
    const auto end = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    return one.substr(0, static_cast<std::size_t>(end - one.begin()));
  }

  // Holds a message only while it is made into a node.
  message_table::map maker_;
  std::vector<node> nodes_;
  // The keys of the nodes, and what all of them begin with.
  std::vector<std::string_view> names_;
  std::string_view beginning_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
