/// The tables of every page that a `code_page` can name, those that only the system knows included.
///
/// Internal: not installed. Any thread may call.
#pragma once

#include "orva/internal/code_pages/any_page.hpp"
#include "orva/internal/code_pages/asked_page.hpp"
#include "orva/platform/code_page_conversion.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// The tables of a page of the system, which is asked when this is first called for a number.
const internal::code_pages::asked_page& page_of_system(int number);

/// Calls `use` with the tables of a system type, as `system_type_of` returns it.
template <typename Use>
void with_tables(int system_type, Use use) {
  const int number = platform::page_number(system_type);
  if (!internal::code_pages::with_page(number, use)) page_of_system(number).with_tables(use);
}

}  // namespace ORVA_NAMESPACE::strings::_private
