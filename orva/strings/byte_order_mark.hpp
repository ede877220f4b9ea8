/// `byte_order_mark_of`: which encoding of Unicode the first bytes of a file say that it has.
///
///     byte_order_mark_of("\xEF\xBB\xBFtext")     =>  {unicode_encoding::utf8, 3}
///     byte_order_mark_of("\xFF\xFEt\0"sv)        =>  {unicode_encoding::utf16_little_endian, 2}
///     byte_order_mark_of("text")                 =>  nothing
///
///     const auto mark = byte_order_mark_of(bytes);
///     if (mark) bytes.remove_prefix(mark->size);
///
/// Four bytes are enough. Those of UTF-32 in little-endian order, FF FE 00 00, are also UTF-16 that begins
/// with a zero: they count as UTF-32, since text seldom does. Fewer bytes than a mark has are no mark.
///
/// `remove_BOM` of `strings/unicode.hpp` removes a mark from text whose units are read already.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::strings {

enum class unicode_encoding {
  utf8,
  utf16_little_endian,
  utf16_big_endian,
  utf32_little_endian,
  utf32_big_endian,
};

struct found_byte_order_mark {
  unicode_encoding encoding;
  /// The number of its bytes.
  std::size_t size;

  bool operator==(const found_byte_order_mark&) const = default;
};

[[nodiscard]] ORVA_API std::optional<found_byte_order_mark> byte_order_mark_of(
    std::string_view bytes) noexcept;

/// The bytes of a mark, for the beginning of a file.
[[nodiscard]] ORVA_API std::string_view byte_order_mark_in(unicode_encoding encoding) noexcept;

}  // namespace ORVA_NAMESPACE::strings
