#include "orva/config/sample_file.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "orva/config/internal/config_file_scanner.hpp"
#include "orva/config/internal/config_quoting.hpp"
#include "orva/config/internal/help_rows.hpp"
#include "orva/config/internal/named_files.hpp"
#include "orva/config/internal/wrapped_text.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

using _private::declared_names;
using _private::declared_setting;

constexpr std::size_t comment_width = 76;

/// Whether a line is wholly a comment: an open quote would take the next line, too.
bool is_comment(std::string_view line) {
  unsigned int position = 0;
  _private::skip_comment(line, position);
  return position == line.size();
}

/// The elements after the equals sign. Nothing if the format cannot hold them on one line.
std::optional<std::string> spelled_values(const setting& described) {
  const auto& values = described.default_texts();
  if (described.type().kind() == value_kind::flag && values.empty()) return "false";
  std::string line;
  for (const std::string_view value : values) {
    if (!_private::can_be_spelled(value) || value.find_first_of("\r\n") != value.npos) return std::nullopt;
    if (!line.empty()) line += ", ";
    line += _private::spelled_value(value, false);
  }
  // The last element of an array is lost where it is empty.
  const bool is_lost = described.type().is_list() && !values.empty() && values.back().empty();
  if (is_lost || !is_comment('#' + line)) return std::nullopt;
  return line;
}

bool is_shown(const declared_setting& declared) {
  return !declared.is_positional && declared.described->successor().empty() &&
         declared.key != _private::named_file_key;
}

struct key_parts {
  std::string_view section;
  std::string_view name;
};

key_parts parts_of(std::string_view key) {
  const std::size_t dot = key.rfind('.');
  if (dot == key.npos) return {"", key};
  return {key.substr(0, dot), key.substr(dot + 1)};
}

class sample_writer {
 public:
  sample_writer(const declared_names& names, const text_lookup& texts)
      : names_(names), words_(texts), rows_(names, words_, _private::shown_keys::needed) {}

  std::string write() {
    add_head();
    for (const auto& [section, numbers] : sections()) {
      if (!section.empty()) text_.append("\n[").append(section).append("]\n");
      for (const std::size_t number : numbers) add_setting(number);
    }
    return std::move(text_);
  }

 private:
  using section_settings = std::pair<std::string_view, std::vector<std::size_t>>;

  /// Keys without a section come first, as after a section they would belong to it.
  std::vector<section_settings> sections() const {
    std::vector<section_settings> sections(1);
    std::unordered_map<std::string_view, std::size_t> numbers = {{"", 0}};
    for (std::size_t number = 0; number < names_.settings().size(); ++number) {
      if (!is_shown(names_.settings()[number])) continue;
      const std::string_view section = parts_of(names_.settings()[number].key).section;
      const auto [found, is_new] = numbers.emplace(section, sections.size());
      if (is_new) sections.push_back({section, {}});
      sections[found->second].second.push_back(number);
    }
    return sections;
  }

  void add_head() {
    const declaration& program = *names_.scopes()[0].declared;
    const std::string name = _private::one_line(program.name());
    add_comment(name + ' ' + _private::one_line(program.version()));
    add_comment(words_.word("help.sample", {{"name", name}}));
  }

  void add_comment(std::string_view text) {
    std::string lines;
    _private::append_wrapped(lines, text, {0, 0, comment_width});
    std::replace(lines.begin(), lines.end(), '"', '\'');
    for (std::string_view rest = lines; !rest.empty();) {
      const std::size_t length = rest.find('\n') + 1;
      if (length > 1) text_.append("# ").append(rest, 0, length);
      rest.remove_prefix(length);
    }
  }

  void add_setting(std::size_t number) {
    const declared_setting& declared = names_.settings()[number];
    const setting& described = *declared.described;
    const auto values = described.is_secret() ? std::string() : spelled_values(described);
    text_ += '\n';
    add_comment(rows_.file_comment(number, !values.has_value()));
    text_.append(1, '#').append(parts_of(declared.key).name);
    text_ += described.type().is_list() && values && !described.is_secret() ? "[] =" : " =";
    if (values && !values->empty()) text_.append(1, ' ').append(*values);
    text_ += '\n';
  }

  const declared_names& names_;
  _private::help_words words_;
  _private::help_rows rows_;
  std::string text_;
};

}  // namespace

strings::ustring8 sample_file(const declaration& declared, const text_lookup& texts) {
  const declared_names names(declared);
  return strings::ustring8(sample_writer(names, texts).write());
}

}  // namespace ORVA_NAMESPACE::config
