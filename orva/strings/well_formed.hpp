/// Whether a text is well-formed UTF-8, UTF-16 or UTF-32, and if not, where and why.
///
///     is_well_formed("gr\xC3\xBC\xC3\x9F")                     =>  true
///     const auto bad = first_malformed("abc\xE2\x82!");
///     bad->offset                                            =>  3
///     bad->length                                            =>  2      the bytes E2 82
///     bad->kind                                              =>  malformation::cut_short
///
/// These follow the Unicode Standard: UTF-8 is well-formed by its Table 3-7, UTF-16 where each surrogate is
/// in a pair of a high and a low one, UTF-32 where each unit is a code point and no surrogate. Noncharacters
/// such as U+FFFF are well-formed, and so is a byte order mark or U+FFFE anywhere.
///
/// The width of the code unit decides which of the three it is; see text_view.hpp for what is taken. Offsets
/// and lengths are in code units of the text. Nothing is copied, allocated, shared or thrown, and any thread
/// may call these.
///
/// `to_utf8`, `to_utf16` and `to_utf32` (strings/standard_transforms.hpp) convert by the same rules.
/// `diagnostics::describe(*bad, text)` (diagnostics/text_findings.hpp) says what is wrong, with line and
/// column.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/text_view.hpp"

namespace ORVA_NAMESPACE::strings {

/// What is wrong with a part of a text. The comment is the rule that it breaks.
enum class malformation {
  /// UTF-8: a byte from 80 to BF continues a character that a byte from C2 to F4 begins.
  stray_continuation,
  /// UTF-8: the bytes F8 to FF do not occur.
  invalid_byte,
  /// UTF-8: a character has no more bytes than it needs. C0 and C1 do not occur; E0 80 and F0 80 begin
  /// nothing.
  overlong,
  /// A surrogate is no character. UTF-16 has them in pairs, a high one and then a low one; UTF-8 and UTF-32
  /// have none.
  surrogate,
  /// UTF-8 and UTF-32: the last code point is U+10FFFF. F5 to F7 do not occur; F4 90 begins nothing.
  too_large,
  /// UTF-8: a character has all its bytes before the next one begins.
  cut_short,
  /// UTF-8 and UTF-16: the text does not end within a character. More text may complete this part: a program
  /// that reads in pieces puts it in front of the next piece.
  incomplete
};

/// A part of a text that is not well-formed: a maximal subpart, which is the longest beginning of a
/// well-formed character, or one unit that begins none. Well-formed text or another part follows it.
struct malformed_part {
  std::size_t offset = 0;
  std::size_t length = 0;
  malformation kind = malformation::stray_continuation;

  friend bool operator==(const malformed_part&, const malformed_part&) = default;
};

/// The first part that is not well-formed; nothing if there is none.
///
///     "abc"                =>  nothing
///     "a\xC0\x80"          =>  1, 1, overlong               and 80 is the next part
///     "\xED\xA0\x80"       =>  0, 1, surrogate
///     "\xF4\x90\x80\x80"   =>  0, 1, too_large
///     "\xF0\x9F\x98"       =>  0, 3, incomplete
///     0x41 0xDC00          =>  1, 1, surrogate              UTF-16
///     0xD83D               =>  0, 1, incomplete             UTF-16
///     0x110000             =>  0, 1, too_large              UTF-32
[[nodiscard]] ORVA_API std::optional<malformed_part> first_malformed(const text_view& text) noexcept;

/// Whether all of `text` is well-formed. An empty text is.
[[nodiscard]] ORVA_API bool is_well_formed(const text_view& text) noexcept;

}  // namespace ORVA_NAMESPACE::strings
