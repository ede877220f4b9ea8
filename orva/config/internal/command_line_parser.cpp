#include "orva/config/internal/command_line_parser.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr bool is_digit(char unit) { return unit >= '0' && unit <= '9'; }

std::string with_dashes(std::string_view dashes, std::string_view name) {
  std::string text(dashes);
  return text.append(name);
}

/// The first character of UTF-8, at most four bytes: an option that is not known is not cut in the middle.
std::string_view first_character(std::string_view text) {
  std::size_t length = 1;
  while (length < std::min<std::size_t>(text.size(), 4) &&
         (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return text.substr(0, length);
}

}  // namespace

command_line_parser::command_line_parser(const declared_names& names, const settings_options& options,
                                         std::vector<std::string_view> words)
    : names_(names), options_(options), words_(std::move(words)) {}

void command_line_parser::parse() {
  values_.reserve(words_.size());
  while (next_ < words_.size()) read_next();
}

void command_line_parser::read_next() {
  const bool followed_unknown = std::exchange(follows_unknown_, false);
  const std::string_view word = words_[next_++];
  if (!has_ended_options_ && word == "--") {
    has_ended_options_ = true;
  } else if (has_printed_dash(word)) {
    const auto end = word.find('=');
    add_unknown(std::string(word.substr(0, end)), end == word.npos);
  } else if (!is_option(word) && (followed_unknown || !is_negative_number(word) || takes_number())) {
    follows_unknown_ = followed_unknown;
    read_word(word);
    follows_unknown_ = false;
  } else if (word == "/?") {
    static_cast<void>(read_request("help", {"/", "?"}));
  } else if (options_.style == command_line_style::single_dash) {
    read_single_dash(word);
  } else if (word.starts_with("--")) {
    const auto end = word.find('=');
    const bool has_attached = end != word.npos;
    read_long({"--", word.substr(2, has_attached ? end - 2 : word.npos),
               has_attached ? word.substr(end + 1) : std::string_view(), has_attached});
  } else {
    read_short_options(word);
  }
}

bool command_line_parser::is_option(std::string_view word) const {
  if (has_ended_options_ || word.size() < 2) return false;
  if (word == "/?" && *options_.slash_asks_for_help) return true;
  if (word[0] == '-') return !is_negative_number(word);
  return options_.style == command_line_style::single_dash && is_declared_after_slash(word);
}

bool command_line_parser::is_declared_after_slash(std::string_view word) const {
  return word[0] == '/' && find_single_dash(split_single_dash(word).name) != not_found;
}

bool command_line_parser::is_negative_number(std::string_view word) const {
  if (has_ended_options_ || word.size() < 2 || word[0] != '-') return false;
  const bool has_digit = is_digit(word[1]) || (word.size() > 2 && word[1] == '.' && is_digit(word[2]));
  if (!has_digit) return false;
  if (options_.style == command_line_style::gnu) return names_.find_option(scope_, word[1]) == not_found;
  return find_single_dash(split_single_dash(word).name) == not_found;
}

/// Whether the next word may be a negative number. Nobody has a file or a command of the name -5: as one of
/// them it is an option that is not known.
bool command_line_parser::takes_number() const {
  const auto& positionals = scope_now().positionals;
  if (next_positional_ >= positionals.size()) return false;
  return described(positionals[next_positional_]).type().kind() != value_kind::path;
}

/// Whether an option was copied from a text in which a word processor replaced its dashes.
bool command_line_parser::has_printed_dash(std::string_view word) const {
  if (has_ended_options_ || !word.starts_with('\xE2')) return false;
  std::string_view name = without_dashes(word);
  if (name.size() == word.size()) return false;
  name = name.substr(0, name.find('='));
  if (name == "help" || names_.find_option(scope_, name) != not_found) return true;
  return name.size() == 1 && names_.find_option(scope_, name[0]) != not_found;
}

// Words.

void command_line_parser::read_word(std::string_view word) {
  if (scope_now().commands.empty()) {
    read_positional(word);
  } else {
    read_command(word);
  }
}

void command_line_parser::read_command(std::string_view word) {
  const auto found = scope_now().commands.find(word);
  if (found != scope_now().commands.end()) {
    scope_ = found->second;
  } else if (!follows_unknown_) {
    add_fault(fault::unknown_command, std::string(word));
    next_ = words_.size();  // the rest belongs to the command
  }
}

void command_line_parser::read_positional(std::string_view word) {
  const auto& positionals = scope_now().positionals;
  if (next_positional_ >= positionals.size()) {
    // A word that was meant for an unknown option may have taken the place of this one.
    if (follows_unknown_ || doubtful_words_ > 0) {
      doubtful_words_ -= follows_unknown_ ? 0 : 1;
    } else {
      add_fault(fault::unexpected_argument, std::string(word));
    }
    return;
  }
  if (follows_unknown_) ++doubtful_words_;
  const std::size_t number = positionals[next_positional_];
  if (!described(number).type().is_list()) ++next_positional_;
  const std::string& value_name = described(number).value_name();
  add_value(number, word, value_name.empty() ? described(number).key() : value_name, true);
}

// Options.

void command_line_parser::read_long(const written_option& option) {
  const std::size_t number = names_.find_option(scope_, option.name);
  if (number != not_found) return read_found(number, option);
  const std::size_t negated = find_negated(option.name);
  if (negated != not_found) return read_negation(negated, option);
  if (read_request(option.name, option)) return;
  add_unknown(with_dashes(option.dashes, option.name), !option.has_attached);
}

/// The flag that `no-flag` names.
std::size_t command_line_parser::find_negated(std::string_view name) const {
  if (!name.starts_with("no-")) return not_found;
  const std::size_t number = names_.find_option(scope_, name.substr(3));
  return number != not_found && is_flag(number) ? number : not_found;
}

bool command_line_parser::read_request(std::string_view name, const written_option& option) {
  asked_for asked = asked_for::nothing;
  if (name == "help") asked = asked_for::help;
  if (name == "version" && names_.has_version()) asked = asked_for::version;
  if (asked == asked_for::nothing) return false;
  if (option.has_attached) {
    add_fault(fault::unexpected_value, with_dashes(option.dashes, option.name));
  } else if (asked_ == asked_for::nothing) {
    asked_ = asked;
  }
  return true;
}

void command_line_parser::read_short_options(std::string_view word) {
  const std::string_view name = word.substr(1, word.find('=') - 1);
  if (is_misspelt_long(name)) return add_unknown(with_dashes("-", name), name.size() + 1 == word.size());
  bool ends = false;
  for (std::size_t position = 1; position < word.size() && !ends; ++position) {
    read_short(word[position], word.substr(position), ends);
  }
}

/// Whether `-name` is a long option with one dash too few, or near to one, or has no letter that is an
/// option. Short options could read it, too: `-output x` would set `-o` to "utput". It is taken for a row of
/// flags only if each letter is one.
bool command_line_parser::is_misspelt_long(std::string_view name) {
  if (name.size() < 3) return false;
  const auto is_known = [this](char letter) {
    return letter == 'h' || names_.find_option(scope_, letter) != not_found;
  };
  const auto is_known_flag = [this](char letter) {
    const std::size_t number = names_.find_option(scope_, letter);
    return number != not_found && is_flag(number);
  };
  if (std::all_of(name.begin(), name.end(), is_known_flag)) return false;
  if (names_.find_option(scope_, name) != not_found || find_negated(name) != not_found) return true;
  if (is_known(name[0])) return false;
  if (std::none_of(name.begin(), name.end(), is_known)) return true;
  if (searches_left_ == 0) return false;
  --searches_left_;
  nearest_name search(name);
  names_.consider_options(scope_, search);
  return !search.found().empty();
}

/// `rest` begins with the name.
void command_line_parser::read_short(char name, std::string_view rest, bool& ends) {
  const std::size_t number = names_.find_option(scope_, name);
  const std::string_view after = rest.substr(1);
  if (number == not_found) {
    if (name == 'h' && read_request("help", {"-", "h"})) return;
    ends = true;  // what follows may be a value
    return add_unknown(with_dashes("-", first_character(rest)), after.empty());
  }
  if (is_flag(number) && !after.starts_with('='))
    return add_value(number, "true", with_dashes("-", {&name, 1}));
  ends = true;
  const bool has_attached = !after.empty();
  read_found(number, {"-", {&name, 1}, after.substr(after.starts_with('=') ? 1 : 0), has_attached});
}

void command_line_parser::read_single_dash(std::string_view word) {
  const written_option option = split_single_dash(word);
  const std::size_t number = find_single_dash(option.name);
  if (number != not_found) return read_found(number, option);
  if (option.name.starts_with("no-")) {
    const std::size_t negated = find_single_dash(option.name.substr(3));
    if (negated != not_found && is_flag(negated)) return read_negation(negated, option);
  }
  const std::string_view request = option.name == "h" || option.name == "?" ? "help" : option.name;
  if (read_request(request, option)) return;
  add_unknown(with_dashes(option.dashes, option.name), !option.has_attached);
}

command_line_parser::written_option command_line_parser::split_single_dash(std::string_view word) const {
  written_option option;
  option.dashes = word.substr(0, word.starts_with("--") ? 2 : 1);
  word.remove_prefix(option.dashes.size());
  const auto end = word.find_first_of("=:$");
  option.name = word.substr(0, end);
  if (end == word.npos) return option;
  option.has_attached = true;
  option.is_whole = word[end] == '$';
  const bool is_pair = word.substr(end).starts_with(":=");
  option.attached = word.substr(end + (is_pair ? 2 : 1));
  return option;
}

/// The long option as it is written, the key in any case, or the short option.
std::size_t command_line_parser::find_single_dash(std::string_view name) const {
  const std::size_t number = names_.find_option(scope_, name);
  if (number != not_found || name.empty()) return number;
  for (std::size_t scope = scope_; scope != not_found; scope = names_.scopes()[scope].parent) {
    const std::size_t found = names_.find_key(names_.scopes()[scope].prefix + std::string(name));
    if (found != not_found && !names_.settings()[found].is_positional) return found;
  }
  return name.size() == 1 ? names_.find_option(scope_, name[0]) : not_found;
}

void command_line_parser::read_found(std::size_t number, const written_option& option) {
  std::string name = with_dashes(option.dashes, option.name);
  if (option.has_attached) return add_value(number, option.attached, std::move(name), option.is_whole);
  if (is_flag(number)) return add_value(number, "true", std::move(name));
  if (options_.style == command_line_style::single_dash && described(number).type().is_list()) {
    return read_list_words(number, name);
  }
  read_value_word(number, name);
}

void command_line_parser::read_negation(std::size_t number, const written_option& option) {
  std::string name = with_dashes(option.dashes, option.name);
  if (option.has_attached) return add_fault(fault::unexpected_value, std::move(name), number);
  add_value(number, "false", std::move(name));
}

void command_line_parser::read_value_word(std::size_t number, const std::string& name) {
  if (next_ == words_.size() || is_option(words_[next_])) return add_missing_value(name, number);
  ++next_;
  add_value(number, words_[next_ - 1], name, options_.style == command_line_style::single_dash);
}

void command_line_parser::read_list_words(std::size_t number, const std::string& name) {
  if (next_ == words_.size() || is_option(words_[next_])) return add_missing_value(name, number);
  while (next_ < words_.size() && !is_option(words_[next_])) add_value(number, words_[next_++], name, true);
}

// Results.

void command_line_parser::add_value(std::size_t number, std::string_view text, std::string name,
                                    bool is_whole) {
  values_.push_back({number, text, std::move(name), next_, is_whole, follows_unknown_});
}

void command_line_parser::add_fault(fault kind, std::string name, std::size_t number) {
  faults_.push_back({kind, std::move(name), next_, number});
}

void command_line_parser::add_missing_value(std::string name, std::size_t number) {
  add_fault(fault::missing_value, std::move(name), number);
  faults_.back().is_followed = next_ < words_.size();
}

void command_line_parser::add_unknown(std::string name, bool may_take_word) {
  add_fault(fault::unknown_option, std::move(name));
  follows_unknown_ = may_take_word;
}

}  // namespace ORVA_NAMESPACE::config::_private
