#include "orva/config/config_document.hpp"

#include <cstdint>
#include <utility>

#include "orva/config/internal/document_editor.hpp"
#include "orva/config/internal/document_layout.hpp"
#include "orva/config/internal/document_lookup.hpp"
#include "orva/config/internal/document_text.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/unread_file.hpp"
#include "orva/platform/file.hpp"
#include "orva/platform/native_path.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::config {

using _private::document_editor;
using _private::document_text;

namespace {

/// The text of a comment line, without its mark and one blank.
std::string_view without_mark(std::string_view line) {
  line.remove_prefix(line.starts_with('#') ? 1 : 2);
  if (line.starts_with(' ')) line.remove_prefix(1);
  return line;
}

/// Reads the file at a path without links at its end. False if it is not read as a whole.
bool read_file(const platform::native_string& path, std::string& text) {
  platform::input_file file(path);
  if (!file.is_open() || file.size() > std::int64_t{config_document::max_size}) return false;
  text.resize(static_cast<std::size_t>(file.size()));
  return file.read(0, text.data(), text.size()) == text.size();
}

std::string_view code_of(config_document::error code) {
  switch (code) {
    using enum config_document::error;
    case none:
      break;
    case bad_key:
      return "config.edit_bad_key";
    case bad_value:
      return "config.edit_bad_value";
    case empty_value:
      return "config.edit_empty_value";
    case bad_comment:
      return "config.edit_bad_comment";
    case no_such_key:
      return "config.edit_no_such_key";
    case array_element:
      return "config.edit_array_element";
    case unclosed:
      return "config.edit_unclosed";
    case affects_other_keys:
      return "config.edit_affects_other_keys";
    case too_large:
      return "config.edit_too_large";
  }
  return {};
}

}  // namespace

config_document::config_document() : config_document(std::string()) {}
config_document::config_document(std::string text)
    : text_(std::make_unique<document_text>(std::move(text))) {}
config_document::config_document(const config_document& other)
    : text_(std::make_unique<document_text>(*other.text_)), path_(other.path_) {}
config_document::config_document(config_document&& other) noexcept = default;
config_document& config_document::operator=(const config_document& other) {
  return *this = config_document(other);
}
config_document& config_document::operator=(config_document&& other) noexcept = default;
config_document::~config_document() = default;

config_document::load_result config_document::load(const system::path_argument& path) {
  path_ = path.view();
  const platform::native_string native = platform::to_native(path_);
  std::string text;
  if (!read_file(platform::follow_links(native).path, text)) {
    const load_result refused = _private::try_to_read(native);
    // Where it can be opened, a read has failed.
    return refused.error != load_error::none
               ? refused
               : load_result{load_error::unreadable, std::make_error_code(std::errc::io_error)};
  }
  text_ = std::make_unique<document_text>(std::move(text));
  return {};
}

system::replace_file_result config_document::save() const { return save(path_); }

system::replace_file_result config_document::save(const system::path_argument& path) const {
  return system::replace_file(path, text());
}

const std::string& config_document::text() const noexcept { return text_->text(); }

std::optional<strings::ustring8> config_document::get(std::string_view key) const {
  return find_value(*text_, _private::canonical_key(key));
}

std::optional<std::vector<strings::ustring8>> config_document::get_array(std::string_view key) const {
  return find_array(*text_, _private::canonical_key(key));
}

strings::ustring8 config_document::comment(std::string_view key) const {
  const auto line = line_to_edit(*text_, _private::canonical_key(key));
  strings::ustring8 comment;
  if (!line || !begins_line(*text_, *line)) return comment;
  const std::size_t first = comment_above(*text_, *line);
  for (std::size_t i = first; i < *line; ++i) {
    const _private::document_part& part = text_->parts()[i];
    if (i > first) comment += '\n';
    comment += without_mark(std::string_view(text()).substr(part.begin, part.end - part.begin));
  }
  return comment;
}

std::vector<config_document::entry> config_document::entries() const {
  std::vector<entry> list;
  std::size_t line = 1;
  std::size_t position = 0;
  for (const _private::document_part& part : text_->parts()) {
    if (!part.is_stored) continue;
    line += _private::line_number(std::string_view(text()).substr(position), part.begin - position) - 1;
    position = part.begin;
    list.push_back({strings::ustring8(_private::key_of(part.path)), line, part.is_stored_array()});
  }
  return list;
}

config_document::result config_document::set(std::string_view key, std::string_view value,
                                             std::string_view comment) {
  return document_editor(*text_, key).set(false, {strings::ustring8(value)}, comment);
}

config_document::result config_document::set_array(std::string_view key,
                                                   const std::vector<strings::ustring8>& elements,
                                                   std::string_view comment) {
  return document_editor(*text_, key).set(true, elements, comment);
}

config_document::result config_document::set_comment(std::string_view key, std::string_view comment) {
  return document_editor(*text_, key).set_comment(comment);
}

config_document::result config_document::remove(std::string_view key) {
  return document_editor(*text_, key).remove();
}

config_document::result config_document::add_section(std::string_view name) {
  return document_editor(*text_, name).add_section();
}

diagnostics::finding describe(const config_document::result& result, std::string_view key,
                              std::string_view file) {
  const strings::ustring8 name(file);
  if (result.error == config_document::error::none) return {diagnostics::severity::note, {}, name, {}, {}};
  return {diagnostics::severity::error,
          strings::ustring8(code_of(result.error)),
          name,
          {result.line, 0},
          {generic::argument("key", strings::ustring8(key))}};
}

diagnostics::finding describe(const config_document::load_result& result, std::string_view file) {
  const bool is_loaded = result.error == config_document::load_error::none;
  const auto level = is_loaded ? diagnostics::severity::note : diagnostics::severity::error;
  return _private::finding_of(result, file, level);
}

// On Windows a program that refers to it by its address imports it.
constexpr std::size_t config_document::max_size;

}  // namespace ORVA_NAMESPACE::config
