#include "orva/config/internal/help_rows.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "orva/config/internal/joined_words.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// A name such as "FILE... KEY" says itself what is repeated.
std::string repeated(std::string value, const setting_type& type) {
  if (type.is_list() && value.find("...") == value.npos) value += "...";
  return value;
}

/// The limits that `integer` and `number` give are those of a type of the language, and no news to a user.
bool is_language_limit(std::int64_t limit) {
  using narrow = std::numeric_limits<std::int32_t>;
  using wide = std::numeric_limits<std::int64_t>;
  return limit == narrow::min() || limit == narrow::max() || limit == wide::min() || limit == wide::max();
}

bool is_language_limit(double limit) {
  using limits = std::numeric_limits<double>;
  return limit == limits::lowest() || limit == limits::max();
}

template <typename Number>
std::string limit_text(Number limit) {
  if (is_language_limit(limit)) return {};
  return types::variant(limit).try_as<strings::ustring8>().value_or(strings::ustring8());
}

template <typename Number>
shown_range limits_of(const value_range<Number>& range) {
  return {limit_text(range.min), limit_text(range.max)};
}

std::string upper_case(std::string_view text) {
  std::string result(text);
  for (char& unit : result) {
    if (unit >= 'a' && unit <= 'z') unit = static_cast<char>(unit - 'a' + 'A');
  }
  return result;
}

std::string_view type_word(value_kind kind) {
  switch (kind) {
    case value_kind::integer:
      return "help.value_integer";
    case value_kind::number:
      return "help.value_number";
    case value_kind::choice:
      return "help.value_choice";
    case value_kind::path:
      return "help.value_path";
    case value_kind::size:
      return "help.value_size";
    case value_kind::duration:
      return "help.value_duration";
    default:
      return "help.value_text";
  }
}

bool is_flag(const setting& described) { return described.type().kind() == value_kind::flag; }

bool has_option(const setting& described) {
  return described.short_option() != 0 || !described.long_option().empty();
}

}  // namespace

shown_range range_shown(const setting_type& type) {
  if (type.kind() == value_kind::integer) return limits_of(type.integers());
  if (type.kind() == value_kind::number) return limits_of(type.numbers());
  return {};
}

std::string text_name(std::string_view kind, const command_scope& scope) {
  std::string name(kind);
  if (!scope.prefix.empty()) name.append(1, '.').append(scope.prefix, 0, scope.prefix.size() - 1);
  return name;
}

std::string shown_name(const declared_setting& declared) {
  return declared.is_positional ? declared.key : name_to_set(declared, "--");
}

help_rows::help_rows(const declared_names& names, const help_words& words, shown_keys keys)
    : names_(names),
      words_(words),
      keys_(keys),
      of_scope_(names.scopes().size()),
      command_of_(names.scopes().size()) {
  for (std::size_t number = 0; number < names.settings().size(); ++number) {
    of_scope_[names.settings()[number].scope].push_back(number);
  }
  for (const command_scope& around : names.scopes()) {
    for (const declared_command& command : around.declared->commands()) {
      command_of_[around.commands.find(command.name)->second] = &command;
    }
  }
}

// Rows.

std::vector<help_row> help_rows::arguments(std::size_t scope) const {
  std::vector<help_row> rows;
  for (const std::size_t number : names_.scopes()[scope].positionals) rows.push_back(row_of(number));
  return rows;
}

std::vector<help_row> help_rows::commands(std::size_t scope) const {
  std::vector<help_row> rows;
  const command_scope& around = names_.scopes()[scope];
  for (const declared_command& command : around.declared->commands()) {
    rows.push_back({command.name, "", command_help(around.commands.find(command.name)->second)});
  }
  return rows;
}

std::string help_rows::command_help(std::size_t scope) const {
  return words_.line(text_name("command", names_.scopes()[scope]), command_of_[scope]->help);
}

std::vector<help_section> help_rows::options(std::size_t scope) const {
  std::vector<help_section> sections(1);
  std::vector<help_row> without_option;
  std::unordered_map<std::string_view, std::size_t> sections_of_groups;
  for (const std::size_t number : settings_of(scope)) {
    if (names_.settings()[number].is_positional) continue;
    const setting& described = *names_.settings()[number].described;
    const std::string_view group = described.group();
    if (group.empty()) {
      (has_option(described) ? sections[0].rows : without_option).push_back(row_of(number));
      continue;
    }
    const auto [found, is_new] = sections_of_groups.emplace(group, sections.size());
    if (is_new) {
      const std::string name = words_.line("group." + std::string(group), group);
      sections.push_back({words_.word("help.group", {{"name", name}}), {}});
    }
    sections[found->second].rows.push_back(row_of(number));
  }
  sections[0].heading = words_.word("help.options");
  append_requests(sections[0].rows, scope);
  sections.push_back({words_.word("help.without_option"), std::move(without_option)});
  std::erase_if(sections, [](const help_section& section) { return section.rows.empty(); });
  return sections;
}

std::vector<help_row> help_rows::general_options(std::size_t scope) const {
  std::vector<help_row> rows;
  for (std::size_t around = names_.scopes()[scope].parent; around != not_found;
       around = names_.scopes()[around].parent) {
    for (const std::size_t number : settings_of(around)) {
      if (has_option(*names_.settings()[number].described)) rows.push_back(row_of(number));
    }
  }
  return rows;
}

std::vector<help_row> help_rows::variables() const {
  std::vector<help_row> rows;
  for (const declared_setting& each : names_.settings()) {
    if (each.described->environment().empty()) continue;
    rows.push_back({one_line(each.described->environment()), "",
                    words_.word("help.man_variable", {{"name", shown_name(each)}})});
  }
  return rows;
}

/// A setting that has one of these options gets it instead.
void help_rows::append_requests(std::vector<help_row>& rows, std::size_t scope) const {
  if (has_help_option(scope)) {
    const bool is_short = names_.find_option(scope, 'h') == not_found;
    rows.push_back({is_short ? "-h, --help" : "    --help", "", words_.word("help.show_help")});
  }
  const bool has_version = scope == 0 && !names_.scopes()[0].declared->version().empty();
  if (has_version && names_.find_option(scope, "version") == not_found) {
    rows.push_back({"    --version", "", words_.word("help.show_version")});
  }
}

// Parts of a row.

help_row help_rows::row_of(std::size_t number) const {
  const declared_setting& declared = names_.settings()[number];
  const setting& described = *declared.described;
  const std::string value = value_of(number);
  if (declared.is_positional) return {"", repeated(value, described.type()), text_of(number)};
  if (has_option(described)) return {names_of(described), is_flag(described) ? "" : value, text_of(number)};
  const bool is_list = described.type().is_list();
  return {declared.key + (is_list ? "[] =" : " ="), value + (is_list ? ", ..." : ""), text_of(number)};
}

std::string help_rows::names_of(const setting& described) const {
  std::string names = "    ";
  if (described.short_option() != 0) names = {'-', described.short_option(), ',', ' '};
  const std::string& name = described.long_option();
  if (name.empty()) return names.substr(0, 2);
  const bool can_be_negated = is_flag(described) && !name.starts_with("no-");
  return names + (can_be_negated ? "--[no-]" : "--") + name;
}

/// The word for the value. Positional arguments without one show their key.
std::string help_rows::value_of(std::size_t number) const {
  const declared_setting& declared = names_.settings()[number];
  const setting& described = *declared.described;
  if (!described.value_name().empty()) return words_.line("value." + declared.key, described.value_name());
  if (declared.is_positional) return upper_case(described.key());
  if (is_flag(described)) return "true|false";
  return words_.word(type_word(described.type().kind()));
}

std::string help_rows::text_of(std::size_t number) const { return with_facts(number, facts_of(number)); }

std::string help_rows::file_comment(std::size_t number, bool with_default) const {
  const setting& described = *names_.settings()[number].described;
  std::vector<std::string> facts = value_facts(described);
  if (with_default) add_default(facts, described);
  add_variable(facts, described);
  return with_facts(number, facts);
}

std::string help_rows::with_facts(std::size_t number, const std::vector<std::string>& facts) const {
  const declared_setting& declared = names_.settings()[number];
  std::string text = words_.line("setting." + declared.key, declared.described->help());
  for (const std::string& fact : facts) {
    if (!text.empty()) text += ' ';
    text += '[' + fact + ']';
  }
  return text;
}

std::vector<std::string> help_rows::facts_of(std::size_t number) const {
  const declared_setting& declared = names_.settings()[number];
  const setting& described = *declared.described;
  std::vector<std::string> facts = value_facts(described);
  add_default(facts, described);
  add_variable(facts, described);
  if (!declared.is_positional && has_option(described)) {
    const bool shows_key = keys_ == shown_keys::all || declared.key != described.long_option();
    if (shows_key) facts.push_back(words_.word("help.key", {{"key", declared.key}}));
    if (described.type().is_list()) facts.push_back(words_.word("help.repeated"));
  }
  if (declared.successor != not_found) {
    const std::string successor = shown_name(names_.settings()[declared.successor]);
    facts.push_back(words_.word("help.deprecated", {{"name", successor}}));
  }
  return facts;
}

/// What values it may have.
std::vector<std::string> help_rows::value_facts(const setting& described) const {
  std::vector<std::string> facts;
  const setting_type& type = described.type();
  if (described.is_required()) facts.push_back(words_.word("help.required"));
  if (type.kind() == value_kind::choice) {
    facts.push_back(words_.word("help.one_of", {{"words", joined(type.choices(), one_line)}}));
  }
  if (std::string range = range_of(type); !range.empty()) facts.push_back(std::move(range));
  return facts;
}

void help_rows::add_default(std::vector<std::string>& facts, const setting& described) const {
  const std::string text = one_line(described.default_text());
  if (text.empty() || (is_flag(described) && text == "false")) return;
  facts.push_back(words_.word("help.default", {{"value", text}}));
}

void help_rows::add_variable(std::vector<std::string>& facts, const setting& described) const {
  if (described.environment().empty()) return;
  facts.push_back(words_.word("help.environment", {{"name", one_line(described.environment())}}));
}

std::string help_rows::range_of(const setting_type& type) const {
  const auto [min, max] = range_shown(type);
  if (!min.empty() && !max.empty()) return words_.word("help.range", {{"min", min}, {"max", max}});
  if (!min.empty()) return words_.word("help.at_least", {{"min", min}});
  if (!max.empty()) return words_.word("help.at_most", {{"max", max}});
  return {};
}

std::vector<shown_example> help_rows::examples(std::size_t scope) const {
  const command_scope& shown = names_.scopes()[scope];
  std::vector<shown_example> examples;
  for (const declaration::example_text& example : shown.declared->examples()) {
    const std::string name = text_name("example", shown) + '.' + std::to_string(examples.size() + 1);
    examples.push_back({one_line(example.command_line), words_.line(name, example.help)});
  }
  return examples;
}

// Usage.

std::string help_rows::names_up_to(std::size_t scope) const {
  std::vector<std::string_view> names;
  for (; scope != 0; scope = names_.scopes()[scope].parent) names.push_back(command_of_[scope]->name);
  std::string text = one_line(names_.scopes()[0].declared->name());
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (!text.empty()) text += ' ';
    text += *name;
  }
  return text;
}

std::string help_rows::usage(std::size_t scope) const {
  const command_scope& used = names_.scopes()[scope];
  std::string usage = names_up_to(scope);
  if (!usage.empty()) usage += ' ';
  usage += words_.word("help.usage_options");
  if (!used.commands.empty()) {
    const std::string command = words_.word("help.usage_command");
    usage += used.declared->is_command_required() ? ' ' + command : " [" + command + ']';
  }
  for (const std::size_t number : used.positionals) {
    const setting& described = *names_.settings()[number].described;
    const std::string value = value_of(number);
    if (described.is_required()) {
      usage += ' ' + repeated(value, described.type());
    } else {
      usage += " [" + value + ']' + (described.type().is_list() ? "..." : "");
    }
  }
  return usage;
}

}  // namespace ORVA_NAMESPACE::config::_private
