#include "orva/strings/internal/page_tables.hpp"

#include <map>
#include <mutex>

namespace ORVA_NAMESPACE::strings::_private {

using internal::code_pages::asked_page;

const asked_page& page_of_system(int number) {
  static std::mutex mutex;
  static std::map<int, asked_page> pages;
  const std::lock_guard lock(mutex);
  return pages.try_emplace(number, number, platform::to_code_page, platform::from_code_page).first->second;
}

}  // namespace ORVA_NAMESPACE::strings::_private
