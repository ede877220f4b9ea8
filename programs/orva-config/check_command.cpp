#include <string>
#include <utility>

#include "commands.hpp"
#include "files.hpp"
#include "orva/config/check_file.hpp"
#include "orva/config/file_findings.hpp"

namespace orva_config {

using orva::diagnostics::report;
using orva::diagnostics::severity;

namespace {

report check_one(const std::string& name) {
  report found;
  const auto document = read_file(name, found);
  if (!document) return found;
  // Most programs do not follow a link.
  if (auto link = orva::config::check_readable(name, severity::warning)) found.add(std::move(*link));
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
