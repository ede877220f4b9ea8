/// Value formatters: they format one value by the attributes that a translator wrote at a placeholder.
///
///     format_int(255, "base\x01hex")                =>  "0x00ff"
///     format_double(1.5, "precision\x01" "1")       =>  "1.5"
///     format_duration(3661.5, "")                   =>  "1 hr 1 min 1.50 sec"
///
/// `message_item` calls them when a message is rendered. A program may call them for the same text outside a
/// message. They have no state; any thread may call them.
///
/// An attribute string is a list of keys and values, separated by the byte 0x01, which is written "|" here:
/// `fieldsize|8|base|hex`. It is split like `split_string` splits, so an empty value at the very end is no
/// field. A later key overrides an earlier one. A key, or a word as a value, may be shortened to any prefix:
/// `f|8|b|h` means the same. A prefix of several words means the one that is listed first; an empty key is
/// the first key. Numbers are read like `atoi` reads them, but saturate.
///
/// Formatters never throw for bad attributes: they return "-0" (`refused_value`), and `unit` is empty. The
/// cases are: a key without a value; an unknown key, word or unit; a number that does not fit its `fieldsize`
/// (`format_int`); padding beyond `max_padding`; a negative `precision` (for `format_duration` see there).
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// The result of each formatter for bad attributes. A negative zero without decimals has the same text.
inline constexpr std::string_view refused_value = "-0";

/// The most zeros that `format_int` adds before a number. A `fieldsize` that needs more is refused, so that a
/// few bytes of a catalog cannot ask for gigabytes.
inline constexpr std::size_t max_padding = 1024;

/// The longest text of a floating value. A longer one is truncated.
inline constexpr std::size_t max_double_length = 63;

/// An integer in one of five styles.
///
///     base        dec, default   decimal (this is the default)
///                 spaced_dec     decimal, digits in groups of three
///                 hex            hexadecimal after 0x; without a fieldsize in groups of four digits
///                 oct            octal after o
///                 bin            binary before b
///     fieldsize   the width in characters, prefix, suffix and blanks included; 0, the default, means
///                 none. A longer number is refused. A shorter one is padded with zeros unless it is
///                 decimal.
///
/// A negative value that is not decimal is shown as its complement, in as many digits as it needs or as the
/// field has. A complement of 64 bits is a negative number again; it is shown with a sign after the prefix.
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
///     precision   the number of decimals, 2 by default
///     fieldsize   the width, filled with blanks on the left; 0 means none. A negative one fills on the
///                 right, and the number always has an exponent.
///
/// A number that is wider than its field is shown with an exponent. The first of the exponent's three digits
/// is dropped, so an exponent from 100 on loses its hundreds. This form may be wider than the field, too. The
/// decimal point is that of the process's C locale, as in `printf`. NaN and infinity are "nan" and "inf".
///
///     1.5         (none)                   =>  "1.50"
///     1.5         precision|0              =>  "2"
///     1.5         fieldsize|6              =>  "  1.50"
///     1234567.0   fieldsize|5              =>  "1.23e+06"
///     1e100       fieldsize|5              =>  "1.00e+00"
ORVA_API strings::ustring8 format_double(double value, std::string_view attrs);

/// A number of bytes, scaled in steps of 1000; `unit` receives its unit.
///
///     target_unit   the unit to show: B, KB, MB, GB, TB, PB, EB, ZB or YB. Without it the value is divided
///                   until it is below 1000.
///     base_unit     the unit of the value, B by default
///     precision     the number of decimals. Without it, or with 0, the value is read as an unsigned
///                   integer, each division drops the fraction, and multiplication wraps at 64 bits.
///     fieldsize     as in `format_double`; no effect without decimals
///
///     1500      (none)                     =>  "1"        KB
///     1500      precision|1                =>  "1.5"      KB
///     3         base_unit|MB|target_unit|KB  =>  "3000"   KB
///     1         target_unit|any            =>  "-0"
ORVA_API strings::ustring8 format_memory(const types::variant& value, std::string_view attrs,
                                         strings::ustring8& unit);

/// A quantity with its SI prefix, scaled in steps of 1000; `unit` receives the prefix. The unit itself is
/// text of the message.
///
///     base_unit     the prefix of the value: base (none), one of the letters a f p n m k M G T P E Z Y,
///                   or mc for micro; base by default
///     target_unit   the prefix to show. Without it the value is divided until it is below 1000, up to tera.
///     short_form    false for the long prefix; true by default
///     precision     the number of decimals; 3 if there are no attributes at all. With other attributes
///                   but without this one, or with 0, the value is read as a signed integer, each division
///                   drops the fraction, and a negative result is shown as the unsigned number of the same
///                   64 bits.
///     fieldsize     as in `format_double`; no effect without decimals
///
///     1500.0    (none)                     =>  "1.500"    k
///     1500.0    short_form|false           =>  "1"        kilo
///     5e15      (none)                     =>  "5000.000" T
///     -5        base_unit|base             =>  "18446744073709551611"
ORVA_API strings::ustring8 format_metric(const types::variant& value, std::string_view attrs,
                                         strings::ustring8& unit);

/// Seconds as days, hours, minutes and seconds. Leading parts that are zero are left out, but never the
/// seconds.
///
///     precision     the decimals of the seconds, 2 by default. The seconds are what `format_double`
///                   returns for it, which is "-0" if it is empty or negative.
///     short_form    true for one-letter labels; false by default
///
///     3661.5    (none)                     =>  "1 hr 1 min 1.50 sec"
///     3661.5    short_form|true            =>  "1h 1m 1.50s"
///     86400     precision|0                =>  "1 dy 0 hr 0 min 0 sec"
///     59        (none)                     =>  "59.00 sec"
///     -61       (none)                     =>  "-1 min -1.00 sec"
///     61        precision|-1               =>  "1 min -0 sec"
///
/// The number of days shown has 32 bits and wraps. Seconds that do not fit into 64 bits, NaN included, count
/// as the most negative number of 64 bits.
ORVA_API strings::ustring8 format_duration(double seconds, std::string_view attrs);

}  // namespace ORVA_NAMESPACE::i18n::_private
