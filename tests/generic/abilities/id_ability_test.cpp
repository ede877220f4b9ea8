#include "orva/generic/abilities/id_ability.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <type_traits>
#include <vector>

namespace {

using ORVA_NAMESPACE::generic::abilities::id_ability;

TEST(id_ability, default_id_is_the_low_32_bits_of_the_objects_address) {
  const id_ability object;
  EXPECT_EQ(object.id(),
            static_cast<ORVA_NAMESPACE::types::uint32>(reinterpret_cast<std::uintptr_t>(&object)));
}

TEST(id_ability, default_ids_of_live_objects_differ) {
  std::vector<std::unique_ptr<id_ability>> on_the_heap;
  std::set<ORVA_NAMESPACE::types::uint32> ids;
  for (int i = 0; i < 1000; ++i) {
    on_the_heap.push_back(std::make_unique<id_ability>());
    ids.insert(on_the_heap.back()->id());
  }
  EXPECT_EQ(ids.size(), 1000u);
}

TEST(id_ability, given_id_is_kept) {
  EXPECT_EQ(id_ability(0).id(), 0u);
  EXPECT_EQ(id_ability(0xFFFFFFFF).id(), 0xFFFFFFFF);
}

TEST(id_ability, setter_returns_the_new_id) {
  id_ability object;
  EXPECT_EQ(object.id(17), 17u);
  EXPECT_EQ(object.id(), 17u);
}

TEST(id_ability, copies_take_the_id_over) {
  const id_ability source;
  const id_ability copy(source);
  EXPECT_EQ(copy.id(), source.id());
  id_ability target(3);
  target = source;
  EXPECT_EQ(target.id(), source.id());
}

TEST(id_ability, is_one_field_without_virtual_functions) {
  static_assert(!std::is_polymorphic_v<id_ability>);
  static_assert(sizeof(id_ability) == sizeof(ORVA_NAMESPACE::types::uint32));
}

}  // namespace
