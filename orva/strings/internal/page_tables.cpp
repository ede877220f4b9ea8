#include "orva/strings/internal/page_tables.hpp"

#include <map>
#include <mutex>

namespace ORVA_NAMESPACE::strings::_private {

using internal::code_pages::asked_page;

const asked_page& page_of_system(int number) {
  static std::mutex mutex;
  // Never destroyed: objects with static storage duration may convert text until the process ends, and the
  // references to the pages must stay valid.
  static auto& pages = *new std::map<int, asked_page>;
  const std::lock_guard lock(mutex);
  return pages.try_emplace(number, number, platform::to_code_page, platform::from_code_page).first->second;
}

}  // namespace ORVA_NAMESPACE::strings::_private
