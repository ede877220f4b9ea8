/// `code_page`: conversion between the library's strings and byte strings in legacy encodings.
///
///     const code_page western(code_page::cp_1252);
///     western.encode("\xE2\x82\xAC")                       =>  "\x80"
///     western.as_utf8("\x80")                              =>  "\xE2\x82\xAC"
///     code_page(code_page::cp_932).as_utf16("\x82\xA0")    =>  u"\u3042"
///
/// A `code_page` is a value of four bytes that names one encoding. `encode` returns a byte string of that
/// encoding; `as_utf8` and its siblings read one. Text and bytes are taken as views, without a copy. The
/// results are those of the platform that defined the code pages, on every platform, down to the nearest
/// character that it chooses. Nothing is shared between objects, so any thread may call these.
///
/// No text is refused for its content:
///
///     encoded   a character not in the page   the nearest one that is, as 'A' for U+0100 in cp_1252,
///                                             else '?', or "??" for a surrogate pair
///     encoded   an unpaired surrogate         U+FFFD in utf8, '?' in all others
///     decoded   an undefined byte             the control of that value up to 0x9F, else a private character
///     decoded   an undefined pair             U+30FB in cp_932, else '?', once for both bytes;
///                                             a lead byte at the end is one too
///     decoded   bad UTF-8                     U+FFFD for the lead byte and the continuation bytes up to the
///                                             fault
///
/// A text ends at its first zero unit, and a byte string at its first zero byte, whatever its size.
///
/// These conversions are silent about what they replace. `encode_checked` (`strings/page_encoder.hpp`) and
/// `decode_checked` (`strings/page_decoder.hpp`) list it, keep zeros, and take files in pieces. A page is
/// found by its label with `find_code_page` (`strings/code_page_names.hpp`).
///
/// An invalid type fails when something is first converted, even an empty text: it raises
/// `exceptions::invalid_argument_value` with "Not valid code_page type". A conversion of 0x7FFFFFFF units or
/// more, or into so many bytes, throws `std::length_error` with "string too long".
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::strings {

class ORVA_API code_page {
 public:
  /// Any other value is invalid: 0, which is the default, negative ones, and those in the gap below
  /// `iso_8859_15`.
  enum encoding_type : types::int32 {
    /// The encoding of files and windows that name none: the system's setting on Windows, UTF-8 elsewhere,
    /// where no setting is read.
    ansi = 1,
    /// The encoding of terminals: the system's setting on Windows, UTF-8 elsewhere.
    oem = 2,
    oem_alternate = 3,
    utf8 = 4,
    cp_932 = 932,         ///< Japanese Shift-JIS
    cp_936 = 936,         ///< Simplified Chinese GBK
    cp_949 = 949,         ///< Korean
    cp_950 = 950,         ///< Traditional Chinese Big5
    cp_1250 = 1250,       ///< Windows Central European
    cp_1251 = 1251,       ///< Windows Cyrillic
    cp_1252 = 1252,       ///< Windows Western
    cp_1253 = 1253,       ///< Windows Greek
    cp_1254 = 1254,       ///< Windows Turkish
    cp_1255 = 1255,       ///< Windows Hebrew
    cp_1256 = 1256,       ///< Windows Arabic
    cp_1257 = 1257,       ///< Windows Baltic
    cp_1258 = 1258,       ///< Windows Vietnamese; accents are characters of their own and are not composed
    koi8_r = 20866,       ///< Russian
    koi8_u = 21866,       ///< Ukrainian
    iso_8859_1 = 28591,   ///< Western European
    iso_8859_2 = 28592,   ///< Central European
    iso_8859_3 = 28593,   ///< South European
    iso_8859_4 = 28594,   ///< North European
    iso_8859_5 = 28595,   ///< Cyrillic
    iso_8859_6 = 28596,   ///< Arabic
    iso_8859_7 = 28597,   ///< Greek
    iso_8859_8 = 28598,   ///< Hebrew
    iso_8859_9 = 28599,   ///< Turkish
    iso_8859_15 = 28605,  ///< Western European with the euro sign
  };

  /// Type 0, which is invalid, and so is that of a code page made from `nil`.
  code_page() noexcept = default;
  code_page(const types::nil_t&) noexcept {}
  code_page(const encoding_type& type) noexcept : type_(type) {}

  code_page& assign(const code_page& other) noexcept { return *this = other; }
  code_page& assign(const encoding_type& type) noexcept { return *this = type; }
  code_page& assign(const types::nil_t& nil) noexcept { return *this = nil; }
  code_page& operator=(const encoding_type& type) noexcept { return *this = code_page(type); }
  code_page& operator=(const types::nil_t& nil) noexcept { return *this = code_page(nil); }

  /// Compares the types: `oem` and `oem_alternate` differ, although they are one encoding.
  bool equal(const code_page& other) const noexcept { return type_ == other.type_; }
  bool equal(const encoding_type& type) const noexcept { return type_ == type; }
  /// Whether the type is negative. A code page made from `nil` has type 0 and does not equal it: compare with
  /// `code_page()` to find the default.
  bool equal(const types::nil_t&) const noexcept { return type_ < 0; }
  bool operator==(const code_page& other) const noexcept { return equal(other); }
  bool operator==(const encoding_type& type) const noexcept { return equal(type); }
  bool operator==(const types::nil_t& nil) const noexcept { return equal(nil); }

  const encoding_type& type() const noexcept { return type_; }
  encoding_type& type() noexcept { return type_; }
  /// Sets the type and returns it.
  encoding_type& type(const encoding_type& type) noexcept { return type_ = type; }

  /// The byte string of a text. UTF-8 and UTF-32 first become UTF-16, by the rules of `strings/unicode.hpp`:
  /// invalid UTF-8 is encoded as the text "-1", and characters beyond the basic plane of UTF-32 are lost.
  ///
  /// Inverse: `as_utf8`, `as_utf16`, `as_utf32`, as far as the page has the characters. What it lacks is
  /// listed by `encode_checked`.
  std::string encode(ustring8::view text) const;
  std::string encode(ustring16::view text) const;
  std::string encode(ustring32::view text) const;

  /// The text of a byte string. Inverse: `encode`. What is no character is listed by `decode_checked`.
  ustring8 as_utf8(std::string_view bytes) const;
  ustring16 as_utf16(std::string_view bytes) const;
  ustring32 as_utf32(std::string_view bytes) const;
  wide_string as_ustring(std::string_view bytes) const;

 protected:
  /// The system's number for a type: 0 for `ansi`, 1 for `oem` and `oem_alternate`, 65001 for `utf8`, the
  /// value itself for all others. An invalid type raises `exceptions::invalid_argument_value`.
  int to_system_type(encoding_type type) const;

 private:
  encoding_type type_{};
};

static_assert(sizeof(code_page) == 4 && std::is_trivially_copyable_v<code_page>);

}  // namespace ORVA_NAMESPACE::strings
