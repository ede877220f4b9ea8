/// `text_argument`: the parameter of an operation that takes text of any width and works in UTF-8.
///
/// It is made implicitly from whatever the caller has. A `ustring8` is borrowed, not copied, and must live as
/// long as the argument does, which the end of the call's full expression grants; everything else is
/// converted into a string that the argument owns. Bytes are taken as UTF-8; the other widths go through the
/// transforms of `strings/unicode.hpp`, so that bad text arrives as "-1". UTF-16 may begin with 0xFFFE, which
/// is then a character.
///
///     void set_title(const text_argument& title) { title_ = title.get(); }
///     set_title("plain");  set_title(u"wide");  set_title(some_ustring8);
#pragma once

#include <string>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

class ORVA_API text_argument {
 public:
  text_argument(const ustring8& text) noexcept : borrowed_(&text) {}
  text_argument(const std::string& text);
  text_argument(const char* text);
  text_argument(const ustring16& text);
  text_argument(const wide_string& text);
  text_argument(const code_unit16* text);
  text_argument(const ustring32& text);
  text_argument(const std::basic_string<code_unit32>& text);
  text_argument(const code_unit32* text);

  const ustring8& get() const noexcept { return borrowed_ != nullptr ? *borrowed_ : converted_; }
  operator const ustring8&() const noexcept { return get(); }

 private:
  const ustring8* borrowed_ = nullptr;
  ustring8 converted_;
};

}  // namespace ORVA_NAMESPACE::strings
