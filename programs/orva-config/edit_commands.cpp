#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "commands.hpp"
#include "files.hpp"
#include "key_argument.hpp"
#include "orva/config/config_document.hpp"
#include "orva/config/format_document.hpp"

namespace orva_config {

using orva::config::config_document;
using orva::config::settings;
using orva::diagnostics::report;
using orva::diagnostics::severity;

namespace {

/// Returns the new text. Nothing, and a finding, if the edit is refused.
using edit = std::function<std::optional<std::string>(config_document& document, report& found)>;

exit_code edit_file(const std::string& name, console& shown, const edit& change) {
  report found;
  bool is_done = false;
  if (auto document = read_file(name, found)) {
    const std::string before = document->text();
    const auto after = change(*document, found);
    is_done = after && (*after == before || write_file(name, *after, found));
    if (is_done && shown.as_json()) {
      shown.write(json_line().add("file", name).add_truth("changed", *after != before));
    }
  }
  shown.complain(found);
  return is_done ? all_is_well : failure;
}

std::optional<std::string> text_after(const config_document::result& result, const config_document& document,
                                      const std::string& name, const key_argument& key, report& found) {
  if (result.error == config_document::error::none) return document.text();
  found.add(describe(result, key.name, name));
  return std::nullopt;
}

orva::diagnostics::finding key_finding(std::string_view code, const std::string& name,
                                       const key_argument& key, std::string_view english) {
  orva::generic::varg_list arguments;
  arguments.push_back("key", key.name);
  return program_finding(severity::error, code, name, english, std::move(arguments));
}

}  // namespace

exit_code set(const settings& values, console& shown) {
  const auto name = values.get<std::string>("set.file");
  const key_argument key(values.get<std::string>("set.key"));
  const auto texts = values.get_list<orva::strings::ustring8>("set.values");
  if (!key.is_array && texts.size() != 1) {
    shown.complain(key_finding("one_value", "", key, "{key} takes one value. {key}[] takes several."));
    return wrong_usage;
  }
  return edit_file(name, shown, [&](config_document& document, report& found) -> std::optional<std::string> {
    if (!key.is_array && document.get_array(key.name)) {
      found.add(key_finding("is_array", name, key,
                            "{key} is an array. To set its elements, write {key}[]; or unset it first."));
      return std::nullopt;
    }
    const auto result =
        key.is_array ? document.set_array(key.name, texts) : document.set(key.name, texts.front());
    return text_after(result, document, name, key, found);
  });
}

exit_code unset(const settings& values, console& shown) {
  const auto name = values.get<std::string>("unset.file");
  const key_argument key(values.get<std::string>("unset.key"));
  return edit_file(name, shown, [&](config_document& document, report& found) {
    return text_after(document.remove(key.name), document, name, key, found);
  });
}

exit_code format(const settings& values, console& shown) {
  return edit_file(values.get<std::string>("format.file"), shown, [](config_document& document, report&) {
    return orva::config::format_document(document.text());
  });
}

}  // namespace orva_config
