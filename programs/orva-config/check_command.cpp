#include <string>

#include "commands.hpp"
#include "files.hpp"
#include "orva/config/check_file.hpp"

namespace orva_config {

using orva::diagnostics::report;
using orva::diagnostics::severity;

namespace {

report check_one(const std::string& name) {
  report found;
  const auto document = read_file(name, found);
  if (!document) return found;
  if (is_link(name)) {
    found.add(
        program_finding(severity::warning, "symbolic_link", name,
                        "The file is a symbolic link. Programs that do not follow links read nothing."));
  }
  orva::config::check_text(document->text(), name, found);
  return found;
}

}  // namespace

exit_code check(const orva::config::settings& values, console& shown) {
  const bool warnings_count = values.get<bool>("check.werror");
  exit_code code = all_is_well;
  for (const std::string& name : values.get_list<std::string>("check.files")) {
    const report found = check_one(name);
    shown.write(found);
    if (found.has_errors() || (warnings_count && found.count(severity::warning) != 0)) code = failure;
  }
  return code;
}

}  // namespace orva_config
