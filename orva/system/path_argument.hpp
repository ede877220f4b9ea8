/// `path_argument`: the parameter of an operation that takes a path of any width and works on the 16-bit
/// path.
///
/// It is made implicitly from whatever the caller has. A `ustring16` is borrowed, not copied, and must live
/// as long as the argument does, which the end of the call's full expression grants; everything else is
/// converted into a path that the argument owns. Bytes are taken as UTF-8.
///
///     from ustring8    utf8_to_utf16     invalid text is the path "-1"
///     from ustring16   as it stands
///     from ustring32   utf32_to_utf16    not what other widths call a character above U+FFFE
#pragma once

#include <string>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::system {

class ORVA_API path_argument {
 public:
  path_argument(const strings::ustring16& path) noexcept : borrowed_(&path) {}
  path_argument(const strings::wide_string& path);
  path_argument(const strings::code_unit16* path);
  path_argument(const strings::ustring8& path);
  path_argument(const std::string& path);
  path_argument(const char* path);
  path_argument(const strings::ustring32& path);
  path_argument(const std::basic_string<strings::code_unit32>& path);
  path_argument(const strings::code_unit32* path);

  const strings::ustring16& get() const noexcept { return borrowed_ != nullptr ? *borrowed_ : converted_; }

 private:
  const strings::ustring16* borrowed_ = nullptr;
  strings::ustring16 converted_;
};

}  // namespace ORVA_NAMESPACE::system
