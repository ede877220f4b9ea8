#include "orva/config/man_page.hpp"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/internal/help_rows.hpp"
#include "orva/config/internal/roff_text.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

using _private::command_scope;
using _private::declared_names;
using _private::help_row;
using _private::help_section;
using _private::one_line;
using _private::roff_argument;
using _private::roff_line;

std::string in_font(char font, std::string_view text) {
  if (text.empty()) return {};
  return std::string("\\f") + font + roff_line(text) + "\\fR";
}

class page_writer {
 public:
  void add_title(std::initializer_list<std::string_view> arguments) {
    page_ += ".TH";
    for (const std::string_view argument : arguments) page_.append(1, ' ').append(roff_argument(argument));
    // Neither hyphens nor wide gaps: options and keys are shown as they are typed.
    page_ += "\n.nh\n.ad l\n";
  }

  void add_heading(std::string_view text) { add_request(".SH", text); }
  void add_lower_heading(std::string_view text) { add_request(".SS", text); }

  void add_line(std::string_view text) {
    if (!text.empty()) add_roff(roff_line(text));
  }

  void add_paragraphs(std::string_view text) {
    while (!text.empty()) {
      const std::string_view line = text.substr(0, text.find('\n'));
      text.remove_prefix(std::min(line.size() + 1, text.size()));
      if (line.find_first_not_of(' ') == line.npos) continue;
      page_ += ".PP\n";
      add_line(line);
    }
  }

  void add_roff(std::string_view line) { page_.append(line).append(1, '\n'); }

  /// A term and the text about it.
  void add_item(std::string_view names, std::string_view value, std::string_view text) {
    names.remove_prefix(std::min(names.find_first_not_of(' '), names.size()));
    const std::string_view gap = names.empty() || value.empty() ? "" : " ";
    page_ += ".TP\n";
    add_roff(in_font('B', names).append(gap).append(in_font('I', value)).append("\\&"));
    add_roff(text.empty() ? "\\&" : roff_line(text));
  }

  void add_items(const std::vector<help_row>& rows) {
    for (const help_row& row : rows) add_item(row.names, row.value, row.text);
  }

  std::string finish() { return std::move(page_); }

 private:
  /// The argument may be broken as a line of text.
  void add_request(std::string_view request, std::string_view text) {
    page_.append(request).append(" \"").append(roff_line(text)).append("\"\n");
  }

  std::string page_;
};

class manual {
 public:
  manual(const declared_names& names, const man_page_options& options)
      : names_(names),
        options_(options),
        words_(options.texts),
        reads_files_(!options.files.empty() || names.has_named_file()),
        rows_(names, words_, reads_files_ ? _private::shown_keys::all : _private::shown_keys::needed),
        program_(*names.scopes()[0].declared) {}

  std::string write() {
    const std::string name = one_line(program_.name());
    writer_.add_title({name, one_line(options_.section), one_line(options_.date),
                       name + ' ' + one_line(program_.version()), ""});
    add_name(name);
    writer_.add_heading(words_.word("help.man_synopsis"));
    writer_.add_line(rows_.usage(0));
    add_description();
    writer_.add_heading(words_.word("help.man_options"));
    add_settings(0);
    add_commands();
    add_sources();
    add_examples();
    return writer_.finish();
  }

 private:
  std::string description_of(std::size_t scope) const {
    const command_scope& described = names_.scopes()[scope];
    return words_.paragraphs(text_name("description", described), described.declared->description());
  }

  /// A line by which the indexes of manuals know the page.
  void add_name(const std::string& name) {
    const std::string description = description_of(0);
    writer_.add_heading(words_.word("help.man_name"));
    const std::string first_line = roff_line(description.substr(0, description.find('\n')));
    writer_.add_roff(roff_line(name) + (first_line.empty() ? "" : " \\- ") + first_line);
  }

  void add_description() {
    const std::string description = description_of(0);
    if (description.empty()) return;
    writer_.add_heading(words_.word("help.man_description"));
    writer_.add_paragraphs(description);
  }

  /// The first options are those without a group, and need no heading.
  void add_settings(std::size_t scope) {
    writer_.add_items(rows_.arguments(scope));
    bool is_first = true;
    for (const help_section& section : rows_.options(scope)) {
      if (!is_first) writer_.add_lower_heading(section.heading);
      writer_.add_items(section.rows);
      is_first = false;
    }
  }

  void add_commands() {
    if (names_.scopes().size() == 1) return;
    writer_.add_heading(words_.word("help.man_commands"));
    for (std::size_t scope = 1; scope < names_.scopes().size(); ++scope) {
      writer_.add_lower_heading(rows_.names_up_to(scope));
      writer_.add_line(rows_.usage(scope));
      const std::string description = description_of(scope);
      writer_.add_paragraphs(description.empty() ? rows_.command_help(scope) : description);
      add_settings(scope);
    }
  }

  /// Where settings come from, besides options.
  void add_sources() {
    const std::vector<help_row> variables = rows_.variables();
    if (!variables.empty()) {
      writer_.add_heading(words_.word("help.man_environment"));
      writer_.add_items(variables);
    }
    if (!reads_files_) return;
    writer_.add_heading(words_.word("help.man_file"));
    writer_.add_line(words_.word("help.man_file_text"));
    for (const strings::ustring8& file : options_.files) writer_.add_item(one_line(file), "", "");
  }

  void add_examples() {
    bool is_first = true;
    for (std::size_t scope = 0; scope < names_.scopes().size(); ++scope) {
      for (const _private::shown_example& example : rows_.examples(scope)) {
        if (is_first) writer_.add_heading(words_.word("help.man_examples"));
        writer_.add_item(example.command_line, "", example.help);
        is_first = false;
      }
    }
  }

  const declared_names& names_;
  const man_page_options& options_;
  _private::help_words words_;
  bool reads_files_;
  _private::help_rows rows_;
  const declaration& program_;
  page_writer writer_;
};

}  // namespace

strings::ustring8 man_page(const declaration& declared, const man_page_options& options) {
  const declared_names names(declared);
  return strings::ustring8(manual(names, options).write());
}

}  // namespace ORVA_NAMESPACE::config
