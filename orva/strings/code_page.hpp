/// `code_page`: the bridge between the library's strings and byte strings in legacy encodings.
///
/// An object is a value that names one encoding, four bytes large, copied freely; it owns nothing and shares
/// nothing, so threads need no care. `encode` gives a byte string of that encoding, `as_utf8` and its
/// siblings read one. The conversion is that of the platform which defined the code pages, everywhere and to
/// the last best fit.
///
///     code_page(code_page::cp_1252).encode("\xE2\x82\xAC")  =>  "\x80"
///     code_page(code_page::cp_1252).as_utf8("\x80")         =>  "\xE2\x82\xAC"
///     code_page(code_page::cp_932).as_utf16("\x82\xA0")     =>  u"\u3042"
///
/// No text is refused for its content:
///
///     what a page lacks, encoded    the nearest character that it has, as 'A' for U+0100 in cp_1252; else '?', one
///                                   for each 16-bit unit, so that a surrogate pair gives "??"
///     an undefined byte, decoded    0x80 to 0x9F: the control of that value; above: a private character
///     an undefined pair, decoded    U+30FB in cp_932, '?' in the others, once for both bytes; likewise a lead byte at
///                                   the end
///     bad UTF-8, decoded            U+FFFD for the lead byte and the continuation bytes up to the fault
///     an unpaired surrogate         U+FFFD in utf8, '?' in all others
///
/// A text ends at its first zero unit, and a byte string at its first zero byte, whatever the size says.
///
/// An invalid type fails when something is first converted, an empty text included, and not before: it raises
/// `exceptions::invalid_argument_value` with "Not valid code_page type". A conversion that fails, which is
/// one of two thousand million units or more, throws `std::length_error` with "string too long".
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
    /// What bytes of files and windows mean where nobody says. On Windows the system's setting; elsewhere
    /// UTF-8, which
    /// files, terminals and names hold there and which loses nothing. No setting is read there.
    ansi = 1,
    /// The same for terminals: elsewhere UTF-8, too.
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
    cp_1258 = 1258,       ///< Windows Vietnamese; accents stand alone, nothing is composed
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

  /// Types are compared as they are: `oem` and `oem_alternate` differ, though they mean one encoding.
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

  /// The byte string of a text. UTF-8 and UTF-32 go through the transforms of `strings/unicode.hpp` and their
  /// rules for bad text first: invalid UTF-8 is encoded as the text "-1", and UTF-32 beyond the basic plane
  /// loses its characters.
  ///
  /// Inverse: `as_utf8`, `as_utf16`, `as_utf32`, as far as the page has the characters.
  std::string encode(ustring8::view text) const;
  std::string encode(ustring16::view text) const;
  std::string encode(ustring32::view text) const;

  /// The text of a byte string. Inverse: `encode`.
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
