#include "files.hpp"

#include <filesystem>
#include <system_error>
#include <utility>

#include "orva/system/replace_file.hpp"
#include "texts.hpp"

namespace orva_config {

namespace fs = std::filesystem;

using orva::config::config_document;
using orva::diagnostics::report;
using orva::diagnostics::severity;

namespace {

fs::path path_of(const std::string& name) { return std::u8string(name.begin(), name.end()); }

}  // namespace

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

bool is_link(const std::string& name) {
  std::error_code error;
  return fs::is_symlink(path_of(name), error);
}

std::string target_of(const std::string& name) {
  if (!is_link(name)) return name;
  std::error_code error;
  const std::u8string target = fs::canonical(path_of(name), error).u8string();
  return error ? name : std::string(target.begin(), target.end());
}

}  // namespace orva_config
