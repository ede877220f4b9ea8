#include "files.hpp"

#include <utility>

#include "orva/system/replace_file.hpp"
#include "texts.hpp"

namespace orva_config {

using orva::config::config_document;
using orva::diagnostics::report;
using orva::diagnostics::severity;

std::optional<config_document> read_file(const std::string& name, report& found) {
  config_document document;
  const auto error = document.load(name);
  if (error == config_document::load_error::none) return document;
  found.add(describe(error, name));
  return std::nullopt;
}

bool write_file(const std::string& name, std::string_view text, report& found) {
  const auto result = orva::system::replace_file(name, text);
  if (result.code == orva::system::replace_file_result::error::none) return true;
  orva::generic::varg_list arguments;
  arguments.push_back("reason", describe(result));
  found.add(program_finding(severity::error, "not_written", name, "{reason}", std::move(arguments)));
  return false;
}

}  // namespace orva_config
