/// Counts the allocations of a test program.
///
///     EXPECT_EQ(allocations_of([] { variant(1); }), 1);
///
/// Replaces the allocation of the whole program, so that one source file of it includes this. Where the
/// system does not let that reach into the library, a test that counts what the library allocates is skipped.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

namespace orva_test {

inline int allocations = 0;

/// The number of allocations that the action makes.
template <typename Action>
int allocations_of(Action action) {
  const int before = allocations;
  action();
  return allocations - before;
}

}  // namespace orva_test

// Not inlined: GCC warns where it sees one of the functions and not its counterpart.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++orva_test::allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
