/// `man_page`: the manual page of a program, from the declaration of its settings.
///
///     std::ofstream("viewer.1") << man_page(viewer, {.date = "2026-11-22", .files = {"/etc/viewer.cfg"}});
///
///     man --local-file viewer.1
///
/// The page is in roff, with the macros of man(7), and all its bytes are ASCII: groff and mandoc show it in
/// any locale. Its parts are the name with the first line of the description, the usage, the description,
/// arguments and options, each command, variables of the environment, configuration files, and examples. It
/// shows what `help_text` shows.
///
/// A program reads configuration files if the options have `files`, or the declaration has the setting
/// "cfg_file". Only then has the page a part about them, and the key of each setting.
///
/// Every text is escaped: whatever a text or a catalog has, it is no request. Throws
/// `exceptions::invalid_argument_value` for a declaration that `validate` refuses.
#pragma once

#include <vector>

#include "orva/config/declaration.hpp"
#include "orva/config/text_lookup.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

struct man_page_options {
  /// Of the manual: 1 for programs, 8 for those of administrators.
  strings::ustring8 section = "1";
  /// Shown at the bottom of the page.
  strings::ustring8 date = {};
  text_lookup texts = {};
  /// Those of `settings_options`, as the page names them.
  std::vector<strings::ustring8> files = {};
};

[[nodiscard]] ORVA_API strings::ustring8 man_page(const declaration& declared,
                                                  const man_page_options& options = {});

}  // namespace ORVA_NAMESPACE::config
