#include "orva/config/internal/completion_model.hpp"

#include <algorithm>
#include <iterator>

#include "orva/config/internal/help_rows.hpp"
#include "orva/config/internal/setting_names.hpp"
#include "orva/internal/text/visible_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// Whether a user could type it.
bool is_visible(const std::string& word) {
  std::string visible;
  internal::text::append_visible(visible, word);
  return visible == word;
}

completed_value value_of(const setting_type& type) {
  completed_value value;
  switch (type.kind()) {
    case value_kind::flag:
      value.kind = completed_value::type::nothing;
      break;
    case value_kind::path:
      value.kind = completed_value::type::file;
      break;
    case value_kind::choice:
      value.kind = completed_value::type::word;
      std::copy_if(type.choices().begin(), type.choices().end(), std::back_inserter(value.words), is_visible);
      break;
    default:
      break;
  }
  return value;
}

/// All long names, or the short one if there is none. Deprecated options are not offered.
void offer(completed_scope& scope, const completed_option& option, const std::string& help) {
  const bool has_long = std::any_of(option.names.begin(), option.names.end(),
                                    [](const std::string& name) { return name.starts_with("--"); });
  for (const std::string& name : option.names) {
    if (name.starts_with("--") || !has_long) scope.offered_options.push_back({name, help});
  }
}

void add_option(completed_scope& scope, const declared_setting& declared, const help_words& words) {
  const setting& described = *declared.described;
  completed_option option;
  option.value = value_of(described.type());
  if (described.short_option() != 0) option.names.push_back({'-', described.short_option()});
  const std::string& name = described.long_option();
  if (!name.empty()) option.names.push_back("--" + name);
  const bool is_flag = option.value.kind == completed_value::type::nothing;
  if (is_flag && !name.empty() && !name.starts_with("no-")) option.names.push_back("--no-" + name);
  if (option.names.empty()) return;
  if (described.successor().empty()) {
    offer(scope, option, words.line("setting." + declared.key, described.help()));
  }
  scope.options.push_back(std::move(option));
}

/// A setting that has one of these options gets it instead.
void add_requests(completed_scope& scope, const declared_names& names, const help_words& words) {
  const auto add = [&](const char* name, const char* word) {
    if (names.find_option(0, name) == not_found)
      scope.offered_options.push_back({std::string("--") + name, words.word(word)});
  };
  add("help", "help.show_help");
  if (!names.scopes()[0].declared->version().empty()) add("version", "help.show_version");
}

}  // namespace

std::string_view name_of(completed_value::type kind) {
  constexpr std::string_view names[] = {"nothing", "word", "file", "other"};
  return names[static_cast<std::size_t>(kind)];
}

std::string key_of(std::size_t scope, std::string_view name) {
  return std::to_string(scope).append(1, ' ').append(name);
}

bool is_plain_name(std::string_view name) {
  return std::all_of(name.begin(), name.end(), [](char unit) {
    return is_letter_or_digit(unit) || unit == '.' || unit == '_' || unit == '+' || unit == '-';
  });
}

std::vector<completed_scope> completion_model(const declared_names& names, const help_words& words) {
  std::vector<completed_scope> model(names.scopes().size());
  for (const declared_setting& each : names.settings()) {
    completed_scope& scope = model[each.scope];
    if (!each.is_positional) {
      add_option(scope, each, words);
    } else {
      scope.arguments.push_back(value_of(each.described->type()));
      scope.ends_in_list = each.described->type().is_list();
    }
  }
  for (std::size_t number = 0; number < model.size(); ++number) {
    const command_scope& around = names.scopes()[number];
    model[number].parent = around.parent;
    for (const declared_command& command : around.declared->commands()) {
      const std::size_t inner = around.commands.find(command.name)->second;
      const std::string help = words.line(text_name("command", names.scopes()[inner]), command.help);
      model[number].commands.push_back({{command.name, help}, inner});
    }
  }
  add_requests(model[0], names, words);
  return model;
}

}  // namespace ORVA_NAMESPACE::config::_private
