/// The edits of `config_document`.
///
/// Internal: not installed. Each edit collects the bytes to replace and what is to read otherwise, and gives
/// both to `document_text::replace`, which checks one against the other.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/config_document.hpp"
#include "orva/config/internal/document_layout.hpp"
#include "orva/config/internal/document_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

class document_editor {
 public:
  using error = config_document::error;
  using result = config_document::result;

  document_editor(document_text& document, std::string_view key);

  /// A plain value is given as one element.
  result set(bool is_array, const elements& values, std::string_view comment);
  result set_comment(std::string_view comment);
  result remove();
  /// The key is the name of the section.
  result add_section();

 private:
  result refused(error code, std::optional<std::size_t> line_of_part = std::nullopt) const;
  result apply(std::vector<replacement> replacements, intended_change intended,
               std::optional<std::size_t> line_of_part, error if_not_intended);

  bool is_writable_name() const;
  std::string_view text() const { return document_.text(); }
  std::string slice(std::size_t begin, std::size_t end) const {
    return document_.text().substr(begin, end - begin);
  }

  result change(std::size_t index, stored_value stored, std::string_view comment);
  result change_element(std::size_t index, std::size_t number, const strings::ustring8& value,
                        std::string_view comment);
  result insert(stored_value stored, std::string_view comment);

  replacement filled(const scanned_part& part, const scanned_value& value, std::string_view new_text) const;
  void replace_value(const scanned_part& part, std::string_view value, std::vector<replacement>& out) const;
  void replace_elements(const scanned_part& part, const elements& values,
                        std::vector<replacement>& out) const;
  void rewrite(const scanned_part& part, const stored_value& stored, std::vector<replacement>& out) const;
  error replace_comment(std::size_t index, std::string_view comment, std::vector<replacement>& out) const;
  replacement removed_line(std::size_t index) const;

  document_text& document_;
  /// As it is written.
  std::string spelling_;
  std::string path_;
};

}  // namespace ORVA_NAMESPACE::config::_private
