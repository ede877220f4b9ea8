/// `command_line_parser`: finds the values of declared settings among the words of a command line.
///
///     command_line_parser parser(names, options, {"--threads", "8", "a.jpg"});
///     parser.parse();
///     parser.values()     // "8" for threads, named "--threads", word 1; "a.jpg" for files, word 3
///
/// Internal: not installed. The words are those after the program's name; they must outlive the values. It
/// knows names, not types: a value may still be wrong.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/nearest_name.hpp"
#include "orva/config/settings_options.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct command_line_value {
  std::size_t setting;
  std::string_view text;
  /// The option as it was written, or the name of a positional setting.
  std::string name;
  /// Counted from 1, as in `argv`.
  std::size_t word;
  /// Not to be split at commas.
  bool is_whole = false;
  /// It follows an option that is not known, and may be meant as its value.
  bool is_doubtful = false;
};

struct command_line_fault {
  enum class type { unknown_option, missing_value, unexpected_value, unexpected_argument, unknown_command };
  type kind;
  /// Without anything that may be a value.
  std::string name;
  std::size_t word;
  /// Whose value is missing.
  std::size_t setting = not_found;
  /// Whether a word follows that may be the missing value, though it looks like an option.
  bool is_followed = false;
};

class command_line_parser {
 public:
  /// `slash_asks_for_help` of the options must have a value.
  command_line_parser(const declared_names& names, const settings_options& options,
                      std::vector<std::string_view> words);

  void parse();

  const std::vector<command_line_value>& values() const noexcept { return values_; }
  const std::vector<command_line_fault>& faults() const noexcept { return faults_; }
  /// That of the last command.
  std::size_t scope() const noexcept { return scope_; }
  asked_for asked() const noexcept { return asked_; }

 private:
  using fault = command_line_fault::type;

  /// An option with its dashes, and what is attached to it.
  struct written_option {
    std::string_view dashes;
    std::string_view name;
    std::string_view attached = {};
    bool has_attached = false;
    bool is_whole = false;
  };

  const setting& described(std::size_t number) const { return *names_.settings()[number].described; }
  bool is_flag(std::size_t number) const { return described(number).type().kind() == value_kind::flag; }
  const command_scope& scope_now() const { return names_.scopes()[scope_]; }

  bool is_option(std::string_view word) const;
  bool is_declared_after_slash(std::string_view word) const;
  bool is_negative_number(std::string_view word) const;
  bool takes_number() const;
  bool has_printed_dash(std::string_view word) const;

  void read_next();
  void read_word(std::string_view word);
  void read_command(std::string_view word);
  void read_positional(std::string_view word);

  void read_long(const written_option& option);
  std::size_t find_negated(std::string_view name) const;
  void read_short_options(std::string_view word);
  bool is_misspelt_long(std::string_view name);
  void read_short(char name, std::string_view rest, bool& ends);
  void read_single_dash(std::string_view word);
  written_option split_single_dash(std::string_view word) const;
  std::size_t find_single_dash(std::string_view name) const;

  void read_found(std::size_t number, const written_option& option);
  void read_negation(std::size_t number, const written_option& option);
  bool read_request(std::string_view name, const written_option& option);
  void read_list_words(std::size_t number, const std::string& name);
  void read_value_word(std::size_t number, const std::string& name);

  void add_value(std::size_t number, std::string_view text, std::string name, bool is_whole = false);
  void add_fault(fault kind, std::string name, std::size_t number = not_found);
  void add_missing_value(std::string name, std::size_t number);
  void add_unknown(std::string name, bool may_take_word);

  const declared_names& names_;
  const settings_options& options_;
  std::vector<std::string_view> words_;
  /// The word after the one that is read.
  std::size_t next_ = 0;
  std::size_t scope_ = 0;
  std::size_t next_positional_ = 0;
  bool has_ended_options_ = false;
  bool follows_unknown_ = false;
  /// Positional arguments that follow an unknown option.
  std::size_t doubtful_words_ = 0;
  /// So that a command line of nothing but mistakes costs no more than its length.
  std::size_t searches_left_ = max_searched_names;
  asked_for asked_ = asked_for::nothing;
  std::vector<command_line_value> values_;
  std::vector<command_line_fault> faults_;
};

}  // namespace ORVA_NAMESPACE::config::_private
