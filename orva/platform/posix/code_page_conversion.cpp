#include "orva/platform/code_page_conversion.hpp"

#include "orva/internal/code_pages/conversion.hpp"

namespace ORVA_NAMESPACE::platform {

// Files, terminals and names are in UTF-8 here, so that is what the two system encodings are. No setting is
// read.
int page_number(int page) { return page == ansi_code_page || page == oem_code_page ? utf8_code_page : page; }

bool to_code_page(int page, std::basic_string_view<strings::code_unit16> text, std::string& bytes) {
  return internal::code_pages::encode_into(page_number(page), text, bytes);
}

bool from_code_page(int page, std::string_view bytes, std::basic_string<strings::code_unit16>& text) {
  return internal::code_pages::decode_into(page_number(page), bytes, text);
}

}  // namespace ORVA_NAMESPACE::platform
