/// `plural`: the form of a message that goes with a number.
///
///     <msg name="files.one"><arg name="n" type="int"/> file</msg>
///     <msg name="files.other"><arg name="n" type="int"/> files</msg>
///
///     plural(catalogs, "app", "files", 1).as_utf8(argument("n", 1))    =>  "1 file"
///     plural(catalogs, "app", "files", 5).as_utf8(argument("n", 5))    =>  "5 files"
///
/// The forms are messages like any other, whose names end in a dot and a category: zero, one, two, few, many
/// or other. A translation has those that its language needs, see `plural_categories_of`.
#pragma once

#include "orva/export.hpp"
#include "orva/i18n/message_catalogs.hpp"
#include "orva/i18n/plural_number.hpp"
#include "orva/i18n/plural_rules.hpp"
#include "orva/strings/text_argument.hpp"

namespace ORVA_NAMESPACE::i18n {

/// The message `name.zero`, `name.one` ... or `name.other` whose category the number is in, by the rules of
/// the language that this message came from. Messages of several languages can qualify, where a translation
/// is not complete: the language with the longest tag counts, and English and the neutral language come last.
///
/// If no message qualifies: `name.other`; if that is not there, `name`; and if that is not, the nil message
/// of the catalog, or `message_catalogs::s_nil_message` for an unknown catalog.
///
/// The number only chooses: give it to the message as an argument, too.
[[nodiscard]] ORVA_API const message_t& plural(const message_catalogs& catalogs,
                                               const strings::text_argument& catalog,
                                               const strings::text_argument& name,
                                               const plural_number& number,
                                               plural_kind kind = plural_kind::cardinal);

}  // namespace ORVA_NAMESPACE::i18n
