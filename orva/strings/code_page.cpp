#include "orva/strings/code_page.hpp"

#include <stdexcept>

#include "orva/internal/raise.hpp"
#include "orva/internal/transforms/transforms.hpp"
#include "orva/platform/code_page_conversion.hpp"
#include "orva/strings/internal/system_type.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

namespace transforms = internal::transforms;

/// A failed conversion counts as a text of length -1, which no string can have.
void require(bool converted) {
  if (!converted) throw std::length_error("string too long");
}

}  // namespace

std::string code_page::encode(ustring8::view text) const { return encode(transforms::utf8_to_utf16(text)); }

std::string code_page::encode(ustring16::view text) const {
  std::string bytes;
  require(platform::to_code_page(to_system_type(type_), text, bytes));
  return bytes;
}

std::string code_page::encode(ustring32::view text) const { return encode(transforms::utf32_to_utf16(text)); }

ustring8 code_page::as_utf8(std::string_view bytes) const {
  return transforms::utf16_to_utf8(as_utf16(bytes));
}

ustring16 code_page::as_utf16(std::string_view bytes) const {
  ustring16 text;
  require(platform::from_code_page(to_system_type(type_), bytes, text));
  return text;
}

ustring32 code_page::as_utf32(std::string_view bytes) const {
  return transforms::utf16_to_utf32(as_utf16(bytes));
}

wide_string code_page::as_ustring(std::string_view bytes) const { return as_utf16(bytes); }

int code_page::to_system_type(encoding_type type) const {
  if (const auto number = _private::system_type_of(type)) return *number;
  ORVA_RAISE(exceptions::invalid_argument_value, "Not valid code_page type",
             ORVA_QUALIFIED("strings::code_page::to_system_type"));
}

}  // namespace ORVA_NAMESPACE::strings
