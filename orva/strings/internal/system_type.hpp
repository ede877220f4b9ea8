/// The system's number for each type of a code page.
///
/// Internal: not installed.
#pragma once

#include <optional>

#include "orva/platform/code_page_conversion.hpp"
#include "orva/strings/code_page.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// As `code_page::to_system_type` says; nothing for an invalid type.
inline std::optional<int> system_type_of(code_page::encoding_type type) {
  switch (type) {
    case code_page::ansi:
      return platform::ansi_code_page;
    case code_page::oem:
    case code_page::oem_alternate:
      return platform::oem_code_page;
    case code_page::utf8:
      return platform::utf8_code_page;
    case code_page::cp_932:
    case code_page::cp_936:
    case code_page::cp_949:
    case code_page::cp_950:
    case code_page::cp_1250:
    case code_page::cp_1251:
    case code_page::cp_1252:
    case code_page::cp_1253:
    case code_page::cp_1254:
    case code_page::cp_1255:
    case code_page::cp_1256:
    case code_page::cp_1257:
    case code_page::cp_1258:
    case code_page::koi8_r:
    case code_page::koi8_u:
    case code_page::iso_8859_1:
    case code_page::iso_8859_2:
    case code_page::iso_8859_3:
    case code_page::iso_8859_4:
    case code_page::iso_8859_5:
    case code_page::iso_8859_6:
    case code_page::iso_8859_7:
    case code_page::iso_8859_8:
    case code_page::iso_8859_9:
    case code_page::iso_8859_15:
      return static_cast<int>(type);
  }
  return std::nullopt;
}

}  // namespace ORVA_NAMESPACE::strings::_private
