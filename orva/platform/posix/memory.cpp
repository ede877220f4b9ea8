#include "orva/platform/memory.hpp"

#include <sys/mman.h>

#include <cstdint>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

#ifdef MADV_HUGEPAGE

void expect_filling(char* begin, std::size_t size) noexcept {
  // Only whole large pages inside the memory are touched by the advice, so that nothing is spent on its
  // neighbours.
  constexpr std::uintptr_t large_page = 0x200000;
  const auto address = reinterpret_cast<std::uintptr_t>(begin);
  const auto first = (address + large_page - 1) / large_page * large_page;
  const auto last = (address + size) / large_page * large_page;
  // A refusal changes nothing but the speed.
  if (first < last) posix::calls::madvise(begin + (first - address), last - first, MADV_HUGEPAGE);
}

#else

void expect_filling(char*, std::size_t) noexcept {}

#endif

}  // namespace ORVA_NAMESPACE::platform
