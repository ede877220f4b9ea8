#include "orva/config/internal/given_settings.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::config::_private {

namespace {

bool may_have_commas(const setting_type& type) {
  return type.kind() == value_kind::text || type.kind() == value_kind::path;
}

std::string_view without_blanks_around(std::string_view text) {
  const auto begin = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

std::vector<std::string> split_at(std::string_view text, char separator, bool drops_blanks) {
  std::vector<std::string> elements;
  for (;;) {
    const auto end = text.find(separator);
    const std::string_view element = text.substr(0, end);
    elements.emplace_back(drops_blanks ? without_blanks_around(element) : element);
    if (end == text.npos) return elements;
    text.remove_prefix(end + 1);
  }
}

}  // namespace

std::vector<std::string> list_elements(const setting_type& type, std::string_view text) {
  if (may_have_commas(type)) return {std::string(text)};
  return split_at(text, ',', true);
}

std::vector<std::string> variable_elements(const setting_type& type, std::string_view text, char separator) {
  return split_at(text, type.kind() == value_kind::path ? separator : ',', !may_have_commas(type));
}

}  // namespace ORVA_NAMESPACE::config::_private
