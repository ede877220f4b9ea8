#include "orva/platform/code_page_conversion.hpp"

#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

/// The text without its terminator, which the system would otherwise take for the second byte of a cut
/// sequence. Nothing at all is an error to it, and has to be kept from it.
template <typename View>
View up_to_zero(View text) {
  return text.substr(0, text.find(typename View::value_type{}));
}

/// Asks `convert(to, room)` for the size and then for the result.
template <typename Text, typename Convert>
bool convert_into(Text& result, Convert convert) {
  const int size = convert(nullptr, 0);
  if (size <= 0) return false;
  result.resize(static_cast<std::size_t>(size));
  return convert(result.data(), size) == size;
}

}  // namespace

int page_number(int page) {
  if (page == ansi_code_page) return static_cast<int>(windows::calls::get_acp());
  if (page == oem_code_page) return static_cast<int>(windows::calls::get_oemcp());
  return page;
}

bool to_code_page(int page, std::basic_string_view<strings::code_unit16> text, std::string& bytes) {
  const auto units = up_to_zero(text);
  bytes.clear();
  if (units.empty()) return true;
  if (units.size() >= internal::code_pages::length_limit) return false;
  return convert_into(bytes, [&](char* to, int room) {
    return windows::calls::wide_char_to_multi_byte(static_cast<UINT>(page), units.data(),
                                                   static_cast<int>(units.size()), to, room);
  });
}

bool from_code_page(int page, std::string_view bytes, std::basic_string<strings::code_unit16>& text) {
  const auto counted = up_to_zero(bytes);
  text.clear();
  if (counted.empty()) return true;
  if (counted.size() >= internal::code_pages::length_limit) return false;
  return convert_into(text, [&](wchar_t* to, int room) {
    return windows::calls::multi_byte_to_wide_char(static_cast<UINT>(page), counted.data(),
                                                   static_cast<int>(counted.size()), to, room);
  });
}

}  // namespace ORVA_NAMESPACE::platform
