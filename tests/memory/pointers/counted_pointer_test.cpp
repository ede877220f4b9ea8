#include "orva/memory/pointers/rc_pointer.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/memory/pointers/shared_pointer.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::abilities::create_dynamic;
using generic::abilities::reference_count_pointer_ability;
using memory::pointers::rc_pointer;
using memory::pointers::shared_pointer;

std::atomic<int> alive{0};

/// A class for `shared_pointer`: without virtual functions.
struct plain : reference_count_pointer_ability<plain> {
  plain() { ++alive; }
  plain(const plain& other) : reference_count_pointer_ability<plain>(other) { ++alive; }
  plain& operator=(const plain&) = default;
  ~plain() { --alive; }
  using reference_count_pointer_ability_b::get_ref_count;

  shared_pointer<plain> next;
};

/// A class for `rc_pointer`: polymorphic, with the count after the pointer to the virtual table.
struct polymorphic : generic::abilities::clone_ability, reference_count_pointer_ability<polymorphic> {
  polymorphic() { ++alive; }
  polymorphic(const polymorphic& other)
      : generic::abilities::clone_ability(other), reference_count_pointer_ability<polymorphic>(other) {
    ++alive;
  }
  polymorphic& operator=(const polymorphic&) = default;
  ~polymorphic() override { --alive; }
  virtual polymorphic* clone() const { return create_dynamic<polymorphic>(*this); }
  using reference_count_pointer_ability_b::get_ref_count;

  rc_pointer<polymorphic> next;
};

struct derived : polymorphic {
  explicit derived(bool& destroyed) : destroyed_(&destroyed) {}
  ~derived() override { *destroyed_ = true; }
  derived* clone() const override { return create_dynamic<derived>(*this); }

  bool* destroyed_;
};

template <typename Pointer>
using target_of = std::remove_reference_t<decltype(*std::declval<Pointer>())>;

template <typename Pointer>
class counted_pointer : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(alive, 0); }
  void TearDown() override { EXPECT_EQ(alive, 0); }
};
using pointer_templates = testing::Types<rc_pointer<polymorphic>, shared_pointer<plain>>;
TYPED_TEST_SUITE(counted_pointer, pointer_templates);

TYPED_TEST(counted_pointer, is_one_word) { static_assert(sizeof(TypeParam) == sizeof(void*)); }

TYPED_TEST(counted_pointer, default_is_empty) {
  const TypeParam empty;
  EXPECT_FALSE(empty);
  EXPECT_EQ(empty.get(), nullptr);
  EXPECT_TRUE(empty == nullptr);
}

TYPED_TEST(counted_pointer, null_is_empty) {
  TypeParam pointer(nullptr);
  EXPECT_FALSE(pointer);
  pointer = nullptr;
  EXPECT_FALSE(pointer);
}

TYPED_TEST(counted_pointer, last_one_destroys_a_heap_object) {
  using target = target_of<TypeParam>;
  TypeParam first(create_dynamic<target>());
  EXPECT_EQ(first->get_ref_count(), 1u);
  {
    const TypeParam second(first);
    EXPECT_EQ(first->get_ref_count(), 2u);
    EXPECT_EQ(second.get(), first.get());
  }
  EXPECT_EQ(first->get_ref_count(), 1u);
  EXPECT_EQ(alive, 1);
  first = nullptr;
  EXPECT_EQ(alive, 0);
}

/// Stores its count when it is destroyed.
struct final_count : reference_count_pointer_ability<final_count> {
  explicit final_count(unsigned int& noted) : noted_(noted) {}
  ~final_count() { noted_ = get_ref_count(); }

  unsigned int& noted_;
};

TEST(counted_object, has_the_count_zero_in_its_destructor_when_its_only_pointer_deletes_it) {
  unsigned int noted = 99;
  { const shared_pointer<final_count> only(create_dynamic<final_count>(noted)); }
  EXPECT_EQ(noted, 0u);
}

TEST(counted_object, has_the_count_zero_in_its_destructor_when_the_last_of_several_pointers_deletes_it) {
  unsigned int noted = 99;
  {
    const shared_pointer<final_count> first(create_dynamic<final_count>(noted));
    const shared_pointer<final_count> second(first);
  }
  EXPECT_EQ(noted, 0u);
}

TYPED_TEST(counted_pointer, leaves_an_object_of_a_scope_alive_at_zero) {
  target_of<TypeParam> object;
  { const TypeParam pointer(&object); }
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(object.get_ref_count(), 0u);
  const TypeParam again(&object);
  EXPECT_EQ(again->get_ref_count(), 1u) << "the object stays usable";
}

TYPED_TEST(counted_pointer, leaves_an_unmarked_heap_object_to_its_owner) {
  const auto owner = std::make_unique<target_of<TypeParam>>();
  { const TypeParam pointer(owner.get()); }
  EXPECT_EQ(alive, 1);
}

TYPED_TEST(counted_pointer, is_made_again_from_the_raw_pointer) {
  TypeParam first(create_dynamic<target_of<TypeParam>>());
  auto* raw = first.get();
  const TypeParam second(raw);
  first = nullptr;
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(second->get_ref_count(), 1u);
}

TYPED_TEST(counted_pointer, assignment_to_itself_changes_nothing) {
  TypeParam pointer(create_dynamic<target_of<TypeParam>>());
  auto* raw = pointer.get();
  const TypeParam& same = pointer;
  pointer = same;
  EXPECT_EQ(pointer.get(), raw);
  EXPECT_EQ(pointer->get_ref_count(), 1u);
  pointer = std::move(const_cast<TypeParam&>(same));
  EXPECT_EQ(pointer.get(), raw);
  EXPECT_EQ(pointer->get_ref_count(), 1u);
}

TYPED_TEST(counted_pointer, assignment_of_the_raw_pointer_held_changes_nothing) {
  TypeParam pointer(create_dynamic<target_of<TypeParam>>());
  auto* raw = pointer.get();
  pointer = raw;
  EXPECT_EQ(pointer.get(), raw);
  EXPECT_EQ(pointer->get_ref_count(), 1u);
}

TYPED_TEST(counted_pointer, assignment_releases_the_old_target) {
  using target = target_of<TypeParam>;
  TypeParam one(create_dynamic<target>());
  const TypeParam two(create_dynamic<target>());
  one = two;
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(two->get_ref_count(), 2u);
  one = create_dynamic<target>();
  EXPECT_EQ(alive, 2);
  EXPECT_EQ(two->get_ref_count(), 1u);
  one = TypeParam();
  EXPECT_EQ(alive, 1);
}

TYPED_TEST(counted_pointer, assignment_between_pointers_to_one_target_keeps_it) {
  TypeParam one(create_dynamic<target_of<TypeParam>>());
  const TypeParam two(one);
  one = two;
  EXPECT_EQ(two->get_ref_count(), 2u);
}

TYPED_TEST(counted_pointer, move_hands_the_target_over_without_counting) {
  TypeParam source(create_dynamic<target_of<TypeParam>>());
  auto* raw = source.get();
  TypeParam moved(std::move(source));
  EXPECT_FALSE(source);
  EXPECT_EQ(moved.get(), raw);
  EXPECT_EQ(moved->get_ref_count(), 1u);
  TypeParam assigned(create_dynamic<target_of<TypeParam>>());
  assigned = std::move(moved);
  EXPECT_FALSE(moved);
  EXPECT_EQ(assigned.get(), raw);
  EXPECT_EQ(alive, 1);
}

TYPED_TEST(counted_pointer, emptied_by_a_move_can_be_used_again) {
  using target = target_of<TypeParam>;
  TypeParam source(create_dynamic<target>());
  const TypeParam moved(std::move(source));
  source = moved;
  EXPECT_EQ(moved->get_ref_count(), 2u);
}

TYPED_TEST(counted_pointer, compares_by_target) {
  using target = target_of<TypeParam>;
  const TypeParam one(create_dynamic<target>()), same(one), other(create_dynamic<target>()), empty;
  EXPECT_TRUE(one == same);
  EXPECT_TRUE(one != other);
  EXPECT_TRUE(one == same.get());
  EXPECT_TRUE(other.get() != one);
  EXPECT_TRUE(empty == TypeParam());
  EXPECT_TRUE(one != nullptr);
}

TYPED_TEST(counted_pointer, dereferences_to_the_target_itself) {
  const TypeParam pointer(create_dynamic<target_of<TypeParam>>());
  EXPECT_EQ(&*pointer, pointer.get());
  EXPECT_EQ(pointer.operator->(), pointer.get());
}

TYPED_TEST(counted_pointer, stands_in_containers) {
  using target = target_of<TypeParam>;
  const TypeParam kept(create_dynamic<target>());
  {
    std::vector<TypeParam> many(100, kept);
    EXPECT_EQ(kept->get_ref_count(), 101u);
    many.erase(many.begin() + 10, many.end());
    EXPECT_EQ(kept->get_ref_count(), 11u);
    many.insert(many.begin(), TypeParam(create_dynamic<target>()));
    EXPECT_EQ(alive, 2);
  }
  EXPECT_EQ(kept->get_ref_count(), 1u);
}

/// A pointer that is a member of the object which it is assigned from: the old head of the list is deleted,
/// the new head stays.
TYPED_TEST(counted_pointer, moves_along_a_chain_that_only_the_head_keeps_alive) {
  using target = target_of<TypeParam>;
  TypeParam head;
  for (int i = 0; i < 1000; ++i) {
    TypeParam added(create_dynamic<target>());
    added->next = head;
    head = added;
  }
  EXPECT_EQ(alive, 1000);
  for (int left = 1000; left > 0; --left) {
    EXPECT_EQ(alive, left);
    if (left % 2 == 0)
      head = head->next;
    else
      head = std::move(head->next);
  }
  EXPECT_FALSE(head);
}

TYPED_TEST(counted_pointer, destroys_a_chain_with_its_head) {
  TypeParam head;
  for (int i = 0; i < 1000; ++i) {
    TypeParam added(create_dynamic<target_of<TypeParam>>());
    added->next = std::move(head);
    head = std::move(added);
  }
  head = nullptr;
  EXPECT_EQ(alive, 0);
}

TYPED_TEST(counted_pointer, copy_of_a_counted_object_belongs_to_nobody) {
  using target = target_of<TypeParam>;
  const TypeParam one(create_dynamic<target>()), two(one);
  const target copy(*one);
  EXPECT_EQ(copy.get_ref_count(), 0u);
  EXPECT_FALSE(copy.is_created_dynamic());
}

/// Random copies, moves and assignments between a few pointers. The counts are compared with the number of
/// pointers to each object.
TYPED_TEST(counted_pointer, counts_agree_with_a_count_by_hand) {
  using target = target_of<TypeParam>;
  orva_test::random_engine random;
  std::vector<TypeParam> pointers(12);
  for (int step = 0; step < 5000; ++step) {
    auto& to = pointers[random() % pointers.size()];
    auto& from = pointers[random() % pointers.size()];
    switch (random() % 6) {
      case 0:
        to = create_dynamic<target>();
        break;
      case 1:
        to = from;
        break;
      case 2:
        to = std::move(from);
        break;
      case 3:
        to = from.get();
        break;
      case 4:
        std::swap(to, from);
        break;
      default:
        to = nullptr;
        break;
    }
    std::vector<target*> distinct;
    for (const auto& pointer : pointers) {
      if (!pointer) continue;
      const auto held = std::count(pointers.begin(), pointers.end(), pointer);
      ASSERT_EQ(pointer->get_ref_count(), static_cast<types::uint32>(held));
      if (std::find(distinct.begin(), distinct.end(), pointer.get()) == distinct.end())
        distinct.push_back(pointer.get());
    }
    ASSERT_EQ(alive, static_cast<int>(distinct.size()));
  }
}

TYPED_TEST(counted_pointer, is_shared_between_threads) {
  constexpr int threads = 4, rounds = 5000;
  TypeParam shared(create_dynamic<target_of<TypeParam>>());
  std::vector<std::thread> users;
  for (int i = 0; i < threads; ++i) {
    users.emplace_back([mine = shared] {
      for (int round = 0; round < rounds; ++round) {
        TypeParam copy(mine);
        TypeParam other;
        other = copy;
        copy = std::move(other);
      }
    });
  }
  for (auto& user : users) user.join();
  users.clear();
  EXPECT_EQ(shared->get_ref_count(), 1u);
  EXPECT_EQ(alive, 1);
}

/// Any thread may release the last reference. The destructor sees what other threads wrote before they
/// released theirs.
TYPED_TEST(counted_pointer, is_destroyed_once_by_whichever_thread_is_last) {
  using target = target_of<TypeParam>;
  for (int round = 0; round < 200; ++round) {
    TypeParam shared(create_dynamic<target>());
    std::vector<std::thread> users;
    for (int i = 0; i < 3; ++i) {
      users.emplace_back([mine = shared]() mutable { mine = nullptr; });
    }
    shared->next = create_dynamic<target>();
    shared = nullptr;
    for (auto& user : users) user.join();
    ASSERT_EQ(alive, 0);
  }
}

TEST(rc_pointer, destroys_through_the_virtual_destructor) {
  bool destroyed = false;
  { const rc_pointer<polymorphic> pointer(create_dynamic<derived>(destroyed)); }
  EXPECT_TRUE(destroyed);
  EXPECT_EQ(alive, 0);
}

TEST(rc_pointer, takes_what_clone_returns) {
  bool destroyed = false;
  {
    const rc_pointer<polymorphic> original(create_dynamic<derived>(destroyed));
    const rc_pointer<polymorphic> second(original);
    polymorphic* raw = original->clone();
    EXPECT_TRUE(raw->is_created_dynamic());
    EXPECT_EQ(raw->get_ref_count(), 0u);
    const rc_pointer<polymorphic> copy(raw);
    EXPECT_NE(dynamic_cast<derived*>(copy.get()), nullptr);
    EXPECT_EQ(copy->get_ref_count(), 1u);
    EXPECT_EQ(original->get_ref_count(), 2u);
  }
  EXPECT_TRUE(destroyed);
  EXPECT_EQ(alive, 0);
}

}  // namespace
