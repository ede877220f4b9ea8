/// Value formatters: one value as text, under the attributes that a translator wrote at a placeholder.
///
/// `message_item` calls them when a message is rendered; a program that wants the same text outside a message
/// may call them too. They own nothing, keep no state, and any thread may call them.
///
/// An attribute string is a flat list of keys and values with the byte 0x01 between them, written "|" here:
/// `fieldsize|8|base|hex`. It is split as `split_string` does, so that an empty value at the very end is no
/// field. A later key overrides an earlier one. A key, and a value that is a word, may be shortened to any
/// beginning of the word: `f|8|b|h` says the same. What fits several words means the one listed first, and an
/// empty key the first key of all. Numbers are read as `atoi` does, but saturate.
///
/// Attributes that make no sense are never an exception: the result is then the text "-0" (`refused_value`),
/// and `unit` is empty. The cases are: a key without a value, an unknown key or word or unit, a number that
/// does not fit its `fieldsize` (`format_int`), padding beyond `max_padding`, a negative `precision`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// What every formatter answers to attributes that it cannot follow. Negative zero without decimals reads the
/// same.
inline constexpr std::string_view refused_value = "-0";

/// The most zeros that `format_int` puts in front of a number. A wider `fieldsize` is refused, so that a few
/// bytes of a catalog cannot ask for gigabytes.
inline constexpr std::size_t max_padding = 1024;

/// The longest text of a floating value; what goes beyond is cut off.
inline constexpr std::size_t max_double_length = 63;

/// An integer in one of five styles.
///
///     base        dec, default   as it is (this is the default)
///                 spaced_dec     digits in groups of three
///                 hex            behind 0x, at least four digits, and always a multiple of four
///                 oct            behind o
///                 bin            in front of b
///     fieldsize   the whole width in characters, marks and blanks counted; 0, the default, means none.
///                 Decimal numbers are held against it but never padded, the others get zeros.
///
/// Outside the decimal styles a negative value is shown as its complement, in as many digits as it needs or
/// as the field has. A complement of 64 bits cannot be told from a negative number again and is shown as one,
/// with its sign behind the mark.
///
///     255       base|hex                   =>  "0x00ff"
///     -1        base|hex                   =>  "0xffff"
///     -1        base|hex|fieldsize|4       =>  "0xff"
///     -1        base|hex|fieldsize|18      =>  "0x-1"
///     1234567   base|spaced_dec            =>  "1 234 567"
///     5         base|bin|fieldsize|8       =>  "0000101b"
///     5         base|bin|fieldsize|1       =>  "-0"
ORVA_API strings::ustring8 format_int(std::int64_t value, std::string_view attrs);

/// A floating value with a fixed number of decimals.
///
///     precision   the decimals, 2 by default
///     fieldsize   the width to fill with blanks on the left, or on the right if it is negative; 0 means none
///
/// A number that is wider than its field is shown with an exponent instead, whose first of three digits is
/// dropped: exponents from 100 on lose their hundreds. The exponent form may be wider than the field as well.
/// The decimal point is that of the process's locale, as in `printf`; NaN and infinity read "nan" and "inf".
///
///     1.5         (none)                   =>  "1.50"
///     1.5         precision|0              =>  "2"
///     1.5         fieldsize|6              =>  "  1.50"
///     1234567.0   fieldsize|5              =>  "1.23e+06"
///     1e100       fieldsize|5              =>  "1.00e+00"
ORVA_API strings::ustring8 format_double(double value, std::string_view attrs);

/// A number of bytes, scaled in steps of 1000; `unit` receives the unit that the number is in.
///
///     target_unit   the unit to show: B, KB, MB, GB, TB, PB, EB, ZB or YB. Without one the value is divided
///                   until it is below 1000.
///     base_unit     the unit that the value is given in, B by default
///     precision     decimals. Without it, or with 0, the value is read as an unsigned integer and every step
///                   loses its fraction; multiplication wraps at 64 bits.
///     fieldsize     as in `format_double`; no effect on integers
///
///     1500      (none)                     =>  "1"        KB
///     1500      precision|1                =>  "1.5"      KB
///     3         base_unit|MB|target_unit|KB  =>  "3000"   KB
///     1         target_unit|any            =>  "-0"
ORVA_API strings::ustring8 format_memory(const types::variant& value, std::string_view attrs,
                                         strings::ustring8& unit);

/// A quantity with its SI prefix, scaled in steps of 1000; `unit` receives the prefix, and the message's own
/// text goes on with the unit.
///
///     base_unit     the prefix that the value is given in: base, a letter of a f p n m k M G T P E Z Y, or mc for
///                   micro; base by default
///     target_unit   the prefix to show. Without one the value is divided until it is below 1000, up to tera.
///     short_form    false for the long prefix; true by default
///     precision     decimals: 3 if there are no attributes at all. With other attributes but without this one,
///                   or with 0, the value is read as a signed integer, every step loses its fraction, and a
///                   negative result is shown as the unsigned number of the same 64 bits.
///     fieldsize     as in `format_double`; no effect on integers
///
///     1500.0    (none)                     =>  "1.500"    k
///     1500.0    short_form|false           =>  "1"        kilo
///     5e15      (none)                     =>  "5000.000" T
///     -5        base_unit|base             =>  "18446744073709551611"
ORVA_API strings::ustring8 format_metric(const types::variant& value, std::string_view attrs,
                                         strings::ustring8& unit);

/// Seconds as days, hours, minutes and seconds. Leading parts that are zero are left out, the seconds never.
///
///     precision     decimals of the seconds, 2 by default
///     short_form    true for one-letter labels; false by default
///
///     3661.5    (none)                     =>  "1 hr 1 min 1.50 sec"
///     3661.5    short_form|true            =>  "1h 1m 1.50s"
///     86400     precision|0                =>  "1 dy 0 hr 0 min 0 sec"
///     59        (none)                     =>  "59.00 sec"
///     -61       (none)                     =>  "-1 min -1.00 sec"
///
/// A value that no 64-bit number of whole seconds holds, NaN included, is split as the most negative one.
ORVA_API strings::ustring8 format_duration(double seconds, std::string_view attrs);

}  // namespace ORVA_NAMESPACE::i18n::_private
