#include "orva/strings/text_argument.hpp"

#include "orva/internal/transforms/transforms.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

text_argument::text_argument(const std::string& text) : converted_(text) {}
text_argument::text_argument(const char* text) : converted_(text) {}
text_argument::text_argument(const ustring16& text) : converted_(_private::any_utf16_to_utf8(text)) {}
text_argument::text_argument(const wide_string& text) : converted_(_private::any_utf16_to_utf8(text)) {}
text_argument::text_argument(const code_unit16* text) : converted_(_private::any_utf16_to_utf8(text)) {}
text_argument::text_argument(const ustring32& text) : converted_(utf32_to_utf8(text)) {}
text_argument::text_argument(const std::basic_string<code_unit32>& text) : converted_(utf32_to_utf8(text)) {}
text_argument::text_argument(const code_unit32* text) : converted_(utf32_to_utf8(text)) {}

}  // namespace ORVA_NAMESPACE::strings
