/// `finding`: what is wrong with an input, and where.
///
///     const finding found{severity::error, "xml.missing_equals", "a.xml", {3, 12}, {{"name", "width"}}};
///     sentence(found)       =>  "The attribute width has no = after its name."
///     std::cerr << found    =>  a.xml:3:12: error: The attribute width has no = after its name.
///                               [xml.missing_equals]
///
/// A finding has a code, which stays the same in all versions and languages, and named arguments. Programs
/// act on these. People read the sentence, which is English here; `i18n::describe` has the user's language.
/// `known_codes` lists the codes of the library; docs/diagnostic_codes.md explains each. A program may use
/// codes of its own, whose sentence is the argument "text", or the code itself if there is none.
///
/// `report` collects findings, `write.hpp` writes them with their source line, or as JSON. A finding is a
/// plain value.
#pragma once

#include <iosfwd>
#include <span>
#include <string_view>

#include "orva/diagnostics/place.hpp"
#include "orva/export.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::diagnostics {

enum class severity {
  note,     ///< advice, or more about the finding before it
  warning,  ///< accepted, and surely not meant
  error,    ///< refused, or lost
};

/// "note", "warning" or "error".
[[nodiscard]] ORVA_API std::string_view name_of(severity level) noexcept;

struct finding {
  severity level = severity::error;
  /// An area and a name, such as "xml.missing_equals".
  strings::ustring8 code;
  /// As the program's user knows it. Empty if the input is no file.
  strings::ustring8 file;
  place at;
  /// The values that the sentence names. Only arguments with a name count.
  generic::varg_list arguments;
};

/// A code of the library, and its sentence. {name} in a sentence is replaced by the argument of that name.
struct code_description {
  std::string_view code;
  std::string_view english;
};

/// All codes of the library, in alphabetical order.
[[nodiscard]] ORVA_API std::span<const code_description> known_codes() noexcept;

/// The English sentence, with the arguments. An argument that is missing is shown as its name in braces.
[[nodiscard]] ORVA_API strings::ustring8 sentence(const finding& found);

/// The named arguments as the sentence shows them: numbers in the shortest text that reads back to the same
/// value, `bool` as true or false.
[[nodiscard]] ORVA_API generic::varg_list arguments_as_text(const finding& found);

/// Writes the finding in one line as compilers do, without a line feed. Parts that are missing are left out.
/// Characters that would not show, or change how others show, are written as U+FFFD: control characters,
/// those that change the direction of text, and malformed bytes.
ORVA_API std::ostream& operator<<(std::ostream& stream, const finding& found);

}  // namespace ORVA_NAMESPACE::diagnostics
