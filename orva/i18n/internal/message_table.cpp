#include "orva/i18n/internal/message_table.hpp"

#include <bit>
#include <functional>

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;

namespace {

/// A quarter of the slots stays free at least.
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
  for (std::size_t step = 0; step < longest_walk; ++step) {
    const slot& each = slot_at(hash + step);
    if (each.entry == nullptr) return nullptr;
    if (each.hash == hash && each.entry->first == name) return &each.entry->second;
  }
  const auto found = messages_.find(name);
  return found != messages_.end() ? &found->second : nullptr;
}

// Room is made in front, so that no entry can be in the map alone for want of memory.

const message_t& message_table::insert_or_assign(const ustring8& name, const message_t& message) {
  reserve(size() + 1);
  const auto [place, inserted] = messages_.insert_or_assign(name, message);
  if (inserted) take_slot(*place);
  return place->second;
}

message_table::iterator message_table::insert(const_iterator hint, map::node_type&& node) {
  reserve(size() + 1);
  const auto place = messages_.insert(hint, std::move(node));
  if (node.empty()) take_slot(*place);
  return place;
}

void message_table::reserve(std::size_t messages) {
  if (slots_for(messages) <= slots_.size()) return;
  slots_.assign(slots_for(messages), slot());
  for (const auto& entry : messages_) take_slot(entry);
}

void message_table::take_slot(const map::value_type& entry) noexcept {
  const std::uint32_t hash = hash_of(entry.first);
  for (std::size_t step = 0; step < longest_walk; ++step) {
    slot& each = slot_at(hash + step);
    if (each.entry != nullptr) continue;
    each = {hash, &entry};
    return;
  }
}

}  // namespace ORVA_NAMESPACE::i18n::_private
