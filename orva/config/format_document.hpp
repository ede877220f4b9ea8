/// `format_document`: a configuration file in one layout, so that files differ where their settings differ.
///
///     format_document("theme=dark  # of the user\n\n\n[ window ]\n  size[]=640 ,\n 480")
///
///         theme = dark  # of the user
///
///         [window]
///         size[] = 640,
///             480
///
///     lines          A key, a section or a comment begins a line, without blanks before it or at its end. A
///                    comment in the line of a key or a section stays there, after two blanks. One that
///                    follows a value without a blank stays as it is: it may be meant as text, as in http://x.
///     key = value    One blank is on either side of `=`.
///     arrays         A comma has no blank before it, and one after it. Line ends in an array stay, without
///                    blank lines; the lines after them begin with four blanks.
///     empty lines    One comes before each section with the comments directly above it. Elsewhere, several
///                    become one, and the text neither begins nor ends with one.
///     line ends      All are as the first one in or after the first key, section or comment, and the last
///                    line has one. A line end before `=`, or before the `]` of a section, does not count.
///
/// Names, values and comments stay as they are spelled, with their quotes, and with the line ends in quotes.
/// `file_item` and `config_document` read the same before and after. A text in this layout does not change.
/// What the text ends in, if it is a quote that is open, stays as it is.
///
/// Any text has a result. Time and memory are in proportion to the text; one that is longer than
/// `config_document::max_size` does not change. `config_document` edits single keys.
#pragma once

#include <string>
#include <string_view>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

[[nodiscard]] ORVA_API std::string format_document(std::string_view text);

}  // namespace ORVA_NAMESPACE::config
