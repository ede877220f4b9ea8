/// `variant`: one value of any of twenty types, which can be read as any of them.
///
///     variant("0x1F").as_int32()             =>  31        the prefix gives the radix
///     variant("12abc").as_int32()            =>  12
///     variant("300").as_int8()               =>  127       text saturates
///     variant(300).as_int8()                 =>  44        a number keeps its low bits
///     variant(-1).as_uint64()                =>  18446744073709551615
///     variant(-1.9).as_int32()               =>  -1        toward zero
///     variant("oN").as_bool()                =>  true      "yes", "on" and "true" in any case
///     variant(" yes").as_bool()              =>  false     other text: a number other than 0
///     variant(true).as_string()              =>  "1"
///     variant(1234567.0).as_string()         =>  "1.23457e+06"
///     variant().as_int32()                   =>  0
///     variant().as_string()                  =>  ""
///
/// No conversion fails. A number that does not fit keeps its low bits. Text is read as the number at its
/// beginning, limited to the range of the type; text without a number is 0.
///
/// Where a loss must not go unnoticed, use `try_as`, which returns nothing instead:
///
///     variant("12").try_as<int>()            =>  12
///     variant("12abc").try_as<int>()         =>  nothing
///     variant(300).try_as<signed char>()     =>  nothing
///     variant(300).holds<int>()              =>  true
///     same(variant(300), variant("300"))     =>  false     another type
///
/// A variant is one pointer to a payload, which has a count of its owners and never changes. Making a variant
/// takes one allocation. Copying one shares the payload: one atomic increment, whatever the value. Variants
/// with the same payload can be read, copied and destroyed on different threads without a lock. A variant
/// object that is being assigned may be used by one thread only.
///
/// Variants have no order and no `==`. `same` compares type and value; otherwise compare the results of an
/// accessor.
///
/// Edge cases: docs/edges.md#values
#pragma once

#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "orva/export.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/internal/exact_value.hpp"
#include "orva/types/internal/standard_value.hpp"
#include "orva/types/internal/stored_types.hpp"
#include "orva/types/internal/variant_type.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::types {

class variant;

namespace _private {

const strings::ustring8* stored_text(const variant& value) noexcept;

/// A class whose only conversion to `bool` is through a pointer, and that does not convert to text. A class
/// that converts to a number or to `bool` directly also converts to `int`; one that converts to a pointer
/// does not.
template <typename T>
concept bool_only_through_pointer = std::is_class_v<std::remove_cvref_t<T>> &&
                                    std::is_convertible_v<T, bool> && !std::is_convertible_v<T, int> &&
                                    !converts_to_text<T>;

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

  /// A number keeps its type. A type that is promoted to one of these, such as `char` or an unscoped
  /// enumeration, is stored as the promoted number: `variant('a')` holds the int 97.
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

  /// Text, zeros included. `type()` differs for a byte string and a `ustring8`, both of which are UTF-8, and
  /// for a wide string and a `ustring16`, both of which are UTF-16.
  variant(std::string text);
  variant(strings::wide_string text);
  variant(strings::ustring8 text);
  variant(strings::ustring16 text);
  variant(strings::ustring32 text);

  /// Values of the standard library:
  ///
  ///     std::string_view                 =>  ustring8, as a literal; other widths: `ustring16`, `ustring32`
  ///     std::u8string_view, u8string     =>  ustring8
  ///     std::filesystem::path            =>  its native text: a byte string in UTF-8, on Windows a wide string
  ///     a `std::chrono` duration         =>  double: seconds, as the placeholder `duration` of messages takes
  ///     std::optional                    =>  nil if it is empty, otherwise its value
  ///
  /// A path keeps every unit, also where it is not valid text. A duration of more than 2 to the 53 ticks is
  /// rounded to the nearest `double`. An empty optional without a name ends the construction of a
  /// `varg_list`, as nil does.
  template <_private::borrowed_text View>
  variant(View text) : variant(_private::stored_form(text)) {}
  template <_private::utf8_text Text>
  variant(const Text& text) : variant(_private::stored_form(text)) {}
  template <strings::file_path Path>
  variant(const Path& path) : variant(typename Path::string_type(path.native())) {}
  template <_private::duration Duration>
  variant(const Duration& duration) : variant(_private::stored_form(duration)) {}
  template <_private::optional_value Optional>
  variant(Optional value) requires std::constructible_from<variant, typename Optional::value_type>
      : variant(value ? variant(*std::move(value)) : variant()) {}

  /// Any other pointer does not compile, since it would be stored as a `bool`. This includes text of another
  /// encoding, such as `L"x"` where `wchar_t` has 32 bits (see `strings::from_wchar`).
  template <typename T>
  variant(T* pointer) requires(!strings::code_unit<std::remove_const_t<T>>) = delete;
  template <typename Member, typename Class>
  variant(Member Class::*pointer) = delete;
  variant(std::nullptr_t) = delete;
  /// The same for a class whose only conversion to `bool` is through such a pointer: a lambda, for example.
  template <typename T>
  explicit variant(T&& object) requires _private::bool_only_through_pointer<T>
  = delete;

  /// Releases the present payload and shares that of `other`.
  variant& assign(const variant& other) { return *this = other; }
  variant& operator=(const variant& other) noexcept = default;
  /// The source is left holding nil.
  variant& operator=(variant&& other) noexcept = default;
  variant& operator=(const nil_t& nothing);

  /// Returns whether it holds nil.
  bool equal(const nil_t& nothing) const noexcept;
  bool operator==(const nil_t& nothing) const noexcept { return equal(nothing); }

  /// The stored type: `nil_t`, `bool`, the type of the number, or one of the five string classes.
  const std::type_info& type() const noexcept { return payload().type(); }

  /// Whether `type()` is T, one of the twenty stored types.
  template <_private::stored_type T>
  [[nodiscard]] bool holds() const noexcept {
    return type() == typeid(T);
  }

  /// The value as a T, one of the twenty stored types, if nothing is lost; otherwise nothing.
  ///
  ///     from            to              is filled
  ///     any type        the same type   always
  ///     number          number          if T has exactly this number; -0.0 only as a floating value
  ///     bool            number          always: 0 or 1
  ///     number          bool            for 0 and 1
  ///     number, bool    text            always: text that reads back as the same number; "1" or "0"
  ///     text            number          if the whole text is one number that T has room for
  ///     text            bool            for "true", "yes", "on", "1" and "false", "no", "off", "0", in any case
  ///     text            text            if T has another width: for well-formed text
  ///     nil             another type    never, and neither does another type give nil
  ///
  /// NaN and infinity are values of each floating type, and of no integer. Text is a number if `parse_number`
  /// reads it: no blanks, in every locale alike. "010" is the integer 8, by its prefix, and the floating
  /// value 10. A decimal text gives the nearest floating value, as most have no exact one.
  ///
  /// An integer or `bool` that this returns is also what the accessor of that type returns.
  template <_private::stored_type T>
  [[nodiscard]] std::optional<T> try_as() const {
    T value{};
    if (!_private::exact_value(payload(), value)) return std::nullopt;
    return value;
  }

  /// Whether both have the same type and value. A NaN is the same as every other NaN of its type; 0.0 and
  /// -0.0 are not the same. Text is compared unit by unit.
  friend ORVA_API bool same(const variant& one, const variant& other) noexcept;

  /// Writes the value. Text is written as UTF-8 up to its first zero byte, a byte string as a whole.
  ///
  ///     nil                               =>  0
  ///     true                              =>  1      or as the flags of the stream say
  ///     static_cast<signed char>(65)      =>  A      both types of one byte are written as characters
  ///     wide string                       =>  "< name instance at address >", with the name of `type()`
  std::ostream& ostream(std::ostream& stream) const { return payload().ostream(stream); }

  // Numbers. Speaking sibling: `try_as`.
  //
  // From an integer: the low bits, after a signed value is extended by its sign.
  // From `bool`: 0 or 1.
  // From text: the number at its beginning, in the radix given by its prefix, limited to the range of the
  // type. Floating values are read as by an input stream, and are 0.0 where that fails. From a floating
  // value: the value truncated toward zero. Out of range, the results are those of x86:
  //
  //     as_int, as_long, as_int32      the most negative number, -2147483648, also for NaN
  //     as_int64                       the same, -9223372036854775808
  //     as_short, all 8 and 16 bits    the low bits of as_int: 0
  //     as_uint32                      the low 32 bits of as_int64: 4294967295 for -1.0, 0 for 1e30
  //     as_uint64                      as_int64 below 0; 9223372036854775808 from 2 to the 64 on, and for NaN

  int as_int() const { return payload().as_int(); }
  short as_short() const { return payload().as_short(); }
  /// 32 bits on all platforms, also for a stored `long` of 64 bits.
  int32 as_long() const { return payload().as_long(); }
  signed char as_int8() const { return payload().as_int8(); }
  short as_int16() const { return payload().as_int16(); }
  int32 as_int32() const { return payload().as_int32(); }
  long long as_int64() const { return payload().as_int64(); }
  unsigned char as_uint8() const { return payload().as_uint8(); }
  unsigned short as_uint16() const { return payload().as_uint16(); }
  uint32 as_uint32() const { return payload().as_uint32(); }
  unsigned long long as_uint64() const { return payload().as_uint64(); }

  /// The result of the signed accessor of that width, converted to unsigned. Text and floating values are
  /// thus limited to the signed range; with `as_uint32` and `as_uint16` they are not:
  ///
  ///     variant("4000000000").as_uint()    =>  2147483647
  ///     variant("4000000000").as_uint32()  =>  4000000000
  ///     variant("-1").as_uint()            =>  4294967295
  ///     variant("-1").as_uint32()          =>  0
  unsigned int as_uint() const { return static_cast<unsigned int>(as_int()); }
  unsigned int as_unsigned() const { return as_uint(); }
  uint32 as_ulong() const { return static_cast<uint32>(as_long()); }
  unsigned short as_ushort() const { return static_cast<unsigned short>(as_short()); }
  /// Same as `as_int`.
  int as_signed() const { return as_int(); }

  /// A number is true if it is not zero; NaN is true. Text is true if it is "yes", "on" or "true", in any
  /// case, or begins with a number that is not zero. There are no words for false.
  bool as_bool() const { return payload().as_bool(); }

  float as_float() const { return payload().as_float(); }
  double as_double() const { return payload().as_double(); }
  /// The `long double` of the platform.
  long double as_long_double() const { return payload().as_long_double(); }

  // Text. Speaking sibling: `try_as`.
  //
  // nil is empty text, `bool` "1" or "0", an integer its decimal digits. A floating value is written as by an
  // output stream: six significant digits, with the decimal point of the global C++ locale. Text is converted
  // between widths by the functions of strings/unicode.hpp, which return "-1" for malformed text. UTF-16 that
  // begins with 0xFFFE is converted like any other text.

  strings::ustring8 as_string() const;
  strings::wide_string as_wstring() const;
  strings::wide_string as_ustring() const;
  strings::ustring8 as_utf8() const;
  strings::ustring16 as_utf16() const;
  strings::ustring32 as_utf32() const;

 private:
  friend const strings::ustring8* _private::stored_text(const variant& value) noexcept;

  explicit variant(variant_type* payload) noexcept
      : payload_(payload, memory::pointers::_private::just_made) {}

  /// A moved-from variant has no payload and reads as nil.
  const variant_type& payload() const noexcept { return payload_ ? *payload_ : moved_from(); }
  static const variant_type& moved_from() noexcept;

  memory::pointers::rc_pointer<variant_type> payload_;
};

static_assert(sizeof(variant) == sizeof(void*), "argument lists and trees hold variants by value");

ORVA_API bool same(const variant& one, const variant& other) noexcept;

/// Writes the value as `variant::ostream` does.
ORVA_API std::ostream& operator<<(std::ostream& stream, const variant& value);

}  // namespace ORVA_NAMESPACE::types
