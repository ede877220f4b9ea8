#include "orva/config/help_text.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/internal/help_rows.hpp"
#include "orva/config/internal/wrapped_text.hpp"
#include "orva/generic/convert/read_number.hpp"
#include "orva/internal/raise.hpp"
#include "orva/internal/text/display_width.hpp"
#include "orva/platform/terminal.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

using _private::append_wrapped;
using _private::declared_names;
using _private::help_row;
using _private::help_section;
using internal::text::display_width;

constexpr std::size_t indentation = 2;
constexpr std::size_t gap = 2;

std::string term_of(const help_row& row) {
  if (row.names.empty() || row.value.empty()) return row.names + row.value;
  return row.names + ' ' + row.value;
}

/// The scope of a command that is named as in "remote.add".
std::size_t scope_of(const declared_names& names, std::string_view command) {
  std::size_t scope = 0;
  while (!command.empty()) {
    const std::string_view name = command.substr(0, command.find('.'));
    const auto& commands = names.scopes()[scope].commands;
    const auto found = commands.find(name);
    if (found == commands.end()) {
      ORVA_RAISE(exceptions::invalid_argument_value, "Not a declared command: " + std::string(name),
                 ORVA_QUALIFIED("config::help_text"));
    }
    scope = found->second;
    command.remove_prefix(std::min(command.size(), name.size() + 1));
  }
  return scope;
}

/// Texts one below the other. Those of rows begin in one column, after the terms that are not too wide for
/// it.
class help_writer {
 public:
  explicit help_writer(std::size_t width)
      : width_(std::max(width, min_help_width)), widest_term_(std::clamp<std::size_t>(width_ / 3, 8, 32)) {}

  /// Before all else, of all rows that follow.
  void measure(const std::vector<help_row>& rows) {
    for (const help_row& row : rows) {
      const std::size_t width = display_width(term_of(row));
      if (width <= widest_term_) text_column_ = std::max(text_column_, indentation + width + gap);
    }
  }

  void add(std::string_view text, std::size_t first_indentation = 0, std::size_t further_indentation = 0) {
    output_.append(first_indentation, ' ');
    append_wrapped(output_, text, {first_indentation, further_indentation, width_});
  }

  void add_blank_line() { output_ += '\n'; }

  void add_section(const help_section& section) {
    if (section.rows.empty()) return;
    add_blank_line();
    add(section.heading);
    for (const help_row& row : section.rows) add_row(row);
  }

  std::string finish() { return std::move(output_); }

 private:
  void add_row(const help_row& row) {
    const std::string term = term_of(row);
    const std::size_t end = indentation + display_width(term);
    if (end > width_) {
      const std::size_t blanks = std::min(term.find_first_not_of(' '), indentation);
      add(term, indentation + blanks, 3 * indentation);
    } else {
      output_.append(indentation, ' ').append(term);
      if (row.text.empty() || end + gap > text_column_) add_line_end();
    }
    if (row.text.empty()) return;
    const std::size_t column = output_.ends_with('\n') ? 0 : end;
    output_.append(text_column_ - column, ' ');
    append_wrapped(output_, row.text, {text_column_, text_column_, width_});
  }

  void add_line_end() { output_ += '\n'; }

  std::size_t width_;
  std::size_t widest_term_;
  std::size_t text_column_ = 4 * indentation;
  std::string output_;
};

/// The help of one command, or of the program.
class help_page {
 public:
  help_page(const declared_names& names, std::size_t scope, const help_options& options)
      : words_(options.texts),
        rows_(names, words_, _private::shown_keys::needed),
        scope_(scope),
        shown_(names.scopes()[scope]),
        writer_(options.width) {}

  std::string write() {
    const std::vector<help_section> sections = all_sections();
    for (const help_section& section : sections) writer_.measure(section.rows);
    add_usage();
    add_description();
    for (const help_section& section : sections) writer_.add_section(section);
    add_examples();
    add_hint();
    return writer_.finish();
  }

 private:
  std::vector<help_section> all_sections() const {
    std::vector<help_section> sections = {{words_.word("help.arguments"), rows_.arguments(scope_)},
                                          {words_.word("help.commands"), rows_.commands(scope_)}};
    for (help_section& section : rows_.options(scope_)) sections.push_back(std::move(section));
    sections.push_back({words_.word("help.general_options"), rows_.general_options(scope_)});
    return sections;
  }

  void add_usage() {
    const std::string usage = rows_.usage(scope_);
    writer_.add(words_.word("help.usage", {{"command", usage}}), 0, 2 * indentation);
  }

  void add_description() {
    const std::string name = text_name("description", shown_);
    const std::string description = words_.paragraphs(name, shown_.declared->description());
    if (description.empty()) return;
    writer_.add_blank_line();
    writer_.add(description);
  }

  void add_examples() {
    const auto& examples = shown_.declared->examples();
    if (examples.empty()) return;
    writer_.add_blank_line();
    writer_.add(words_.word("help.examples"));
    for (const _private::shown_example& example : rows_.examples(scope_)) {
      writer_.add(example.command_line, indentation, 3 * indentation);
      if (!example.help.empty()) writer_.add(example.help, 3 * indentation, 3 * indentation);
    }
  }

  /// How to get the help of the commands.
  void add_hint() {
    if (shown_.commands.empty() || !rows_.has_help_option(scope_)) return;
    const std::string line = rows_.names_up_to(scope_) + ' ' + words_.word("help.command") + " --help";
    writer_.add_blank_line();
    writer_.add(words_.word("help.more", {{"command", line}}));
  }

  _private::help_words words_;
  _private::help_rows rows_;
  std::size_t scope_;
  const _private::command_scope& shown_;
  help_writer writer_;
};

}  // namespace

strings::ustring8 help_text(const declaration& declared, const help_options& options) {
  const declared_names names(declared);
  return help_page(names, scope_of(names, options.command), options).write();
}

strings::ustring8 version_text(const declaration& declared) {
  std::string text = _private::one_line(declared.name());
  const std::string version = _private::one_line(declared.version());
  if (!text.empty() && !version.empty()) text += ' ';
  return text + version + '\n';
}

std::size_t help_width(const std::ostream& stream) {
  if (const char* const columns = std::getenv("COLUMNS")) {
    const auto width = generic::convert::parse_number<std::uint32_t>(columns);
    if (width && *width != 0) return *width;
  }
  const auto output = platform::output_of(stream);
  const std::size_t width = output ? platform::terminal_columns(*output) : 0;
  return width != 0 ? width : default_help_width;
}

}  // namespace ORVA_NAMESPACE::config
