/// `message_table`: the messages of a catalog, sorted by name, with a hash table for lookups.
///
/// The hash table holds pointers to the entries of the sorted map. A lookup in it costs less than the string
/// comparisons on the way down the map, as the names of a catalog usually have a long common prefix. A table
/// is a value that owns its messages; any number of threads may read it while none changes it.
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
  // As in the map: a message that has the name already stays, and the result points to it.
  iterator insert(const_iterator hint, map::node_type&& node);
  template <typename Message>
  iterator try_emplace(const_iterator hint, const strings::ustring8& name, Message&& message) {
    reserve(size() + 1);
    const std::size_t before = size();
    const auto position = messages_.try_emplace(hint, name, std::forward<Message>(message));
    if (size() != before) insert_slot(*position);
    return position;
  }

  /// Makes the hash table large enough for that many messages in all.
  void reserve(std::size_t messages);

 private:
  struct slot {
    std::uint32_t hash = 0;
    const map::value_type* entry = nullptr;
  };

  /// How many slots are tried for a name. A message that finds none free is looked up in the map instead.
  /// That bounds the cost of names that were chosen to have one hash.
  static constexpr std::size_t max_probes = 16;

  static std::uint32_t hash_of(std::string_view name) noexcept;
  slot& slot_at(std::size_t position) noexcept { return slots_[position & (slots_.size() - 1)]; }
  const slot& slot_at(std::size_t position) const noexcept { return slots_[position & (slots_.size() - 1)]; }
  /// REQUIRES: `reserve` was called for this message, too.
  void insert_slot(const map::value_type& entry) noexcept;

  map messages_;
  // The size is 0 or a power of two.
  std::vector<slot> slots_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
