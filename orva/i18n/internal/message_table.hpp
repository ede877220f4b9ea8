/// `message_table`: the messages of a catalog, in the order of their names and at hand by name. Not for use
/// on its own.
///
/// Beside the ordered map stands a hash table of its entries, so that a lookup does not walk down a tree of
/// long names that begin alike. A plain value that owns its messages; many threads may read one that nobody
/// changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/i18n/message.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

class message_table {
 public:
  using map = std::map<strings::ustring8, message_t>;
  using iterator = map::iterator;
  using const_iterator = map::const_iterator;

  message_table() = default;
  explicit message_table(map messages);
  message_table(const message_table& other) : message_table(other.messages_) {}
  message_table(message_table&& other) noexcept = default;
  message_table& operator=(message_table other) noexcept;
  ~message_table() = default;

  bool empty() const noexcept { return messages_.empty(); }
  std::size_t size() const noexcept { return messages_.size(); }
  iterator begin() noexcept { return messages_.begin(); }
  iterator end() noexcept { return messages_.end(); }
  const_iterator begin() const noexcept { return messages_.begin(); }
  const_iterator end() const noexcept { return messages_.end(); }

  /// Null if there is none.
  const message_t* find(const strings::ustring8& name) const;

  const message_t& insert_or_assign(const strings::ustring8& name, const message_t& message);
  // Like those of the map: what has the name already stays, and its place is returned.
  iterator insert(const_iterator hint, map::node_type&& node);
  template <typename Message>
  iterator try_emplace(const_iterator hint, const strings::ustring8& name, Message&& message) {
    reserve(size() + 1);
    const std::size_t before = size();
    const auto place = messages_.try_emplace(hint, name, std::forward<Message>(message));
    if (size() != before) take_slot(*place);
    return place;
  }

  /// Makes room in the hash table for that many messages in all.
  void reserve(std::size_t messages);

 private:
  struct slot {
    std::uint32_t hash = 0;
    const map::value_type* entry = nullptr;
  };

  /// How far a name may stand behind its first slot. One for which there is no slot is found in the map
  /// alone, so that names chosen for their hashes gain nothing.
  static constexpr std::size_t longest_walk = 16;

  static std::uint32_t hash_of(std::string_view name) noexcept;
  slot& slot_at(std::size_t position) noexcept { return slots_[position & (slots_.size() - 1)]; }
  const slot& slot_at(std::size_t position) const noexcept { return slots_[position & (slots_.size() - 1)]; }
  /// REQUIRES: there is room.
  void take_slot(const map::value_type& entry) noexcept;

  map messages_;
  // A power of two, or none at all.
  std::vector<slot> slots_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
