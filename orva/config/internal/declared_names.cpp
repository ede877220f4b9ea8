#include "orva/config/internal/declared_names.hpp"

#include <algorithm>

#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/named_files.hpp"
#include "orva/internal/raise.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

[[noreturn]] void raise_wrong(std::string_view what, std::string_view which) {
  ORVA_RAISE(exceptions::invalid_argument_value, std::string(what) + ": " + std::string(which),
             ORVA_QUALIFIED("config::declaration::validate"));
}

}  // namespace

std::string_view without_dashes(std::string_view option) {
  // U+2010 to U+2015, hyphens and dashes, and U+2212, the minus sign, in UTF-8.
  const auto begins_with_printed_dash = [](std::string_view text) {
    if (text.starts_with("\xE2\x88\x92")) return true;
    return text.starts_with("\xE2\x80") && text.size() > 2 && text[2] >= '\x90' && text[2] <= '\x95';
  };
  for (;;) {
    if (option.starts_with('-') || option.starts_with('/')) {
      option.remove_prefix(1);
    } else if (begins_with_printed_dash(option)) {
      option.remove_prefix(3);
    } else {
      return option;
    }
  }
}

std::string name_to_set(const declared_setting& declared, std::string_view dashes) {
  const setting& described = *declared.described;
  if (!described.long_option().empty()) return std::string(dashes) + described.long_option();
  if (described.short_option() != 0) return std::string("-") + described.short_option();
  return declared.key;
}

declared_names::declared_names(const declaration& declared) {
  add_scopes(declared);
  for (std::size_t scope = 0; scope < scopes_.size(); ++scope) add_settings(scope);
  // From here on the keys stay where they are, and maps may refer to them.
  keys_.reserve(settings_.size());
  for (std::size_t number = 0; number < settings_.size(); ++number) index(number);
  for (const command_scope& scope : scopes_) {
    add_allowed_sections(scope);
    check_negations(scope);
    check_positionals(scope);
  }
  check_sections();
  for (declared_setting& each : settings_) {
    if (!each.described->successor().empty()) find_successor(each);
  }
}

void declared_names::add_scopes(const declaration& declared) {
  scopes_.push_back({&declared, "", "", not_found, {}, {}, {}, {}});
  for (std::size_t parent = 0; parent < scopes_.size(); ++parent) {
    const declaration& around = *scopes_[parent].declared;
    if (!around.commands().empty() && !around.positionals().empty()) {
      raise_wrong("Commands beside positional arguments", around.name());
    }
    for (const declared_command& command : around.commands()) {
      if (!scopes_[parent].commands.emplace(command.name, scopes_.size()).second) {
        raise_wrong("Two commands of one name", command.name);
      }
      std::string names = scopes_[parent].names;
      if (!names.empty()) names += '.';
      names += command.name;
      std::string prefix = lower_case(names) + '.';
      scopes_.push_back({&command.settings, std::move(names), std::move(prefix), parent, {}, {}, {}, {}});
    }
  }
}

void declared_names::add_allowed_sections(const command_scope& scope) {
  for (const auto& section : scope.declared->allowed_sections()) {
    allowed_sections_.push_back(scope.prefix + lower_case(section) + '.');
    add_sections_of(scope.prefix + lower_case(section));
  }
}

void declared_names::add_sections_of(std::string_view key) {
  for (auto dot = key.find('.'); dot != key.npos; dot = key.find('.', dot + 1)) {
    sections_.emplace(key.substr(0, dot));
  }
}

bool declared_names::is_allowed(std::string_view key) const {
  return std::any_of(allowed_sections_.begin(), allowed_sections_.end(), [key](const std::string& section) {
    return key.starts_with(section) || key == std::string_view(section).substr(0, section.size() - 1);
  });
}

void declared_names::add_settings(std::size_t scope) {
  const declaration& declared = *scopes_[scope].declared;
  settings_.reserve(settings_.size() + declared.settings().size() + declared.positionals().size());
  for (const setting& each : declared.settings()) add_setting(each, scope, false);
  for (const setting& each : declared.positionals()) add_setting(each, scope, true);
}

void declared_names::add_setting(const setting& described, std::size_t scope, bool is_positional) {
  if (is_positional) scopes_[scope].positionals.push_back(settings_.size());
  std::string key = scopes_[scope].prefix + lower_case(described.key());
  settings_.push_back({&described, std::move(key), scope, is_positional});
}

void declared_names::index(std::size_t number) {
  const declared_setting& each = settings_[number];
  if (!keys_.emplace(each.key, number).second) raise_wrong("Two settings with one key", each.key);
  add_sections_of(each.key);
  const std::string_view variable = each.described->environment();
  if (!variable.empty() && !variables_.emplace(variable, number).second) {
    raise_wrong("Two settings with one variable", variable);
  }
  if (!each.is_positional) index_options(number);
}

void declared_names::index_options(std::size_t number) {
  const setting& described = *settings_[number].described;
  command_scope& scope = scopes_[settings_[number].scope];
  const std::string_view long_option = described.long_option();
  if (!long_option.empty() && !scope.long_options.emplace(long_option, number).second) {
    raise_wrong("Two settings with one option", long_option);
  }
  const char short_option = described.short_option();
  if (short_option != 0 && !scope.short_options.emplace(short_option, number).second) {
    raise_wrong("Two settings with one option", {&short_option, 1});
  }
}

/// `--no-x` is the negation of the flag `--x`, and nothing else beside it.
void declared_names::check_negations(const command_scope& scope) const {
  for (const auto& [name, number] : scope.long_options) {
    if (!name.starts_with("no-")) continue;
    const auto negated = scope.long_options.find(name.substr(3));
    if (negated == scope.long_options.end()) continue;
    if (settings_[negated->second].described->type().kind() == value_kind::flag) {
      raise_wrong("An option that is the negation of a flag", name);
    }
  }
}

void declared_names::check_positionals(const command_scope& scope) const {
  const setting* before = nullptr;
  for (const std::size_t number : scope.positionals) {
    const setting& each = *settings_[number].described;
    if (each.type().kind() == value_kind::flag) raise_wrong("A flag as a positional argument", each.key());
    if (before != nullptr && before->type().is_list()) {
      raise_wrong("A positional argument after a list", each.key());
    }
    if (before != nullptr && each.is_required() && !before->is_required()) {
      raise_wrong("A required positional argument after one that is not", each.key());
    }
    before = &each;
  }
}

/// The elements of a list are keys below its own.
void declared_names::check_sections() const {
  std::vector<std::string_view> keys;
  for (const declared_setting& each : settings_) keys.push_back(each.key);
  std::sort(keys.begin(), keys.end());
  for (const declared_setting& each : settings_) {
    if (!each.described->type().is_list()) continue;
    const std::string section = each.key + '.';
    const auto next = std::lower_bound(keys.begin(), keys.end(), section);
    if (next != keys.end() && next->starts_with(section)) raise_wrong("A list that is a section", each.key);
  }
}

void declared_names::find_successor(declared_setting& deprecated) const {
  const std::string key = scopes_[deprecated.scope].prefix + lower_case(deprecated.described->successor());
  deprecated.successor = find_lower_case_key(key);
  if (deprecated.successor == not_found) raise_wrong("A successor that is not declared", key);
  const setting& successor = *settings_[deprecated.successor].described;
  if (!successor.successor().empty()) raise_wrong("A successor that is deprecated, too", key);
  if (successor.type() != deprecated.described->type()) raise_wrong("A successor of another type", key);
}

std::size_t declared_names::find_key(std::string_view key) const {
  return find_lower_case_key(canonical_key(key));
}

bool declared_names::has_named_file() const {
  const std::size_t number = find_lower_case_key(named_file_key);
  return number != not_found && !settings_[number].described->type().is_list();
}

std::size_t declared_names::find_option(std::size_t scope, std::string_view long_option) const {
  for (; scope != not_found; scope = scopes_[scope].parent) {
    const std::size_t found = found_in(scopes_[scope].long_options, long_option);
    if (found != not_found) return found;
  }
  return not_found;
}

std::size_t declared_names::find_option(std::size_t scope, char short_option) const {
  for (; scope != not_found; scope = scopes_[scope].parent) {
    const std::size_t found = found_in(scopes_[scope].short_options, short_option);
    if (found != not_found) return found;
  }
  return not_found;
}

void declared_names::consider_options(std::size_t scope, nearest_name& search) const {
  for (; scope != not_found; scope = scopes_[scope].parent) {
    for (const auto& [known, number] : scopes_[scope].long_options) {
      search.consider(known);
      const bool is_flag = settings_[number].described->type().kind() == value_kind::flag;
      if (is_flag && search.begins_with("no")) search.consider("no-" + std::string(known));
    }
  }
}

bool declared_names::is_around(std::size_t scope, std::size_t inner) const {
  while (inner != scope && inner != not_found) inner = scopes_[inner].parent;
  return inner == scope;
}

}  // namespace ORVA_NAMESPACE::config::_private
