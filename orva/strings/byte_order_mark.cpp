#include "orva/strings/byte_order_mark.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

using namespace std::string_view_literals;

/// UTF-32 is before UTF-16, whose little-endian mark its own begins with.
constexpr unicode_encoding by_length_of_mark[] = {
    unicode_encoding::utf32_little_endian, unicode_encoding::utf32_big_endian, unicode_encoding::utf8,
    unicode_encoding::utf16_little_endian, unicode_encoding::utf16_big_endian};

}  // namespace

std::optional<found_byte_order_mark> byte_order_mark_of(std::string_view bytes) noexcept {
  for (const auto encoding : by_length_of_mark) {
    const auto mark = byte_order_mark_in(encoding);
    if (bytes.starts_with(mark)) return found_byte_order_mark{encoding, mark.size()};
  }
  return std::nullopt;
}

std::string_view byte_order_mark_in(unicode_encoding encoding) noexcept {
  switch (encoding) {
    case unicode_encoding::utf8:
      return "\xEF\xBB\xBF"sv;
    case unicode_encoding::utf16_little_endian:
      return "\xFF\xFE"sv;
    case unicode_encoding::utf16_big_endian:
      return "\xFE\xFF"sv;
    case unicode_encoding::utf32_little_endian:
      return "\xFF\xFE\0\0"sv;
    case unicode_encoding::utf32_big_endian:
      return "\0\0\xFE\xFF"sv;
  }
  return {};
}

}  // namespace ORVA_NAMESPACE::strings
