#include "orva/config/internal/setting_findings.hpp"

#include <utility>
#include <vector>

#include "orva/config/internal/joined_words.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::place;
using diagnostics::severity;
using generic::varg_list;
using strings::ustring8;

namespace {

constexpr std::string_view hidden = "***";

std::string_view code_of_wrong_kind(value_kind kind) {
  switch (kind) {
    case value_kind::flag:
      return "config.not_a_flag";
    case value_kind::integer:
      return "config.not_an_integer";
    case value_kind::number:
      return "config.not_a_number";
    case value_kind::choice:
      return "config.not_a_choice";
    case value_kind::path:
      return "config.not_a_path";
    case value_kind::size:
      return "config.not_a_size";
    case value_kind::duration:
      return "config.not_a_duration";
    case value_kind::text:
      break;
  }
  return "config.not_text";  // no text is wrong
}

void add_range(varg_list& arguments, const setting_type& type) {
  if (type.kind() == value_kind::integer) {
    arguments.push_back("min", type.integers().min);
    arguments.push_back("max", type.integers().max);
  } else {
    arguments.push_back("min", type.numbers().min);
    arguments.push_back("max", type.numbers().max);
  }
}

}  // namespace

void setting_findings::add(severity level, std::string_view code, const ustring8& file, place at,
                           varg_list arguments) {
  report_.add({level, ustring8(code), file, at, std::move(arguments)});
}

void setting_findings::add_wrong_value(severity level, const given_setting& given, std::size_t element,
                                       value_error error) {
  const given_element& given_value = given.elements[element];
  const place at = given.place_of_element(element);
  const setting& described = *names_.settings()[given.number].described;
  const setting_type& type = described.type();
  const bool is_hidden = given_value.is_hidden || described.is_secret();
  varg_list arguments;
  arguments.push_back("name", given.name);
  arguments.push_back("value", is_hidden ? hidden : std::string_view(given_value.text));
  if (error == value_error::out_of_range) {
    add_range(arguments, type);
    return add(level, "config.out_of_range", given.file, at, std::move(arguments));
  }
  if (type.kind() == value_kind::choice) arguments.push_back("choices", joined(type.choices()));
  add(level, code_of_wrong_kind(type.kind()), given.file, at, std::move(arguments));
  if (type.kind() != value_kind::choice || is_hidden || !may_search()) return;
  nearest_name search(given_value.text);
  for (const auto& word : type.choices()) search.consider(word);
  add_nearest(given.file, at, search.found(), "");
}

void setting_findings::add_unknown_option(const ustring8& file, place at, std::string_view option,
                                          std::size_t scope) {
  add(severity::error, "config.unknown_option", file, at, {{"option", option}});
  if (!may_search()) return;
  const std::string_view name = without_dashes(option);
  if (name.size() == 1 && option.size() > 2 && names_.find_option(scope, name[0]) != not_found) {
    return add_nearest(file, at, name, "-");
  }
  nearest_name search(name);
  names_.consider_options(scope, search);
  search.consider("help");
  if (names_.has_version()) search.consider("version");
  add_nearest(file, at, search.found(), dashes_);
}

void setting_findings::add_unknown_command(const ustring8& file, place at, std::string_view command,
                                           std::size_t scope) {
  add(severity::error, "config.unknown_command", file, at, {{"command", command}});
  if (!may_search()) return;
  nearest_name search(command);
  for (const auto& [known, inner] : names_.scopes()[scope].commands) search.consider(known);
  add_nearest(file, at, search.found(), "");
}

void setting_findings::add_unknown_key(const ustring8& file, place at, std::string_view key) {
  add(severity::warning, "config.unknown_key", file, at, {{"key", key}});
  if (!may_search()) return;
  nearest_name search(key);
  for (const declared_setting& known : names_.settings()) search.consider(known.key);
  add_nearest(file, at, search.found(), "");
}

void setting_findings::add_unknown_section(const ustring8& file, place at, std::string_view section) {
  add(severity::warning, "config.unknown_section", file, at, {{"section", section}});
  if (!may_search()) return;
  nearest_name search(section);
  for (const std::string& known : names_.sections()) search.consider(known);
  add_nearest(file, at, search.found(), "");
}

void setting_findings::add_missing_command(std::size_t scope) {
  std::vector<std::string_view> commands;
  for (const declared_command& each : names_.scopes()[scope].declared->commands())
    commands.push_back(each.name);
  add(severity::error, "config.missing_command", {}, {}, {{"commands", joined(commands)}});
}

void setting_findings::add_required(std::size_t number) {
  add(severity::error, "config.required", {}, {}, {{"name", option_name(number)}});
}

void setting_findings::add_no_list(severity level, const given_setting& given) {
  add(level, "config.no_list", given.file, given.place(), {{"name", given.name}});
}

void setting_findings::add_repeated(const given_setting& given, place at) {
  add(severity::note, "config.repeated", given.file, at, {{"name", given.name}});
}

void setting_findings::add_deprecated(const given_setting& given, std::string_view successor) {
  add(severity::warning, "config.deprecated", given.file, given.place(),
      {{"name", given.name}, {"successor", successor}});
}

void setting_findings::add_different_successor(const given_setting& given, std::string_view successor) {
  add(severity::note, "config.different_successor", given.file, given.place(),
      {{"name", given.name}, {"successor", successor}});
}

std::string setting_findings::option_name(std::size_t number) const {
  const declared_setting& each = names_.settings()[number];
  const setting& described = *each.described;
  if (each.is_positional) return described.value_name().empty() ? described.key() : described.value_name();
  return name_to_set(each, dashes_);
}

void setting_findings::add_nearest(const ustring8& file, place at, std::string_view name,
                                   std::string_view prefix) {
  if (name.empty()) return;
  add(severity::note, "config.nearest_name", file, at, {{"name", std::string(prefix).append(name)}});
}

bool setting_findings::may_search() {
  if (searches_left_ == 0) return false;
  --searches_left_;
  return true;
}

}  // namespace ORVA_NAMESPACE::config::_private
