#include "orva/config/internal/settings_loader.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "orva/config/file_findings.hpp"
#include "orva/config/internal/array_flags.hpp"
#include "orva/config/internal/read_value.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::place;
using diagnostics::severity;
using strings::ustring8;
using types::variant;

namespace {

constexpr bool is_on_windows = platform::native_style == internal::paths::style::windows;
constexpr char path_list_separator = is_on_windows ? ';' : ':';

settings_options with_platform(settings_options options) {
  if (!options.slash_asks_for_help) options.slash_asks_for_help = is_on_windows;
  return options;
}

std::vector<std::string_view> words_of(int argc, const char* const* argv) {
  std::vector<std::string_view> words;
  if (argc < 1 || argv == nullptr || argv[0] == nullptr) return words;
  for (int i = 1; i < argc && argv[i] != nullptr; ++i) words.emplace_back(argv[i]);
  return words;
}

/// The place of a word of the command line: its number is the line.
place place_of_word(std::size_t word) { return {word, 0}; }

std::vector<given_element> elements_of(std::vector<std::string> texts, place at, bool is_hidden = false) {
  std::vector<given_element> elements;
  for (std::string& text : texts) elements.push_back({std::move(text), at, is_hidden});
  return elements;
}

bool same_texts(const given_setting& one, const given_setting& other) {
  const auto same_text = [](const given_element& a, const given_element& b) { return a.text == b.text; };
  return std::equal(one.elements.begin(), one.elements.end(), other.elements.begin(), other.elements.end(),
                    same_text);
}

ustring8 command_line_file() { return "command line"; }

}  // namespace

settings_loader::settings_loader(const declared_names& names, settings_options options)
    : names_(names),
      options_(with_platform(std::move(options))),
      findings_(names, result_.findings, options_.style == command_line_style::gnu ? "--" : "-"),
      command_line_(names.settings().size()),
      environment_(names.settings().size()),
      defaults_(names.settings().size()) {
  result_.settings.resize(names.settings().size());
}

// The command line.

void settings_loader::read_command_line(int argc, const char* const* argv, base_config_item& item) {
  command_line_parser parser(names_, options_, words_of(argc, argv));
  parser.parse();
  scope_ = parser.scope();
  faults_ = parser.faults();
  result_.asked = parser.asked();
  result_.command.assign(names_.scopes()[scope_].names);
  for (const command_line_value& value : parser.values()) add_command_line_value(value);
  for (const given_setting& given : command_line_.all()) store(given, item);
  replace_deprecated(command_line_, item);
}

void settings_loader::add_command_line_value(const command_line_value& value) {
  const setting_type& type = described(value.setting).type();
  const place at = place_of_word(value.word);
  std::vector<std::string> texts{std::string(value.text)};
  if (type.is_list() && !value.is_whole) {
    // `-key=a,b` has two elements of any type; `-key$a,b` is for those with commas.
    const bool splits_all = options_.style == command_line_style::single_dash;
    texts = splits_all ? variable_elements(type, value.text, ',') : list_elements(type, value.text);
  }
  auto elements = elements_of(std::move(texts), at, value.is_doubtful);

  given_setting* const before = command_line_.find(value.setting);
  if (before == nullptr) {
    command_line_.add(
        {value.setting, value.name, command_line_file(), at, std::move(elements), type.is_list()});
  } else if (type.is_list()) {
    std::move(elements.begin(), elements.end(), std::back_inserter(before->elements));
  } else {
    if (before->elements[0].text != value.text) findings_.add_repeated(*before, at);
    before->name = value.name;
    before->elements = std::move(elements);
  }
}

void settings_loader::check_command_line() {
  add_command_line_faults();
  check(command_line_);
}

void settings_loader::add_command_line_faults() {
  using fault = command_line_fault::type;
  const ustring8 file = command_line_file();
  for (const command_line_fault& each : faults_) {
    const place at = place_of_word(each.word);
    switch (each.kind) {
      case fault::unknown_option:
        findings_.add_unknown_option(file, at, each.name, scope_);
        break;
      case fault::unknown_command:
        findings_.add_unknown_command(file, at, each.name, scope_);
        break;
      case fault::missing_value:
        findings_.add(severity::error, "config.missing_value", file, at, {{"name", each.name}});
        if (each.is_followed)
          findings_.add(severity::note, "config.attach_value", file, at, {{"name", each.name}});
        break;
      case fault::unexpected_value:
        findings_.add(severity::error, "config.unexpected_value", file, at, {{"name", each.name}});
        break;
      case fault::unexpected_argument:
        findings_.add(severity::error, "config.unexpected_argument", file, at, {{"argument", each.name}});
        break;
    }
    // No other source has a say about a setting that the user wanted to set.
    if (each.setting != not_found) result_.settings[each.setting].is_set = true;
  }
}

// The environment.

void settings_loader::read_environment(const char* const* envp, base_config_item& item) {
  if (envp == nullptr || !names_.has_variables()) return;
  for (; *envp != nullptr; ++envp) {
    const std::string_view entry = *envp;
    const auto end = entry.find('=');
    if (end != entry.npos && end + 1 < entry.size())
      add_variable(entry.substr(0, end), entry.substr(end + 1));
  }
  for (const given_setting& given : environment_.all()) store(given, item);
  replace_deprecated(environment_, item);
}

void settings_loader::add_variable(std::string_view name, std::string_view text) {
  const std::size_t number = names_.find_variable(name);
  if (number == not_found || environment_.find(number) != nullptr) return;
  const setting_type& type = described(number).type();
  std::vector<std::string> texts{std::string(text)};
  if (type.is_list()) texts = variable_elements(type, text, path_list_separator);
  environment_.add(
      {number, std::string(name), ustring8(name), {}, elements_of(std::move(texts), {}), type.is_list()});
}

void settings_loader::check_environment() { check(environment_); }

// Files.

/// Looks only into sections that are declared, or may have declared keys: names in a file may be so deep that
/// a list of all would be far longer than the file.
void settings_loader::check_file(file_item& item) {
  given_settings file(names_.settings().size());
  file_places places(item.get_filename());
  std::vector<std::string> sections{""};
  while (!sections.empty()) {
    const std::string section = std::move(sections.back());
    sections.pop_back();
    std::vector<base_config_item::value_entry> entries;
    item.get_value_pair_array(section, entries, false);
    for (const auto& [name, node] : entries) {
      std::string key = section.empty() ? std::string(name) : section + '.' + name;
      if (check_entry(file, places, item, key, node)) sections.push_back(std::move(key));
    }
  }
  replace_deprecated(file, item);
  check(file);
}

bool settings_loader::check_entry(given_settings& file, file_places& places, const file_item& item,
                                  const std::string& key, const base_config_item::node_type& node) {
  const bool has_value = (node.first & config_tree::NODE_VALUE_SET) != 0;
  const bool is_array = (node.first & array_flags) == array_flags;
  const std::size_t number = names_.find_lower_case_key(key);
  const bool is_section = names_.sections().contains(key);
  if (number != not_found) {
    if (has_value) add_file_entry(file, places, item, number, node);
    return is_section || (!is_array && !described(number).type().is_list());
  }
  if (names_.is_allowed(key)) return is_section;
  if (has_value) {
    findings_.add_unknown_key(places.file(), places.key(key), key);
  } else if (!is_section) {
    findings_.add_unknown_section(places.file(), places.first_in(key), key);
  }
  return is_section && !is_array;
}

void settings_loader::add_file_entry(given_settings& file, file_places& places, const file_item& item,
                                     std::size_t number, const base_config_item::node_type& node) const {
  const declared_setting& each = names_.settings()[number];
  const bool is_list = (node.first & array_flags) == array_flags;
  std::vector<std::string> texts;
  if (is_list) {
    std::vector<base_config_item::value_entry> elements;
    item.get_array(each.key, elements);
    for (const auto& element : elements) texts.push_back(element.second.second.as_string());
  } else if (described(number).type().is_list()) {
    texts = list_elements(described(number).type(), node.second.as_string());
  } else {
    texts.push_back(node.second.as_string());
  }
  file.add({number, each.key, places.file(), {}, elements_of(std::move(texts), {}), is_list, &places});
}

void settings_loader::check_is_readable(const ustring8& file, bool may_be_missing) {
  auto found = check_readable(file, may_be_missing ? severity::warning : severity::error);
  if (!found || (may_be_missing && found->code == "config.file_missing")) return;
  result_.findings.add(std::move(*found));
}

// All sources.

void settings_loader::read_defaults(base_config_item& item) {
  for (std::size_t number = 0; number < names_.settings().size(); ++number) {
    if (!described(number).has_default()) continue;
    std::vector<std::string> texts;
    for (const ustring8& text : described(number).default_texts()) texts.push_back(text);
    defaults_.add(
        {number, {}, {}, {}, elements_of(std::move(texts), {}), described(number).type().is_list()});
    store(*defaults_.find(number), item);
  }
}

void settings_loader::store(const given_setting& given, base_config_item& item) const {
  const std::string& key = names_.settings()[given.number].key;
  if (!given.is_list) return item.set(key, variant(ustring8(given.elements[0].text)), 0);
  generic::varg_list values;
  for (const given_element& element : given.elements) values.push_back(variant(ustring8(element.text)));
  item.set_array(key, values, {});
}

void settings_loader::check(given_settings& source) {
  for (const given_setting& given : source.all()) {
    const std::size_t successor = names_.settings()[given.number].successor;
    const given_setting* const counts = successor != not_found ? source.find(successor) : nullptr;
    // What is wrong is reported once.
    check_values(given, counts == nullptr || !same_texts(given, *counts));
  }
}

/// What is given for a deprecated setting counts for its successor, under the old name.
void settings_loader::replace_deprecated(given_settings& source, base_config_item& item) {
  const std::size_t count = source.all().size();
  for (std::size_t i = 0; i < count; ++i) {
    given_setting given = source.all()[i];
    const std::size_t successor = names_.settings()[given.number].successor;
    if (successor == not_found) continue;
    const std::string name =
        &source == &command_line_ ? findings_.option_name(successor) : names_.settings()[successor].key;
    findings_.add_deprecated(given, name);
    if (const given_setting* const other = source.find(successor)) {
      if (!same_texts(given, *other)) findings_.add_different_successor(given, name);
      continue;
    }
    given.number = successor;
    store(given, item);
    source.add(std::move(given));
  }
}

void settings_loader::check_values(const given_setting& given, bool reports) {
  const setting_type& type = described(given.number).type();
  checked_setting& result = result_.settings[given.number];
  // A value that another one overrides does no harm.
  const severity level = result.is_set ? severity::warning : severity::error;
  bool is_right = type.is_list() || !given.is_list;
  if (!is_right && reports) findings_.add_no_list(level, given);
  std::vector<variant> values;
  for (std::size_t i = 0; is_right && i < given.elements.size(); ++i) {
    auto [value, error] = read_value(type, std::string_view(given.elements[i].text));
    is_right = error == value_error::none;
    if (is_right) values.push_back(std::move(value));
    if (!is_right && reports) findings_.add_wrong_value(level, given, i, error);
  }
  if (std::exchange(result.is_set, true)) return;
  result.has_value = is_right;
  if (is_right) result.values = std::move(values);
}

checked_settings settings_loader::finish() {
  const bool has_unknown_command = std::any_of(faults_.begin(), faults_.end(), [](const auto& each) {
    return each.kind == command_line_fault::type::unknown_command;
  });
  const bool needs_all = result_.asked == asked_for::nothing && !has_unknown_command;
  const declaration& declared = *names_.scopes()[scope_].declared;
  if (needs_all && declared.is_command_required() && !declared.commands().empty()) {
    findings_.add_missing_command(scope_);
  }
  for (std::size_t number = 0; number < names_.settings().size(); ++number) {
    if (result_.settings[number].is_set) continue;
    add_default(number);
    const declared_setting& each = names_.settings()[number];
    if (!needs_all || result_.settings[number].has_value || !each.described->is_required()) continue;
    if (names_.is_around(each.scope, scope_)) findings_.add_required(number);
  }
  return std::move(result_);
}

/// Without a default a flag is false, and a list empty. A required list has no such value.
void settings_loader::add_default(std::size_t number) {
  const setting& each = described(number);
  checked_setting& result = result_.settings[number];
  for (const ustring8& text : each.default_texts()) {
    result.values.push_back(read_value(each.type(), std::string_view(text)).value);
  }
  result.has_value = each.has_default();
  if (each.has_default() || each.is_required()) return;
  if (each.type().kind() == value_kind::flag) result.values.push_back(false);
  result.has_value = each.type().is_list() || each.type().kind() == value_kind::flag;
}

}  // namespace ORVA_NAMESPACE::config::_private
