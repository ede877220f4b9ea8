#include "orva/system/path_argument.hpp"

#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::system {

path_argument::path_argument(const strings::wide_string& path) : converted_(path) {}
path_argument::path_argument(const strings::code_unit16* path) : converted_(path) {}
path_argument::path_argument(const strings::ustring8& path) : converted_(strings::utf8_to_utf16(path)) {}
path_argument::path_argument(const std::string& path) : converted_(strings::utf8_to_utf16(path)) {}
path_argument::path_argument(const char* path) : converted_(strings::utf8_to_utf16(path)) {}
path_argument::path_argument(const strings::ustring32& path) : converted_(strings::utf32_to_utf16(path)) {}
path_argument::path_argument(const std::basic_string<strings::code_unit32>& path)
    : converted_(strings::utf32_to_utf16(path)) {}
path_argument::path_argument(const strings::code_unit32* path) : converted_(strings::utf32_to_utf16(path)) {}

}  // namespace ORVA_NAMESPACE::system
