#include "orva/i18n/internal/message_table.hpp"

#include <bit>
#include <functional>

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;

namespace {

/// At least a quarter of the slots stays free.
constexpr std::size_t slots_for(std::size_t messages) { return std::bit_ceil(messages + messages / 3 + 1); }

}  // namespace

message_table::message_table(map messages) : messages_(std::move(messages)) { reserve(messages_.size()); }

message_table& message_table::operator=(message_table other) noexcept {
  messages_.swap(other.messages_);
  slots_.swap(other.slots_);
  return *this;
}

std::uint32_t message_table::hash_of(std::string_view name) noexcept {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
}

const message_t* message_table::find(const ustring8& name) const {
  if (slots_.empty()) return nullptr;
  const std::uint32_t hash = hash_of(name);
  for (std::size_t step = 0; step < max_probes; ++step) {
    const slot& each = slot_at(hash + step);
    if (each.entry == nullptr) return nullptr;
    if (each.hash == hash && each.entry->first == name) return &each.entry->second;
  }
  const auto found = messages_.find(name);
  return found != messages_.end() ? &found->second : nullptr;
}

// The hash table grows before a message is added. If that throws, the message is in neither.

const message_t& message_table::insert_or_assign(const ustring8& name, const message_t& message) {
  reserve(size() + 1);
  const auto [position, inserted] = messages_.insert_or_assign(name, message);
  if (inserted) insert_slot(*position);
  return position->second;
}

message_table::iterator message_table::insert(const_iterator hint, map::node_type&& node) {
  reserve(size() + 1);
  const auto position = messages_.insert(hint, std::move(node));
  if (node.empty()) insert_slot(*position);
  return position;
}

void message_table::reserve(std::size_t messages) {
  if (slots_for(messages) <= slots_.size()) return;
  slots_.assign(slots_for(messages), slot());
  for (const auto& entry : messages_) insert_slot(entry);
}

void message_table::insert_slot(const map::value_type& entry) noexcept {
  const std::uint32_t hash = hash_of(entry.first);
  for (std::size_t step = 0; step < max_probes; ++step) {
    slot& each = slot_at(hash + step);
    if (each.entry != nullptr) continue;
    each = {hash, &entry};
    return;
  }
}

}  // namespace ORVA_NAMESPACE::i18n::_private
