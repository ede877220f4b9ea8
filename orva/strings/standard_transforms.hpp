/// Conversion between UTF-8, UTF-16 and UTF-32 by the Unicode Standard, with a report of bad text.
///
///     const auto wide = to_utf16("gr\xC3\xBC\xC3\x9F");
///     wide.text                                          =>  u"gr\u00FC\u00DF"
///     const auto damaged = to_utf16("abc\x80");
///     damaged.text, damaged.replaced                     =>  u"abc\uFFFD", 1
///     damaged.first_malformed->offset                    =>  3
///
/// Each takes text of any width (text_view.hpp), of its own too: `to_utf8` of UTF-8 is a copy in which bad
/// parts are replaced. What is malformed is described in strings/well_formed.hpp. All well-formed text is
/// converted exactly, so that converting back gives the same text; a byte order mark, U+FFFE and
/// noncharacters are characters like any other.
///
/// `diagnostics::describe(*damaged.first_malformed, source)` (diagnostics/text_findings.hpp) says what is
/// wrong, with line and column.
///
/// Exhausted memory and text that is too long throw what the standard string throws; bad text does not throw.
/// Nothing is shared between calls, so any thread may call these.
#pragma once

#include <cstddef>
#include <optional>

#include "orva/export.hpp"
#include "orva/strings/text_view.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/well_formed.hpp"

namespace ORVA_NAMESPACE::strings {

/// What a transform does with a part that is not well-formed.
enum class on_malformed {
  /// Write U+FFFD, the replacement character, for each part and go on after it. The parts are those that the
  /// standard recommends: maximal subparts of a character.
  replace,
  /// End before the first one.
  stop
};

template <code_unit Unit>
struct transformed {
  /// Everything but what was replaced. With `stop`, what is before the first malformed part.
  basic_ustring<Unit> text;
  /// The number of parts for which U+FFFD was written; 0 with `stop`.
  std::size_t replaced = 0;
  /// Where in the source, in its code units, the first malformed part is; nothing if all is well-formed.
  std::optional<malformed_part> first_malformed;
};

///     0xD83D 0xDE00             =>  "\xF0\x9F\x98\x80"
///     0x41 0xD800 0x42          =>  "A\xEF\xBF\xBD" "B"        replaced: 1, at 1
///     "\xC0\x80"                =>  two U+FFFD                 replaced: 2, at 0
[[nodiscard]] ORVA_API transformed<char> to_utf8(const text_view& text,
                                                 on_malformed policy = on_malformed::replace);

///     U+1F600                   =>  0xD83D 0xDE00              from UTF-8 and from UTF-32
///     U+FFFF                    =>  0xFFFF
///     "a\xE2\x82" "b"           =>  u"a\uFFFDb"                replaced: 1, at 1
///     "a\xE2\x82" "b", stop     =>  u"a"                       replaced: 0, at 1
[[nodiscard]] ORVA_API transformed<code_unit16> to_utf16(const text_view& text,
                                                         on_malformed policy = on_malformed::replace);

///     0xD83D 0xDE00             =>  0x1F600
///     "\xED\xA0\x80"            =>  three U+FFFD               replaced: 3, at 0
///     0x110000                  =>  U+FFFD                     replaced: 1, at 0
[[nodiscard]] ORVA_API transformed<code_unit32> to_utf32(const text_view& text,
                                                         on_malformed policy = on_malformed::replace);

}  // namespace ORVA_NAMESPACE::strings
