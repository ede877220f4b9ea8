/// The tables of the code pages, made from the answers of the platform that defined them.
///
/// Internal: not installed.
#pragma once

#include "orva/internal/code_pages/double_byte_page.hpp"
#include "orva/internal/code_pages/single_byte_page.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

/// The page of this number, or null.
const single_byte_page* find_single_byte_page(int number);
const double_byte_page* find_double_byte_page(int number);

}  // namespace ORVA_NAMESPACE::internal::code_pages
