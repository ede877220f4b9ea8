// Building a list of items, and editing a document, when memory runs out: each allocation fails in turn. The
// test replaces the allocation of the whole program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "orva/config/config_document.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/module_config_dispatch.hpp"
#include "orva/config/std_config_dispatch.hpp"
#include "orva/config/user_item.hpp"

namespace {

constexpr long never = -1;

long live_blocks = 0;
/// The number of allocations that succeed before one fails.
long allocations_until_failure = never;

}  // namespace

void* operator new(std::size_t size) {
  if (allocations_until_failure != never && allocations_until_failure-- == 0) throw std::bad_alloc();
  void* const memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  ++live_blocks;
  return memory;
}
// Where GCC expands these but not the function above, it takes that one for the standard's and warns.
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory != nullptr) --live_blocks;
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

using namespace ORVA_NAMESPACE::config;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;

const char* const long_name = "a name that is too long for inline storage in a string.cfg";

/// Whether the action ran to its end before an allocation failed.
template <typename Action>
bool succeeds_with(long allocations, Action action) {
  allocations_until_failure = allocations;
  try {
    action();
    allocations_until_failure = never;
    return true;
  } catch (const std::bad_alloc&) {
    allocations_until_failure = never;
    return false;
  }
}

/// Fails each allocation of the action in turn, and expects that a failed run frees all its blocks.
template <typename Action>
void expect_no_leak(Action action) {
  action();  // makes the statics
  const long before = live_blocks;
  action();
  ASSERT_EQ(live_blocks, before);
  long allocations = 0;
  while (!succeeds_with(allocations, action)) {
    EXPECT_EQ(live_blocks, before) << "allocation " << allocations << " failed";
    ++allocations;
  }
  EXPECT_EQ(live_blocks, before);
  EXPECT_GT(allocations, 5);
}

class config_allocation : public testing::Test {
 protected:
  void SetUp() override {
    // A replaced operator does not reach into the library on every platform.
    const long before = live_blocks;
    const ORVA_NAMESPACE::types::variant value(1);
    if (live_blocks == before) GTEST_SKIP() << "the library allocates for itself";
  }

  static void expect_setup_without_leak(const config_dispatch& dispatch) {
    expect_no_leak([&] {
      item_list items;
      dispatch.setup(items);
    });
  }
};

TEST_F(config_allocation, setup_of_a_program_leaks_nothing_when_any_allocation_fails) {
  expect_setup_without_leak(std_config_dispatch(0, nullptr, nullptr, long_name, long_name));
}

TEST_F(config_allocation, setup_of_a_module_leaks_nothing_when_any_allocation_fails) {
  expect_setup_without_leak(
      module_config_dispatch(varg_list(argument(long_name), argument(long_name)), nullptr));
}

TEST_F(config_allocation, init_of_a_manager_leaks_nothing_when_any_allocation_fails) {
  const std_config_dispatch dispatch(0, nullptr, nullptr, long_name, long_name);
  expect_no_leak([&] {
    config_manager manager;
    manager.init(dispatch);
  });
}

/// Appends one item each time that it sets up a list.
class one_item_dispatch : public config_dispatch {
 public:
  void setup(item_list& items) const override { append(items, user_item()); }
  void load(item_list&) const override {}
  void unload(item_list&) const override {}
  void save(item_list&) const override {}
  one_item_dispatch* clone() const override { return new one_item_dispatch(*this); }
};

TEST_F(config_allocation, list_that_an_item_could_not_be_appended_to_is_unchanged) {
  const one_item_dispatch dispatch;
  item_list items;
  dispatch.setup(items);
  for (long allocations = 0; !succeeds_with(allocations, [&] { dispatch.setup(items); }); ++allocations) {
    EXPECT_EQ(items.size(), 1u);
  }
  EXPECT_EQ(items.size(), 2u);
}

/// Fails each allocation of an edit in turn, until the edit is made.
template <typename Edit>
void expect_unchanged_until_made(Edit edit) {
  const std::string text =
      "# note\n[a_long_name_of_a_section]\n# a note on the first\nfirst = 1\n\nlist[] = 1, 2\n";
  config_document document(text);
  const auto entries = document.entries();
  long allocations = 0;
  for (; !succeeds_with(allocations, [&] { EXPECT_EQ(edit(document).error, config_document::error::none); });
       ++allocations) {
    EXPECT_EQ(document.text(), text);
    EXPECT_EQ(document.entries(), entries);
  }
  EXPECT_GT(allocations, 5);
  EXPECT_NE(document.text(), text);
  EXPECT_EQ(document.entries(), config_document(document.text()).entries());
}

TEST_F(config_allocation, document_is_unchanged_by_an_edit_in_which_an_allocation_fails) {
  const std::string section = "a_long_name_of_a_section.";
  expect_unchanged_until_made(
      [&](config_document& document) { return document.set(section + "first", "2"); });
  expect_unchanged_until_made([&](config_document& document) { return document.set(section + "new", "2"); });
  expect_unchanged_until_made([&](config_document& document) { return document.remove(section + "first"); });
  expect_unchanged_until_made([&](config_document& document) {
    return document.set_array(section + "list", {"1", "x", "3"});
  });
  expect_unchanged_until_made(
      [&](config_document& document) { return document.add_section("another_section"); });
}

}  // namespace
