#include "orva/config/internal/script_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

std::string posix_quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char unit : text) {
    if (unit == '\'') quoted += "'\\'";
    quoted += unit;
  }
  return quoted += '\'';
}

std::string fish_quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char unit : text) {
    if (unit == '\'' || unit == '\\') quoted += '\\';
    quoted += unit;
  }
  return quoted += '\'';
}

script_text& script_text::add(std::string_view fixed) {
  constexpr std::string_view name = "FUNCTION";
  for (std::size_t found = fixed.find(name); found != fixed.npos; found = fixed.find(name)) {
    text_.append(fixed, 0, found).append(function_);
    fixed.remove_prefix(found + name.size());
  }
  text_ += fixed;
  return *this;
}

}  // namespace ORVA_NAMESPACE::config::_private
