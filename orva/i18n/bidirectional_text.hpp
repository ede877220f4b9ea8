/// Messages of languages that are written from right to left.
///
///     is_right_to_left("ar_EG")                           =>  true
///     is_right_to_left("pa_PK")                           =>  true        "pa" alone is written from left to right
///     isolated_utf8(message, argument("file", "a b (1)"))
///
/// In a sentence that runs from right to left, a name or a path that runs from left to right takes the signs
/// next to it along: "a b (1)" can be shown as "(a b (1". Characters that nobody sees, U+2068 and U+2069,
/// isolate it (Unicode Standard Annex #9, "Explicit Directional Isolates"). Use it for what is shown to
/// people, and `as_utf8` for text that goes on to programs.
#pragma once

#include <string_view>

#include "orva/export.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/i18n/message.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n {

/// Whether a language is written from right to left, by its script, its region, or what is usual for it. The
/// tag has `_`, `-` or `.` between its parts, in small or capital letters. An unknown language is not.
[[nodiscard]] ORVA_API bool is_right_to_left(std::string_view language) noexcept;

/// `message.as_utf8(args)`. If the message came from a right-to-left language, U+2068 and U+2069 are around
/// the text of each placeholder that shows anything.
[[nodiscard]] ORVA_API strings::ustring8 isolated_utf8(const message_t& message,
                                                       const generic::varg_list& args = generic::varg_list());

}  // namespace ORVA_NAMESPACE::i18n
