// Merges the messages of a loader into a set of catalogs.
#include <cstddef>
#include <iterator>
#include <utility>

#include "orva/generic/abilities/alloc_detection_ability.hpp"
#include "orva/i18n/xmc_file_loader.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;
using types::uint32;

namespace {

catalog_t& find_or_make(xmc_file_loader::catalog_map& target, const ustring8& name) {
  const auto position = target.lower_bound(name);
  if (position != target.end() && position->first == name) return position->second.checked();
  memory::pointers::shared_pointer<catalog_t> made(generic::abilities::create_dynamic<catalog_t>());
  made->_name(name);
  return *target.emplace_hint(position, name, std::move(made))->second;
}

}  // namespace

uint32 xmc_file_loader::combine_data(catalog_map& target) const { return merge(data_, target); }

uint32 xmc_file_loader::move_data(catalog_map& target) {
  const uint32 stored = merge(data_, target);
  reset();
  return stored;
}

/// Moves messages out of `data`, or copies them if it is const.
template <typename Data>
uint32 xmc_file_loader::merge(Data& data, catalog_map& target) const {
  uint32 stored = 0;
  for (auto& [name, messages] : data)
    stored += merge_messages(messages, find_or_make(target, name).messages_);
  return stored;
}

/// Among messages of equal weight the new one is stored, so that a second load brings the later text. (In
/// `add_messages` the first one stays.)
template <typename Messages>
uint32 xmc_file_loader::merge_messages(Messages& messages, message_table& target) const {
  uint32 stored = 0;
  if (target.empty()) {
    stored = static_cast<uint32>(messages.size());
    target = std::move(messages);
    return stored;
  }
  auto hint = target.begin();
  for (auto& [name, message] : messages) {
    const std::size_t size = target.size();
    const auto position = target.try_emplace(hint, name, std::move(message));
    hint = std::next(position);
    const bool exists_already = target.size() == size;
    if (exists_already) {
      if (outweighs(position->second, message)) continue;
      position->second = std::move(message);
    }
    ++stored;
  }
  return stored;
}

}  // namespace ORVA_NAMESPACE::i18n::_private
