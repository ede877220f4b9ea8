/// `check_file`: everything in a configuration file that reads otherwise than a person would think.
///
///     diagnostics::report found;
///     config::check_file("viewer.cfg", found);
///     diagnostics::write_text(std::cout, found);
///
///     viewer.cfg:3:15: warning: The value ends before //, which begins a comment. [config.value_cut]
///
/// `file_item` reads every text, and is silent about what it drops or joins. This finds it, with line and
/// column of the mistake itself:
///
///     error      a key, a section or an array is lost, or gets another name
///     warning    a key or a value reads otherwise than it looks
///     note       only `file_item::save` would lose or change it
///
/// A file without errors and warnings reads as it looks: one key, section or comment in a line, arrays and
/// quoted text over several lines. A file without any finding comes back as it was after `save` and `load`.
/// docs/diagnostic_codes.md explains each code, with an example.
///
/// After a mistake the check goes on with the next line as a person sees it, so that one mistake hides no
/// other. Where text in quotes has lines that look like keys, sections or comments, or elements of an array
/// look like a key, nobody can tell from the file what is meant: that is a warning, too.
///
/// Time and memory are in proportion to the text. Text after the first 4 GiB is not read, as by `file_item`.
/// Keys are compared as `config_tree` does. Any thread may call these, with a report of its own.
#pragma once

#include <string_view>

#include "orva/diagnostics/report.hpp"
#include "orva/export.hpp"
#include "orva/strings/text_argument.hpp"

namespace ORVA_NAMESPACE::config {

/// Reads the file as `file_item` does, and adds to the report what is wrong, in the order of the text. A file
/// that is not read is an error, with a code of file_findings.hpp: "config.file_missing" and others.
ORVA_API void check_file(const strings::text_argument& path, diagnostics::report& found);

/// The same for the text of a file. The findings have the given file name.
ORVA_API void check_text(std::string_view text, std::string_view file_name, diagnostics::report& found);

}  // namespace ORVA_NAMESPACE::config
