#include "orva/internal/code_pages/tables.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace ORVA_NAMESPACE::internal::code_pages {

namespace {

#include "orva/internal/code_pages/page_932.inc"
#include "orva/internal/code_pages/page_936.inc"
#include "orva/internal/code_pages/page_949.inc"
#include "orva/internal/code_pages/page_950.inc"
#include "orva/internal/code_pages/single_byte_pages.inc"

/// Pages whose numbers follow one another, as they do in their table.
struct run_of_pages {
  int first;
  int count;
};

constexpr run_of_pages runs[] = {{1250, 9}, {20866, 1}, {21866, 1}, {28591, 9}, {28605, 1}};

constexpr bool runs_follow_the_table() {
  std::size_t index = 0;
  for (const auto& run : runs) {
    for (int i = 0; i < run.count; ++i) {
      if (single_byte_pages[index++].number != run.first + i) return false;
    }
  }
  return index == std::size(single_byte_pages);
}
static_assert(runs_follow_the_table());

}  // namespace

const single_byte_page* find_single_byte_page(int number) {
  const single_byte_page* page = single_byte_pages;
  for (const auto& run : runs) {
    if (number >= run.first && number - run.first < run.count) return page + (number - run.first);
    page += run.count;
  }
  return nullptr;
}

const double_byte_page* find_double_byte_page(int number) {
  switch (number) {
    case 932:
      return &page_932;
    case 936:
      return &page_936;
    case 949:
      return &page_949;
    case 950:
      return &page_950;
    default:
      return nullptr;
  }
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
