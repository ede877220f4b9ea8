/// `variant`, the tagged value: holds a value of one of twenty types and answers for it in any requested
/// type.
///
/// A variant is one pointer to an immutable payload that counts its owners. Making one costs one allocation;
/// copying one shares the payload and costs one atomic increment, whatever the value. Since no payload ever
/// changes, variants that share one may be read, copied and destroyed on different threads without a lock.
/// One variant object that is being assigned belongs to one thread.
///
/// No conversion fails. A number that does not fit is cut to its low bits, text is read for the number that
/// it begins with and saturates, text that is no number is 0:
///
///     variant("0x1F").as_int32()             =>  31        the prefix chooses the radix
///     variant("12abc").as_int32()            =>  12
///     variant("300").as_int8()               =>  127       text saturates
///     variant(300).as_int8()                 =>  44        a number is cut
///     variant(-1).as_uint64()                =>  18446744073709551615
///     variant(-1.9).as_int32()               =>  -1        toward zero
///     variant("oN").as_bool()                =>  true      "yes", "on" and "true" in any case
///     variant(" yes").as_bool()              =>  false     any other text is true when it is a number and not 0
///     variant(true).as_string()              =>  "1"
///     variant(1234567.0).as_string()         =>  "1.23457e+06"
///     variant().as_int32()                   =>  0
///     variant().as_string()                  =>  ""
///
/// Two variants cannot be compared or ordered: compare what an accessor gives.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "orva/export.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/internal/variant_type.hpp"

namespace ORVA_NAMESPACE::types {

class variant;

namespace _private {

const strings::ustring8* stored_text(const variant& value) noexcept;

template <typename T, typename... Targets>
concept converts_to_any = (std::is_convertible_v<T, Targets> || ...);

/// A class that converts to `bool`, and neither to text nor to a number. What converts to a number or to
/// `bool` itself converts to `int` too, and a pointer does not.
template <typename T>
concept bool_only_through_pointer =
    std::is_class_v<std::remove_cvref_t<T>> && std::is_convertible_v<T, bool> &&
    !std::is_convertible_v<T, int> &&
    !converts_to_any<T, const char*, const strings::code_unit16*, const strings::code_unit32*, std::string,
                     strings::wide_string, strings::ustring8, strings::ustring16, strings::ustring32>;

}  // namespace _private

class ORVA_API variant {
 public:
  /// Holds nil.
  variant();
  variant(nil_t& nothing);

  /// A copy shares the payload.
  variant(const variant& other) noexcept = default;
  /// The source is left holding nil.
  variant(variant&& other) noexcept = default;
  ~variant() = default;

  /// Each number keeps its own type. Whatever the language promotes to one of these (`char` and other
  /// character types, unscoped enumerations) is stored as that number: `variant('a')` holds the int 97.
  variant(bool value);
  variant(signed char value);
  variant(unsigned char value);
  variant(short value);
  variant(unsigned short value);
  variant(int value);
  variant(unsigned int value);
  variant(long value);
  variant(unsigned long value);
  variant(long long value);
  variant(unsigned long long value);
  variant(float value);
  variant(double value);
  variant(long double value);

  /// Text up to its terminator, stored as `ustring8`, `ustring16` or `ustring32`. A null pointer is empty
  /// text.
  variant(const char* text);
  variant(const strings::code_unit16* text);
  variant(const strings::code_unit32* text);

  /// Text of any content. The class is kept: `type()` tells a byte string, taken for UTF-8, from a
  /// `ustring8`, and a wide string, taken for UTF-16, from a `ustring16`.
  variant(std::string text);
  variant(strings::wide_string text);
  variant(strings::ustring8 text);
  variant(strings::ustring16 text);
  variant(strings::ustring32 text);

  /// No other pointer makes a value, least of all a `bool`: neither an object's address, nor text in another
  /// encoding, such as `L"x"` where `wchar_t` has 32 bits (see `strings::from_wchar`).
  template <typename T>
  variant(T* pointer) requires(!strings::code_unit<std::remove_const_t<T>>) = delete;
  template <typename Member, typename Class>
  variant(Member Class::*pointer) = delete;
  variant(std::nullptr_t) = delete;
  /// Nor does an object that could become a `bool` only through such a pointer, as a lambda could.
  template <typename T>
  explicit variant(T&& object) requires _private::bool_only_through_pointer<T>
  = delete;

  /// Shares the payload of the other; its own goes, unless others hold it.
  variant& assign(const variant& other) { return *this = other; }
  variant& operator=(const variant& other) noexcept = default;
  /// The source is left holding nil.
  variant& operator=(variant&& other) noexcept = default;
  variant& operator=(const nil_t& nothing);

  /// Whether it holds nil.
  bool equal(const nil_t& nothing) const noexcept;
  bool operator==(const nil_t& nothing) const noexcept { return equal(nothing); }

  /// The stored type: `nil_t`, `bool`, a number's own, or one of the five string classes.
  const std::type_info& type() const noexcept { return payload().type(); }

  /// Writes the value. Text comes as UTF-8, up to the first zero byte except for a byte string, which comes
  /// whole.
  ///
  ///     nil                               =>  0
  ///     true                              =>  1      or as the stream's flags say
  ///     static_cast<signed char>(65)      =>  A      both one-byte types are characters here
  ///     wide string                       =>  "< name instance at address >", with the name of its `type()`
  std::ostream& ostream(std::ostream& stream) const { return payload().ostream(stream); }

  // Numbers. From integers the low bits are taken, after a signed value is extended by its sign. From `bool`
  // 0 or
  // 1. From text the number that it begins with, in the radix that its prefix tells, saturated to the range
  // of the type read; floating values as an input stream reads them, 0.0 where that fails. From floating
  // values what truncation toward zero leaves; beyond the range the results are those of x86:
  //
  //     as_int, as_long, as_int32      the most negative number, -2147483648, also for NaN
  //     as_int64                       the same, -9223372036854775808
  //     as_short and all 8 and 16-bit  truncated to 32 bits as by as_int, of which the low bits are kept: 0
  //     as_uint32                      the low 32 bits of as_int64: 4294967295 for -1.0, 0 for 1e30
  //     as_uint64                      as_int64 below 0; 9223372036854775808 from 2 to the 64 on, and for NaN

  int as_int() const { return payload().as_int(); }
  short as_short() const { return payload().as_short(); }
  /// 32 bits on every platform, also for a stored `long` of 64.
  int32 as_long() const { return payload().as_long(); }
  signed char as_int8() const { return payload().as_int8(); }
  short as_int16() const { return payload().as_int16(); }
  int32 as_int32() const { return payload().as_int32(); }
  long long as_int64() const { return payload().as_int64(); }
  unsigned char as_uint8() const { return payload().as_uint8(); }
  unsigned short as_uint16() const { return payload().as_uint16(); }
  uint32 as_uint32() const { return payload().as_uint32(); }
  unsigned long long as_uint64() const { return payload().as_uint64(); }

  /// The signed accessor of that width with its result read as unsigned. Text and floating values therefore
  /// end at the signed range, which `as_uint32` and `as_uint16` do not:
  ///
  ///     variant("4000000000").as_uint()    =>  2147483647
  ///     variant("4000000000").as_uint32()  =>  4000000000
  ///     variant("-1").as_uint()            =>  4294967295
  ///     variant("-1").as_uint32()          =>  0
  unsigned int as_uint() const { return static_cast<unsigned int>(as_int()); }
  unsigned int as_unsigned() const { return as_uint(); }
  uint32 as_ulong() const { return static_cast<uint32>(as_long()); }
  unsigned short as_ushort() const { return static_cast<unsigned short>(as_short()); }
  /// The same as `as_int`.
  int as_signed() const { return as_int(); }

  /// Whether a number is not zero; NaN is not. Of text: whether it is "yes", "on" or "true" in any case, or
  /// begins with a number that is not zero. There is no list of false words.
  bool as_bool() const { return payload().as_bool(); }

  float as_float() const { return payload().as_float(); }
  double as_double() const { return payload().as_double(); }
  /// As wide as the platform's `long double`.
  long double as_long_double() const { return payload().as_long_double(); }

  // Text: empty for nil, "1" or "0" for `bool`, decimal digits for integers. Floating values come as an
  // output stream writes them: six significant digits, with the signs of the global C++ locale. Text crosses
  // widths by the transforms of strings/unicode.hpp, whose failure text "-1" stands for text that is not what
  // it promises to be. UTF-16 that begins with 0xFFFE is converted like any other: a value must give a
  // result.

  strings::ustring8 as_string() const;
  strings::wide_string as_wstring() const;
  strings::wide_string as_ustring() const;
  strings::ustring8 as_utf8() const;
  strings::ustring16 as_utf16() const;
  strings::ustring32 as_utf32() const;

 private:
  friend const strings::ustring8* _private::stored_text(const variant& value) noexcept;

  explicit variant(variant_type* payload) noexcept : payload_(payload, memory::pointers::just_made) {}

  /// A variant that was moved from has no payload and reads as nil.
  const variant_type& payload() const noexcept { return payload_ ? *payload_ : moved_from(); }
  static const variant_type& moved_from() noexcept;

  memory::pointers::rc_pointer<variant_type> payload_;
};

static_assert(sizeof(variant) == sizeof(void*), "argument lists and trees hold variants by value");

/// Writes the value as `variant::ostream` does.
ORVA_API std::ostream& operator<<(std::ostream& stream, const variant& value);

}  // namespace ORVA_NAMESPACE::types
