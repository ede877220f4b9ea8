#include "orva/generic/abilities/reference_count_pointer_ability.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace ORVA_NAMESPACE::generic::abilities;
using ORVA_NAMESPACE::types::uint32;

/// Makes the operations for the pointer templates public.
struct counted : reference_count_pointer_ability<counted> {
  using reference_count_pointer_ability_b::dec_pointer_ref;
  using reference_count_pointer_ability_b::get_ref_count;
  using reference_count_pointer_ability_b::inc_pointer_ref;
  using reference_count_pointer_ability_b::is_pointer_referenced;
};

TEST(reference_count_pointer_ability, starts_at_zero_and_unmarked) {
  const counted object;
  EXPECT_EQ(object.get_ref_count(), 0u);
  EXPECT_FALSE(object.is_pointer_referenced());
  EXPECT_FALSE(object.is_created_dynamic());
}

TEST(reference_count_pointer_ability, counts_up_and_down) {
  counted object;
  object.inc_pointer_ref();
  object.inc_pointer_ref();
  EXPECT_EQ(object.get_ref_count(), 2u);
  EXPECT_TRUE(object.is_pointer_referenced());
  EXPECT_EQ(object.dec_pointer_ref(), 1);
  EXPECT_EQ(object.dec_pointer_ref(), 0);
  EXPECT_FALSE(object.is_pointer_referenced());
}

TEST(reference_count_pointer_ability, results_have_the_documented_widths) {
  static_assert(std::is_same_v<decltype(std::declval<counted>().get_ref_count()), uint32>);
  static_assert(std::is_same_v<decltype(std::declval<counted>().dec_pointer_ref()), int>);
}

TEST(reference_count_pointer_ability, counter_wraps_at_32_bits) {
  counted object;
  EXPECT_EQ(object.dec_pointer_ref(), -1);
  EXPECT_EQ(object.get_ref_count(), std::numeric_limits<uint32>::max());
  object.inc_pointer_ref();
  EXPECT_EQ(object.get_ref_count(), 0u);
}

TEST(reference_count_pointer_ability, copy_construction_starts_fresh) {
  const std::unique_ptr<counted> source(create_dynamic<counted>());
  source->inc_pointer_ref();
  source->inc_pointer_ref();
  const counted copy(*source);
  EXPECT_EQ(copy.get_ref_count(), 0u);
  EXPECT_FALSE(copy.is_created_dynamic());
  EXPECT_EQ(source->get_ref_count(), 2u);
}

TEST(reference_count_pointer_ability, move_construction_starts_fresh) {
  const std::unique_ptr<counted> source(create_dynamic<counted>());
  source->inc_pointer_ref();
  const counted moved(std::move(*source));
  EXPECT_EQ(moved.get_ref_count(), 0u);
  EXPECT_FALSE(moved.is_created_dynamic());
  EXPECT_EQ(source->get_ref_count(), 1u);
}

TEST(reference_count_pointer_ability, copy_assignment_takes_count_and_mark_over) {
  const std::unique_ptr<counted> source(create_dynamic<counted>());
  source->inc_pointer_ref();
  source->inc_pointer_ref();
  counted target;
  target = *source;
  EXPECT_EQ(target.get_ref_count(), 2u);
  EXPECT_TRUE(target.is_created_dynamic());
}

TEST(reference_count_pointer_ability, assignment_to_itself_changes_nothing) {
  counted object;
  object.inc_pointer_ref();
  const counted& same = object;
  object = same;
  EXPECT_EQ(object.get_ref_count(), 1u);
}

TEST(reference_count_pointer_ability, no_count_is_lost_between_threads) {
  constexpr int threads = 4, rounds = 20000;
  counted object;
  std::vector<std::thread> counters;
  for (int i = 0; i < threads; ++i) {
    counters.emplace_back([&object] {
      for (int round = 0; round < rounds; ++round) object.inc_pointer_ref();
      for (int round = 0; round < rounds / 2; ++round) object.dec_pointer_ref();
    });
  }
  for (auto& counter : counters) counter.join();
  EXPECT_EQ(object.get_ref_count(), static_cast<uint32>(threads * rounds / 2));
}

}  // namespace
