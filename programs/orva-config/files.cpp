#include "files.hpp"

#include "orva/system/replace_file.hpp"

namespace orva_config {

using orva::config::config_document;
using orva::diagnostics::report;

std::optional<config_document> read_file(const std::string& name, report& found) {
  config_document document;
  const auto result = document.load(name);
  if (result.error == config_document::load_error::none) return document;
  found.add(describe(result, name));
  return std::nullopt;
}

bool write_file(const std::string& name, std::string_view text, report& found) {
  const auto result = orva::system::replace_file(name, text);
  if (result.code == orva::system::replace_file_result::error::none) return true;
  found.add(describe(result, name));
  return false;
}

}  // namespace orva_config
