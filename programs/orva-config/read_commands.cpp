#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands.hpp"
#include "files.hpp"
#include "key_argument.hpp"
#include "orva/config/config_document.hpp"
#include "orva/config/linked_file_item.hpp"

namespace orva_config {

using orva::config::config_document;
using orva::config::linked_file_item;
using orva::config::settings;
using orva::diagnostics::report;
using orva::strings::ustring8;

namespace {

/// The elements of an array, or one value.
struct stored_value {
  bool is_array = false;
  std::vector<ustring8> texts;

  json_line& add_to(json_line& line) const {
    return is_array ? line.add("elements", texts) : line.add("value", texts.front());
  }
};

std::optional<stored_value> find(const config_document& document, const std::string& key) {
  if (auto array = document.get_array(key)) return stored_value{true, std::move(*array)};
  if (auto value = document.get(key)) return stored_value{false, {std::move(*value)}};
  return std::nullopt;
}

stored_value find(const linked_file_item& item, const std::string& path) {
  // A dot at the end of a key does not count, so that a path with an empty name there needs one more.
  const std::string key = path.empty() || path.back() == '.' ? path + '.' : path;
  const auto* const node = item.get_value(key);
  if (node == nullptr) return {false, {ustring8()}};  // the file has changed since
  if ((node->first & orva::config::config_tree::NODE_ARRAY) == 0) return {false, {node->second.as_string()}};
  stored_value array{true, {}};
  std::vector<linked_file_item::value_entry> elements;
  item.get_array(key, elements);
  for (const auto& each : elements) array.texts.push_back(each.second.second.as_string());
  return array;
}

/// The lines that count, in their order: for each key the last one.
std::vector<config_document::entry> last_entries(const config_document& document) {
  std::map<std::string_view, std::size_t> last;
  const auto entries = document.entries();
  for (std::size_t i = 0; i < entries.size(); ++i) last[entries[i].key] = i;
  std::vector<config_document::entry> result;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (last[entries[i].key] == i) result.push_back(entries[i]);
  }
  return result;
}

/// The position of the bracket that ends the section at the begin of a text.
std::size_t section_end(std::string_view text) {
  bool is_quoted = false;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') is_quoted = !is_quoted;
    if (text[i] == '\\' && is_quoted) ++i;
    if (text[i] == ']' && !is_quoted) return i;
  }
  return text.size();
}

/// The line that sets a key in a file, without a section: "window.width = 640". Empty, and a finding, for a
/// key that no edit can set, such as one with an empty name.
std::string line_for(const std::string& key, const stored_value& value, const std::string& name,
                     report& found) {
  config_document file;
  const auto result = value.is_array ? file.set_array(key, value.texts) : file.set(key, value.texts.front());
  if (result.error != config_document::error::none) found.add(describe(result, key, name));
  const std::string& text = file.text();
  if (!text.starts_with('[')) return text;
  const std::size_t end = section_end(text);
  return text.substr(1, end - 1) + '.' + text.substr(text.find('\n', end) + 1);
}

}  // namespace

exit_code get(const settings& values, console& shown) {
  const auto name = values.get<std::string>("get.file");
  const key_argument key(values.get<std::string>("get.key"));
  report found;
  if (const auto document = read_file(name, found)) {
    const auto value = find(*document, key.name);
    if (!value) {
      found.add(describe(config_document::result{config_document::error::no_such_key}, key.name, name));
    } else if (shown.as_json()) {
      json_line line;
      shown.write(value->add_to(line.add("key", key.name)));
    } else {
      for (const ustring8& each : value->texts) shown.output() << each << '\n';
    }
  }
  shown.complain(found);
  return found.empty() ? all_is_well : failure;
}

exit_code list(const settings& values, console& shown) {
  const auto name = values.get<std::string>("list.file");
  report found;
  if (const auto document = read_file(name, found)) {
    linked_file_item item(name);
    item.load();
    for (const auto& each : last_entries(*document)) {
      const stored_value value = find(item, each.key);
      json_line line;
      if (shown.as_json()) {
        shown.write(value.add_to(line.add("key", each.key).add("line", each.line)));
      } else {
        shown.output() << line_for(each.key, value, name, found);
      }
    }
  }
  shown.complain(found);
  return found.empty() ? all_is_well : failure;
}

}  // namespace orva_config
